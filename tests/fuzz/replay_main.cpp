// Replays a fuzz target's corpus without libFuzzer: every file under the
// folders given is passed to LLVMFuzzerTestOneInput once. Built by the
// ordinary compilers, so that the corpora (seeds and every finding kept as a
// regression input) run in each test suite and under the sanitizers.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int main(int argc, char** argv) {
    namespace fs = std::filesystem;
    std::size_t inputs = 0;
    for (int a = 1; a < argc; ++a) {
        std::vector<fs::path> files;
        for (const auto& e : fs::recursive_directory_iterator(argv[a]))
            if (e.is_regular_file()) files.push_back(e.path());
        std::sort(files.begin(), files.end());
        for (const fs::path& f : files) {
            std::ifstream in(f, std::ios::binary);
            const std::string bytes((std::istreambuf_iterator<char>(in)),
                                    std::istreambuf_iterator<char>());
            LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()),
                                   bytes.size());
            ++inputs;
        }
    }
    std::printf("%zu inputs replayed\n", inputs);
    return inputs > 0 ? 0 : 1;
}
