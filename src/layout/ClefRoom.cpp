#include "layout/ClefRoom.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <optional>

#include "base/Rounding.h"
#include "layout/EventSymbols.h"
#include "layout/Frames.h"
#include "layout/MovingClefs.h"
#include "layout/SpacingHeader.h"
#include "model/Par.h"

namespace corvane {
namespace {

// Hundredths of a line distance: behind a note before a clef, and what notes keep that give room.
constexpr int32_t kBehindNote = 40, kBetweenNotes = 25;

// A clef's staff wants so much from its event before, or from the first place, to the event behind the clef.
struct ClefNeed {
    std::optional<size_t> from;
    size_t to = 0;
    int32_t room = 0;  // page units as drawn
};

const MusicSymbol& MusicOf(const std::unique_ptr<EventSymbol>& symbol) {
    return static_cast<const MusicSymbol&>(*symbol);
}

class ClefRoom {
public:
    explicit ClefRoom(ListaEventi& list) : _list(list) {
        const Measure* measure = MeasurePar(MusicOf(list.events.front().symbols.front()).Symbol());
        _scale = static_cast<double>(list.Usable()) / std::max(1, FrameOf(measure).NoteArea());
    }

    void Make() {
        const std::vector<ClefNeed> needs = Needs();
        if (needs.empty()) return;
        TakeGaps();
        for (const ClefNeed& need : needs) Ask(need);
        Share();
    }

private:
    int32_t Part(int32_t hundredths) const { return hundredths * _list.lineDistance / 100; }

    std::vector<ClefNeed> Needs() const {
        std::vector<ClefNeed> needs;
        for (size_t to = 0; to < _list.events.size(); ++to) {
            std::map<const MeasureStaff*, int32_t> widths;
            for (const auto& each : _list.events[to].clefs) {
                const MovingClaf* clef = static_cast<const ClefSymbol&>(*each).Clef();
                widths[MeasureStaffPar(clef)] += RoomOf(clef, _list.lineDistance);
            }
            for (const auto& [crossing, width] : widths) needs.push_back(NeedOf(crossing, to, width));
        }
        return needs;
    }

    ClefNeed NeedOf(const MeasureStaff* crossing, size_t to, int32_t clefs) const {
        ClefNeed need{std::nullopt, to, clefs + LeftOf(crossing, to)};
        for (size_t from = to; from-- > 0 && !need.from;)
            if (const int32_t right = RightOf(crossing, from)) {
                need.from = from;
                need.room += right + Part(kBehindNote);
            }
        if (!need.from) need.room -= GapsOf(_list.TheDocument()).firstNote;
        return need;
    }

    // What an event's symbols of a staff take on either side of its place.
    int32_t RightOf(const MeasureStaff* crossing, size_t event) const {
        int32_t right = 0;
        for (const auto& each : _list.events[event].symbols)
            if (MeasureStaffPar(MusicOf(each).Symbol()) == crossing)
                right = std::max(right, each->Measure(_list, 0).right);
        return right;
    }
    int32_t LeftOf(const MeasureStaff* crossing, size_t event) const {
        int32_t left = 0;
        for (const auto& each : _list.events[event].symbols)
            if (const VoiceSymbol* symbol = MusicOf(each).Symbol(); MeasureStaffPar(symbol) == crossing)
                left = std::max({left, each->Measure(_list, 0).left, InkLeftOfPlace(symbol)});
        return left;
    }

    // Gap k lies before event k, the last one behind all.
    void TakeGaps() {
        const std::vector<Event>& events = _list.events;
        const auto right = [&](const Event& event) { return event.rightExtent - event.leftExtent; };
        int32_t x = 0;
        for (size_t k = 0; k <= events.size(); ++k) {
            const int32_t next = k < events.size() ? events[k].x : std::max(_list.Usable(), x);
            const double gap = next - x;
            double least = gap;
            if (k == events.size())
                least = right(events.back()) * _scale;
            else if (k > 0)
                least = (right(events[k - 1]) + events[k].leftExtent + Part(kBetweenNotes)) * _scale;
            _gaps.push_back({gap, std::min(gap, least)});
            x = next;
        }
    }

    void Ask(const ClefNeed& need) {
        const size_t first = need.from ? *need.from + 1 : 0;
        double wanted = need.room * _scale, sum = 0;
        for (size_t k = first; k <= need.to; ++k) {
            wanted -= std::max(_gaps[k].width, _gaps[k].least);
            sum += _gaps[k].width;
        }
        if (wanted <= 0) return;
        for (size_t k = first; k <= need.to; ++k) {
            Gap& gap = _gaps[k];
            const double part = sum > 0 ? gap.width / sum : k == need.to;
            gap.least = std::max(gap.width, gap.least) + wanted * part;
        }
    }

    void Share() {
        double asked = 0, spare = 0;
        for (const Gap& gap : _gaps)
            (gap.least > gap.width ? asked : spare) += std::abs(gap.least - gap.width);
        const double given = std::min(asked, spare);
        if (given <= 0) return;
        double x = 0;
        for (size_t k = 0; k < _list.events.size(); ++k) {
            const Gap& gap = _gaps[k];
            x += gap.width + (gap.least - gap.width) * given / (gap.least > gap.width ? asked : spare);
            _list.events[k].x = Round(x);
        }
    }

    // Of what events are laid out in; `least` is more than the width where room is asked for.
    struct Gap {
        double width, least;
    };

    ListaEventi& _list;
    double _scale = 1;  // from page units as drawn to those that events are laid out in
    std::vector<Gap> _gaps;
};

}  // namespace

void MakeRoomForClefs(ListaEventi& list) { ClefRoom(list).Make(); }

}  // namespace corvane
