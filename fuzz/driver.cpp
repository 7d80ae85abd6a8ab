// Runs a target on every file named on the command line, or in a folder named there, and on each beginning of it, and
// for
// "-random=COUNT,SEED" on so many inputs of random bytes: for compilers without a fuzzer.
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

int run(const std::string& input) {
    return LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(input.data()), input.size());
}

int run_files(const std::filesystem::path& path) {
    if (std::filesystem::is_directory(path)) {
        int runs = 0;
        for (const auto& entry : std::filesystem::directory_iterator(path))
            runs += run_files(entry.path());
        return runs;
    }
    std::fprintf(stderr, "%s\n", path.c_str()); // tells which one was last
    std::ifstream file(path, std::ios::binary);
    const std::string input{std::istreambuf_iterator<char>(file), {}};
    for (std::size_t length = 0; length <= input.size(); ++length)
        run(input.substr(0, length));
    return 1;
}

} // namespace

int main(int argc, char** argv) {
    int runs = 0, count = 0;
    unsigned int seed = std::random_device()();
    for (int i = 1; i < argc; ++i)
        if (std::sscanf(argv[i], "-random=%d,%u", &count, &seed) == 0)
            runs += run_files(argv[i]);
    std::fprintf(stderr, "-random=%d,%u\n", count, seed); // repeats it
    for (std::mt19937 random(seed); count > 0; --count)
        run(std::to_string(random()));
    std::fprintf(stderr, "%d files\n", runs);
    return runs == 0; // a corpus that is not found must not pass
}
