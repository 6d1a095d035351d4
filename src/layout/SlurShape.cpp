#include "layout/SlurShape.h"

#include <algorithm>
#include <cmath>

#include "base/Rounding.h"
#include "layout/Engraving.h"
#include "layout/NoteGeometry.h"
#include "layout/NoteSigns.h"
#include "layout/PageFiling.h"
#include "model/NoteOperations.h"
#include "model/Par.h"

namespace corvane {
namespace {

// Hundredths of a line distance: what a tip keeps from a head, from a stem's end and from a rest; what the
// curve keeps from notes; tips of a piece that goes on, from the system's edge and outside the staff.
constexpr int32_t kFromHead = 40, kFromStem = 35, kFromSign = 30, kBesideStem = 20, kClear = 40,
                  kFromEdge = 30, kBeforeNotes = 130, kOutside = 100;
constexpr int32_t kTip = 7, kMiddle = 26, kShoulder = 280;
// The arch's usual height: towards the highest with growing length, half of it at the half length (line
// distances).
constexpr double kHighest = 3.0, kHalfLength = 11.0, kLeast = 0.35;
// No arch is higher than this part of its length plus one line distance, nor is it raised much for what
// stands beside a tip: its tips are lifted instead, in steps.
constexpr double kHighestPart = 0.28, kLift = 0.25, kSteepest = 0.6;
constexpr double kBesideTip = 0.2, kRaisedBeside = 1.2;
constexpr int kMostLifts = 60;

const VoiceSymbol* EventOf(const void* object) {
    if (!object || !VoiceSymbol::IsHeir(ClassNumberOf(object))) return nullptr;
    return static_cast<const VoiceSymbol*>(object);
}

// From a grace chord to the event that it ornaments.
bool LeadsToMainNote(const VoiceSymbol* first, const VoiceSymbol* last) {
    if (!first || !last || !IsGrace(first) || !As<Chords>(last)) return false;
    const VoiceSymbol* main = first;
    while (main && IsGrace(main)) main = voiceSymbols.Next(main);
    return main == last;
}

class SlurShape {
public:
    SlurShape(const SpannerPart& part, const Slur* slur)
        : _part(part), _above(IsAbove(slur)), _out(_above ? -1 : 1), _space(part.staff.lineDistance) {
        if (part.begins) _first = FirstEventOf(slur);
        if (part.ends) _last = LastEventOf(slur);
    }

    TaperedCurve Take() {
        PlaceTips();
        if (_from.x >= _to.x) return {};
        GatherObstacles();
        const double height = Fit();
        TaperedCurve curve = ArchOf(_from, _to, Round(height), _above, kShoulder);
        curve.tip = _part.Hundredths(kTip);
        curve.middle = _part.Hundredths(kMiddle);
        return curve;
    }

private:
    int32_t Out(int32_t hundredths) const { return _out * _part.Hundredths(hundredths); }
    bool IsFarther(int32_t y, int32_t than) const { return _above ? y < than : y > than; }

    // Beyond articulations that stand there.
    Point TipAt(const VoiceSymbol* event) const {
        const auto* chord = As<Chords>(event);
        const Stem* stem = chord ? StemOf(chord) : nullptr;
        if (!stem) return TipAtRest(event);
        const bool atMain = event == _last && _first && LeadsToMainNote(_first, _last);
        Point tip =
            atMain && HasStemInk(stem) && IsUp(stem->_direction) == _above ? TipBeside(stem) : TipAt(stem);
        for (const GenericNote* note : chordNotes.Of(chord))
            for (const NoteAttribute* attribute : noteAttributes.Of(note)) {
                const auto* sign = As<Articolazione>(attribute);
                if (const Rect ink = sign ? PlaceOf(sign).Ink() : Rect{}; !ink.IsEmpty())
                    if (const int32_t y = (_above ? ink.top : ink.bottom) + Out(kFromSign);
                        IsFarther(y, tip.y) && tip.x > ink.left - _space && tip.x < ink.right + _space)
                        tip.y = y;
            }
        return tip;
    }

    // At the head of a main note whose stem goes where the slur runs: before that.
    Point TipBeside(const Stem* stem) const {
        const Rect heads = HeadsOf(Column(stem));
        return {heads.left - _part.Hundredths(kBesideStem), _above ? heads.top : heads.bottom};
    }

    Point TipAtRest(const VoiceSymbol* event) const {
        const Rect ink = RectOf(As<Pause>(event));
        return {(ink.left + ink.right) / 2, (_above ? ink.top : ink.bottom) + Out(kFromHead)};
    }

    Point TipAt(const Stem* stem) const {
        const Column column(stem);
        const Rect heads = HeadsOf(column);
        if (HasStemInk(stem) && IsUp(stem->_direction) == _above) {
            const Rect ink = StemInk(column);
            return {(ink.left + ink.right) / 2, (_above ? ink.top : ink.bottom) + Out(kFromStem)};
        }
        return {(heads.left + heads.right) / 2, (_above ? heads.top : heads.bottom) + Out(kFromHead)};
    }

    // A piece that comes from the system before or goes on to the next one is open there: level with its
    // other tip, outside the staff.
    void PlaceTips() {
        const int32_t outside = (_above ? _part.staff.top : _part.staff.Bottom()) + Out(kOutside);
        if (_first) _from = TipAt(_first);
        if (_last) _to = TipAt(_last);
        const auto openY = [&](bool hasOther, int32_t other) {
            return hasOther && IsFarther(other, outside) ? other : outside;
        };
        if (!_first) _from = {_part.left - _part.Hundredths(kBeforeNotes), openY(_last, _to.y)};
        if (!_last) _to = {_part.right - _part.Hundredths(kFromEdge), openY(_first, _from.y)};
        // A tip far from the other on the slur's inner side is lifted, so that the slur does not fall
        // steeply.
        const auto most = Round(kSteepest * (_to.x - _from.x)) + _space;
        if (std::abs(_to.y - _from.y) > most) {
            int32_t& inner = IsFarther(_from.y, _to.y) ? _to.y : _from.y;
            inner = (IsFarther(_from.y, _to.y) ? _from.y : _to.y) - _out * most;
        }
    }

    bool IsEnd(const ChordSymbol* column) const {
        for (const VoiceSymbol* end : {_first, _last})
            if (const auto* chord = As<Chords>(end); chord && ChordSymbolPar(chord) == column) return true;
        return false;
    }

    // What the curve has to clear, as corners: notes, rests, their signs and tuplets between the tips.
    void GatherObstacles() {
        const auto add = [&](const Rect& ink) {
            const int32_t y = (_above ? ink.top : ink.bottom) + Out(kClear);
            for (const int32_t x : {ink.left, (ink.left + ink.right) / 2, ink.right})
                if (!ink.IsEmpty() && x > _from.x && x < _to.x) _obstacles.push_back({x, y});
        };
        const auto look = [&](const DrawPatch& patch, int) {
            if (const auto* column = patch.Record<ChordSymbol>()) {
                if (!IsEnd(column)) add(patch.Bounds());
            } else if (const auto* pause = patch.Record<Pause>()) {
                if (pause != _first && pause != _last) add(patch.Bounds());
            } else if (patch.Record<Accident>() ||
                       (patch.Record<SymbolAttribute>() && !patch.Record<Corona>()) ||
                       patch.Record<MarkIrreg>() || patch.Record<BeamMarker>() || patch.Record<Tremolo>()) {
                add(patch.Bounds());
            }
        };
        for (const MeasureStaff* crossing : _part.Crossings()) ForEachPatch(crossing, look);
    }

    double Length() const { return std::hypot(_to.x - _from.x, _to.y - _from.y); }
    double UsualHeight() const {
        const double length = Length() / std::max(1, _space);
        return std::max(kLeast, kHighest * length / (length + kHalfLength)) * _space;
    }

    // Where along its control line the curve stands over a part of its length.
    static double ParameterAt(double along) {
        constexpr double a = kShoulder / 1000.0;
        double low = 0, high = 1;
        for (int i = 0; i < 20; ++i) {
            const double t = (low + high) / 2, s = 1 - t;
            (3 * s * s * t * a + 3 * s * t * t * (1 - a) + t * t * t < along ? low : high) = t;
        }
        return (low + high) / 2;
    }

    // The height that clears one obstacle; its place along the slur is told.
    double HeightOver(Point p, double& along) const {
        const double dx = _to.x - _from.x, dy = _to.y - _from.y, length = std::max(1.0, Length());
        along = ((p.x - _from.x) * dx + (p.y - _from.y) * dy) / (length * length);
        const double beyond = ((p.y - _from.y) * dx - (p.x - _from.x) * dy) / length * _out;
        if (beyond <= 0 || along <= 0 || along >= 1) return 0;
        const double t = ParameterAt(along);
        return beyond / (4 * t * (1 - t));
    }

    // What obstacles ask of the arch, and where along it stands what asks most.
    struct Demand {
        double height = 0, where = 0.5;
    };
    Demand DemandOf(bool besideTips) const {
        Demand demand;
        for (const Point p : _obstacles) {
            double along = 0;
            const double over = HeightOver(p, along);
            if ((along < kBesideTip || along > 1 - kBesideTip) == besideTips && over > demand.height)
                demand = {over, along};
        }
        return demand;
    }

    // Lifts the tips as far as the arch alone would become too high, the one nearer to what asks for it.
    double Fit() {
        for (int lift = 0;; ++lift) {
            const double usual = UsualHeight(), most = std::max(usual, kHighestPart * Length() + _space);
            const Demand between = DemandOf(false), beside = DemandOf(true);
            const double height = std::max(usual, between.height);
            const bool fits = height <= most && beside.height <= std::max(height, usual * kRaisedBeside);
            if (fits || lift == kMostLifts) return std::min(std::max(height, beside.height), most);
            const double where = height > most ? between.where : beside.where;
            const int32_t step = std::max(1, Round(kLift * _space)) * _out;
            if (where < 0.6) _from.y += step;
            if (where > 0.4) _to.y += step;
        }
    }

    const SpannerPart& _part;
    const bool _above;
    const int32_t _out, _space;
    const VoiceSymbol *_first = nullptr, *_last = nullptr;  // on this system
    Point _from, _to;
    std::vector<Point> _obstacles;
};

TaperedCurve Moved(const SpannerPart& part, const SlurPoints& moved, const TaperedCurve& curve) {
    TaperedCurve there = curve;
    Point* const points[] = {&there.from, &there.control1, &there.control2, &there.to};
    for (size_t i = 0; i < 4; ++i) {
        // A tip stands on one system only, the shoulders beside it.
        if (i < 2 ? !part.begins : !part.ends) continue;
        *points[i] = *points[i] + Point{part.Hundredths(moved[2 * i]), part.Hundredths(moved[2 * i + 1])};
    }
    if (!there.IsEmpty()) return there;
    // Notes that have come together leave no room for tips that were moved towards each other.
    there.from.x = curve.from.x, there.control1.x = curve.control1.x;
    there.control2.x = curve.control2.x, there.to.x = curve.to.x;
    return there;
}

}  // namespace

const VoiceSymbol* FirstEventOf(const Slur* slur) { return EventOf(slur->_first.Get()); }
const VoiceSymbol* LastEventOf(const Slur* slur) { return EventOf(slur->_last.Get()); }

bool IsAbove(const Slur* slur) {
    if (slur->_side != static_cast<int32_t>(SlurSide::ByStems))
        return slur->_side == static_cast<int32_t>(SlurSide::Above);
    const VoiceSymbol *first = FirstEventOf(slur), *last = LastEventOf(slur);
    if (LeadsToMainNote(first, last)) return !IsUp(StemOf(As<Chords>(first))->_direction);
    if (const Voice* voice = VoicePar(first); StemsAreForced(voice)) return ForcedStemsUp(voice);
    const int32_t end = MeasurePar(last)->_number;
    const VoiceSymbol* event = first;
    while (event && MeasurePar(event)->_number <= end) {
        const auto* chord = As<Chords>(event);
        if (const Stem* stem = chord ? StemOf(chord) : nullptr; stem && !IsUp(stem->_direction)) return true;
        if (event == last) return false;
        const Voice* voice = VoicePar(event);
        event = voiceSymbols.Next(event);
        for (const MeasureStaff* next = MeasureStaffPar(voice); !event && next;) {
            next = NextOnStaff(next);
            const Voice* same = next ? FindVoice(next, voice->_number) : nullptr;
            if (same) event = voiceSymbols.First(same);
        }
    }
    return false;
}

SlurPoints PointsOf(const Slur* slur) {
    SlurPoints points{};
    std::copy(std::begin(slur->_moved), std::end(slur->_moved), points.begin());
    return points;
}

void MovePoints(Slur* slur, const SlurPoints& points) {
    for (size_t i = 0; i < points.size(); ++i)
        if (slur->_moved[i] != points[i]) slur->_moved[i] = points[i];
}

TaperedCurve CurveOf(const MarkSlur& mark) {
    const Slur* slur = slurMarks.ParentOf(&mark);
    return slur ? CurveOf(mark, PointsOf(slur)) : TaperedCurve{};
}

TaperedCurve CurveOf(const MarkSlur& mark, const SlurPoints& points) {
    const SpannerPart part = PartOf(&mark);
    const Slur* slur = slurMarks.ParentOf(&mark);
    if (!part || !slur) return {};
    const VoiceSymbol *first = FirstEventOf(slur), *last = LastEventOf(slur);
    if (!first || !last || MeasureStaffPar(first) != part.first || MeasureStaffPar(last) != part.last)
        return {};
    const TaperedCurve curve = SlurShape(part, slur).Take();
    return curve.IsEmpty() ? curve : Moved(part, points, curve);
}

}  // namespace corvane
