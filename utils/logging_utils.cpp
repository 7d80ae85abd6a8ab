#include "utils/logging_utils.h"

#include <log4cpp/BasicLayout.hh>
#include <log4cpp/Category.hh>
#include <log4cpp/FileAppender.hh>

#include <iostream>

namespace zelvor {

namespace {

constexpr char LOG_DIRECTORY[] = "/var/log/zelvor"; // an array, because a std::string may not exist before main()

void log_info(const std::string& message, log4cpp::Category& category, pthread_mutex_t* mutex) {
    if (mutex)
        pthread_mutex_lock(mutex);
    category.info(message);
    if (mutex)
        pthread_mutex_unlock(mutex);
}

} // namespace

log4cpp::Category* setup_logger(const std::string& log_filename, const std::string& category_name) {
    static const std::ios_base::Init streams; // std::cout may not exist before main() either
    const std::string path = std::string(LOG_DIRECTORY) + "/" + log_filename;
    std::cout << "log path: " << path << std::endl;
    log4cpp::Category& category = log4cpp::Category::getInstance(category_name);
    category.removeAllAppenders(); // setAppender() alone would add one
    auto* appender = new log4cpp::FileAppender("FileAppender", path, false, 0644);
    appender->setLayout(new log4cpp::BasicLayout);
    category.setAdditivity(false);
    category.setAppender(appender);
    category.setPriority(log4cpp::Priority::INFO);
    return &category;
}

void lu_lock_info_pthread(std::string message, log4cpp::Category* cat, pthread_mutex_t* mutex) {
    if (cat && cat->isInfoEnabled())
        log_info(message, *cat, mutex);
}

void lu_lock_debug_pthread(std::string message, log4cpp::Category* cat, pthread_mutex_t* mutex) {
    if (cat && cat->isDebugEnabled())
        log_info(message, *cat, mutex);
}

} // namespace zelvor
