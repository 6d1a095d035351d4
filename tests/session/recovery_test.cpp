// What comes back after a program was killed, and what is left alone.
#include "base/Notify.h"
#include "model/Preferences.h"
#include "recovery_MemoryJournals.h"
#include "recovery_fixture.h"
#include "session/JournalReader.h"
#include "session/Journals.h"
#include "store/MemoryManager.h"

namespace corvane {
namespace {

TEST_F(RecoveryTest, UnsavedWorkOfSeveralWindowsComesBackAndNothingElseDoes) {
    RunAndKill([&](Session& own) {
        WindowTarn* never = own.NewScore();
        Edit(*never, 300);
        WindowTarn* saved = own.NewScore({3, 2}, "SDB");
        Edit(*saved);
        ASSERT_TRUE(own.Save(*saved, Path("saved.cvm")));
        own.MakeSafe();
        Edit(*saved);
        WindowTarn* unchanged = own.NewScore();
        Edit(*unchanged);
        ASSERT_TRUE(own.Save(*unchanged, Path("unchanged.cvm")));
        WindowTarn* closed = own.NewScore();
        Edit(*closed);
        own.MakeSafe();
        own.Close(closed);
        own.NewScore();
        own.MakeSafe();
        Note("never", TextOf(*never));
        Note("saved", TextOf(*saved));
    });
    const std::string savedFile = Noted("saved.cvm");
    session = Start();
    std::vector<RecoveredScore> found = session->FindRecovered();
    ASSERT_EQ(found.size(), 2u);
    std::sort(found.begin(), found.end(),
              [](const auto& a, const auto& b) { return a.neverSaved > b.neverSaved; });
    EXPECT_EQ(found[0].title, "Untitled");
    EXPECT_EQ(found[1].title, "saved.cvm");
    EXPECT_EQ(found[1].path, Path("saved.cvm"));
    EXPECT_FALSE(found[1].neverSaved);
    EXPECT_NEAR(static_cast<double>(found[0].time), static_cast<double>(time(nullptr)), 60);
    const char* texts[] = {"never", "saved"};
    for (size_t i = 0; i < 2; ++i) {
        Status status;
        WindowTarn* window = session->OpenRecovered(found[i], status);
        ASSERT_TRUE(window) << status.message();
        EXPECT_EQ(TextOf(*window), Noted(texts[i]));
        EXPECT_TRUE(window->Modified());
        EXPECT_EQ(window->Title(), found[i].title);
        EXPECT_EQ(window->Path(), found[i].path);
        EXPECT_EQ(window->NeverSaved(), found[i].neverSaved);
        ExpectSound(*window);
        Edit(*window);
        ExpectSound(*window);
    }
    EXPECT_TRUE(session->FindRecovered().empty());
    EXPECT_EQ(Noted("saved.cvm"), savedFile) << "a file changes only when it is saved";
    ASSERT_TRUE(session->Save(*session->Windows()[1], Path("saved.cvm")));
    session->Close(session->Windows()[0].get());
    session.reset();
    EXPECT_EQ(JournalCount(), 0u);
}

TEST_F(RecoveryTest, WorkSurvivesBeingKilledAgainWhileItIsBroughtBack) {
    RunAndKill([&](Session& own) {
        Edit(*own.NewScore(), 50);
        own.MakeSafe();
        Note("text", TextOf(*own.Windows()[0]));
    });
    // Killed before the new journal is safe, after it, and before anything was opened.
    for (int round = 0; round < 3; ++round) {
        SCOPED_TRACE(round);
        RunAndKill([&](Session& own) {
            const std::vector<RecoveredScore> found = own.FindRecovered();
            ASSERT_EQ(found.size(), 1u);
            Status status;
            if (round < 2) {
                ASSERT_TRUE(own.OpenRecovered(found[0], status));
            }
            if (round == 1) own.MakeSafe();
        });
    }
    session = Start();
    const std::vector<RecoveredScore> found = session->FindRecovered();
    ASSERT_EQ(found.size(), 1u);
    Status status;
    WindowTarn* window = session->OpenRecovered(found[0], status);
    ASSERT_TRUE(window);
    EXPECT_EQ(TextOf(*window), Noted("text"));
}

TEST_F(RecoveryTest, UndecidedWorkIsOfferedAgainAndDiscardedWorkIsNot) {
    RunAndKill([&](Session& own) {
        for (int i = 0; i < 2; ++i) Edit(*own.NewScore());
        own.MakeSafe();
    });
    session = Start();
    ASSERT_EQ(session->FindRecovered().size(), 2u);
    EXPECT_EQ(session->FindRecovered().size(), 2u) << "asking twice changes nothing";
    session->DiscardRecovered(session->FindRecovered()[0]);
    EXPECT_EQ(session->FindRecovered().size(), 1u);
    session = Start();
    ASSERT_EQ(session->FindRecovered().size(), 1u);
    session->DiscardRecovered(session->FindRecovered()[0]);
    EXPECT_EQ(JournalCount(), 0u);
}

TEST_F(RecoveryTest, ALivingProgramKeepsItsWorkToItself) {
    session = Start();
    Edit(*session->NewScore());
    session->MakeSafe();
    ASSERT_EQ(JournalCount(), 1u);
    const std::unique_ptr<Session> other = Start();
    EXPECT_TRUE(other->FindRecovered().empty());
    EXPECT_EQ(JournalCount(), 1u);
    session.reset();
    EXPECT_EQ(other->FindRecovered().size(), 1u) << "left by a session that nobody asked before it ended";
    session = Start();
    EXPECT_TRUE(session->FindRecovered().empty()) << "the first to find it has it";
}

TEST_F(RecoveryTest, WhatACrashLeavesHalfMadeIsClearedAway) {
    ASSERT_TRUE(files.MakeFolder(Path("state/journals")));
    Note("state/journals/a.journal.making1", "half");
    Note("state/journals/b.journal", "");
    Note("state/journals/c.journal", "a journal of another version of the program");
    session = Start();
    EXPECT_TRUE(session->FindRecovered().empty());
    EXPECT_EQ(journals.Names(), std::vector<std::string>{"c.journal"});
}

TEST_F(RecoveryTest, WhatAnAssertionSavedIsOfferedToo) {
    session = Start();
    WindowTarn* window = session->NewScore();
    Edit(*window);
    std::vector<uint8_t> bytes;
    ASSERT_TRUE(EncodeScore(*window->Pool(), bytes));
    const std::string text = TextOf(*window);
    session->Close(window);
    ASSERT_TRUE(files.MakeFolder(Path("state/rescued")));
    ASSERT_TRUE(ReplaceFile(files, Path("state/rescued/Untitled-recovered.cvm"), bytes));
    const std::vector<RecoveredScore> found = session->FindRecovered();
    ASSERT_EQ(found.size(), 1u);
    EXPECT_EQ(found[0].title, "Untitled-recovered.cvm");
    Status status;
    window = session->OpenRecovered(found[0], status);
    ASSERT_TRUE(window);
    EXPECT_EQ(TextOf(*window), text);
    EXPECT_TRUE(window->Modified() && window->NeverSaved());
    std::vector<std::string> names;
    ASSERT_TRUE(files.List(Path("state/rescued"), names));
    EXPECT_EQ(names.size(), 1u) << "not taken away before the window's own journal is safe";
    session->MakeSafe();
    ASSERT_TRUE(files.List(Path("state/rescued"), names));
    EXPECT_TRUE(names.empty());
}

// ---- the journal of a window, without a disk

// What another program would bring back from the disk, as text; empty for nothing.
std::string BroughtBack(MemoryJournals::Disk disk, LoadReport* report = nullptr) {
    MemoryJournals folder(std::move(disk));
    PosixFiles files;
    RecoveryList list(folder, files, "");
    const std::vector<RecoveredScore> found = list.Find();
    if (found.empty()) return {};
    static EditorShell silent;
    WindowTarn window(silent);
    window.Activate();
    LoadReport unseen;
    if (!list.Load(found[0], *window.Pool(), report ? *report : unseen)) return "damaged";
    window.Bind(static_cast<Document*>(window.Pool()->DocumentObject()));
    return TextOf(window);
}

class WindowJournalTest : public RecoveryTest {
protected:
    void SetUp() override {
        RecoveryTest::SetUp();
        SessionParts parts;
        parts.files = &files;
        parts.journals = &disk;
        session = std::make_unique<Session>(parts);
        window = session->NewScore();
        Edit(*window);
        session->MakeSafe();
    }
    MemoryJournals disk;
    WindowTarn* window = nullptr;
};

TEST_F(WindowJournalTest, EachStateBetweenCommandsIsSafeOnceItIsMadeSo) {
    for (int i = 0; i < 60; ++i) {
        editor.Step(*window);
        session->MakeSafe();
        ASSERT_EQ(BroughtBack(disk.AfterCut(0)), TextOf(*window)) << "step " << i;
        window->Activate();
    }
}

TEST_F(WindowJournalTest, ACommandUnderWayWaits) {
    const std::string before = TextOf(*window);
    window->Activate();
    {
        const EditStep step(*window);
        documentPages.First(window->GetDocument())->_pageNumber = 7;
        session->MakeSafe();
        EXPECT_EQ(BroughtBack(disk.AfterKill()), before);
        documentPages.First(window->GetDocument())->_pageNumber = 1;
    }
}

TEST_F(WindowJournalTest, WhatIsWrittenOutsideACommandIsSafeToo) {
    window->Activate();
    auto* pages = Preferences<PagePref>(window->GetDocument());
    ASSERT_TRUE(pages);
    const int32_t height = pages->_pageHeight + 100;
    pages->_pageHeight = height;
    Edit(*window, 1);
    session->MakeSafe();
    MemoryJournals folder(disk.AfterKill());
    RecoveryList list(folder, files, "");
    ASSERT_EQ(list.Find().size(), 1u);
    NewMemoryPool& pool = *MemoryManager::Instance().NewPool();
    LoadReport report;
    ASSERT_TRUE(list.Load(list.Find()[0], pool, report));
    EXPECT_EQ(Preferences<PagePref>(static_cast<Document*>(pool.DocumentObject()))->_pageHeight, height);
    MemoryManager::Instance().DeletePool(&pool);
}

TEST_F(WindowJournalTest, AStateThatOurOwnFaultSpoiltGivesWayToTheOneBefore) {
    const std::string before = TextOf(*window);
    window->Activate();
    {
        const EditStep step(*window);
        Measure* measure = systemMeasures.First(pageSystems.First(window->CurrentPage()));
        Touch(measure, sizeof *measure);
        const uint32_t wild = 0x12345678;
        std::memcpy(reinterpret_cast<uint8_t*>(measure) + 4, &wild, sizeof wild);
    }
    session->MakeSafe();
    LoadReport report;
    EXPECT_EQ(BroughtBack(disk.AfterKill(), &report), before);
    EXPECT_EQ(report.healed.size(), 1u);
    window->Undo();
}

TEST_F(WindowJournalTest, ADiskThatRefusesIsToldOnceAndTriedAgain) {
    static int told;
    told = 0;
    SetNotifySink([](Severity, std::string_view) { ++told; });
    disk.FailAfter(0);
    MemoryJournals::Disk before = disk.AfterKill();
    const std::string text = TextOf(*window);
    for (int i = 0; i < 5; ++i) {
        Edit(*window, 3);
        session->MakeSafe();
        session->KeepSafe();
    }
    SetNotifySink(nullptr);
    EXPECT_EQ(told, 1);
    EXPECT_EQ(BroughtBack(disk.AfterKill()), text) << "the last safe state stays";
}

TEST_F(WindowJournalTest, ASliceIsBoundedAndALargeScoreIsSafeAfterAsManyAsItTakes) {
    window->Activate();
    {
        const EditStep step(*window);
        for (int i = 0; i < 100; ++i) MemoryManager::Instance().AllocateRaw(30000);
    }
    const int blocks = static_cast<int>(window->Pool()->BlockCount());
    ASSERT_GT(blocks, 15);
    JournalThread thread;
    Journal journal(thread, disk, "large.journal", *window);
    const auto now = std::chrono::steady_clock::now();
    int slices = 0;
    for (bool more = true; more; ++slices) {
        JournalBudget budget{2, Journal::Time::max()};
        more = journal.Slice(now, budget);
        EXPECT_EQ(more, journal.Behind());
        EXPECT_GE(budget.blocks, 0);
        thread.Wait();
        if (slices == 1) Edit(*window, 1);
    }
    EXPECT_GE(slices, blocks / 2);
    EXPECT_EQ(journal.Safe(), 1u);
    // The next states follow each other at their distance, and cost only what has changed.
    Edit(*window, 1);
    JournalBudget budget{64, Journal::Time::max()};
    EXPECT_FALSE(journal.Slice(now, budget));
    EXPECT_EQ(budget.blocks, 64);
    journal.Slice(now + Journal::kBetweenStates, budget);
    thread.Wait();
    EXPECT_EQ(journal.Safe(), 2u);
    EXPECT_GT(budget.blocks, 64 - blocks / 2);
    EXPECT_LT(budget.blocks, 64);
}

TEST_F(WindowJournalTest, WritesThatNeverEndDoNotKeepAStateFromBeingGiven) {
    window->Activate();
    {
        const EditStep step(*window);
        for (int i = 0; i < 100; ++i) MemoryManager::Instance().AllocateRaw(30000);
    }
    JournalThread thread;
    Journal journal(thread, disk, "busy.journal", *window);
    int slices = 0;
    for (; journal.Safe() == 0 && slices < 100; ++slices) {
        Touch(window->GetDocument(), 1);  // outside of a command
        JournalBudget budget{4, Journal::Time::max()};
        journal.Slice(std::chrono::steady_clock::now(), budget);
        thread.Wait();
    }
    EXPECT_EQ(journal.Safe(), 1u) << slices;
}

// Memory as it may be when a program ends: whatever is in the blocks, nothing but a sound score comes back.
TEST_F(WindowJournalTest, NoImageIsTrusted) {
    MemoryJournals folder(disk.AfterKill());
    const auto file = folder.TakeOver(folder.Names().at(0));
    const JournalReader reader(*file);
    PoolImage good;
    ASSERT_TRUE(reader.Image(reader.Commits().size() - 1, good));
    ASSERT_TRUE(RestorePool(good));
    int restored = 0;
    for (int i = 0; i < 3000; ++i) {
        PoolImage image = good;
        for (int n = editor.Pick(1, 4); n > 0; --n) {
            std::vector<uint8_t>& bytes =
                image.blocks[static_cast<size_t>(editor.Pick(0, static_cast<int>(image.blocks.size()) - 1))]
                    .bytes;
            // Most of a block is a hole: hit what is in front of it.
            const auto at = static_cast<size_t>(editor.Pick(0, editor.Pick(0, 1) ? 2000 : 20000));
            bytes[at] = static_cast<uint8_t>(editor.Pick(0, 255));
        }
        if (i % 100 == 0) image.document = static_cast<uint32_t>(editor.Pick(0, 1 << 30));
        const std::unique_ptr<NewMemoryPool> pool = RestorePool(image);
        if (!pool) continue;
        ++restored;
        std::vector<uint8_t> bytes;
        if (!EncodeScore(*pool, bytes)) continue;
        NewMemoryPool& read = *MemoryManager::Instance().NewPool();
        EXPECT_TRUE(!ReadScore(read, bytes) || CheckPool(read).empty());
        MemoryManager::Instance().DeletePool(&read);
    }
    window->Activate();
    EXPECT_GT(restored, 100);
    EXPECT_LT(restored, 2900);
}

}  // namespace
}  // namespace corvane
