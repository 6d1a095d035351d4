// What a measure is told before its first note, kept while measures before it come, go or move to other
// systems: clefs and keys are said at the head of each system and where they change, meters where they begin
// or change. So whatever stays of a score is read as before.
#pragma once

#include <vector>

#include "model/Relations.h"

namespace corvane {

class MeasureHead {
public:
    // Reads what holds at the start of the measure.
    explicit MeasureHead(Measure* measure);
    // Makes, changes and removes signs, so that the same holds where the measure stands now; a clef that
    // changes within a system stands at the end of the measure before. True if anything changed. Widths are
    // left to the caller.
    bool Settle() const;
    Measure* Of() const { return _measure; }

private:
    struct Reading {
        MeasureStaff* crossing;
        int clef, key;
        bool keyIsRepeated, timeIsRepeated;  // a sign that says what holds anyway, and stays
    };
    bool SettleClef(const Reading& reading) const;
    bool SettleKey(const Reading& reading) const;
    bool SettleTime(const Reading& reading) const;
    bool StartsSystem() const;

    Measure* _measure;
    std::vector<Reading> _readings;
};

// Before measures go: the last of their clefs, keys and time signatures of each staff come to `heir`, the
// first measure behind them, where it has none of its own. Its MeasureHead, read before, settles them
// afterwards.
void BequeathSigns(const std::vector<Measure*>& going, Measure* heir);

}  // namespace corvane
