// Syllables under the notes of a voice: their order, their places, the hyphens and lines between them.
// Absolute page units. Every search ends with the system that it began in.
#pragma once

#include <optional>
#include <vector>

#include "layout/TextInk.h"
#include "model/Relations.h"

namespace corvane {

inline int VerseOf(const Liriche* syllable) { return syllable->_verse ? syllable->_verse.Get() : 1; }

// The chords of a voice that are sung: grace notes and rests are not. Over measures, systems and pages; null
// at the ends.
Chords* NextSung(const Chords* chord);
Chords* PrevSung(const Chords* chord);
Liriche* SyllableOf(const Chords* chord, int verse);

// The neighbour in its verse within the system; null for none.
Liriche* NextInVerse(const Liriche* syllable);
Liriche* PrevInVerse(const Liriche* syllable);

// Everything that one syllable draws.
struct LyricPicture {
    TextPlace text;
    std::vector<Point> hyphens;  // where each begins on the baseline
    std::optional<Rect> extender;
    std::optional<Rect> lead;  // of a syllable of the system before, up to its first note here
};
LyricPicture PictureOf(const Liriche* syllable);

// Syllables left of a crossing whose hyphens or lines end in it.
std::vector<Liriche*> LyricsReaching(const MeasureStaff* crossing);

// The baseline of the first verse below a staff in a system, thousandths of its line distance, that clears
// what stands there.
int32_t LyricBaseline(const System* system, const DocStaff* docStaff);

}  // namespace corvane
