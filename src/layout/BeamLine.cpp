// The line of a beam, and the stems that reach it.
#include <algorithm>
#include <cmath>

#include "base/Assert.h"
#include "base/Rounding.h"
#include "layout/BeamClearance.h"
#include "layout/CrossBeams.h"
#include "layout/Engraving.h"
#include "layout/NoteGeometry.h"
#include "model/NoteOperations.h"
#include "model/Par.h"
#include "model/Preferences.h"

namespace corvane {
namespace {

constexpr int kFirstDownAverage = 6;
// Hundredths of a line distance: the shortest stem under a beam, and from a rest to the levels of a beam.
constexpr int32_t kLeastStem = 250, kRestRoom = 50;
// What a beam of grace notes keeps is smaller by this percentage.
constexpr int32_t kGraceScale = 140;

// What the heads under a beam tell.
struct Heads {
    const GenericNote *high = nullptr, *low = nullptr;  // of the largest and the smallest line
    int count = 0, sum = 0;
    StaffFrame top{}, bottom{};  // the highest and the lowest staff
    const Stem *firstStem = nullptr, *lastStem = nullptr;

    int Average() const { return count ? sum / count : 0; }
};

void TakeHead(Heads& heads, const Stem* stem, const GenericNote* note) {
    const StaffFrame staff = FrameOf(StaffPar(note));
    if (!heads.count) heads.firstStem = stem;
    if (!heads.count || staff.Bottom() < heads.top.Bottom()) heads.top = staff;
    if (!heads.count || staff.Bottom() > heads.bottom.Bottom()) heads.bottom = staff;
    if (!heads.high || note->_line > heads.high->_line) heads.high = note;
    if (!heads.low || note->_line <= heads.low->_line) heads.low = note;
    heads.lastStem = stem;
    heads.sum += note->_line;
    ++heads.count;
}

const GenericNote* OuterHead(const Stem* stem, bool up) {
    return up ? stemNotes.First(stem) : stemNotes.Last(stem);
}

// Calls visit for each marker that stands on a stem with heads.
template <class Visit>
void ForEachStem(const Beam* beam, Visit visit) {
    for (const BeamMarker* marker : beamMarkers.Of(beam))
        if (auto* stem = As<Stem>(beamSymbolAttributes.ParentOf(marker)); stem && !stemNotes.IsEmpty(stem))
            visit(stem, marker);
}

Heads HeadsOf(const Beam* beam) {
    Heads heads;
    ForEachStem(beam, [&](Stem* stem, const BeamMarker*) {
        for (const GenericNote* note : stemNotes.Of(stem)) TakeHead(heads, stem, note);
    });
    return heads;
}

// Of chords the heads nearest to the beam tell the angle.
double SlopeOf(const Heads& heads, bool up) {
    const auto lineOf = [&](const Stem* stem) {
        return up ? stemNotes.First(stem)->_line.Get() : stemNotes.Last(stem)->_line.Get();
    };
    const int first = lineOf(heads.firstStem), last = lineOf(heads.lastStem);
    if (!AngledBeams() || first == last) return 0.0;
    return last < first ? kBeamSlope : -kBeamSlope;
}

bool PointsUpByRule(const Heads& heads) {
    const Voice* voice = VoicePar(heads.high);
    if (voice && StemsAreForced(voice)) return ForcedStemsUp(voice);
    return IsGrace(heads.firstStem) || heads.Average() < kFirstDownAverage;
}

// One stem that a person has pointed turns its whole beam.
bool PointsUp(const Beam* beam, const Heads& heads) {
    const Stem* pointed = nullptr;
    ForEachStem(beam, [&](const Stem* stem, const BeamMarker*) {
        if (!pointed && IsPointed(stem)) pointed = stem;
    });
    return pointed ? IsUp(pointed->_direction) : PointsUpByRule(heads);
}

// The first and the last stem whose length a person has told; null for none.
struct Told {
    const Stem *first = nullptr, *last = nullptr;

    bool Turns() const { return first != last && AngledBeams(); }
};
Told ToldUnder(const Beam* beam) {
    Told told;
    ForEachStem(beam, [&](const Stem* stem, const BeamMarker*) {
        if (!IsLengthTold(stem)) return;
        if (!told.first) told.first = stem;
        told.last = stem;
    });
    return told;
}

// What a stem needs by the rules, so that it is long enough for its levels and reaches the middle line as
// stems without a beam do; hundredths of a line distance.
int32_t UsualNeed(const Stem* stem, const BeamMarker* marker, bool up) {
    const BeamClearance clearance(stem);
    const int32_t wanted = std::max(clearance.least, clearance.Depth(marker->_leftValue) + kHeadRoom);
    return IsGrace(stem) ? wanted : std::max(wanted, LengthToMiddleLine(OuterHead(stem, up), up));
}

// Where a person has told how far the beam stands off: its levels end at the heads.
int32_t LeastNeed(const Stem* stem, const BeamMarker* marker, bool) {
    return BeamClearance(stem).Depth(marker->_leftValue) + kHeadRoom / 2;
}

// How far the line has to move away from the heads, so that every stem has what it needs.
int32_t LackOf(const Beam* beam, const BeamLine& line, bool up,
               int32_t (*need)(const Stem*, const BeamMarker*, bool)) {
    int32_t lack = 0;
    ForEachStem(beam, [&](const Stem* stem, const BeamMarker* marker) {
        const GenericNote* outer = OuterHead(stem, up);
        const int32_t wanted = need(stem, marker, up);
        const int32_t y = PlaceOf(outer).stem.y, end = line.YAt(BeamXOf(stem));
        const int32_t length = up ? y - end : end - y;
        lack = std::max(lack, wanted * FrameOf(StaffPar(outer)).lineDistance / 100 - length);
    });
    return lack;
}

// The line moves to where a person's word has put the end of one of its stems, and turns where it has put
// two; else it moves to where the rules need it.
void MoveOff(BeamLine& line, const Beam* beam, bool up) {
    const Told told = ToldUnder(beam);
    if (told.Turns()) {
        const int32_t way = BeamXOf(told.last) - BeamXOf(told.first);
        if (way) line.slope = static_cast<double>(LineOf(told.last).told - LineOf(told.first).told) / way;
    }
    if (told.first) line.b = LineOf(told.first).told - BeamXOf(told.first) * line.slope;
    line.b += LackOf(beam, line, up, told.first ? LeastNeed : UsualNeed) * (up ? -1 : 1);
}

// Under a beam a rest keeps its height unless the beam would run through it; then it moves by whole line
// distances.
void SetRestHeight(Pause* pause, const BeamMarker* marker, const BeamLine& line,
                   const BeamClearance& clearance, bool up) {
    pause->_beamY = pause->_y.Get();
    const int32_t distance = FrameOf(StaffPar(pause)).lineDistance;
    if (!distance) return;
    const Rect rect = RectOf(pause);
    const int32_t y = line.YAt(BeamXOf(pause));
    const int32_t room = (clearance.Depth(marker->_leftValue) + kRestRoom) * distance / 100;
    const int32_t lack = up ? y + room - rect.top : rect.bottom - (y - room);
    if (lack <= 0) return;
    const int32_t spaces = (lack + distance - 1) / distance;
    const int32_t height = pause->_y + (up ? spaces : -spaces) * 1000;
    pause->_beamY = height ? height : 1;  // 0 stands for none
}

// A neighbour across the end of a sub-group has no say.
bool IsCut(const BeamMarker* left) { return left->_rightValue <= 8; }

bool StubPointsRight(const BeamMarker* p, const BeamMarker* m, const BeamMarker* n) {
    const bool before = p && !IsCut(p), behind = n && !IsCut(m);
    if (!before) return behind || n || !p;
    if (!behind) return false;
    if (m->_leftValue <= n->_leftValue) return true;
    return p->_leftValue < m->_leftValue && p->_leftValue < n->_leftValue;
}

bool StubIsTurned(const BeamMarker* marker) {
    return As<Stem>(beamSymbolAttributes.ParentOf(marker)) && marker->_drawToRest;
}

bool& AngledSwitch() {
    static bool angled = true;
    return angled;
}

}  // namespace

double CappedSlope(double slope, int32_t way, int32_t lineDistance) {
    const double most = 2.0 * lineDistance;
    if (std::abs(slope * way) <= most) return slope;
    return (slope < 0 ? -most : most) / std::abs(way);
}

BeamClearance::BeamClearance(const Stem* stem) {
    const auto* pref = Preferences<NotePref>(DocumentPar(stem));
    thickness = pref ? pref->BeamThickness() : NotePref::kBeamThickness;
    step = thickness + (pref ? pref->BeamGap() : NotePref::kBeamGap);
    preferred = pref ? pref->BeamMinDistance() : NotePref::kBeamMinDistance;
    least = kLeastStem;
    if (!IsGrace(stem)) return;
    thickness /= 2, step /= 2;
    preferred = preferred * 100 / kGraceScale, least = least * 100 / kGraceScale;
}

int32_t BeamClearance::Depth(int value) const {
    int32_t depth = thickness / 2;
    for (int level = 16; level <= value; level *= 2) depth += step;
    return depth;
}

bool AngledBeams() { return AngledSwitch(); }
void SetAngledBeams(bool angled) { AngledSwitch() = angled; }

int32_t BeamLine::YAt(int32_t x) const { return Round(x * slope + b); }

BeamLine ComputeBeam(const Beam* beam) {
    const Heads heads = HeadsOf(beam);
    BeamLine line;
    if (!heads.count) return line;
    const bool up = beam->_direction == 'U';
    const GenericNote* anchor = up ? heads.high : heads.low;
    const StaffFrame& staff = up ? heads.top : heads.bottom;
    const int32_t distance = staff.lineDistance;
    const int32_t clear = BeamClearance(heads.firstStem).preferred * distance / 100;
    const double head = staff.Bottom() - distance * 0.5 * anchor->_line + distance * 0.5;
    const int32_t way = BeamXOf(heads.lastStem) - BeamXOf(heads.firstStem);
    line.slope = CappedSlope(SlopeOf(heads, up), way, distance);
    line.b = head + (up ? -clear : clear) - BeamXOf(StemPar(anchor)) * line.slope;
    MoveOff(line, beam, up);
    const int32_t startX = BeamXOf(beamSymbolAttributes.ParentOf(beamMarkers.First(beam)));
    const int32_t endX = BeamXOf(beamSymbolAttributes.ParentOf(beamMarkers.Last(beam)));
    line.start = {startX, line.YAt(startX)};
    line.end = {endX, line.YAt(endX)};
    return line;
}

void RefitBeam(Beam* beam) {
    if (auto* cross = As<CrossBeam>(beam)) return RefitCrossBeam(cross);
    const Heads heads = HeadsOf(beam);
    if (!heads.count) return;
    const bool up = PointsUp(beam, heads);
    const uint8_t direction = up ? 'U' : 'D';
    if (beam->_direction != direction) beam->_direction = direction;
    ForEachStem(beam, [&](Stem* stem, const BeamMarker*) { PointStem(stem, up); });
    const BeamLine line = ComputeBeam(beam);
    ForEachStem(beam, [&](Stem* stem, const BeamMarker*) { SetEnd(stem, line.YAt(BeamXOf(stem))); });
    SetMarkerStubs(beam);
    const BeamClearance clearance(heads.firstStem);
    for (const BeamMarker* marker : beamMarkers.Of(beam))
        if (auto* pause = As<Pause>(beamSymbolAttributes.ParentOf(marker)))
            SetRestHeight(pause, marker, line, clearance, up);
}

void PointBeam(Beam* beam, bool up) {
    const Heads heads = HeadsOf(beam);
    if (!heads.count) return;
    const bool pointed = As<CrossBeam>(beam) || PointsUpByRule(heads) != up;
    ForEachStem(beam, [&](Stem* stem, const BeamMarker*) {
        Say(stem, kSaidDirection, pointed);
        PointStem(stem, up);
    });
    RefitBeam(beam);
}

bool LevelConnects(const BeamMarker* left, const BeamMarker* right, int value) {
    const uint8_t cut = left->_rightValue;
    return left->_groupValue >= value && right->_groupValue >= value && (cut == kNotCut || cut >= value);
}

bool HasStub(const BeamMarker* marker) {
    if (!As<Stem>(beamSymbolAttributes.ParentOf(marker))) return false;
    const BeamMarker *p = beamMarkers.Prev(marker), *n = beamMarkers.Next(marker);
    const int value = marker->_groupValue;
    if (!p && !n) return true;
    return value > 8 && !(p && LevelConnects(p, marker, value)) && !(n && LevelConnects(marker, n, value));
}

void SetMarkerStubs(Beam* beam) {
    const BeamMarker* p = nullptr;
    for (BeamMarker* m : beamMarkers.Of(beam)) {
        const BeamMarker* n = beamMarkers.Next(m);
        m->_groupValue = std::clamp<uint8_t>(m->_leftValue, 8, 128);
        m->_stubSide = StubPointsRight(p, m, n) != StubIsTurned(m) ? 'R' : 'L';
        p = m;
    }
}

}  // namespace corvane
