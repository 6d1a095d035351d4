// Clefs within a measure. Such a clef governs the events right of its place; it is drawn directly before the
// first of them, wherever spacing puts that, before the barline where none follows, and at its place in a
// measure without events. Of several between the same events the last is the nearest to what they stand
// before.
#pragma once

#include <vector>

#include "base/Geometry.h"
#include "model/Relations.h"

namespace corvane {

// Smaller than a clef at the head of a measure.
inline constexpr int32_t kMovingClefPercent = 75;
// Of one behind all notes, from the barline; hundredths of a line distance.
inline constexpr int32_t kClefBeforeBarline = 70;

// Absolute point at which its symbol is drawn, with the side letter 'l'; its staff must be known.
Point PlaceOf(const MovingClaf* clef);

// What it takes left of what it stands before, the air behind it too; and how far an event's ink, with its
// accidentals, reaches left of the event's place.
int32_t RoomOf(const MovingClaf* clef, int32_t lineDistance);
int32_t InkLeftOfPlace(const VoiceSymbol* symbol);

// Keeps each clef of a crossing between the events that it stands between while these move, and behind the
// clefs that it stands behind: made before the move, applied after it.
class ClefPlaces {
public:
    explicit ClefPlaces(const MeasureStaff* crossing);
    void Apply() const;
    // Where the clefs have been moved already.
    void KeepOrder() const;

private:
    struct Between {
        MovingClaf* clef;
        const VoiceSymbol *before, *behind;  // null at the ends
        int32_t oldBefore, oldBehind;
    };
    std::vector<Between> _clefs;  // from left to right
};

}  // namespace corvane
