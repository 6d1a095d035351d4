// A score window without a screen, and presses on it in terms of staves and measures.
#pragma once

#include <gtest/gtest.h>

#include "edit/TarnClick.h"
#include "edit/ToolState.h"
#include "layout/Frames.h"
#include "layout/ScoreBuilder.h"
#include "model/ClassTable.h"
#include "model/NoteOperations.h"
#include "model/Par.h"
#include "model/ScoreCheck.h"
#include "platform/freetype/FreeTypeMeasures.h"
#include "play/NoteDump.h"

namespace corvane {

// A shell that keeps the last thing it was told.
struct HearingShell : EditorShell {
    std::string told;
    void Tell(std::string_view text) override { told = text; }
};

class EditTest : public ::testing::Test {
protected:
    void SetUp() override {
        static const bool ready = [] {
            RegisterClasses();
            InstallFreeTypeMeasures();
            WatchCommands();
            return true;
        }();
        (void)ready;
        Tools() = ToolState();
        Switches() = EditSwitches();
        window = Open("D", 3, 2);
    }

    // A window of its own with a new score.
    std::unique_ptr<WindowTarn> Open(const char* staffs, int measures, int systems) {
        static EditorShell silent;
        auto opened = std::make_unique<WindowTarn>(silent);
        opened->Activate();
        opened->Bind(BuildNewScore({measures, systems}, staffs));
        opened->Pool()->SetModified(false);
        return opened;
    }

    Document* Score() { return window->GetDocument(); }
    DocStaff* StaffNumber(int number) {
        DocStaff* staff = documentDocStaffs.First(Score());
        while (--number > 0) staff = documentDocStaffs.Next(staff);
        return staff;
    }
    Measure* MeasureNumber(int number) {
        Measure* measure = systemMeasures.First(pageSystems.First(documentPages.First(Score())));
        while (--number > 0) measure = NextMeasure(measure);
        return measure;
    }
    MeasureStaff* Crossing(int measure, int staff) {
        return MeasureStaffAt(MeasureNumber(measure), StaffNumber(staff));
    }

    // Page units of a place: per mille of the note area, staff step.
    Point At(int measure, int staff, int perMille, int line) {
        const StaffFrame frame = FrameOf(Crossing(measure, staff)->_staff.Get());
        return {FrameOf(MeasureNumber(measure)).XOf(perMille), frame.YOfLine(line)};
    }
    void Press(int measure, int staff, int perMille, int line) {
        const Point p = At(measure, staff, perMille, line);
        MouseDown(*window, p.x, p.y, 0);
    }
    void Item(int item) {
        SetToolMode(ModePencil);
        SetPaletteGroup(1);
        SetItem(static_cast<uint16_t>(item));
    }
    // Enters a note or rest of a palette item.
    void Enter(int item, int measure, int staff, int perMille, int line) {
        Item(item);
        Press(measure, staff, perMille, line);
    }

    std::vector<VoiceSymbol*> Events(int measure, int staff, int voice = 1) {
        std::vector<VoiceSymbol*> events;
        if (Voice* v = FindVoice(Crossing(measure, staff), voice))
            for (VoiceSymbol* symbol : voiceSymbols.Of(v)) events.push_back(symbol);
        return events;
    }
    std::string Notes() { return DumpNotes(Score()); }

    // The score is sound in every respect.
    void ExpectSound() { ExpectSound(*window); }
    static void ExpectSound(WindowTarn& of) {
        for (const Finding& finding : CheckScore(*of.Pool())) ADD_FAILURE() << TextOf(finding);
    }

    std::unique_ptr<WindowTarn> window;
};

// Palette items of group 1.
enum NoteItems {
    kWhole = 3,
    kHalf = 5,
    kQuarter = 7,
    kEighth = 9,
    kSixteenth = 11,
    kWholeRest = 4,
    kHalfRest = 6,
    kQuarterRest = 8,
    kEighthRest = 10,
    kDot = 20,
    kSharp = 23,
    kFlat = 24,
    kNatural = 26
};

}  // namespace corvane
