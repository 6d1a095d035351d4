#include "interchange/NoteFigures.h"

#include <algorithm>

namespace corvane {
namespace {

constexpr int kMostDots = 2;

bool IsCompound(const Bar& bar) { return bar.den >= 8 && bar.num > 3 && bar.num % 3 == 0; }
bool IsPowerOfTwo(int number) { return (number & (number - 1)) == 0; }

// Half of what stands before is added for each dot. 0 where that does not come out even.
int DotsOf(FineTime left, FineTime base) {
    int count = 0;
    for (FineTime half = base / 2; left > 0 && count < kMostDots; half /= 2) {
        left -= half;
        ++count;
    }
    return left == 0 ? count : 0;
}

FineTime NextBeat(const Bar& bar, FineTime place) {
    const FineTime beat = BeatOf(bar);
    return bar.start + ((place - bar.start) / beat + 1) * beat;
}

// The largest value from `most` down that begins on a place of its own kind and ends by `room`.
Figure Aligned(FineTime place, FineTime room, FineTime most) {
    for (int value = 1; value < 128; value *= 2) {
        const FineTime length = kWholeNote / value;
        if (length <= most && length <= room && place % length == 0) return {value, 0, length};
    }
    return {128, 0, kShortest};
}

}  // namespace

FineTime BeatOf(const Bar& bar) { return kWholeNote / bar.den * (IsCompound(bar) ? 3 : 1); }

std::optional<Figure> FigureOf(FineTime length) {
    for (int value = 1; value <= 128; value *= 2) {
        const FineTime base = kWholeNote / value;
        if (base > length) continue;
        const int dots = DotsOf(length - base, base);
        return Figure{value, dots, dots ? length : base};
    }
    return std::nullopt;
}

FineTime FirstPiece(const Bar& bar, FineTime start, FineTime end) {
    const std::optional<Figure> figure = FigureOf(end - start);
    if (!figure || figure->length == end - start) return end - start;
    const FineTime beat = NextBeat(bar, start);
    const bool onBeat = (start - bar.start) % BeatOf(bar) == 0;
    return !onBeat && beat < end ? beat - start : figure->length;
}

Figure RestAt(const Bar& bar, FineTime start, FineTime end) {
    const FineTime beat = BeatOf(bar), place = start - bar.start, room = end - start;
    if (place == 0 && room == bar.length) return {1, 0, bar.length};
    if (IsCompound(bar)) {
        if (place % beat == 0 && room >= beat) return {bar.den / 2, 1, beat};
        return Aligned(place % beat, std::min(room, beat - place % beat), beat);
    }
    const Figure plain = Aligned(place, room, IsPowerOfTwo(bar.num) ? bar.length : beat);
    const bool dotted =
        plain.length < beat && room == plain.length * 3 / 2 && place % (plain.length * 2) == 0;
    return dotted ? Figure{plain.value, 1, room} : plain;
}

}  // namespace corvane
