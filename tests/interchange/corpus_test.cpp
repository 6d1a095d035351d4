// What the fuzz driver of the importer found worth keeping, read again.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

#include "../fuzz/fuzz_import.cpp"

namespace corvane {
namespace {

TEST(ImportCorpus, EveryInputIsRefusedOrBecomesASoundScore) {
    int inputs = 0;
    for (const auto& entry :
         std::filesystem::directory_iterator(CORVANE_SOURCE_DIR "/tests/data/fuzz/import")) {
        SCOPED_TRACE(entry.path().filename());
        std::ifstream file(entry.path(), std::ios::binary);
        const std::vector<uint8_t> bytes{std::istreambuf_iterator<char>(file), {}};
        EXPECT_EQ(LLVMFuzzerTestOneInput(bytes.data(), bytes.size()), 0);
        ++inputs;
    }
    EXPECT_GT(inputs, 20);
}

}  // namespace
}  // namespace corvane
