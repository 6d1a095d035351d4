// A staff with events in words: lines are 100 units apart and a per mille of the measure is a page unit, so
// that places can be worked out by hand.
#pragma once

#include <algorithm>
#include <sstream>

#include "base/Rounding.h"
#include "draw_score.h"
#include "layout/BeamGroups.h"
#include "layout/Beaming.h"
#include "layout/Engraving.h"
#include "model/Preferences.h"

namespace corvane::draw {

class EngravingTest : public DrawTest {
protected:
    EngravingTest() { Clear("S"); }
    ~EngravingTest() override { SetAngledBeams(true); }

    // A new score; the first measure is `width` wide behind its header.
    void Clear(std::string_view staffs = "S", int32_t width = 1000) {
        New(staffs, 2, 1);
        measure = MeasureAt(SystemAt(0), 0);
        measure->_right = measure->_left + FrameOf(measure).header + width;
        voice = VoiceOfStaff(0, 0);
        bottom = FrameOf(StaffsFromTop(SystemAt(0))[0]).Bottom();
    }
    void Meter(int numerator, int denominator) {
        measure->_num = static_cast<int16_t>(numerator);
        measure->_den = static_cast<int16_t>(denominator);
    }
    NotePref& Notes() { return *Preferences<NotePref>(document); }
    VoicePref& Voices() { return *Preferences<VoicePref>(document); }

    // Events, chords by their places: "8" an eighth, "8." dotted, "r16" a rest, "g8" a grace chord; ":5" or ":8,3"
    // tells lines, the highest first, and "@400" the place. Lines are 5 and places 100 apart where none are
    // told. Stems and flags are as for notes on their own.
    std::vector<VoiceSymbol*> Add(const std::string& words) { return AddTo(voice, words); }
    std::vector<VoiceSymbol*> AddTo(Voice* to, const std::string& words) {
        std::vector<VoiceSymbol*> added;
        std::istringstream in(words);
        for (std::string word; in >> word;) added.push_back(AddWord(to, word));
        return added;
    }
    static Stem* StemAt(VoiceSymbol* symbol) { return corvane::StemOf(As<Chords>(symbol)); }
    static GenericNote* NoteAt(VoiceSymbol* symbol) { return stemNotes.First(StemAt(symbol)); }
    // Height above the bottom line of a free end.
    int32_t EndOf(VoiceSymbol* symbol) const { return bottom - LineOf(StemAt(symbol)).end; }
    static std::string LengthsOf(const std::vector<VoiceSymbol*>& symbols) {
        std::string text;
        for (VoiceSymbol* symbol : symbols)
            text += (text.empty() ? "" : " ") + std::to_string(StemAt(symbol)->_length);
        return text;
    }
    static std::string FlagNameOf(const Stem* stem) {
        const Flag* flag = FlagOf(stem);
        return flag ? std::string(SymbolName(flag->_symbol)) : "";
    }
    int32_t UsesOf(std::string_view name) const {
        FontSymbol* symbol = LookupSymbol(document, name);
        const int32_t uses = symbol->_useCount - 1;
        ReleaseSymbol(document, symbol);
        return uses;
    }

    Measure* measure = nullptr;
    Voice* voice = nullptr;
    int32_t bottom = 0;

private:
    VoiceSymbol* AddWord(Voice* to, std::string word) {
        const auto tail = [&](char mark) {
            const size_t at = word.find(mark);
            if (at == std::string::npos) return std::string();
            std::string rest = word.substr(at + 1);
            word.resize(at);
            return rest;
        };
        const std::string place = tail('@'), lines = tail(':');
        const int32_t x = place.empty() ? NextPlace(to) : std::stoi(place);
        const auto dots = std::count(word.begin(), word.end(), '.');
        const char kind = word[0];
        const auto value = static_cast<uint8_t>(std::stoi(std::isdigit(kind) ? word : word.substr(1)));
        VoiceSymbol* symbol =
            kind == 'r' ? AddRest(to, value, x) : AddNotes(to, value, x, lines, kind == 'g');
        SetDots(symbol, static_cast<int>(dots));
        return symbol;
    }
    static int32_t NextPlace(const Voice* to) {
        const VoiceSymbol* last = voiceSymbols.Last(to);
        return last ? XOf(last) + 100 : 0;
    }
    static VoiceSymbol* EventBefore(const Voice* to, int32_t x) {
        VoiceSymbol* before = nullptr;
        for (VoiceSymbol* symbol : voiceSymbols.Of(to)) {
            if (XOf(symbol) > x) break;
            before = symbol;
        }
        return before;
    }
    VoiceSymbol* AddNotes(Voice* to, uint8_t value, int32_t x, const std::string& lines, bool grace) {
        auto* column = Make<ChordSymbol>();
        column->_value = value;
        measureSymbols.Add(MeasurePar(to), column);
        auto* chord = grace ? Make<GraceChord>() : Make<Chords>();
        voiceSymbols.Insert(to, chord, EventBefore(to, x));
        chordSymbolChords.Add(column, chord);
        auto* stem = Make<Stem>();
        stem->_slant = kVerticalStem;
        stem->_x = x;
        chordSymbolStems.Add(column, stem);
        std::istringstream in(lines.empty() ? "5" : lines);
        for (std::string line; std::getline(in, line, ',');) AddNote(chord, stem, std::stoi(line), grace);
        RestemChord(chord);
        AttachFlag(stem, value);
        return chord;
    }
    void AddNote(Chords* chord, Stem* stem, int line, bool grace) {
        GenericNote* note = grace ? static_cast<GenericNote*>(Make<Grace>()) : Make<Note>();
        note->_symbol = LookupSymbol(document, grace ? "GraceQuarto" : "Quarto");
        note->_line = static_cast<int16_t>(line);
        note->_size = 100;
        chordNotes.Add(chord, note);
        AddNoteToStem(stem, note);
    }
};

}  // namespace corvane::draw
