// What must be true of a score beyond sound rings: found in a live score, healed or refused in a file.
#include <gtest/gtest.h>

#include "model/ClassTable.h"
#include "model/EventRecords.h"
#include "model/Preferences.h"
#include "model/Relations.h"
#include "model/ScoreCheck.h"
#include "store/NewMemoryPool.h"

namespace corvane {
namespace {

// Two parts, two systems of one measure each; a chord of two notes with its events, and a rest, in the first
// measure.
struct Scene {
    Scene() {
        MakeDefaultPreferences(document);
        documentFontSymbols.Add(document, symbol);
        symbol->_name = MakeText("Quarto");
        documentPages.Add(document, page);
        document->_pageCount = page->_pageNumber = 1;
        page->_systemCount = 2;
        for (DocStaff*& part : parts) documentDocStaffs.Add(document, part = Make<DocStaff>());
        for (int i = 0; i < 2; ++i) AddSystem(i);
        voice = measureStaffVoices.First(crossings[0][0]);
        AddChord();
        voiceSymbols.Add(voice, rest);
        rest->_value = 4;
        rest->_symbol = symbol;
        rest->_x = 500;
        symbol->_useCount = 3;
    }
    void AddSystem(int i) {
        auto* system = systems[i] = Make<System>();
        pageSystems.Add(page, system);
        systemMeasures.Add(system, measures[i] = Make<Measure>());
        system->_measureCount = 1;
        measures[i]->_number = i + 1;
        for (int p = 0; p < 2; ++p) {
            auto* staff = Make<SimpleStaff>();
            docStaffStaffs.Add(parts[p], staff);
            systemStaffs.Add(system, staff);
            auto* crossing = crossings[i][p] = Make<MeasureStaff>();
            measureStaffs.Add(measures[i], crossing);
            docStaffMeasureStaffs.Add(parts[p], crossing);
            crossing->_staff = staff;
            auto* first = Make<Voice>();
            first->_number = 1;
            measureStaffVoices.Add(crossing, first);
            parts[p]->_voiceCount = 1;
        }
    }
    void AddChord() {
        measureSymbols.Add(measures[0], column);
        column->_value = 4;
        chordSymbolStems.Add(column, stem);
        chordSymbolChords.Add(column, chord);
        voiceSymbols.Add(voice, chord);
        for (int i = 0; i < 2; ++i) {
            Note* note = notes[i] = Make<Note>();
            chordNotes.Add(chord, note);
            stemNotes.Insert(stem, note, nullptr);
            note->_line = static_cast<int16_t>(3 + 2 * i);
            note->_symbol = symbol;
            AddEvent(on, ons[i] = Make<NoteOn>(), note);
            AddEvent(off, offs[i] = Make<NoteOff>(), note);
        }
        measureTimeElements.Add(measures[0], on);
        measureTimeElements.Add(measures[0], off);
        on->_beat = 1;
        off->_beat = 2;
        on->_refCount = off->_refCount = 2;
    }
    void AddEvent(MarkUp* time, SoundEvent* event, Note* note) {
        markUpEvents.Add(time, event);
        noteEvents.Add(note, event);
        event->_docStaff = parts[0];
        event->_voiceRecord = &parts[0]->_voices[0];
    }

    NewMemoryPool* pool = MemoryManager::Instance().GetCurrentPool();
    Document* document = Make<Document>();
    Page* page = Make<Page>();
    SimpleFont* symbol = Make<SimpleFont>();
    DocStaff* parts[2];
    System* systems[2];
    Measure* measures[2];
    MeasureStaff* crossings[2][2];
    Voice* voice;
    ChordSymbol* column = Make<ChordSymbol>();
    Stem* stem = Make<Stem>();
    Chords* chord = Make<Chords>();
    Pause* rest = Make<Pause>();
    Note* notes[2];
    TimeOn* on = Make<TimeOn>();
    TimeOff* off = Make<TimeOff>();
    NoteOn* ons[2];
    NoteOff* offs[2];
};

enum Outcome { kHealed, kRefused, kTaken };

const struct {
    const char* why;
    void (*harm)(Scene&);
    const char* text;  // of what a live check finds first
    Outcome outcome;   // of reading it from a file
} kFaults[] = {
    {"pages counted wrong", [](Scene& s) { s.document->_pageCount = 2; }, "count of pages", kHealed},
    {"page numbered wrong", [](Scene& s) { s.page->_pageNumber = 7; }, "page number", kHealed},
    {"systems counted wrong", [](Scene& s) { s.page->_systemCount = 0; }, "count of systems", kHealed},
    {"measures counted wrong", [](Scene& s) { s.systems[1]->_measureCount = 5; }, "count of measures",
     kHealed},
    {"measure numbered wrong", [](Scene& s) { s.measures[1]->_number = 0; }, "measure number", kHealed},
    {"voices counted wrong", [](Scene& s) { s.parts[0]->_voiceCount = 0; }, "count of voices", kHealed},
    {"solo forgotten", [](Scene& s) { s.parts[1]->_solo = 1; }, "solo", kHealed},
    {"symbol counted wrong", [](Scene& s) { s.symbol->_useCount = 4; }, "use count of a symbol", kHealed},
    {"time counted wrong", [](Scene& s) { s.on->_refCount = 1; }, "use count of a time", kHealed},
    {"voice without a number", [](Scene& s) { s.voice->_number = 0; }, "numbered upwards", kRefused},
    {"ninth voice", [](Scene& s) { s.voice->_number = 9; }, "numbered upwards", kRefused},
    {"crossing lost", [](Scene& s) { docStaffMeasureStaffs.Remove(s.crossings[1][1]); }, "no parent",
     kRefused},
    {"crossings turned around",
     [](Scene& s) {
         measureStaffs.Remove(s.crossings[1][0]);
         measureStaffs.Add(s.measures[1], s.crossings[1][0]);
     },
     "order of the staves", kRefused},
    {"crossings of a part turned around",
     [](Scene& s) {
         docStaffMeasureStaffs.Remove(s.crossings[0][0]);
         docStaffMeasureStaffs.Add(s.parts[0], s.crossings[0][0]);
     },
     "order of the measures", kRefused},
    {"staff of another part", [](Scene& s) { s.crossings[0][0]->_staff = s.crossings[0][1]->_staff; },
     "another part", kRefused},
    {"staff of another system", [](Scene& s) { s.crossings[0][0]->_staff = s.crossings[1][0]->_staff; },
     "another system", kRefused},
    {"no such value", [](Scene& s) { s.column->_value = 3; }, "no note has that value", kRefused},
    {"no such rest", [](Scene& s) { s.rest->_value = 0; }, "no rest has that value", kRefused},
    {"no such direction", [](Scene& s) { s.stem->_direction = StemDirection(4); }, "direction", kRefused},
    {"no such side", [](Scene& s) { s.notes[0]->_side = Side(3); }, "side", kRefused},
    {"no such alteration", [](Scene& s) { s.notes[0]->_alteration = Alteration(11); }, "alteration",
     kRefused},
    {"head without a symbol", [](Scene& s) { s.notes[0]->_symbol = nullptr; }, "no symbol", kRefused},
    {"note without a stem", [](Scene& s) { stemNotes.Remove(s.notes[0]); }, "no parent", kRefused},
    {"column in another measure",
     [](Scene& s) {
         measureSymbols.Remove(s.column);
         measureSymbols.Add(s.measures[1], s.column);
     },
     "different measures", kRefused},
    {"heads not from the highest", [](Scene& s) { s.notes[0]->_line = 9; }, "from the highest", kTaken},
    {"events not from the left", [](Scene& s) { s.rest->_x = -1; }, "left to right", kTaken},
    {"time before the first beat", [](Scene& s) { s.on->_beat = 0; }, "no time of a measure", kRefused},
    {"times not in order", [](Scene& s) { s.on->_beat = 3; }, "not in order", kRefused},
    {"clock beyond the beat", [](Scene& s) { s.on->_clock = 32000; }, "no time of a measure", kRefused},
    {"event of another part", [](Scene& s) { s.ons[0]->_docStaff = s.parts[1]; }, "another part", kRefused},
    {"voice of another part", [](Scene& s) { s.ons[0]->_voiceRecord = &s.parts[1]->_voices[0]; },
     "not one of its part", kRefused},
    {"event of another voice", [](Scene& s) { s.ons[0]->_voiceRecord = &s.parts[0]->_voices[1]; },
     "another voice", kTaken},
    {"heights differ", [](Scene& s) { s.offs[1]->_height = 60; }, "different heights", kTaken},
    {"preferences twice", [](Scene& s) { documentPreferences.Add(s.document, Make<StaffPref>()); },
     "second preference", kRefused},
    {"preferences missing",
     [](Scene& s) {
         ClassPreferences* record = Preferences<StaffPref>(s.document);
         documentPreferences.Remove(record);
         ReleaseText(record->_className);
         MemoryManager::Instance().Release(record);
     },
     "not one preference record", kRefused},
    {"two symbols of a name",
     [](Scene& s) {
         auto* twin = Make<SimpleFont>();
         twin->_name = MakeText("Quarto");
         documentFontSymbols.Add(s.document, twin);
     },
     "name of its own", kRefused},
};

TEST(ScoreCheck, EachFaultIsFoundLiveAndHealedOrRefusedInAFile) {
    RegisterClasses();
    MemoryManager& manager = MemoryManager::Instance();
    for (const auto& c : kFaults) {
        SCOPED_TRACE(c.why);
        NewMemoryPool* pool = manager.NewPool();
        Scene scene;
        ASSERT_TRUE(CheckScore(*pool).empty()) << TextOf(CheckScore(*pool)[0]);
        c.harm(scene);
        const std::vector<Finding> found = CheckScore(*pool);
        ASSERT_FALSE(found.empty());
        EXPECT_NE(found[0].text.find(c.text), std::string::npos) << found[0].text;
        std::vector<uint8_t> bytes;
        ASSERT_TRUE(EncodeScore(*pool, bytes));

        NewMemoryPool* read = manager.NewPool();
        LoadReport report;
        const Status status = ReadScore(*read, bytes, &report);
        EXPECT_EQ(status.ok(), c.outcome != kRefused);
        EXPECT_EQ(report.faults.empty(), status.ok());
        EXPECT_EQ(report.healed.size(), c.outcome == kHealed ? 1u : 0u);
        if (c.outcome == kHealed) {
            EXPECT_NE(report.healed[0].find(c.text), std::string::npos) << report.healed[0];
            EXPECT_TRUE(CheckScore(*read).empty());
        }
        if (c.outcome == kRefused) {
            EXPECT_EQ(status.message(), "Invalid file");
            EXPECT_EQ(read->FirstObject(), nullptr);
        }
        manager.DeletePool(read);
        manager.DeletePool(pool);
    }
}

TEST(ScoreCheck, WhatAClipboardHoldsNeedNoParent) {
    RegisterClasses();
    NewMemoryPool* pool = MemoryManager::Instance().NewPool();
    Scene scene;
    voiceSymbols.Remove(scene.rest);
    EXPECT_FALSE(CheckScore(*pool).empty());
    const void* const kept[] = {scene.rest};
    EXPECT_TRUE(CheckScore(*pool, kept).empty());
    MemoryManager::Instance().DeletePool(pool);
}

}  // namespace
}  // namespace corvane
