// Runs a target once for every file named on the command line, or in a folder named there: for compilers without a
// fuzzer.
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

int runs = 0;

void run(const std::filesystem::path& path) {
    std::fprintf(stderr, "%s\n", path.c_str()); // tells which one was last
    std::ifstream file(path, std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(text.data()), text.size());
    ++runs;
}

} // namespace

int main(int argc, char** argv) {
    for (int i = 1; i < argc; ++i) {
        if (!std::filesystem::is_directory(argv[i])) {
            run(argv[i]);
            continue;
        }
        for (const auto& entry : std::filesystem::directory_iterator(argv[i]))
            run(entry.path());
    }
    std::fprintf(stderr, "%d inputs\n", runs);
    return runs == 0; // a corpus that is not found must not pass
}
