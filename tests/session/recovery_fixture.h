// Sessions that can be killed: a test's session, or one in a process of its own.
#pragma once

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <functional>
#include <random>

#include "edit/TarnClick.h"
#include "edit/ToolState.h"
#include "layout/Frames.h"
#include "model/Par.h"
#include "model/ScoreCheck.h"
#include "platform/files/PosixFiles.h"
#include "platform/files/PosixJournals.h"
#include "platform/freetype/FreeTypeMeasures.h"
#include "session/Dumps.h"
#include "session/Session.h"

namespace corvane {

// What a person would call the same score.
inline std::string TextOf(WindowTarn& window) {
    std::string text;
    EXPECT_TRUE(DumpScore(window, "tree", text));
    EXPECT_TRUE(DumpScore(window, "notes", text));
    return text;
}

class RandomEditor {
public:
    explicit RandomEditor(unsigned seed) : _random(seed) {}
    int Pick(int low, int high) { return std::uniform_int_distribution<int>(low, high)(_random); }

    // A press, an undo or a redo on the window's page.
    void Step(WindowTarn& window) {
        window.Activate();
        const int what = Pick(0, 11);
        if (what == 0) return window.Undo();
        if (what == 1) return window.Redo();
        SetToolMode(what == 2 ? ModeEraser : ModePencil);
        SetPaletteGroup(1);
        SetItem(static_cast<uint16_t>(Pick(0, 3) ? Pick(3, 12) : Pick(20, 26)));
        const MeasureStaff* crossing = Crossing(window.CurrentPage());
        const StaffFrame staff = FrameOf(crossing->_staff.Get());
        MouseDown(window, FrameOf(measureStaffs.ParentOf(crossing)).XOf(Pick(0, 1000)),
                  staff.YOfLine(Pick(-4, 14)), 0);
    }

private:
    const MeasureStaff* Crossing(Page* page) {
        std::vector<const MeasureStaff*> all;
        for (const System* system : pageSystems.Of(page))
            for (const Measure* measure : systemMeasures.Of(system))
                for (const MeasureStaff* crossing : measureStaffs.Of(measure)) all.push_back(crossing);
        return all[static_cast<size_t>(Pick(0, static_cast<int>(all.size()) - 1))];
    }
    std::mt19937 _random;
};

class RecoveryTest : public ::testing::Test {
protected:
    void SetUp() override {
        InstallFreeTypeMeasures();
        Tools() = ToolState();
        Switches() = EditSwitches();
        _folder = std::filesystem::temp_directory_path() / ("corvane-recovery-" + std::to_string(::getpid()));
        std::filesystem::remove_all(_folder);
        std::filesystem::create_directories(_folder);
    }
    void TearDown() override {
        session.reset();
        std::filesystem::remove_all(_folder);
    }
    std::string Path(const std::string& name) const { return (_folder / name).string(); }

    std::unique_ptr<Session> Start() {
        SessionParts parts;
        parts.files = &files;
        parts.journals = &journals;
        parts.stateFolder = Path("state");
        return std::make_unique<Session>(parts);
    }
    // Runs `work` in a program of its own that is killed when it returns.
    void RunAndKill(const std::function<void(Session&)>& work) {
        session.reset();
        const pid_t child = fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            const std::unique_ptr<Session> own = Start();
            work(*own);
            if (::testing::Test::HasFailure()) _exit(1);
            kill(getpid(), SIGKILL);
        }
        int status = 0;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        ASSERT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL)
            << "the program failed before it was killed";
    }
    void Edit(WindowTarn& window, int steps = 30) {
        for (int i = 0; i < steps; ++i) editor.Step(window);
    }
    // Hands a text from a program that is killed to the test.
    void Note(const std::string& name, const std::string& text) {
        ASSERT_TRUE(ReplaceFile(files, Path(name), std::vector<uint8_t>(text.begin(), text.end())));
    }
    std::string Noted(const std::string& name) {
        std::vector<uint8_t> bytes;
        EXPECT_TRUE(files.Read(Path(name), bytes)) << name;
        return {bytes.begin(), bytes.end()};
    }
    size_t JournalCount() { return journals.Names().size(); }
    static void ExpectSound(WindowTarn& window) {
        for (const Finding& finding : CheckScore(*window.Pool())) ADD_FAILURE() << corvane::TextOf(finding);
    }

private:
    std::filesystem::path _folder;

protected:
    PosixFiles files;
    PosixJournals journals{(std::filesystem::temp_directory_path() /
                            ("corvane-recovery-" + std::to_string(::getpid())) / "state/journals")
                               .string()};
    std::unique_ptr<Session> session;
    RandomEditor editor{1};
};

}  // namespace corvane
