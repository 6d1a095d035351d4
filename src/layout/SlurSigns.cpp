#include "layout/SlurSigns.h"

#include <algorithm>
#include <cmath>

#include "base/Rounding.h"
#include "layout/SlurShape.h"
#include "model/NoteOperations.h"
#include "model/Par.h"

namespace corvane {
namespace {

// In their voice, or the same. A chord that is about to go may have no place any more.
bool Follows(const VoiceSymbol* event, const VoiceSymbol* later) {
    while (event && event != later) event = voiceSymbols.Next(event);
    return event;
}

// Whether an event of the slur's voice lies between its ends, which are told.
bool IsUnder(const SpannerPart& part, const Slur* slur, const VoiceSymbol* event) {
    const VoiceSymbol *first = FirstEventOf(slur), *last = LastEventOf(slur);
    if (!first || !last || VoicePar(first)->_number != VoicePar(event)->_number) return false;
    const MeasureStaff* crossing = MeasureStaffPar(event);
    if (crossing == part.first && !Follows(first, event)) return false;
    if (crossing == part.last && !Follows(event, last)) return false;
    const int32_t number = MeasurePar(crossing)->_number;
    return MeasurePar(part.first)->_number <= number && number <= MeasurePar(part.last)->_number;
}

std::vector<Corona*> FermatasOn(const Chords* chord) {
    std::vector<Corona*> fermatas;
    if (!chord) return fermatas;
    for (const GenericNote* note : chordNotes.Of(chord))
        for (NoteAttribute* attribute : noteAttributes.Of(note))
            if (auto* fermata = As<Corona>(attribute)) fermatas.push_back(fermata);
    return fermatas;
}

// The outermost y of a line between two places; none where it does not pass there.
std::optional<int32_t> EdgeOf(const std::vector<Point>& line, bool above, int32_t left, int32_t right) {
    std::optional<int32_t> edge;
    const auto take = [&](double y) {
        const int32_t at = Round(y);
        edge = !edge ? at : above ? std::min(*edge, at) : std::max(*edge, at);
    };
    for (size_t i = 1; i < line.size(); ++i) {
        const Point a = line[i - 1], b = line[i];
        if (b.x < left || a.x > right) continue;
        const double slope = b.x > a.x ? static_cast<double>(b.y - a.y) / (b.x - a.x) : 0;
        for (const int32_t x : {std::max(a.x, left), std::min(b.x, right)}) take(a.y + slope * (x - a.x));
    }
    return edge;
}

}  // namespace

std::vector<Corona*> FermatasUnder(const StaffMeasureSymbol* symbol) {
    std::vector<Corona*> fermatas;
    const auto* mark = As<MarkSlur>(symbol);
    const Slur* slur = mark ? slurMarks.ParentOf(mark) : nullptr;
    const SpannerPart part = slur ? PartOf(mark) : SpannerPart{};
    if (!part) return fermatas;
    for (const MeasureStaff* crossing : part.Crossings())
        for (const Voice* voice : measureStaffVoices.Of(crossing))
            for (const VoiceSymbol* event : voiceSymbols.Of(voice))
                for (Corona* fermata : FermatasOn(As<Chords>(event)))
                    if (IsUnder(part, slur, event)) fermatas.push_back(fermata);
    return fermatas;
}

std::optional<int32_t> SlurEdgeOver(const Chords* chord, bool above, int32_t left, int32_t right) {
    std::optional<int32_t> edge;
    const MeasureStaff* crossing = MeasureStaffPar(chord);
    const System* system = SystemPar(MeasurePar(crossing));
    for (; crossing && SystemPar(MeasurePar(crossing)) == system; crossing = PrevOnStaff(crossing))
        for (const StaffMeasureSymbol* symbol : staffSymbols.Of(crossing)) {
            const auto* mark = As<MarkSlur>(symbol);
            const Slur* slur = mark ? slurMarks.ParentOf(mark) : nullptr;
            const SpannerPart part = slur ? PartOf(mark) : SpannerPart{};
            if (!part || !IsUnder(part, slur, chord) || IsAbove(slur) != above) continue;
            const TaperedCurve curve = CurveOf(*mark);
            if (curve.IsEmpty()) continue;
            const int32_t half = (curve.middle + 1) / 2;
            if (const auto y = EdgeOf(PointsAlong(curve), above, left, right)) {
                const int32_t out = above ? *y - half : *y + half;
                edge = !edge ? out : above ? std::min(*edge, out) : std::max(*edge, out);
            }
        }
    return edge;
}

}  // namespace corvane
