// Journals against a model: whatever is written, torn, damaged, shortened or refused by the disk, each state
// that can be read is one that there was, and the last safe one can be read.
#include <gtest/gtest.h>

#include <random>

#include "recovery_MemoryJournals.h"
#include "session/JournalReader.h"
#include "session/JournalWriter.h"

namespace corvane {
namespace {

constexpr uint32_t kUsable = 5000;
using Blocks = std::map<uint32_t, std::vector<uint8_t>>;

// A writer with blocks of its own and the history of their states.
class JournalOfBlocks {
public:
    explicit JournalOfBlocks(unsigned seed) : _random(seed) { AddBlock(); }

    int Pick(int low, int high) { return std::uniform_int_distribution<int>(low, high)(_random); }
    void AddBlock() {
        auto& bytes = _blocks[_nextBlock += 4096 * static_cast<uint32_t>(Pick(1, 9))];
        bytes.resize(kUsable);
        for (uint8_t& byte : bytes) byte = static_cast<uint8_t>(Pick(0, 255));
        writer.TakeBlock(_nextBlock, bytes.data());
    }
    void Change() {
        auto block = std::next(_blocks.begin(), Pick(0, static_cast<int>(_blocks.size()) - 1));
        for (int i = Pick(0, 20); i > 0; --i)
            block->second[static_cast<size_t>(Pick(0, kUsable - 1))] = static_cast<uint8_t>(Pick(0, 255));
        writer.TakeBlock(block->first, block->second.data());
    }
    void Commit() {
        std::vector<uint32_t> order;
        for (const auto& [distance, bytes] : _blocks) order.push_back(distance);
        JournalCommit commit;
        commit.sequence = history.size();
        commit.document = order.front();
        commit.modified = commit.sequence % 2;
        commit.title = "state " + std::to_string(commit.sequence);
        history.push_back(_blocks);
        writer.Commit(commit, order);
    }
    void Step() {
        const int what = Pick(0, 19);
        if (what == 0)
            AddBlock();
        else if (what == 1 && _blocks.size() > 1)
            _blocks.erase(_blocks.begin());
        else if (what < 12)
            Change();
        else if (what < 17)
            Commit();
        else
            writer.Tidy();
    }
    // As the main thread does when it hears of a failure.
    void Restart() {
        writer.Restart();
        for (const auto& [distance, bytes] : _blocks) writer.TakeBlock(distance, bytes.data());
        Commit();
    }

    MemoryJournals disk;
    JournalWriter writer{disk, "score.journal", kUsable};
    std::vector<Blocks> history{Blocks()};  // by sequence number

private:
    std::mt19937 _random;
    Blocks _blocks;
    uint32_t _nextBlock = 0;
};

// The last sequence number that can be read, 0 for none. Every state of the journal is compared with the
// history.
uint64_t LastState(const JournalOfBlocks& journal, MemoryJournals::Disk left, bool all = true) {
    MemoryJournals folder(std::move(left));
    const auto file = folder.TakeOver("score.journal");
    if (!file) return 0;
    const JournalReader reader(*file);
    for (size_t i = all || reader.Commits().empty() ? 0 : reader.Commits().size() - 1;
         i < reader.Commits().size(); ++i) {
        const JournalCommit& commit = reader.Commits()[i];
        EXPECT_EQ(commit.title, "state " + std::to_string(commit.sequence));
        EXPECT_EQ(commit.modified, commit.sequence % 2 == 1);
        PoolImage image;
        EXPECT_TRUE(reader.Image(i, image));
        EXPECT_EQ(image.usable, kUsable);
        Blocks blocks;
        for (auto& block : image.blocks) blocks[block.distance] = std::move(block.bytes);
        EXPECT_EQ(blocks, journal.history[commit.sequence]);
        EXPECT_EQ(image.document, blocks.begin()->first);
    }
    return reader.Commits().empty() ? 0 : reader.Commits().back().sequence;
}

// Of the journal's file; 0 while there is none.
size_t SizeOf(JournalOfBlocks& journal) {
    const MemoryJournals::Disk disk = journal.disk.Present();
    const auto named = disk.find("score.journal");
    return named == disk.end() ? 0 : named->second->bytes.size();
}

TEST(Journal, EverySafeStateSurvivesAKillAndAPowerCut) {
    int shortened = 0;
    for (unsigned seed = 1; seed <= 6; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        JournalOfBlocks journal(seed);
        size_t size = 0;
        for (int step = 0; step < 1500; ++step) {
            journal.Step();
            if (step % 50) continue;
            const uint64_t safe = journal.writer.Safe();
            EXPECT_EQ(LastState(journal, journal.disk.AfterKill(), step % 500 == 0), safe);
            EXPECT_EQ(LastState(journal, journal.disk.AfterCut(journal.Pick(0, 99)), false), safe);
            if (safe == 0) continue;
            const size_t now = SizeOf(journal);
            shortened += now < size;
            size = now;
            if (testing::Test::HasFailure()) return;
        }
        EXPECT_EQ(journal.writer.Failures(), 0u);
    }
    EXPECT_GT(shortened, 0) << "no journal ever became shorter";
}

TEST(Journal, AJournalThatHasGrownIsShortenedToLittleMoreThanItsBlocks) {
    JournalOfBlocks journal(7);
    for (int i = 0; i < 2000; ++i) journal.Change(), journal.Commit();
    const size_t before = SizeOf(journal);
    ASSERT_GT(before, size_t{1} << 20);
    while (journal.writer.Tidy()) {
    }
    EXPECT_LT(SizeOf(journal), 2 * kUsable);
    EXPECT_EQ(journal.disk.Present().size(), 1u) << "nothing of the work is left lying about";
    EXPECT_EQ(LastState(journal, journal.disk.AfterCut(0)), 2000u);
    journal.Change(), journal.Commit();
    EXPECT_EQ(LastState(journal, journal.disk.AfterCut(0)), 2001u);
}

TEST(Journal, WhatHasNotChangedIsNotWrittenAgain) {
    JournalOfBlocks journal(3);
    journal.Commit();
    const size_t before = SizeOf(journal);
    Blocks same = journal.history.back();
    journal.writer.TakeBlock(same.begin()->first, same.begin()->second.data());
    journal.Commit();
    EXPECT_LT(SizeOf(journal), before + 100);
    same.begin()->second[kUsable - 1] ^= 1;
    journal.writer.TakeBlock(same.begin()->first, same.begin()->second.data());
    EXPECT_LT(SizeOf(journal), before + 1300) << "one piece at most";
}

// The disk fails at call 0, 1, 2 ..., once or for ever after.
TEST(Journal, ADiskThatFailsCostsNoSafeState) {
    int failures = 0;
    for (int run = 0; run < 300; ++run) {
        SCOPED_TRACE("call " + std::to_string(run / 2));
        JournalOfBlocks journal(5);
        journal.disk.FailAfter(run / 2, run % 2 ? 1 : -1);
        for (int step = 0; step < 100; ++step) journal.Step();
        const uint64_t safe = journal.writer.Safe();
        failures += journal.writer.Failures() > 0;
        // The state under way may be on the disk although its flush failed.
        EXPECT_GE(LastState(journal, journal.disk.AfterKill(), false), safe);
        EXPECT_GE(LastState(journal, journal.disk.AfterCut(50), false), safe);
        journal.disk.FailAfter(-1);
        journal.Restart();
        const uint64_t last = journal.history.size() - 1;
        EXPECT_EQ(journal.writer.Safe(), last);
        EXPECT_EQ(LastState(journal, journal.disk.AfterCut(0), false), last);
        EXPECT_EQ(journal.disk.Present().size(), 1u);
        if (HasFailure()) return;
    }
    EXPECT_GT(failures, 200);
}

TEST(Journal, DamageAnywhereLeavesTheStatesBeforeIt) {
    JournalOfBlocks journal(11);
    std::vector<size_t> ends;  // of each state in the file
    std::vector<size_t> borders{0};
    for (int i = 0; i < 300; ++i) {
        const uint64_t states = journal.history.size();
        journal.Step();
        const size_t size = SizeOf(journal);
        if (size == 0) continue;
        borders.push_back(size);
        if (journal.history.size() > states) ends.push_back(borders.back());
    }
    const std::vector<uint8_t> good = journal.disk.Present().at("score.journal")->bytes;
    ASSERT_GT(ends.size(), 50u);
    const auto leftOf = [&](std::vector<uint8_t> bytes) {
        auto contents = std::make_shared<MemoryJournals::Contents>();
        contents->bytes = std::move(bytes);
        return LastState(journal, {{"score.journal", contents}}, false);
    };
    const auto statesBefore = [&](size_t at) {
        return static_cast<uint64_t>(std::upper_bound(ends.begin(), ends.end(), at) - ends.begin());
    };
    for (const size_t border : borders)
        for (const size_t at : {border, border + 1, border - std::min<size_t>(border, 1)}) {
            if (at > good.size()) continue;
            SCOPED_TRACE("cut at " + std::to_string(at));
            std::vector<uint8_t> cut(good.begin(), good.begin() + static_cast<std::ptrdiff_t>(at));
            ASSERT_EQ(leftOf(cut), statesBefore(at));
            cut.resize(good.size());  // zeros, as some disks leave them; what was zero before is not lost
            size_t whole = at;
            while (whole < good.size() && good[whole] == 0) ++whole;
            ASSERT_EQ(leftOf(cut), statesBefore(whole));
        }
    for (int i = 0; i < 1000; ++i) {
        std::vector<uint8_t> damaged = good;
        const auto at = static_cast<size_t>(journal.Pick(0, static_cast<int>(good.size()) - 1));
        damaged[at] ^= static_cast<uint8_t>(1 << journal.Pick(0, 7));
        SCOPED_TRACE("damage at " + std::to_string(at));
        // Of the header only the magic and the size of blocks mean something; the rest is covered all the
        // same.
        ASSERT_EQ(leftOf(damaged), statesBefore(at));
    }
}

// Sums that fit do not make nonsense sense.
TEST(Journal, NonsenseThatIsProperlyWrittenIsRefused) {
    const std::vector<uint8_t> bytes(2 * kUsable);
    std::vector<uint64_t> places;
    const struct {
        const char* why;
        JournalRun run;
        std::vector<uint32_t> blocks;
    } cases[] = {
        {"a run that ends beyond the block", {kUsable - 1, 2}, {4096}},
        {"a run beyond it", {kUsable + 1, 32}, {4096}},
        {"a block that never came", {0, 100}, {4096, 8192}},
        {"a block twice", {0, 100}, {4096, 4096}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        MemoryJournals disk;
        std::unique_ptr<JournalFile> file;
        ASSERT_TRUE(disk.Create("a", file));
        JournalAppender appender(*file);
        ASSERT_TRUE(appender.Begin(kUsable, 1));
        const JournalRun runs[] = {c.run};
        ASSERT_TRUE(appender.Pieces(4096, bytes.data(), runs, places));
        ASSERT_TRUE(appender.Blocks(c.blocks));
        ASSERT_TRUE(appender.Commit({1, 0, 4096, true, true, "", ""}));
        const JournalReader reader(*file);
        ASSERT_EQ(reader.Commits().size(), 1u);
        PoolImage image;
        EXPECT_FALSE(reader.Image(0, image));
    }
}

}  // namespace
}  // namespace corvane
