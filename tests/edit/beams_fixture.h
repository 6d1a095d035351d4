// Beams by command, and what a score then shows of them.
#pragma once

#include <algorithm>
#include <cmath>

#include "edit/BeamChanges.h"
#include "layout/Beaming.h"
#include "layout/Engraving.h"
#include "layout/NoteGeometry.h"
#include "model/Preferences.h"
#include "notes_fixture.h"

namespace corvane {

class BeamsTest : public NotesTest {
protected:
    static constexpr int kOnBeat = 33027, kTogether = 33028, kOverStaves = 33029, kAdd = 33030,
                         kRemove = 33031, kFlip = 33032, kInner = 40026, kTurn = 40027, kAngled = 33087,
                         kGrouping = 32810, kSubGroups = 32811, kDistances = 32820, kVoices = 32784;

    void TearDown() override { SetAngledBeams(true); }

    static BeamSymbol* Carrier(VoiceSymbol* event) { return BeamSymbolOf(event); }
    Stem* StemNumber(int measure, int staff, int number) {
        return StemOf(ChordNumber(measure, staff, number));
    }
    Beam* BeamAt(int measure, int staff, int number) { return BeamOf(StemNumber(measure, staff, number)); }

    // For each event of a measure its beam (a letter each), its flag (f) or neither (.).
    std::string Picture(int measure, int staff) {
        std::vector<const Beam*> beams;
        std::string text;
        for (VoiceSymbol* event : Events(measure, staff)) {
            const Beam* beam = BeamOf(Carrier(event));
            if (beam && std::find(beams.begin(), beams.end(), beam) == beams.end()) beams.push_back(beam);
            const auto place = std::find(beams.begin(), beams.end(), beam) - beams.begin();
            text += beam ? static_cast<char>('a' + place) : FlagOf(Carrier(event)) ? 'f' : '.';
        }
        return text;
    }

    // Selects events of one staff, counted from 1, and nothing else before `more`.
    void Choose(int measure, int staff, int first, int last) {
        window->TheSelection().Clear();
        ChooseMore(measure, staff, first, last);
    }
    void ChooseMore(int measure, int staff, int first, int last) {
        const std::vector<VoiceSymbol*> events = Events(measure, staff);
        for (int i = first; i <= last; ++i) {
            const auto* pause = As<Pause>(events[static_cast<size_t>(i - 1)]);
            const Rect ink = pause ? RectOf(pause) : RectOf(Head(measure, staff, i));
            const Point middle{(ink.left + ink.right) / 2, (ink.top + ink.bottom) / 2};
            window->TheSelection().Add({middle.x - 5, middle.y - 5, middle.x + 5, middle.y + 5});
        }
    }
    void On(int command, int measure, int staff, int first, int last) {
        Choose(measure, staff, first, last);
        Step([&] { Do(command, {}); });
    }
    std::string RefusalOn(int command, int measure, int staff, int first, int last) {
        Choose(measure, staff, first, last);
        return Refusal(command, {});
    }

    // Events behind each other, "8:5 r8 16:2".
    void Write(int measure, int staff, const std::string& events) {
        std::istringstream in(events);
        for (std::string word; in >> word;) {
            const bool rest = word[0] == 'r';
            const size_t colon = word.find(':');
            const int value = std::stoi(word.substr(rest));
            const int item = 2 * static_cast<int>(std::log2(value)) + (rest ? 4 : 3);
            Enter(item, measure, staff, 995,
                  colon == std::string::npos ? 5 : std::stoi(word.substr(colon + 1)));
        }
    }

    // Every stem reaches the line between the ends of the first and the last, or the level that it belongs
    // to.
    void ExpectOnLine(const Beam* beam) {
        const BeamStroke line = StrokesOf(beam).front();
        const double slope = static_cast<double>(line.to.y - line.from.y) / (line.to.x - line.from.x);
        for (const BeamMarker* marker : beamMarkers.Of(beam)) {
            const auto* stem = As<Stem>(beamSymbolAttributes.ParentOf(marker));
            if (!stem || IsMultiStaff(stem)) continue;
            const bool against = IsUp(stem->_direction) != (beam->_direction == 'U');
            const StemLine its = LineOf(stem);
            EXPECT_NEAR(its.end - (against ? LevelReach(marker) : 0),
                        line.from.y + (its.x - line.from.x) * slope, 3);
        }
    }
};

}  // namespace corvane
