// What the person may choose about an import.
#pragma once

namespace corvane {

struct ImportOptions {
    int level = 4;  // of quantization: 0 none, 1 half, 2 quarter ... 7 a 128th
    bool tuplets = true;
    int tupletKind = 1;         // the richest tuplet: 1 triplet, 2 quintuplet, 3 of 7, 4 of 9, 5 of 11
    int tupletResolution = 32;  // the smallest value in a tuplet, 2 to 128
    int splitVoice = 0;         // second voice of a track that uses one channel only; 0: don't split
};

// The tuplet of a place in the list of kinds, from 0: so many notes in the time of so many.
struct TupletRatioOf {
    int count, inTimeOf;
};
inline TupletRatioOf TupletOfPlace(int place) {
    const int count = place * 2 + 3;
    int inTimeOf = 1;
    while (inTimeOf * 2 <= count) inTimeOf *= 2;
    return {count, inTimeOf};
}

}  // namespace corvane
