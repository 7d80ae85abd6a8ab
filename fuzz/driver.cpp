// Runs a target once for every file named on the command line, or in a folder named there, and for "-random=COUNT" on
// so many inputs of random bytes: for compilers without a fuzzer.
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

int runs = 0;

void run(const std::string& input) {
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(input.data()), input.size());
    ++runs;
}

void run_file(const std::filesystem::path& path) {
    std::fprintf(stderr, "%s\n", path.c_str()); // tells which one was last
    std::ifstream file(path, std::ios::binary);
    run({std::istreambuf_iterator<char>(file), {}});
}

void run_random(const char* arguments) {
    int count = 0;
    unsigned int seed = std::random_device()();
    std::sscanf(arguments, "%d,%u", &count, &seed);
    std::fprintf(stderr, "-random=%d,%u\n", count, seed); // repeats it
    std::mt19937 random(seed);
    for (int i = 0; i < count; ++i) {
        std::string input(random() % 64, '\0');
        for (char& c : input)
            c = static_cast<char>(random());
        run(input);
    }
}

} // namespace

int main(int argc, char** argv) {
    constexpr std::string_view random_option = "-random=";
    for (int i = 1; i < argc; ++i) {
        if (std::string_view(argv[i]).starts_with(random_option))
            run_random(argv[i] + random_option.size());
        else if (!std::filesystem::is_directory(argv[i]))
            run_file(argv[i]);
        else
            for (const auto& entry : std::filesystem::directory_iterator(argv[i]))
                run_file(entry.path());
    }
    std::fprintf(stderr, "%d inputs\n", runs);
    return runs == 0; // a corpus that is not found must not pass
}
