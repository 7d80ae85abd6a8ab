#include "utils/common_utils/output_file.h"

#include "tests/testing.h"

namespace zelvor {

TEST(OutputFile, FollowsLinksToWhatIsNotThereYet) {
    const TemporaryDirectory directory;
    for (const auto& [name, target] : {std::pair("a", "n"), {"b", "./a"}, {"circle", "circle"}})
        std::filesystem::create_symlink(target, directory.path(name));
    EXPECT_EQ(OutputFile::target_of(directory.path("b")), std::filesystem::canonical(directory.path()) / "n");
    EXPECT_EQ(OutputFile::target_of(directory.path("circle")), directory.path("circle"));
}

} // namespace zelvor
