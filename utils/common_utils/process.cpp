#include "utils/common_utils/process.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <fstream>
#include <iostream>

#include <unistd.h>

namespace zelvor {

timeval tp;
long seconds;
long microseconds;

namespace {

void write_line(const std::string& filename, const std::string& text) { std::ofstream(filename) << text << '\n'; }

} // namespace

std::string exec(const std::string& cmd) {
    FILE* pipe = popen(cmd.c_str(), "r");
    if (!pipe)
        return "ERROR " + std::to_string(errno);
    std::string output;
    char piece[128];
    ssize_t length = 0;
    while ((length = read(fileno(pipe), piece, sizeof piece)) > 0 || (length < 0 && errno == EINTR)) // a signal: go on
        output.append(piece, static_cast<std::size_t>(std::max<ssize_t>(length, 0)));
    pclose(pipe);
    return output;
}

bool equivalent(const std::string& s1, const std::string& s2, const std::string& temp_directory) {
    const std::string filename1 = temp_directory + "/file1.txt";
    const std::string filename2 = temp_directory + "/file2.txt";
    write_line(filename1, s1);
    write_line(filename2, s2);
    // diff reports missing files on standard error; only as output do they count as a difference
    const std::string differences = exec("diff --brief -b -B " + filename1 + " " + filename2 + " 2>&1");
    std::cout << differences << std::endl;
    return differences.empty(); // kept: of files of an earlier call, where they cannot be written
}

void start_time() {
    gettimeofday(&tp, nullptr);
    seconds = tp.tv_sec;
    microseconds = tp.tv_usec;
}

std::int64_t stop_time() {
    gettimeofday(&tp, nullptr);
    return std::int64_t{tp.tv_sec - seconds} * 1'000'000 + (tp.tv_usec - microseconds);
}

} // namespace zelvor
