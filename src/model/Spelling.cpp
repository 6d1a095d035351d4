#include "model/Spelling.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <functional>

#include "model/Clefs.h"
#include "model/NoteOperations.h"

namespace corvane {
namespace {

constexpr int kMiddleC = 60, kMostAccidental = 2, kMostNumber = 22;

// By semitones from -2 to 2.
constexpr Alteration kAlterations[] = {Alteration::DoubleFlat, Alteration::Flat, Alteration::None,
                                       Alteration::Sharp, Alteration::DoubleSharp};

// Steps C to B, and a step further, in the circle of fifths: C is 0, G 1, F -1; a sharp counts 7.
constexpr int kFifths[] = {0, 2, 4, -1, 1, 3, 5};
constexpr int kFifthsOfSharp = 7;

int NameOf(int step) { return (step % 7 + 7) % 7; }

// How far a spelling is from the middle of a key's twelve notes, which run from three fifths below its tonic
// to eight above it. Doubled, to stay whole.
int DistanceInKey(const Spelling& spelling, int fifths) {
    const int place = kFifths[NameOf(spelling.step)] + kFifthsOfSharp * SemitonesOf(spelling.alteration);
    return std::abs(2 * (place - fifths) - 5);
}

// The step that lies nearest below a height, natural.
int StepBelow(int height) {
    int step = (height - kMiddleC) * 7 / 12 - 2;
    while (kMiddleC + SemitonesOfStep(step + 1) <= height) ++step;
    return step;
}

// ---- intervals

constexpr int kSemitonesOfNumber[] = {0, 2, 4, 5, 7, 9, 11};
bool IsPerfect(int simple) { return simple == 0 || simple == 3 || simple == 4; }

// What a quality adds to the perfect or major interval of a number; none for one that the number does not
// have.
std::optional<int> SemitonesOfQuality(std::string_view quality, bool perfect) {
    const bool same = !quality.empty() && quality.find_first_not_of(quality[0]) == std::string_view::npos;
    if (!same || quality.size() > 2) return {};
    const int count = static_cast<int>(quality.size());
    switch (quality[0]) {
        case 'P':
            return perfect && count == 1 ? std::optional(0) : std::nullopt;
        case 'M':
            return !perfect && count == 1 ? std::optional(0) : std::nullopt;
        case 'm':
            return !perfect && count == 1 ? std::optional(-1) : std::nullopt;
        case 'A':
            return count;
        case 'd':
            return perfect ? -count : -count - 1;
        default:
            return {};
    }
}

}  // namespace

Spelling SpellingOf(const GenericNote* note) {
    return {DiatonicStep(ClefCodeOf(note), note->_line), note->_alteration};
}

int HeightOf(const Spelling& spelling) {
    return kMiddleC + SemitonesOfStep(spelling.step) + SemitonesOf(spelling.alteration);
}

std::optional<Spelling> SpelledOnStep(int step, int height) {
    const int accidental = height - kMiddleC - SemitonesOfStep(step);
    if (std::abs(accidental) > kMostAccidental) return {};
    return Spelling{step, kAlterations[accidental + kMostAccidental]};
}

std::vector<Spelling> SpellingsOf(int height) {
    std::vector<Spelling> found;
    const int near = StepBelow(height);
    for (int step = near - 2; step <= near + 2; ++step)
        if (const auto spelling = SpelledOnStep(step, height)) found.push_back(*spelling);
    return found;
}

std::vector<Spelling> SpellingsInKey(int height, int fifths) {
    std::vector<Spelling> found = SpellingsOf(height);
    std::stable_sort(found.begin(), found.end(), [fifths](const Spelling& a, const Spelling& b) {
        return DistanceInKey(a, fifths) < DistanceInKey(b, fifths);
    });
    return found;
}

Spelling NextSpelling(const Spelling& spelling) {
    std::vector<Spelling> ways = SpellingsOf(HeightOf(spelling));
    const auto plain = [](const Spelling& way) { return std::abs(SemitonesOf(way.alteration)) <= 1; };
    if (std::count_if(ways.begin(), ways.end(), plain) > 1) std::erase_if(ways, std::not_fn(plain));
    for (const Spelling& way : ways)
        if (way.step > spelling.step) return way;
    return ways.front();
}

std::optional<Interval> IntervalOf(std::string_view name) {
    const bool down = name.starts_with('-');
    if (down) name.remove_prefix(1);
    const size_t digits = std::min(name.find_first_of("0123456789"), name.size());
    int number = 0;
    const auto [stop, error] = std::from_chars(name.data() + digits, name.data() + name.size(), number);
    if (error != std::errc() || stop != name.data() + name.size() || number < 1 || number > kMostNumber)
        return {};
    const int steps = number - 1, simple = steps % 7;
    const auto more = SemitonesOfQuality(name.substr(0, digits), IsPerfect(simple));
    if (!more) return {};
    const int semitones = steps / 7 * 12 + kSemitonesOfNumber[simple] + *more;
    if (semitones < 0) return {};
    return down ? Interval{-steps, -semitones} : Interval{steps, semitones};
}

}  // namespace corvane
