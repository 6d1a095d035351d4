// The proof of a live pool: each kind of fault is found where it is, and sound graphs pass.
#include "store/Verifier.h"

#include <memory>

#include "store/NewMemoryPool.h"
#include "store_graph.h"

namespace corvane::test {
namespace {

// Document, page, system and three measures, two symbols in the document's list, one a composite of two
// parts.
struct Scene {
    Scene() {
        for (void*& measure : measures) measure = graph.New(10);
        graph.Ring(graph.system, "10", {graph.measure, measures[0], measures[1], measures[2]});
        for (void*& symbol : symbols) symbol = graph.New(24);
        graph.Ring(graph.document, "30", {symbols[0], composite});
        graph.Ring(composite, "34", {symbols[1], symbols[2]});
        PutPointer(symbols[0], 16, name);
        graph.Ring(measures[0], "31", {column, time});
    }
    GraphBuilder graph;
    void *measures[3], *symbols[3];
    void *composite = graph.New(23), *column = graph.New(19), *time = graph.New(32);
    void* name = graph.NewText("1234567");
    NewMemoryPool& pool = *MemoryManager::Instance().GetCurrentPool();
};

const struct {
    const char* why;
    void (*harm)(Scene&);
    int16_t classNumber;
    int offset;
    const char* text;
} kFaults[] = {
    {"into the void", [](Scene& s) { PutPointer(s.graph.page, 12, s.name, 0x40000000); }, 2, 12,
     "leads to no object"},
    {"to a start", [](Scene& s) { PutPointer(s.graph.page, 12, s.graph.system); }, 2, 12, "does not allow"},
    {"to another class", [](Scene& s) { PutPointer(s.graph.page, 12, s.graph.document, 4); }, 2, 12,
     "does not allow"},
    {"into a symbol", [](Scene& s) { PutPointer(s.time, 20, s.symbols[0], 4); }, 32, 20, "does not allow"},
    {"a text without end", [](Scene& s) { std::memset(s.name, 'x', 8); }, 24, 16, "no end"},
    {"a text of two owners", [](Scene& s) { PutPointer(s.symbols[2], 16, s.name); }, 24, 16, "another field"},
    {"no source", [](Scene& s) { PutPointer(s.measures[1], 12, nullptr); }, 10, 12, "source and next"},
    {"no prev", [](Scene& s) { PutPointer(s.measures[1], 8, nullptr); }, 10, 8, "prev and next"},
    {"another parent", [](Scene& s) { PutPointer(s.column, 8, s.measures[1], 20); }, 19, -1,
     "not the parent"},
    {"not mirrored", [](Scene& s) { PutPointer(s.measures[1], 8, s.measures[1], 4); }, 10, -1, "prev is not"},
    {"a ring without its parent", [](Scene& s) { PutPointer(s.graph.system, 16, nullptr); }, 10, 4,
     "no parent's"},
    {"a ring never closed", [](Scene& s) { PutPointer(s.symbols[1], 8, s.symbols[1], 8); }, 23, 22,
     "not close"},
    {"a ring of two", [](Scene& s) { PutPointer(s.graph.New(23), 22, s.symbols[2], 8); }, 24, -1,
     "share a ring"},
    {"nothing leads there", [](Scene& s) { s.graph.New(65); }, 65, -1, "nothing leads"},
    {"a second Document", [](Scene& s) { s.pool.Allocate(1, 150); }, 1, -1, "not the one first"},
    {"an abstract class", [](Scene& s) { s.pool.Allocate(9, 38); }, 0, -1, "a word or a size"},
    {"a number without a class", [](Scene& s) { s.pool.Allocate(112, 38); }, 0, -1, "a word or a size"},
    {"a lost hole", [](Scene& s) { s.pool.Block(0).Trailer().firstHole.Put(0); }, 0, -1, "list of holes"},
    {"a hole in a ring",
     [](Scene& s) {
         auto* hole = StoredSpace::At<Hole>(s.pool.Block(0).Trailer().firstHole.Get());
         hole->next.Put(StoredSpace::DistanceOf(hole));
     },
     0, -1, "list of holes"},
    {"no Document", [](Scene& s) { s.pool.SetDocumentObject(nullptr); }, 1, -1, "not the one first"},
};

TEST(Verifier, EachFaultIsFoundAtItsField) {
    RegisterClasses();
    for (const auto& c : kFaults) {
        SCOPED_TRACE(c.why);
        NewMemoryPool* pool = MemoryManager::Instance().NewPool();
        Scene scene;
        const std::vector<Finding> sound = CheckPool(*pool);
        EXPECT_TRUE(sound.empty()) << TextOf(sound[0]);
        c.harm(scene);
        const std::vector<Finding> found = CheckPool(*pool);
        MemoryManager::Instance().DeletePool(pool);
        ASSERT_FALSE(found.empty());
        const std::string text = TextOf(found[0]);
        EXPECT_EQ(found[0].classNumber, c.classNumber) << text;
        EXPECT_EQ(found[0].offset, c.offset) << text;
        EXPECT_NE(text.find(c.text), std::string::npos) << text;
    }
}

using VerifierPool = StoreTest;

TEST_F(VerifierPool, WhatIsKeptCountsAsReachedWithAllThatHangsOnIt) {
    Scene scene;
    void *chord = scene.graph.New(20), *note = scene.graph.New(21);
    scene.graph.Ring(chord, "40", {note});
    EXPECT_EQ(CheckPool(*pool).size(), 2u);
    const void* const kept[] = {chord};
    EXPECT_TRUE(CheckPool(*pool, kept).empty());
    EXPECT_EQ(CheckPool(*pool, {}, 1).size(), 1u) << "no more than asked for";
}

// The Document's block need not be the lowest: numbers begin at it all the same.
TEST_F(VerifierPool, NumbersBeginAtTheDocumentsBlock) {
    auto lower = std::make_unique<OtherPool>();
    OtherPool other(3000);
    lower.reset();  // its addresses are free for the blocks to come
    const PoolScope scope(&*other);
    GraphBuilder graph;
    std::vector<void*> columns;
    for (int i = 0; i < 400; ++i) columns.push_back(graph.New(19));
    graph.Ring(graph.measure, "31", columns);
    ASSERT_GT(other->BlockOf(graph.document)->place, 0u);
    ASSERT_TRUE(CheckPool(*other).empty());
    const Bytes bytes = Saved(*other);
    OtherPool read;
    ASSERT_TRUE(LoadScore(*read, bytes));
    EXPECT_EQ(Describe(*read), Describe(*other));
    EXPECT_EQ(Saved(*read), bytes);
}

}  // namespace
}  // namespace corvane::test
