#pragma once

#include <sys/time.h>

#include <cstdint>
#include <string>

/// Shell commands and a stopwatch.
namespace zelvor {

/// Runs cmd in the shell and returns all of its standard output, line ends and NULs included, whatever signals arrive
/// meanwhile. "ERROR " and the error number when the shell cannot be started.
std::string exec(const std::string& cmd);

/// Whether diff finds no difference in the texts, overlooking empty lines and how wide white space is. Writes them to
/// file1.txt and file2.txt in temp_directory, leaves these there, and prints what diff says to standard output. False
/// when there is no such directory; files that are there and cannot be written are compared as they are. The directory
/// is put into a shell command as it is: no blanks, nothing from outside.
bool equivalent(const std::string& s1, const std::string& s2, const std::string& temp_directory);

/// The one stopwatch of the process, without locking: the last reading, and the start in seconds and microseconds.
extern timeval tp;
extern long seconds;
extern long microseconds;

void start_time();
std::int64_t stop_time(); ///< microseconds since start_time()

} // namespace zelvor
