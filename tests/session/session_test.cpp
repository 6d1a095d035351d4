// Scores as the session makes, saves, opens and closes them; scripts.
#include "session/Session.h"

#include <gtest/gtest.h>
#include <malloc.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>

#include "edit/TarnClick.h"
#include "edit/ToolState.h"
#include "layout/Frames.h"
#include "model/Par.h"
#include "model/ScoreCheck.h"
#include "platform/files/FileSettings.h"
#include "platform/files/PosixFiles.h"
#include "platform/freetype/FreeTypeMeasures.h"
#include "play/DryPlay.h"
#include "play/NoteDump.h"
#include "session/ScriptRunner.h"
#include "store/ObjectFile.h"

namespace corvane {
namespace {

class SessionTest : public ::testing::Test {
protected:
    void SetUp() override {
        InstallFreeTypeMeasures();
        Tools() = ToolState();
        Switches() = EditSwitches();
        _folder = std::filesystem::temp_directory_path() / ("corvane-session-" + std::to_string(::getpid()));
        std::filesystem::remove_all(_folder);
        std::filesystem::create_directories(_folder);
        Start();
    }
    void TearDown() override {
        session.reset();
        settings.reset();
        std::filesystem::remove_all(_folder);
    }
    void Start() {
        settings = std::make_unique<FileSettings>(files, Path("config"));
        SessionParts parts;
        parts.files = &files;
        parts.settings = settings.get();
        session = std::make_unique<Session>(parts);
    }
    std::string Path(const char* name) { return (_folder / name).string(); }
    std::vector<uint8_t> Bytes(const char* name) {
        std::vector<uint8_t> bytes;
        EXPECT_TRUE(files.Read(Path(name), bytes));
        return bytes;
    }
    Status Run(const std::string& script) {
        out.clear();
        ScriptRunner runner(
            *session,
            [this](WindowTarn&, const std::string& path, int page, int) {
                exported = path + " " + std::to_string(page);
                return Status::Ok();
            },
            out);
        return runner.Run(script);
    }
    // A piece on both staves in two voices, with dots, accidentals, rests and beams, at the places of the
    // default score.
    const char* kPiece =
        "new D 5 3\n"
        "item 1 7\npress 2450 2150\npress 2900 2100\npress 3300 2050 # three quarters\n"
        "item 1 9\npress 3700 2000\npress 3800 1950\n"
        "key 5\npress 4400 3000\npress 4500 3050\npress 4600 3100\npress 4700 3150\n"
        "item 1 8\npress 4900 3000\n"
        "item 1 23\npress 2440 2150\n"
        "voice 2\nitem 1 5\npress 2450 2300\npress 3900 2350\n"
        "item 1 20\npress 2440 2300\n";

    PosixFiles files;
    std::unique_ptr<FileSettings> settings;
    std::unique_ptr<Session> session;
    std::string out, exported;

private:
    std::filesystem::path _folder;
};

TEST_F(SessionTest, ANewScoreIsUntitledUnchangedAndSound) {
    WindowTarn* window = session->NewScore();
    EXPECT_EQ(window->Title(), "Untitled");
    EXPECT_EQ(window->Path(), "Untitled.cvm");
    EXPECT_FALSE(window->Modified());
    EXPECT_TRUE(window->NeverSaved());
    EXPECT_EQ(documentDocStaffs.Count(window->GetDocument()), 2);
    EXPECT_EQ(documentPages.Count(window->GetDocument()), 1);
    EXPECT_TRUE(CheckScore(*window->Pool()).empty());
    EXPECT_FALSE(window->CanUndo());
}

TEST_F(SessionTest, WhatAScriptEntersComesBackAndSavesTheSameBytes) {
    ASSERT_TRUE(Run(std::string(kPiece) + "dump notes\n"));
    const std::string notes = out;
    EXPECT_GE(std::count(notes.begin(), notes.end(), '\n'), 10);
    ASSERT_TRUE(Run("save " + Path("a.cvm") + "\n"));
    const std::string dry = DryPlay(WindowTarn::instance->GetDocument());
    EXPECT_FALSE(WindowTarn::instance->Modified());
    ASSERT_TRUE(Run("open " + Path("a.cvm") + "\ndump notes\n"));
    EXPECT_EQ(out, notes);
    EXPECT_EQ(session->Windows().size(), 2u);
    EXPECT_FALSE(WindowTarn::instance->Modified());
    EXPECT_EQ(DryPlay(WindowTarn::instance->GetDocument()), dry);
    ASSERT_TRUE(Run("save " + Path("b.cvm") + "\nopen " + Path("b.cvm") + "\nsave " + Path("c.cvm") + "\n"));
    EXPECT_EQ(Bytes("b.cvm"), Bytes("c.cvm"));
    EXPECT_EQ(Bytes("a.cvm"), Bytes("b.cvm")) << "a score without holes saves as it was loaded";
}

TEST_F(SessionTest, WhatIsCutIsNotSavedAndCanStillBePasted) {
    ASSERT_TRUE(Run(kPiece));
    ASSERT_TRUE(Run("voice 0\ncommand 57642\ncommand 57635\nsave " + Path("cut.cvm") + "\n"));
    WindowTarn* window = WindowTarn::instance;
    EXPECT_FALSE(window->CanUndo()) << "the step made room for what is cut";
    EXPECT_FALSE(window->Modified());
    {
        const PoolScope scope(MemoryManager::Instance().NewPool());
        NewMemoryPool* pool = MemoryManager::Instance().GetCurrentPool();
        LoadReport report;
        ASSERT_TRUE(LoadScore(*pool, Bytes("cut.cvm"), &report));
        EXPECT_TRUE(report.healed.empty()) << report.healed.front();
        MemoryManager::Instance().DeletePool(pool);
    }
    const Measure* first = FirstMeasure(window->GetDocument());
    window->caret = {FirstMeasure(window->GetDocument()), documentDocStaffs.First(window->GetDocument()),
                     FrameOf(first).XOf(0), true};
    ASSERT_TRUE(Run("voice 0\ncommand 57637\ndump notes\n"));
    EXPECT_GT(std::count(out.begin(), out.end(), '\n'), 0)
        << "up to the measure that a dot has made too full";
}

TEST_F(SessionTest, RefusedFilesChangeNothing) {
    ASSERT_TRUE(Run(kPiece));
    WindowTarn* before = WindowTarn::instance;
    const std::string notes = DumpNotes(before->GetDocument());
    ASSERT_TRUE(session->Save(*before, Path("good.cvm")));
    std::vector<uint8_t> half = Bytes("good.cvm");
    half.resize(half.size() / 2);
    ASSERT_TRUE(ReplaceFile(files, Path("half.cvm"), half));
    ASSERT_TRUE(ReplaceFile(files, Path("text.cvm"), std::vector<uint8_t>{'h', 'e', 'l', 'l', 'o'}));
    const struct {
        std::string path;
        const char* message;
    } cases[] = {{Path("missing.cvm"), "File not found"},
                 {Path("half.cvm"), "Invalid file"},
                 {Path("text.cvm"), "Invalid file"},
                 {Path("config"), "File not found"}};
    const size_t pools = MemoryManager::Instance().PoolCount();
    for (const auto& c : cases) {
        SCOPED_TRACE(c.path);
        Status status;
        EXPECT_EQ(session->Open(c.path, status), nullptr);
        EXPECT_EQ(status.message(), c.message);
        EXPECT_EQ(WindowTarn::instance, before);
        EXPECT_EQ(MemoryManager::Instance().PoolCount(), pools);
        EXPECT_EQ(MemoryManager::Instance().GetCurrentPool(), before->Pool());
        EXPECT_EQ(DumpNotes(before->GetDocument()), notes);
    }
}

TEST_F(SessionTest, SavingWhereNothingCanBeWrittenKeepsTheChangedMark) {
    ASSERT_TRUE(Run(kPiece));
    const Status status = session->Save(*WindowTarn::instance, Path("no/such/folder/a.cvm"));
    EXPECT_FALSE(status);
    EXPECT_FALSE(status.message().empty());
    EXPECT_TRUE(WindowTarn::instance->Modified());
    EXPECT_TRUE(WindowTarn::instance->NeverSaved());
}

TEST_F(SessionTest, ScriptsStopAtTheFirstRefusedLineAndSayWhich) {
    const struct {
        const char* script;
        const char* message;
    } cases[] = {
        {"press 1 1\n", "line 1: no score is open"},
        {"# a comment\nnew\npress here 1\n", "line 3: \"here\" is no whole number"},
        {"new\nitem 1\n", "line 2: a number is missing"},
        {"new\nfly away\n", "line 2: \"fly\" is no step"},
        {"new X\n", "line 1: Staves are the letters S, D, B and E, and C with two digits"},
        {"new C59C57\nnew C59C58\n", "line 2: It is impossible to insert more than 16 staves!"},
        {"new D 0\n", "line 1: The number of measures must be higher than 0!"},
        {"new DDDDDDDDD\n", "line 1: It is impossible to insert more than 16 staves!"},
        {"new\npage 2\n", "line 2: there is no page 2"},
        {"new\nvoice 9\n", "line 2: voices are 0 (all) to 8"},
        {"new\npress 1 1 hyper\n", "line 2: \"hyper\" is no modifier"},
        {"new\ncommand 12345\n", "line 2: There is no command 12345"},
        {"new\ncommand 57643\n", "line 2: There is nothing to undo"},
        {"new\ndump everything\n", "line 2: dump wants layout, geometry, fonts, tree, notes or objects"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.script);
        while (!session->Windows().empty()) session->Close(session->Windows().back().get());
        const Status status = Run(c.script);
        EXPECT_FALSE(status);
        EXPECT_EQ(status.message(), c.message);
    }
    EXPECT_TRUE(Run("new\nexport \"a b.pdf\" 1\n\n  # done\n"));
    EXPECT_EQ(exported, "a b.pdf 1");
}

TEST_F(SessionTest, UndoAndRedoByScriptAndAcrossASave) {
    ASSERT_TRUE(Run("new\nitem 1 7\npress 2450 2150\nsave " + Path("u.cvm") + "\nundo\ndump notes\n"));
    EXPECT_EQ(out, "");
    EXPECT_TRUE(WindowTarn::instance->Modified()) << "undo sets the changed mark, also after a save";
    ASSERT_TRUE(Run("redo\ndump notes\n"));
    EXPECT_EQ(out, "1 1 0 1 2 0 1 1 65 64\n");
}

TEST_F(SessionTest, SettingsAndRecentFilesSurviveARestart) {
    ASSERT_TRUE(Run(kPiece));
    for (const char* name : {"1.cvm", "2.cvm", "3.cvm", "4.cvm", "5.cvm", "2.cvm"})
        ASSERT_TRUE(session->Save(*WindowTarn::instance, Path(name)));
    session->Preferences().staffString = "SB";
    EXPECT_TRUE(session->StorePreferences());
    Start();
    EXPECT_EQ(session->RecentFiles(),
              (std::vector<std::string>{Path("2.cvm"), Path("5.cvm"), Path("4.cvm"), Path("3.cvm")}));
    EXPECT_EQ(documentDocStaffs.Count(session->NewScore()->GetDocument()), 2);
    EXPECT_EQ(session->Preferences().staffString, "SB");
}

TEST_F(SessionTest, AHundredScoresOpenedAndClosedLeaveNoGrowth) {
    ASSERT_TRUE(Run(kPiece));
    ASSERT_TRUE(session->Save(*WindowTarn::instance, Path("a.cvm")));
    session->Close(WindowTarn::instance);
    constexpr int kWarm = 5, kScores = 100;
    const size_t pools = MemoryManager::Instance().PoolCount();
    const uint64_t stored = StoredSpace::BytesInUse();
    size_t heap = 0;
    for (int i = 0; i < kWarm + kScores; ++i) {
        if (i == kWarm) heap = mallinfo2().uordblks;
        Status status;
        WindowTarn* window = i % 2 ? session->NewScore() : session->Open(Path("a.cvm"), status);
        ASSERT_TRUE(window) << status.message();
        MouseDown(*window, 2450, 2150, 0);  // a sheet that was used, a step that can be undone
        session->Close(window);
        ASSERT_EQ(StoredSpace::BytesInUse(), stored) << i;
    }
    EXPECT_EQ(MemoryManager::Instance().PoolCount(), pools);
    EXPECT_LT(mallinfo2().uordblks, heap + 16384) << "of some megabytes that a score takes";
    EXPECT_EQ(WindowTarn::wndCounter, 0);
    EXPECT_EQ(WindowTarn::instance, nullptr);
}

}  // namespace
}  // namespace corvane
