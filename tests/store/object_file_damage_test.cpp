// Score files cut short, damaged, or written by older programs: what a load refuses and what it still takes.
#include <algorithm>
#include <set>

#include "base/BigEndian.h"
#include "store/FileForm.h"
#include "store/NewMemoryPool.h"
#include "store/ObjectFilePlaces.h"
#include "store/RepairTable.h"
#include "store_graph.h"

namespace corvane::test {
namespace {

using ObjectFile = StoreTest;

// A score of some classes that have strings, symbols and events, for the damage below.
Bytes SmallScore() {
    GraphBuilder graph;
    void* font = graph.New(24);
    PutPointer(font, 16, graph.NewText("Quarto"));
    PutPointer(font, 22, graph.NewText("Marcelane"));
    graph.Ring(graph.document, "30", {font});
    void *staff = graph.New(5), *part = graph.New(16), *crossing = graph.New(15), *voice = graph.New(14);
    graph.Ring(graph.document, "13", {part});
    graph.Ring(part, "18", {staff});
    graph.Ring(graph.system, "3s", {staff});
    graph.Ring(graph.measure, "11", {crossing});
    graph.Ring(part, "16", {crossing});
    graph.Ring(crossing, "20", {voice});
    PutPointer(crossing, 34, staff);
    void *column = graph.New(19), *stem = graph.New(22), *note = graph.New(21), *chord = graph.New(20);
    void *rest = graph.New(26), *tempo = graph.New(99), *beam = graph.New(107);
    graph.Ring(voice, "21", {chord, rest});
    graph.Ring(graph.measure, "31", {column, beam});
    graph.Ring(column, "32", {chord});
    graph.Ring(column, "33", {stem});
    graph.Ring(chord, "40", {note});
    graph.Ring(stem, "60", {note});
    PutPointer(note, 32, font);
    graph.Ring(graph.measure, "100", {tempo});
    static_cast<uint8_t*>(tempo)[16] = static_cast<uint8_t*>(tempo)[20] = 1;
    return Saved(*MemoryManager::Instance().GetCurrentPool());
}

// Refused whole, and the pool is as new.
void ExpectRefused(const Bytes& bytes) {
    OtherPool other;
    LoadReport report;
    const Status status = LoadScore(*other, bytes, &report);
    EXPECT_EQ(status.fault(), Fault::Damaged);
    EXPECT_EQ(status.message(), "Invalid file");
    EXPECT_EQ(report.faults.empty(), status.ok());
    EXPECT_EQ(other->FirstObject(), nullptr);
    EXPECT_EQ(other->BlockCount(), 1u);
    EXPECT_EQ(other->Free(), other->Total());
    EXPECT_EQ(other->DocumentObject(), nullptr);
}

TEST_F(ObjectFile, IsRefusedCutAtAnyByte) {
    const Bytes good = SmallScore();
    ASSERT_TRUE(LoadScore(*OtherPool(), good));
    for (size_t length = 0; length < good.size(); ++length) {
        SCOPED_TRACE(length);
        ExpectRefused(Bytes(good.begin(), good.begin() + static_cast<ptrdiff_t>(length)));
        if (HasFailure()) return;
    }
}

TEST_F(ObjectFile, RandomDamageIsRefusedOrLeavesASoundGraph) {
    const Bytes good = SmallScore();
    std::minstd_rand random(7);
    int refused = 0, taken = 0;
    for (int i = 0; i < 4000; ++i) {
        Bytes bytes = good;
        for (unsigned n = 1 + random() % 3; n > 0; --n)
            bytes[random() % bytes.size()] = static_cast<uint8_t>(random());
        OtherPool other;
        if (LoadScore(*other, bytes)) {
            ++taken;
            ASSERT_TRUE(CheckPool(*other).empty()) << i;
            EXPECT_FALSE(Saved(*other).empty());
        } else {
            ++refused;
            ASSERT_EQ(other->FirstObject(), nullptr) << i;
        }
    }
    EXPECT_GT(refused, 500);
    EXPECT_GT(taken, 500);
}

// Where in the bytes object `number` begins, behind its id.
size_t RecordAt(const Bytes& bytes, int number) {
    size_t at = 24;
    std::vector<int16_t> classes;
    for (int names = ReadBig16(&bytes[22]); names > 0; --names) {
        const std::string name(reinterpret_cast<const char*>(&bytes[at]));
        classes.push_back(NumberOf(name));
        at += name.size() + 1;
    }
    for (;; --number) {
        const auto id = static_cast<int16_t>(ReadBig16(&bytes[at]));
        if (number == 1) return at + 2;
        at += id < 0 ? static_cast<size_t>(12 - id)
                     : TypedSpan(InfoOf(classes[static_cast<size_t>(id) - 1])->size);
    }
}

TEST_F(ObjectFile, EachKindOfDamageIsRefused) {
    const Bytes good = SmallScore();
    // Objects: 1 Document, 2 Page, 3 System, 4 Measure, 5 SimpleFont, 6 and 7 its texts, 8 SimpleStaff, 9
    // DocStaff.
    const size_t document = RecordAt(good, 1), page = RecordAt(good, 2), text = RecordAt(good, 6);
    const struct {
        const char* why;
        size_t at;
        Bytes bytes;
    } cases[] = {
        {"no score", 0, {0xFF, 0xFE}},
        {"another magic", 2, {0x00}},
        {"a text magic that goes on", 2,
         Bytes({'T', 'A', 'R', 'N', '_', 'I', 'C', 'C', '_', '1', '.', '0', 'x'})},
        {"a class that nobody knows", 24, {'d'}},
        {"a name without an end", 24 + 8, {'x'}},
        {"an id beyond the names", page - 2, {0x01, 0x00}},
        {"a class twice where a Document must be", page - 2, {0x00, 0x01}},
        {"a raw word of no raw block", text - 2, {0xFF, 0xF9}},
        {"a raw word without a positive", text - 2, {0x80, 0x00}},
        {"a text without its end", text, {'Q', 'u', 'a', 'r', 't', 'o', 'o', 'o'}},
        {"a raw block without its zeros", text + 8, {1}},
        {"a pointer to an object beyond the last", document, {0x00, 0xFF, 0xFF, 0x00}},
        {"a pointer to another class", document, {0x00, 0x00, 0x03, 0x00}},
        {"a pointer beside the end", document, {0x00, 0x00, 0x02, 0x01}},
        {"a child whose parent is another", page + 4, {0x00, 0x00, 0x01, 0x02}},
        {"a child without a parent", page + 4, {0x00, 0x00, 0x00, 0x00}},
        {"a parent without its child", document, {0x00, 0x00, 0x00, 0x00}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        Bytes bytes = good;
        std::copy(c.bytes.begin(), c.bytes.end(), bytes.begin() + static_cast<ptrdiff_t>(c.at));
        ExpectRefused(bytes);
    }
    Bytes odd = good;
    odd.push_back(0);
    ExpectRefused(odd);
}

TEST_F(ObjectFile, IsReadAlsoAsOlderProgramsWroteIt) {
    const Bytes good = SmallScore();
    const auto loaded = [&](const Bytes& bytes) {
        OtherPool other;
        return LoadScore(*other, bytes) ? Describe(*other) : std::vector<std::string>{};
    };
    const std::vector<std::string> expected = loaded(good);
    ASSERT_FALSE(expected.empty());

    Bytes magic = good;
    std::copy_n("TARN_ICC_1.0\0\0\0\0\0\0\0", 20, magic.begin() + 2);
    EXPECT_EQ(loaded(magic), expected);

    Bytes holes = good;  // a zero run between two objects
    holes.insert(holes.begin() + static_cast<ptrdiff_t>(RecordAt(good, 3)) - 2, 40, uint8_t{0});
    EXPECT_EQ(loaded(holes), expected);

    Bytes junk = good;  // filler behind a Document's 150 bytes
    junk[RecordAt(good, 1) + 155] = 77;
    EXPECT_EQ(loaded(junk), expected);

    Bytes tempo = good;  // a Tempo's place and count in the other byte order
    const size_t at = [&] {
        for (int n = 1;; ++n)
            if (RecordAt(good, n) + 28 > good.size() || (ReadBig16(&good[RecordAt(good, n) + 12]) == 1 &&
                                                         ReadBig16(&good[RecordAt(good, n) + 16]) == 1))
                return RecordAt(good, n);
    }();
    ASSERT_EQ(good[at + 13], 1);
    for (const size_t word : {at + 12, at + 16}) std::swap(tempo[word], tempo[word + 1]);
    EXPECT_EQ(loaded(tempo), expected);
}

}  // namespace
}  // namespace corvane::test
