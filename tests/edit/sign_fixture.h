// Presses and commands for signs, and what a score shows of them.
#pragma once

#include "edit/CommandTable.h"
#include "edit/Signs.h"
#include "edit_fixture.h"
#include "layout/PageFiling.h"
#include "layout/SignRecords.h"
#include "model/Clefs.h"
#include "model/SymbolTable.h"
#include "state_keeper.h"
#include "store/ObjectFile.h"

namespace corvane {

class SignTest : public EditTest {
protected:
    // Runs a command that must succeed.
    void Do(int id, const CommandArguments& arguments) {
        const Status status = RunCommand(*window, id, arguments);
        EXPECT_TRUE(status) << status.message();
    }
    std::string Refusal(int id, const CommandArguments& arguments) {
        return RunCommand(*window, id, arguments).message();
    }
    void PressClef(int item, int measure, int staff, int perMille) {
        SetToolMode(ModePencil);
        SetPaletteGroup(2);
        SetItem(static_cast<uint16_t>(item));
        Press(measure, staff, perMille, 5);
    }
    // Left of all notes of a measure.
    void PressHead(int item, int measure, int staff) { PressClef(item, measure, staff, -60); }
    void Erase(const void* record) {
        SetToolMode(ModeEraser);
        const Rect ink = PatchOf(const_cast<void*>(record)).Bounds();
        MouseDown(*window, (ink.left + ink.right) / 2, (ink.top + ink.bottom) / 2, 0);
    }

    // A scale of eight eighths or fewer quarters from a line up.
    void Fill(int measure, int staff, int item, int count, int line) {
        for (int i = 0; i < count; ++i) Enter(item, measure, staff, 5 + i * 950 / count + 20, line + i);
    }

    std::vector<int> Lines(int measure, int staff) {
        std::vector<int> lines;
        ForEachNote(measure, staff, [&](const GenericNote* note) { lines.push_back(note->_line); });
        return lines;
    }
    // A letter for each note: "-" without an accidental, else that of its symbol.
    std::string Accidentals(int measure, int staff) {
        std::string shown;
        ForEachNote(measure, staff, [&](const GenericNote* note) {
            const Accident* accident = AccidentOf(note);
            shown += accident ? SymbolName(accident->_symbol).substr(1) : std::string_view("-");
        });
        return shown;
    }
    template <class Visit>
    void ForEachNote(int measure, int staff, Visit visit) {
        for (VoiceSymbol* symbol : Events(measure, staff))
            if (const auto* chord = As<Chords>(symbol))
                for (const GenericNote* note : chordNotes.Of(chord)) visit(note);
    }
    template <class Sign>
    std::string_view SymbolOf(int measure, int staff) {
        const Sign* sign = SignOf<Sign>(Crossing(measure, staff));
        return sign ? SymbolName(sign->_symbol) : std::string_view();
    }

    // Every event sounds as its note's notation says.
    void ExpectHeightsOfNotation() {
        for (const DocStaff* staff : documentDocStaffs.Of(Score()))
            for (const MeasureStaff* crossing : docStaffMeasureStaffs.Of(staff))
                for (const Voice* voice : measureStaffVoices.Of(crossing))
                    for (const VoiceSymbol* symbol : voiceSymbols.Of(voice))
                        if (const auto* chord = As<Chords>(symbol)) {
                            for (const GenericNote* note : chordNotes.Of(chord))
                                for (const SoundEvent* event : noteEvents.Of(note))
                                    EXPECT_EQ(event->_height, SoundingHeight(note));
                        }
    }

    // What the sheet holds is what the page shows, each object where it is drawn.
    void ExpectFiled() {
        size_t shown = 0;
        ForEachPatch(window->CurrentPage(), [&](const DrawPatch& patch, int) {
            ++shown;
            EXPECT_EQ(window->Sheet().FiledRect(patch), patch.Bounds()) << patch.ClassNumber();
        });
        EXPECT_EQ(window->Sheet().AllPatches().size(), shown);
    }

    // The bytes of a save are the bytes of a save after a load, and the notes are the same.
    void ExpectSameAfterReload() {
        std::vector<uint8_t> saved, again;
        ASSERT_TRUE(EncodeScore(*window->Pool(), saved));
        {
            static EditorShell silent;
            WindowTarn other(silent);
            LoadReport report;
            const Status status = ReadScore(*other.Pool(), saved, &report);
            EXPECT_TRUE(status) << status.message();
            EXPECT_TRUE(report.healed.empty());
            if (status) {
                EXPECT_TRUE(EncodeScore(*other.Pool(), again));
            }
        }
        window->Activate();
        EXPECT_EQ(saved, again);
    }

    // Runs a change as one step: sound, filed and reloadable after it, and undone and redone to the last
    // byte.
    template <class Change>
    void Step(Change change) {
        StateKeeper keeper(*window);
        change();
        ASSERT_EQ(keeper.commands, 1);
        const PoolState after = PoolState::Of(*window->Pool());
        ExpectSound();
        ExpectFiled();
        ExpectHeightsOfNotation();
        window->Undo();
        EXPECT_EQ(PoolState::Of(*window->Pool()), keeper.before);
        ExpectFiled();
        window->Redo();
        EXPECT_EQ(PoolState::Of(*window->Pool()), after);
        ExpectSound();
    }
};

}  // namespace corvane
