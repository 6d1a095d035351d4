// The line of a beam, and the stems that reach it.
#include <algorithm>
#include <limits>

#include "base/Assert.h"
#include "base/Rounding.h"
#include "layout/Beaming.h"
#include "layout/Engraving.h"
#include "layout/NoteGeometry.h"
#include "model/NoteOperations.h"
#include "model/Par.h"
#include "model/Preferences.h"

namespace corvane {
namespace {

constexpr double kSlope = 0.17;
constexpr int kFirstDownAverage = 6;

// What the heads under a beam tell.
struct Heads {
    const GenericNote *high = nullptr, *low = nullptr;  // of the largest and the smallest line
    int count = 0, sum = 0, first = 0, last = 0;
    StaffFrame top{}, bottom{};                         // the highest and the lowest staff
    Stem* firstStem = nullptr;

    int Average() const { return count ? sum / count : 0; }
};

void TakeHead(Heads& heads, const GenericNote* note) {
    const StaffFrame staff = FrameOf(StaffPar(note));
    if (!heads.count || staff.Bottom() < heads.top.Bottom()) heads.top = staff;
    if (!heads.count || staff.Bottom() > heads.bottom.Bottom()) heads.bottom = staff;
    if (!heads.count) heads.first = note->_line;
    heads.last = note->_line;
    if (!heads.high || note->_line > heads.high->_line) heads.high = note;
    if (!heads.low || note->_line <= heads.low->_line) heads.low = note;
    heads.sum += note->_line;
    ++heads.count;
}

Heads HeadsOf(const Beam* beam) {
    Heads heads;
    for (const BeamMarker* marker : beamMarkers.Of(beam)) {
        auto* stem = As<Stem>(beamSymbolAttributes.ParentOf(marker));
        if (!stem) continue;
        if (!heads.firstStem) heads.firstStem = stem;
        for (const GenericNote* note : stemNotes.Of(stem)) TakeHead(heads, note);
    }
    return heads;
}

double SlopeOf(const Heads& heads) {
    if (!AngledBeams() || heads.first == heads.last) return 0.0;
    return heads.last < heads.first ? kSlope : -kSlope;
}

bool PointsUp(const Heads& heads) {
    if (heads.firstStem) {
        const GenericNote* note = stemNotes.First(heads.firstStem);
        if (note && As<Grace>(note)) return true;
        const Voice* voice = VoicePar(note);
        if (voice && StemsAreForced(voice)) return ForcedStemsUp(voice);
    }
    return heads.Average() < kFirstDownAverage;
}

int32_t MinimumDistance(const Stem* stem, int32_t lineDistance) {
    const auto* pref = Preferences<NotePref>(DocumentPar(stem));
    const int32_t percent = pref ? pref->BeamMinDistance() : NotePref::kBeamMinDistance;
    const GenericNote* note = stemNotes.First(stem);
    return percent * lineDistance / (note && As<Grace>(note) ? 140 : 100);
}

bool& AngledSwitch() {
    static bool angled = true;
    return angled;
}

}  // namespace

bool AngledBeams() { return AngledSwitch(); }
void SetAngledBeams(bool angled) { AngledSwitch() = angled; }

BeamLine ComputeBeam(const Beam* beam) {
    const Heads heads = HeadsOf(beam);
    BeamLine line;
    if (!heads.count) return line;
    const BeamMarker *bmstart = beamMarkers.First(beam), *bmend = beamMarkers.Last(beam);
    const bool up = beam->_direction == 'U';
    const GenericNote* anchor = up ? heads.high : heads.low;
    const StaffFrame& staff = up ? heads.top : heads.bottom;
    const int32_t distance = staff.lineDistance, clearance = MinimumDistance(heads.firstStem, distance);
    const int32_t head = staff.Bottom() - distance * anchor->_line / 2 + distance / 2;
    line.slope = SlopeOf(heads);
    const double b = head + (up ? -clearance : clearance) - BeamXOf(StemPar(anchor)) * line.slope;
    const int32_t startX = BeamXOf(beamSymbolAttributes.ParentOf(bmstart));
    const int32_t endX = BeamXOf(beamSymbolAttributes.ParentOf(bmend));
    line.start = {startX, Round(startX * line.slope + b)};
    line.end = {endX, Round(endX * line.slope + b)};
    line.b = b;
    return line;
}

void RefitBeam(Beam* beam) {
    const Heads heads = HeadsOf(beam);
    const bool up = PointsUp(heads);
    const uint8_t direction = up ? 'U' : 'D';
    if (beam->_direction != direction) beam->_direction = direction;
    std::vector<Stem*> stems;
    for (const BeamMarker* marker : beamMarkers.Of(beam))
        if (auto* stem = As<Stem>(beamSymbolAttributes.ParentOf(marker))) stems.push_back(stem);
    for (Stem* stem : stems) ChangeStemDirection(stem, up ? StemDirection::Up : StemDirection::Down);
    const BeamLine line = ComputeBeam(beam);
    for (Stem* stem : stems) SetEnd(stem, Round(BeamXOf(stem) * line.slope + line.b));
    SetMarkerStubs(beam);
}

void SetMarkerStubs(Beam* beam) {
    const BeamMarker* p = nullptr;
    for (BeamMarker* m : beamMarkers.Of(beam)) {
        const BeamMarker* n = beamMarkers.Next(m);
        m->_groupValue = std::clamp<uint8_t>(m->_leftValue, 8, 128);
        bool right = true;
        if (p && p->_leftValue < m->_leftValue) {
            if (!n) right = false;
            else if (n->_leftValue < m->_leftValue) right = p->_leftValue < n->_leftValue;
        } else if (p) {
            right = n && n->_leftValue >= m->_leftValue;
        }
        m->_stubSide = right ? 'R' : 'L';
        p = m;
    }
}

}  // namespace corvane
