// The older form of files, written here as those machines had it in memory.
#include "base/BigEndian.h"
#include "store/NewMemoryPool.h"
#include "store/ObjectIndexBitmap.h"
#include "store_graph.h"

namespace corvane::test {
namespace {

struct Variant {
    const char* why;
    bool textMagic, littleEndianIds, littleEndianCount;
    unsigned zeroWords;  // between the first objects
};

// Bytes of the pool's score in the older form; behaviour words hold what a foreign program left there.
Bytes Legacy(const NewMemoryPool& pool, const Variant& v) {
    std::vector<std::pair<uint8_t*, uint32_t>> objects;  // start, position of its word
    std::vector<int16_t> classes;
    std::map<int16_t, uint16_t> ids;
    uint32_t position = 0;
    ObjectIndexBitmap(pool).ForEach([&](ObjectIndexBitmap::Object object) {
        if (objects.size() == 2) position += 2 * v.zeroWords;
        objects.emplace_back(object.start, position);
        position += 2 + NewMemoryPool::SizeOf(object.start);
        const int16_t word = ClassNumberOf(object.start);
        if (word > 0 && ids.emplace(word, classes.size() + 1).second) classes.push_back(word);
    });
    Bytes bytes = {0xFF, 0xFF, 0x01, 0x0C, 0x03, 0x19, 0x05, 0x08, 0x07, 0x08, 0x09, 0x03, 0x0B, 0x0C};
    if (v.textMagic) std::copy_n("TARN_WIN_1.0", 12, bytes.begin() + 2);
    bytes.resize(24);
    bytes[v.littleEndianCount ? 22 : 23] = static_cast<uint8_t>(classes.size());
    for (const int16_t number : classes) {
        const std::string name = InfoOf(number)->name;
        bytes.insert(bytes.end(), name.c_str(), name.c_str() + name.size() + 1);
    }
    const size_t stream = bytes.size();
    const auto positionOf = [&](uint32_t distance) -> uint32_t {
        const auto* target = StoredSpace::At<uint8_t>(distance);
        uint32_t found = 0;
        for (const auto& [start, at] : objects)
            if (target >= start && target < start + NewMemoryPool::SizeOf(start))
                found = at + 2 + static_cast<uint32_t>(target - start);
        return found;
    };
    for (const auto& [start, at] : objects) {
        bytes.resize(stream + at);
        const int16_t word = ClassNumberOf(start);
        const auto id = static_cast<uint16_t>(word < 0 ? word : ids[word]);
        bytes.push_back(static_cast<uint8_t>(v.littleEndianIds ? id : id >> 8));
        bytes.push_back(static_cast<uint8_t>(v.littleEndianIds ? id >> 8 : id));
        Bytes record(start, start + NewMemoryPool::SizeOf(start));
        if (word > 0) {
            const ClassInfo& info = *InfoOf(word);
            if (word != 11) std::fill_n(record.begin(), 4, uint8_t{0xCD});
            if (info.secondWord) std::fill_n(record.begin() + info.secondWord, 4, uint8_t{0xCD});
            for (const LinkField& link : info.links) {
                const uint32_t value = positionOf(PointerAt(start, link.offset));
                std::memcpy(&record[link.offset], &value, 4);
            }
        }
        bytes.insert(bytes.end(), record.begin(), record.end());
    }
    return bytes;
}

TEST_F(StoreTest, LegacyFilesOfEveryVariantHoldTheSameGraph) {
    GraphBuilder graph;
    graph.EveryRelation();
    void* font = graph.New(24);
    PutPointer(font, 16, graph.NewText("Quarto"));
    graph.Ring(graph.document, "30", {font});
    graph.FinishHanging();
    graph.FillWithNoise(2);
    const std::vector<std::string> expected = Describe(*pool);
    const Variant variants[] = {
        {"header and ids most significant byte first", false, false, false, 0},
        {"ids the other way round", true, true, false, 0},
        {"the count too", false, true, true, 0},
        {"with a zero run", true, false, false, 7},
    };
    for (const Variant& v : variants) {
        SCOPED_TRACE(v.why);
        const Bytes bytes = Legacy(*pool, v);
        OtherPool other;
        LoadReport report;
        ASSERT_TRUE(LoadScore(*other, bytes, &report)) << TextOf(report.faults.at(0));
        EXPECT_EQ(Describe(*other), expected);
        for (const size_t cut : {bytes.size() - 1, bytes.size() / 2, size_t{30}}) {
            OtherPool another;
            EXPECT_FALSE(
                LoadScore(*another, Bytes(bytes.begin(), bytes.begin() + static_cast<ptrdiff_t>(cut))));
        }
    }
}

TEST_F(StoreTest, LegacyPointersAstrayAreRefused) {
    GraphBuilder graph;
    const Bytes good = Legacy(*pool, {"", false, false, false, 0});
    ASSERT_TRUE(LoadScore(*OtherPool(), good));
    const size_t pages = good.size() - 160 - 50 - 50 - 70 + 2 + 4;  // the Document's pointer at 4
    ASSERT_EQ(good[pages], 160 + 2 + 4);
    for (const uint32_t value : {1u, 160u + 1, 160u + 2, 160u + 2 + 8, 0xFFFFFFFFu, 330u}) {
        Bytes bytes = good;
        std::memcpy(&bytes[pages], &value, 4);
        EXPECT_FALSE(LoadScore(*OtherPool(), bytes)) << value;
    }
}

}  // namespace
}  // namespace corvane::test
