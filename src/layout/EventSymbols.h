// What stands at the time points of a measure that is spaced.
#pragma once

#include "layout/ListaEventi.h"

namespace corvane {

// A chord or rest, the grace chords that wait before it, and those behind the last of its voice.
class MusicSymbol : public EventSymbol {
public:
    MusicSymbol(VoiceSymbol* symbol, std::vector<VoiceSymbol*> graces)
        : _symbol(symbol), _graces(std::move(graces)) {}
    VoiceSymbol* Symbol() const { return _symbol; }
    void Trail(std::vector<VoiceSymbol*> graces) { _trailing = std::move(graces); }
    Extents Measure(const ListaEventi& list, int32_t before) const override;
    bool Put(const ListaEventi& list, const Event& event) const override;
    // Of the grace chords, one behind the other, each behind its accidentals and with some air behind it.
    int32_t GraceRoom(const ListaEventi& list) const;
    // What it needs left of its place at the start of a measure, where the gap before the first note takes
    // accidentals.
    int32_t RoomAtStart(const ListaEventi& list) const;
    // What must stay free left of its place for its grace chords and accidentals, and right of it; page
    // units.
    Extents Needs(const ListaEventi& list) const;
    // The chords of other voices of its staff that stand at its event, wherever they stand before.
    void StandWith(std::vector<const Chords*> beside) { _beside = std::move(beside); }

private:
    int32_t AccidentalRoom(const ListaEventi& list) const;
    int32_t AccidentReach(const ListaEventi& list) const;
    bool StandsInTheMiddle() const;
    // Of its column, from the event's place, dots and what trails it left out.
    int32_t RightOfColumn() const;
    int32_t Overhang() const;  // heads and ledger lines left of its place
    int32_t RoomOfDots(const ListaEventi& list) const;

    VoiceSymbol* _symbol;
    std::vector<VoiceSymbol*> _graces, _trailing;
    std::vector<const Chords*> _beside;
};

// A clef within the measure, left of all that stands at its event.
class ClefSymbol : public EventSymbol {
public:
    explicit ClefSymbol(MovingClaf* clef) : _clef(clef) {}
    const MovingClaf* Clef() const { return _clef; }
    Extents Measure(const ListaEventi& list, int32_t before) const override;
    bool Put(const ListaEventi& list, const Event& event) const override;

private:
    MovingClaf* _clef;
};

// Stores the per mille place of an event; a place that holds is not written. True if it changed.
bool PutX(VoiceSymbol* symbol, int32_t x);

}  // namespace corvane
