#include "utils/common_utils/crash_handler.h"

#include "tests/testing.h"

#include <cstdint>
#include <cstdio>

namespace zelvor {

TEST(CrashHandlerDeathTest, ReportsTheFaultAndWhereItHappened) {
    volatile std::uintptr_t address = 0x10; // unmapped; volatile, so that no compiler sees it coming
    const auto crash = [&] {
        install_error_handler();
        *reinterpret_cast<volatile char*>(address) = 1;
    };
    const auto is_report = [](const std::string& text) {
        void *instruction, *first_frame;
        int end = -1;
        std::sscanf(text.c_str(),
                    "signal 11 (Segmentation fault), address is 0x10 from %p [bt]: (1) %*[^[][%p] [bt]: (2) %n",
                    &instruction, &first_frame, &end);
        return end > 0 && first_frame == instruction;
    };
    EXPECT_EXIT(crash(), testing::ExitedWithCode(1), testing::Truly(is_report));
    const auto jump = [&] { // where not even the instruction can be read
        install_error_handler();
        reinterpret_cast<void (*)()>(address)();
    };
    EXPECT_EXIT(jump(), testing::ExitedWithCode(1), testing::HasSubstr("address is 0x10 from 0x10\n"));
}

} // namespace zelvor
