#include "utils/common_utils/crash_handler.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sys/mman.h>

#include <cstdio>
#include <string>

namespace zelvor {
namespace {

TEST(CrashHandlerDeathTest, ReportsTheFaultAndWhereItHappened) {
    void* page = mmap(nullptr, 1, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    ASSERT_NE(page, MAP_FAILED);
    const auto crash = [page] {
        install_error_handler();
        *static_cast<volatile char*>(page) = 1;
    };
    const auto is_report = [page](const std::string& text) {
        void *address, *instruction, *first_frame;
        int end = -1;
        std::sscanf(text.c_str(),
                    "signal 11 (Segmentation fault), address is %p from %p [bt]: (1) %*[^[][%p] [bt]: (2) %n", &address,
                    &instruction, &first_frame, &end);
        return end > 0 && address == page && first_frame == instruction;
    };
    EXPECT_EXIT(crash(), testing::ExitedWithCode(1), testing::Truly(is_report));
    munmap(page, 1);
}

} // namespace
} // namespace zelvor
