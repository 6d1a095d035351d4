#include "interchange/Spelling.h"

#include <iterator>

namespace corvane {
namespace {

// On the line of fifths, C being 0: the flattest of the twelve notes by key signature, from seven flats to
// seven sharps.
constexpr int kFlattest[] = {-8, -8, -7, -6, -5, -4, -3, -1, -1, -1, 0, 1, 1, 1, 1};
constexpr int kMiddleOctave = 5;
constexpr int kNaturals[] = {0, 2, 4, 5, 7, 9, 11};  // semitones of the steps from C

int Modulo(int a, int b) { return (a % b + b) % b; }

}  // namespace

Spelling SpellingOf(int midiKey, int signature) {
    static_assert(std::size(kFlattest) == 15);
    const int flattest = kFlattest[signature + 7];
    const int fifth = flattest + Modulo(midiKey * 7 - flattest, 12);
    const int letter = Modulo(fifth * 4, 7);
    const int sharps = (fifth + 8) / 7 - 1;  // -1, 0 or 1
    const int octave = (midiKey - sharps - kNaturals[letter]) / 12;
    const Alteration alteration = sharps > 0   ? Alteration::Sharp
                                  : sharps < 0 ? Alteration::Flat
                                               : Alteration::None;
    return {letter + 7 * (octave - kMiddleOctave), alteration};
}

}  // namespace corvane
