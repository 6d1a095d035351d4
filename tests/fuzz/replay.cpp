// Runs a fuzz driver over every file of the folders named. A folder without files is a fault: nothing was
// tried.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

int main(int argc, char** argv) {
    size_t tried = 0;
    for (int i = 1; i < argc; ++i)
        for (const auto& entry : std::filesystem::directory_iterator(argv[i])) {
            std::ifstream file(entry.path(), std::ios::binary);
            const std::vector<char> bytes((std::istreambuf_iterator<char>(file)), {});
            std::printf("%s\n", entry.path().filename().c_str());
            std::fflush(stdout);  // a crash is told with the file that made it
            LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size());
            ++tried;
        }
    return tried == 0;
}
