#include "layout/ListaEventi.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "base/Rounding.h"
#include "layout/ClefRoom.h"
#include "layout/ElasticRow.h"
#include "layout/EventSymbols.h"
#include "layout/Frames.h"
#include "layout/SignRoom.h"
#include "layout/SpacingHeader.h"
#include "layout/SyllableRoom.h"
#include "model/NoteOperations.h"
#include "model/Par.h"

namespace corvane {
namespace {

constexpr double kSameTime = 0.001;  // of a whole note
constexpr int32_t kMostScale = 4;

// The first event of a staff that stands behind a clef; null where none does.
const VoiceSymbol* EventBehind(const MeasureStaff* crossing, const MovingClaf* clef) {
    const VoiceSymbol* behind = nullptr;
    for (const Voice* voice : measureStaffVoices.Of(crossing))
        for (const VoiceSymbol* symbol : voiceSymbols.Of(voice)) {
            const int32_t x = XOf(symbol);
            if (!IsGrace(symbol) && x > clef->_place && (!behind || x < XOf(behind))) behind = symbol;
        }
    return behind;
}

MusicSymbol& MusicOf(const std::unique_ptr<EventSymbol>& symbol) {
    return static_cast<MusicSymbol&>(*symbol);
}

// Tells chords of one staff of each other; they came to the event staff by staff.
void StandTogether(Event& event) {
    const auto end = event.symbols.end();
    for (auto from = event.symbols.begin(), to = from; from != end; from = to) {
        const MeasureStaff* crossing = MeasureStaffPar(MusicOf(*from).Symbol());
        to = std::find_if(from, end, [crossing](const auto& each) {
            return MeasureStaffPar(MusicOf(each).Symbol()) != crossing;
        });
        for (auto own = from; to - from > 1 && own != to; ++own) {
            std::vector<const Chords*> beside;
            for (auto other = from; other != to; ++other)
                if (const auto* chord = As<Chords>(MusicOf(*other).Symbol()); chord && other != own)
                    beside.push_back(chord);
            MusicOf(*own).StandWith(std::move(beside));
        }
    }
}

}  // namespace

float SpacingTable::WidthOf(double duration) const {
    double key = 2.0;
    for (size_t row = 0; row + 1 < widths.size(); ++row, key /= 2)
        if (key <= duration) return widths[row];
    return widths.back();
}

ListaEventi::ListaEventi(const Measure* measure, const SpacingRoom& room)
    : measureWidth(measure->Width()),
      measureLength(static_cast<double>(measure->_num) / std::max<int>(measure->_den, 1)),
      _document(DocumentPar(measure)),
      _room(room),
      _noteArea(FrameOf(measure).NoteArea()) {
    for (const MeasureStaff* crossing : measureStaffs.Of(measure)) {
        const Staff* staff = crossing->_staff;
        if (!staff) continue;
        lineDistance = std::max<int32_t>(lineDistance, staff->_lineDistance);
        for (const Voice* voice : measureStaffVoices.Of(crossing)) AddVoice(voice);
        if (_room.clefs) AddClefs(crossing);
    }
    for (Event& event : events) StandTogether(event);
    for (size_t i = 0; i < events.size(); ++i)
        events[i].duration = (i + 1 < events.size() ? events[i + 1].time : measureLength) - events[i].time;
}

void ListaEventi::AddVoice(const Voice* voice) {
    double time = 0.0;
    std::vector<VoiceSymbol*> graces;
    MusicSymbol* last = nullptr;
    for (VoiceSymbol* symbol : voiceSymbols.Of(voice)) {
        if (IsGrace(symbol)) {
            graces.push_back(symbol);
            continue;
        }
        auto event = std::make_unique<MusicSymbol>(symbol, std::move(graces));
        last = event.get();
        EventAt(time).symbols.push_back(std::move(event));
        graces.clear();
        time += Duration(symbol) * 0.001;
    }
    if (last) last->Trail(std::move(graces));
}

Event& ListaEventi::EventAt(double time) {
    for (Event& event : events)
        if (std::fabs(event.time - time) < kSameTime) return event;
    const auto later =
        std::find_if(events.begin(), events.end(), [time](const Event& e) { return e.time > time; });
    Event event;
    event.time = time;
    return *events.insert(later, std::move(event));
}

void ListaEventi::AddClefs(const MeasureStaff* crossing) {
    for (StaffMeasureSymbol* symbol : staffSymbols.Of(crossing)) {
        auto* clef = As<MovingClaf>(symbol);
        if (!clef) continue;
        const VoiceSymbol* behind = EventBehind(crossing, clef);
        bool found = false;
        for (Event& event : events)
            for (const auto& each : event.symbols)
                if (static_cast<const MusicSymbol&>(*each).Symbol() == behind && !found) {
                    event.clefs.push_back(std::make_unique<ClefSymbol>(clef));
                    found = true;
                }
        _spaceable = _spaceable && found;
    }
}

int32_t ListaEventi::Usable() const {
    const SpacingGaps gaps = GapsOf(_document);
    return measureWidth - gaps.firstNote - gaps.lastNote * measureWidth / 1000;
}

int32_t ListaEventi::InNoteArea(int32_t units) const {
    const int32_t usable = Usable();
    // Behind a header that leaves hardly any room nothing would fit anyway.
    const int32_t area = std::clamp(_noteArea, usable / kMostScale, usable);
    return static_cast<int32_t>(int64_t{units} * usable / std::max(area, 1));
}

void ListaEventi::LayOut(const SpacingTable& table) {
    MeasureEvents();
    Place(table);
    if (_room.clefs) MakeRoomForClefs(*this);
    const int32_t usable = Usable();
    for (Event& event : events)
        for (int32_t* value : {&event.x, &event.rightExtent, &event.leftExtent})
            *value = static_cast<int32_t>(int64_t{*value} * 1000 / usable);
}

void ListaEventi::MeasureEvents() {
    for (Event& event : events) {
        int32_t left = 0, right = 0;
        for (const auto* symbols : {&event.symbols, &event.clefs}) {
            const int32_t before = left;
            for (const auto& symbol : *symbols) {
                const EventSymbol::Extents extents = symbol->Measure(*this, before);
                left = std::max(left, extents.left);
                right = std::max(right, extents.right);
            }
        }
        event.leftExtent = left;
        event.rightExtent = left + right;
    }
}

// By the table and by what each event needs for itself. Where that would print signs over what stands before
// them, gaps that must keep room for them do, and the others share what is left.
void ListaEventi::Place(const SpacingTable& table) {
    const std::vector<EventNeed> words = _room.lyrics ? SyllableNeedsOf(events) : std::vector<EventNeed>();
    ShareSlack(Usable() - PutInARow(table, words));
    const std::vector<EventNeed> signs = SignNeedsOf(*this);
    if (HaveRoom(events, signs)) return;
    std::vector<EventNeed> all = words;
    all.insert(all.end(), signs.begin(), signs.end());
    std::stable_sort(all.begin(), all.end(),
                     [](const EventNeed& a, const EventNeed& b) { return a.to < b.to; });
    PutInARow(table, {});
    const ElasticRow row(*this, table);
    const std::vector<int32_t> places = row.Fits(all) ? row.Stretched(all) : row.Stretched(signs);
    for (size_t i = 0; i < events.size(); ++i) events[i].x = places[i];
}

// Returns where the row ends.
int32_t ListaEventi::PutInARow(const SpacingTable& table, const std::vector<EventNeed>& needs) {
    int32_t pos = 0;
    for (const auto& each : events.front().symbols)
        pos = std::max(pos, InNoteArea(static_cast<const MusicSymbol&>(*each).RoomAtStart(*this)));
    auto need = needs.begin();
    for (size_t i = 0; i < events.size(); ++i) {
        for (; need != needs.end() && need->to == i; ++need)
            pos = std::max(pos, events[need->from].x + need->room);
        events[i].x = pos;
        pos += WidthOf(i, table);
    }
    return pos;
}

int32_t ListaEventi::WidthOf(size_t place, const SpacingTable& table) const {
    const Event& event = events[place];
    const int32_t wanted = Round(static_cast<double>(table.WidthOf(event.duration)) * lineDistance);
    const int32_t next = place + 1 < events.size() ? events[place + 1].leftExtent : 0;
    return std::max({wanted, event.rightExtent - event.leftExtent, next});
}

// In proportion to durations. What one event is given moves all behind it; the gap behind the last one stays
// as the table made it. Too little room shrinks the same way, but no event gets before another.
void ListaEventi::ShareSlack(int32_t slack) {
    double sum = 0.0;
    for (const Event& event : events) sum += event.duration;
    if (slack == 0 || sum <= 0.0) return;
    int32_t carry = 0;
    for (size_t i = 0; i + 1 < events.size(); ++i) {
        const int32_t extra = Round(slack * events[i].duration / sum);
        events[i + 1].x = std::max(events[i + 1].x + extra + carry, events[i].x);
        carry += extra;
    }
}

bool ListaEventi::Put() const {
    bool changed = false;
    for (const Event& event : events)
        for (const auto* symbols : {&event.symbols, &event.clefs})
            for (const auto& symbol : *symbols) changed |= symbol->Put(*this, event);
    return changed;
}

}  // namespace corvane
