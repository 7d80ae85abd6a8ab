#include "utils/logging_utils.h"

#include <log4cpp/BasicLayout.hh>
#include <log4cpp/Category.hh>
#include <log4cpp/FileAppender.hh>

#include <iostream>
#include <memory>

namespace zelvor {

namespace {

constexpr char LOG_DIRECTORY[] = "/var/log/zelvor"; // an array, because a std::string may not exist before main()

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

void log_message(log4cpp::Category* cat, std::initializer_list<std::string_view> parts,
                 log4cpp::Priority::Value priority, pthread_mutex_t* mutex) {
    if (!cat || !cat->isPriorityEnabled(priority))
        return;
    std::string message;
    for (const std::string_view part : parts)
        message += part;
    if (mutex)
        pthread_mutex_lock(mutex);
    const std::unique_ptr<pthread_mutex_t, int (*)(pthread_mutex_t*)> guard(mutex, pthread_mutex_unlock);
    cat->log(priority, message);
}

void lu_lock_info_pthread(std::string message, log4cpp::Category* cat, pthread_mutex_t* mutex) {
    if (cat && cat->isInfoEnabled())
        log_message(cat, {message}, log4cpp::Priority::INFO, mutex);
}

void lu_lock_debug_pthread(std::string message, log4cpp::Category* cat, pthread_mutex_t* mutex) {
    if (cat && cat->isDebugEnabled())
        log_message(cat, {message}, log4cpp::Priority::INFO, mutex);
}

} // namespace zelvor
