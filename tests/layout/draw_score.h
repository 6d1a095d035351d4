// Events put into a score by hand, each field as a test wants it.
#pragma once

#include <vector>

#include "build_score.h"
#include "layout/NoteGeometry.h"
#include "model/Par.h"
#include "model/SymbolNames.h"

namespace corvane::draw {

struct ChordWanted {
    uint8_t value = 4;
    std::vector<int16_t> lines;  // the highest first
    int32_t x = 0;               // per mille
    StemDirection direction = StemDirection::Up;
    const char* head = "Quarto";
    int32_t length = 350;
    bool flagged = true;  // from an eighth on
};

class DrawTest : public build::ScoreTest {
protected:
    ChordSymbol* AddChord(Voice* voice, const ChordWanted& wanted) {
        auto* column = Make<ChordSymbol>();
        column->_value = wanted.value;
        measureSymbols.Add(MeasurePar(voice), column);
        auto* chord = Make<Chords>();
        voiceSymbols.Add(voice, chord);
        chordSymbolChords.Add(column, chord);
        auto* stem = Make<Stem>();
        stem->_slant = kVerticalStem;
        stem->_x = wanted.x;
        stem->_length = wanted.length;
        chordSymbolStems.Add(column, stem);
        for (const int16_t line : wanted.lines) AddHead(chord, stem, line, wanted.head);
        SetDirection(stem, wanted.direction);
        if (wanted.value >= 8 && wanted.value != kDoubleWhole && wanted.flagged) AddFlag(stem, wanted.value);
        return column;
    }
    GenericNote* AddHead(Chords* chord, Stem* stem, int16_t line, const char* head) {
        auto* note = Make<Note>();
        note->_symbol = LookupSymbol(document, head);
        note->_line = line;
        note->_size = 100;
        chordNotes.Add(chord, note);
        AddNoteToStem(stem, note);
        return note;
    }
    Flag* AddFlag(Stem* stem, int value) {
        auto* flag = Make<Flag>();
        flag->_symbol = LookupSymbol(document, FlagName(value, IsUp(stem->_direction), false));
        beamSymbolAttributes.Add(stem, flag);
        return flag;
    }
    Pause* AddRest(Voice* voice, uint8_t value, int32_t x, int32_t y = 2000) {
        auto* pause = Make<Pause>();
        pause->_value = value;
        pause->_x = x;
        pause->_y = y;
        const std::string name = value == 1   ? "PausaIntero"
                                 : value == 2 ? "PausaMeta"
                                              : "Pausa" + std::to_string(value);
        pause->_symbol = LookupSymbol(document, name);
        voiceSymbols.Add(voice, pause);
        return pause;
    }
    Accident* AddAccident(GenericNote* note, const char* name) {
        auto* accident = Make<Accident>();
        accident->_symbol = LookupSymbol(document, name);
        noteAttributes.Add(note, accident);
        return accident;
    }
    Dot* AddDot(VoiceSymbol* symbol, int16_t count) {
        auto* dot = Make<Dot>();
        dot->_symbol = LookupSymbol(document, "Punto");
        dot->_count = count;
        voiceSymbolAttributes.Add(symbol, dot);
        return dot;
    }
    // Over stems and rests whose flags are not there; `values` are the markers' own.
    Beam* AddBeam(const std::vector<BeamSymbol*>& symbols, const std::vector<uint8_t>& values,
                  char direction) {
        auto* beam = Make<Beam>();
        beam->_direction = static_cast<uint8_t>(direction);
        for (size_t i = 0; i < symbols.size(); ++i) {
            auto* marker = Make<BeamMarker>();
            marker->_leftValue = values[i];
            marker->_groupValue = values[i];
            marker->_rightValue = uint8_t{255};
            marker->_stubSide = static_cast<uint8_t>(i + 1 == symbols.size() ? 'L' : 'R');
            beamSymbolAttributes.Add(symbols[i], marker);
            beamMarkers.Add(beam, marker);
        }
        return beam;
    }
    static Stem* StemOf(ChordSymbol* column) { return chordSymbolStems.First(column); }
    static GenericNote* HeadOf(ChordSymbol* column, int place = 0) {
        GenericNote* note = stemNotes.First(StemOf(column));
        while (place-- > 0) note = stemNotes.Next(note);
        return note;
    }
    static Chords* ChordOf(ChordSymbol* column) { return chordSymbolChords.First(column); }
    Voice* VoiceOfStaff(int measure, int staff, int system = 0) const {
        const MeasureStaff* crossing = measureStaffs.First(MeasureAt(SystemAt(system), measure));
        while (staff-- > 0) crossing = measureStaffs.Next(crossing);
        return measureStaffVoices.First(crossing);
    }
};

}  // namespace corvane::draw
