// A score made by hand, record by record: one page and one system, as many staves and measures as asked for.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "model/ClassTable.h"
#include "model/Relations.h"
#include "play/MIDIUtility.h"

namespace corvane {

// Staff steps of notes under the treble clef that holds where there is none.
inline constexpr int kC4 = -1, kD4 = 0, kE4 = 1, kF4 = 2, kG4 = 3, kA4 = 4, kB4 = 5, kC5 = 6;

class SmallScore : public ::testing::Test {
protected:
    SmallScore() {
        RegisterClasses();
        NewScore();
    }
    // An empty one in place of what there is.
    void NewScore() {
        if (_pool) MemoryManager::Instance().DeletePool(_pool);
        _pool = MemoryManager::Instance().NewPool();
        document = Make<Document>();
        Page* page = Make<Page>();
        documentPages.Add(document, page);
        _system = Make<System>();
        pageSystems.Add(page, _system);
    }
    ~SmallScore() override { MemoryManager::Instance().DeletePool(_pool); }

    DocStaff* AddStaff() {
        DocStaff* staff = Make<DocStaff>();
        staff->_active = 1;
        for (VoiceRecord& voice : staff->_voices) {
            voice._volume = 127;
            voice._channel = 1;
            voice._port = -1;
        }
        documentDocStaffs.Add(document, staff);
        return staff;
    }

    // A measure with one voice on every staff.
    Measure* AddMeasure(int num = 4, int den = 4) {
        if (documentDocStaffs.IsEmpty(document)) AddStaff();
        Measure* measure = Make<Measure>();
        measure->_num = static_cast<int16_t>(num);
        measure->_den = static_cast<int16_t>(den);
        measure->_number = systemMeasures.Count(_system) + 1;
        systemMeasures.Add(_system, measure);
        for (DocStaff* staff : documentDocStaffs.Of(document)) {
            MeasureStaff* crossing = Make<MeasureStaff>();
            measureStaffs.Add(measure, crossing);
            docStaffMeasureStaffs.Add(staff, crossing);
            AddVoice(crossing, 1);
        }
        return measure;
    }

    Voice* AddVoice(MeasureStaff* crossing, int number) {
        Voice* voice = Make<Voice>();
        voice->_number = static_cast<int16_t>(number);
        measureStaffVoices.Add(crossing, voice);
        return voice;
    }
    static MeasureStaff* Crossing(const Measure* measure, int staff = 0) {
        MeasureStaff* crossing = measureStaffs.First(measure);
        while (staff--) crossing = measureStaffs.Next(crossing);
        return crossing;
    }
    static Voice* VoiceOf(const Measure* measure, int staff = 0) {
        return measureStaffVoices.First(Crossing(measure, staff));
    }

    // A chord without events, behind a symbol of the voice or last.
    template <class Kind = Chords, class Head = Note>
    Kind* PutChord(Voice* voice, int value, const std::vector<int>& lines, VoiceSymbol* behind = nullptr) {
        Kind* chord = Make<Kind>();
        ChordSymbol* column = Make<ChordSymbol>();
        column->_value = static_cast<uint8_t>(value);
        chordSymbolChords.Add(column, chord);
        Stem* stem = Make<Stem>();
        stem->_x = 10 * voiceSymbols.Count(voice);
        chordSymbolStems.Add(column, stem);
        measureSymbols.Add(measureStaffs.ParentOf(measureStaffVoices.ParentOf(voice)), column);
        voiceSymbols.Insert(voice, chord, behind ? behind : voiceSymbols.Last(voice));
        for (const int line : lines) AddHead<Head>(chord, stem, line);
        return chord;
    }
    template <class Head = Note>
    Head* AddHead(Chords* chord, Stem* stem, int line) {
        Head* note = Make<Head>();
        note->_line = static_cast<int16_t>(line);
        chordNotes.Add(chord, note);
        stemNotes.Add(stem, note);
        return note;
    }
    GraceChord* PutGrace(Voice* voice, int value, int line, VoiceSymbol* behind = nullptr) {
        return PutChord<GraceChord, Grace>(voice, value, {line}, behind);
    }
    Pause* PutRest(Voice* voice, int value) {
        Pause* rest = Make<Pause>();
        rest->_value = static_cast<uint8_t>(value);
        if (voiceSymbols.IsEmpty(voice))
            voiceSymbols.Add(voice, rest);
        else
            voiceSymbols.Insert(voice, rest, voiceSymbols.Last(voice));
        return rest;
    }
    // A chord with its events.
    Chords* Enter(Voice* voice, int value, const std::vector<int>& lines) {
        Chords* chord = PutChord(voice, value, lines);
        AddChordEvents(chord);
        return chord;
    }
    void EnterQuarters(const Measure* measure, const std::vector<int>& lines) {
        for (const int line : lines) Enter(VoiceOf(measure), 4, {line});
    }
    static GenericNote* NoteOf(const Chords* chord) { return chordNotes.First(chord); }

    TieValue* Tie(GenericNote* first, GenericNote* second) {
        TieValue* tie = Make<TieValue>();
        for (GenericNote* note : {first, second}) {
            MarkValue* mark = Make<MarkValue>();
            noteAttributes.Add(note, mark);
            tieMarks.Add(tie, mark);
        }
        return tie;
    }
    void MakeTuplet(const std::vector<VoiceSymbol*>& symbols, int count, int inTimeOf) {
        Irregular* tuplet = Make<Irregular>();
        tuplet->_count = static_cast<int16_t>(count);
        tuplet->_inTimeOf = static_cast<int16_t>(inTimeOf);
        for (VoiceSymbol* symbol : symbols) {
            MarkIrreg* mark = Make<MarkIrreg>();
            voiceSymbolAttributes.Add(symbol, mark);
            irregularMarks.Add(tuplet, mark);
        }
    }
    // A mark "quarter = bpm" with its Tempo.
    Time* AddTempo(Measure* measure, int beat, int bpm) {
        Time* mark = Make<Time>();
        mark->_beat = static_cast<int16_t>(beat);
        mark->_bpm = static_cast<int16_t>(bpm);
        mark->_figure = 3;
        measureSymbols.Add(measure, mark);
        InsertTempoAtBeat(measure, mark);
        return mark;
    }
    void AddEnding(const std::vector<Measure*>& measures, const char* text) {
        Endings* ending = Make<Endings>();
        SetText(ending->_text, text);
        for (Measure* measure : measures) {
            MarkEndings* mark = Make<MarkEndings>();
            measureSymbols.Add(measure, mark);
            endingsMarks.Add(ending, mark);
        }
    }

    // The measure's list as "+1:0*2 -2:16000 T3:0": starts, ends and tempos with their places and, from two,
    // users.
    static std::string Elements(const Measure* measure) {
        std::string text;
        for (const TimeElement* element : measureTimeElements.Of(measure)) {
            if (!text.empty()) text += ' ';
            text += As<TimeOn>(element) ? '+' : As<TimeOff>(element) ? '-' : 'T';
            text += std::to_string(element->_beat) + ':' + std::to_string(element->_clock);
            if (element->_refCount != 1) text += '*' + std::to_string(element->_refCount);
        }
        return text;
    }

    Document* document = nullptr;

private:
    NewMemoryPool* _pool = nullptr;
    System* _system = nullptr;
};

}  // namespace corvane
