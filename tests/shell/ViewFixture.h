// A score of some notes, made as a person makes it, without a screen.
#pragma once

#include <gtest/gtest.h>

#include <QApplication>

#include "edit/TarnClick.h"
#include "edit/ToolState.h"
#include "layout/Frames.h"
#include "platform/files/PosixFiles.h"
#include "platform/freetype/FreeTypeMeasures.h"
#include "session/Session.h"

namespace corvane {

class ViewTest : public testing::Test {
protected:
    ViewTest() : _session(Parts(_files)) {
        window = _session.NewScore({4, 2}, "DS");
        window->Activate();
        Tools() = ToolState();
        SetItem(7);
    }
    ~ViewTest() override { Tools() = ToolState(); }

    static void SetUpTestSuite() {
        static int count = 1;
        static char name[] = "test", *arguments[] = {name, nullptr};
        if (!qApp) new QApplication(count, arguments);  // for the rest of the run
        InstallFreeTypeMeasures();
    }

    // Where a press behind all events of a measure of the first system enters a note on a staff step.
    Point PlaceOf(int measure, int line) {
        const System* system = pageSystems.First(window->CurrentPage());
        const Measure* m = systemMeasures.First(system);
        for (int i = 1; i < measure; ++i) m = systemMeasures.Next(m);
        const MeasureFrame frame = FrameOf(m);
        const Staff* staff = As<SimpleStaff>(systemStaffs.First(system));
        return {frame.left + frame.width - frame.NoteArea() / 50, FrameOf(staff).YOfLine(line)};
    }
    void Enter(int measure, int line) {
        const Point p = PlaceOf(measure, line);
        MouseDown(*window, p.x, p.y, 0);
    }
    void EnterSome() {
        for (int line : {1, 4, 9, 12}) Enter(1, line);
        SetItem(11);
        for (int line : {3, 4, 5, 6, -2}) Enter(2, line);
        SetItem(7);
    }
    // The lines of the notes in a measure's first voice.
    std::vector<int> LinesIn(int measure) {
        const System* system = pageSystems.First(window->CurrentPage());
        const Measure* m = systemMeasures.First(system);
        for (int i = 1; i < measure; ++i) m = systemMeasures.Next(m);
        std::vector<int> lines;
        for (VoiceSymbol* symbol : voiceSymbols.Of(measureStaffVoices.First(measureStaffs.First(m))))
            if (auto* chord = As<Chords>(symbol))
                for (const GenericNote* note : chordNotes.Of(chord)) lines.push_back(note->_line);
        return lines;
    }

    static SessionParts Parts(FileLayer& files) {
        SessionParts parts;
        parts.files = &files;
        return parts;
    }

    PosixFiles _files;
    Session _session;
    WindowTarn* window = nullptr;
};

}  // namespace corvane
