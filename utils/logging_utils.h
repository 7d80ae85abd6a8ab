#pragma once

#include <log4cpp/Priority.hh>
#include <pthread.h>

#include <initializer_list>
#include <string>
#include <string_view>

namespace log4cpp {
class Category;
}

namespace zelvor {

/// A category at priority INFO that logs to `log_filename`, a name relative to /var/log/zelvor, and nowhere else.
/// Prints the path to standard output and truncates the file; where it cannot be opened (its folder must exist),
/// records are lost. A second call for the same category replaces its file. log4cpp owns the result until the process
/// ends. Safe to call before main().
log4cpp::Category* setup_logger(const std::string& log_filename, const std::string& category_name);

/// Logs the parts as one message; where the category is null or drops the priority, nothing is even joined. The mutex,
/// if there is one, is held while the message is written.
void log_message(log4cpp::Category* cat, std::initializer_list<std::string_view> parts,
                 log4cpp::Priority::Value priority = log4cpp::Priority::INFO, pthread_mutex_t* mutex = nullptr);

/// Logs at INFO where the category is enabled for INFO or for DEBUG: messages of both carry the INFO label. The mutex,
/// if there is one, is held while the message is written. A null category is silent.
void lu_lock_info_pthread(std::string message, log4cpp::Category* cat, pthread_mutex_t* mutex);
void lu_lock_debug_pthread(std::string message, log4cpp::Category* cat, pthread_mutex_t* mutex);

} // namespace zelvor
