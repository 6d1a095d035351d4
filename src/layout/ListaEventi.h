// The time points of one measure over all its staves, and the width that each one needs: what the engraver's
// spacing works on. It lives while one measure is spaced. Times are whole notes; lengths are page units, and
// per mille of the usable width after LayOut.
#pragma once

#include <array>
#include <memory>
#include <vector>

#include "model/Relations.h"

namespace corvane {

// What makes room besides heads, stems, flags and rests.
struct SpacingRoom {
    bool dots = true, clefs = true, accidents = true, lyrics = true;
};

// Widths in line distances of events that last 2, 1, 1/2 ... 1/32 whole notes and more, and of shorter ones.
struct SpacingTable {
    std::array<float, 8> widths = {11.5F, 9.0F, 6.6F, 4.0F, 2.81F, 1.41F, 1.41F, 1.41F};
    float WidthOf(double duration) const;  // of the longest row that is no longer; nothing in between
};
// The one in force: the session sets it at start-up, a command changes it.
inline SpacingTable spacingTable;

class ListaEventi;
struct Event;

// What stands at a time point.
class EventSymbol {
public:
    virtual ~EventSymbol() = default;
    // Room left and right of the event's place.
    struct Extents {
        int32_t left = 0, right = 0;
    };
    // `before`: what notes and their accidentals take left of the event.
    virtual Extents Measure(const ListaEventi& list, int32_t before) const = 0;
    // Stores the event's place in the records; true if one changed.
    virtual bool Put(const ListaEventi& list, const Event& event) const = 0;
};

struct Event {
    int32_t x = 0;
    double duration = 0.0;  // to the next event, or the measure's end
    double time = 0.0;
    int32_t rightExtent = 0;  // the whole width that it needs
    int32_t leftExtent = 0;   // the part of it left of its place
    std::vector<std::unique_ptr<EventSymbol>> symbols, clefs;
};

// Two events, as places in the list, and how far the second stands behind the first at least. Layouts hold
// them in the order of their second events.
struct EventNeed {
    size_t from = 0, to = 0;
    int32_t room = 0;
};

class ListaEventi {
public:
    ListaEventi(const Measure* measure, const SpacingRoom& room);

    // Holds events, has room for notes, and each clef stands before an event.
    bool CanBeSpaced() const { return _spaceable && !events.empty() && Usable() > 0; }
    void LayOut(const SpacingTable& table);
    bool Put() const;

    int32_t Usable()
        const;  // of the measure's width, less the gaps before the first and behind the last note
    // What comes out as so many page units: the usable width is scaled into the note area.
    int32_t InNoteArea(int32_t units) const;
    // What the event there takes by the table, its own ink and the next one's signs.
    int32_t WidthOf(size_t place, const SpacingTable& table) const;
    const SpacingRoom& Room() const { return _room; }
    const Document* TheDocument() const { return _document; }

    int32_t measureWidth = 0, lineDistance = 0;
    double measureLength = 0.0;
    std::vector<Event> events;  // ascending in time

private:
    void AddVoice(const Voice* voice);
    void AddClefs(const MeasureStaff* crossing);
    Event& EventAt(double time);
    void MeasureEvents();
    void Place(const SpacingTable& table);
    int32_t PutInARow(const SpacingTable& table, const std::vector<EventNeed>& needs);
    void ShareSlack(int32_t slack);

    const Document* _document;
    SpacingRoom _room;
    int32_t _noteArea;
    bool _spaceable = true;
};

}  // namespace corvane
