// Ties: each mark draws the piece that begins at its note, and one for a tie that comes from another system.
#include <algorithm>
#include <cstdlib>

#include "layout/DrawFamilies.h"
#include "layout/Engraving.h"
#include "layout/HiddenInk.h"
#include "layout/NoteGeometry.h"
#include "layout/TieShape.h"
#include "model/NoteOperations.h"
#include "model/Par.h"
#include "model/Preferences.h"
#include "model/Ties.h"

namespace corvane {
namespace {

// Hundredths of a line distance: what a tip keeps from a head or stem beside it, from the middle of a head
// over which it stands, above that head's middle and above the middle of a head beside it; what a piece keeps
// from the barline that ends its system, and how far one from the system before begins before its note, at
// least and at most.
constexpr int32_t kBeside = 15, kFromMiddle = 15, kOver = 72, kOverBeside = 24, kFromBarline = 30,
                  kLeast = 100, kMost = 200;
// The arch: its height grows with its length up to the preferred one, and stays clear of staff lines by so
// much.
constexpr int32_t kFlattest = 26, kGrowth = 6, kFromLine = 24, kHighest = 75, kShoulder = 250;
constexpr int32_t kTip = 6, kMiddle = 22;
// No hand pulls a tie higher than this, thousandths of a line distance: what a damaged file may tell.
constexpr int32_t kHighestTie = 100000;

bool Upward(const GenericNote* note) { return IsUp(StemPar(note)->_direction); }

// Away from stems; in a voice that has another beside it, with them. The upper notes of a chord upward, the
// lower downward.
bool CurvesUp(const GenericNote* first, const GenericNote* second) {
    const Voice* voice = VoicePar(first);
    if (StemsAreForced(voice)) return ForcedStemsUp(voice);
    const Stem* stem = StemPar(first);
    const int count = stemNotes.Count(stem);
    int place = 0;
    for (const GenericNote* note : stemNotes.Of(stem)) {
        if (note == first) break;
        ++place;
    }
    if (2 * place + 1 < count) return true;
    if (2 * place + 1 > count) return false;
    return !Upward(first) || !Upward(second);
}

// Nothing of its chord stands beyond the note on the tie's side.
bool IsOuter(const GenericNote* note, bool up) {
    const Stem* stem = StemPar(note);
    return (up ? stemNotes.First(stem) : stemNotes.Last(stem)) == note;
}

// Whether a tip stands beside the head, because something of the chord is in the way over or under it. A stem
// stands right of a head when it goes up, left of it when down.
bool StandsBeside(const GenericNote* note, bool up, bool start) {
    const bool stemInWay = HasStemInk(StemPar(note)) && Upward(note) == up && up == start;
    return stemInWay || !IsOuter(note, up);
}

// The note's head with heads of its chord that touch it.
Rect HeadsAt(const GenericNote* note) {
    Rect heads;
    for (const GenericNote* other : stemNotes.Of(StemPar(note)))
        if (std::abs(other->_line - note->_line) <= 1 && StaffPar(other) == StaffPar(note))
            heads = Union(heads, RectOf(other));
    return heads;
}

int32_t RightOf(const GenericNote* note) {
    const int32_t right = HeadsAt(note).right;
    const Dot* dot = DotOf(ChordPar(note));
    return dot ? std::max(right, RectOf(dot).right) : right;
}

int32_t LeftOf(const GenericNote* note) {
    const int32_t left = HeadsAt(note).left;
    const Accident* accident = AccidentOf(note);
    return accident ? std::min(left, RectOf(accident).left) : left;
}

int32_t PreferredDistance(const GenericNote* note) {
    const auto* preferences = Preferences<TiePref>(DocumentPar(note));
    return preferences ? preferences->_distance / 10 : 0;
}

Point TipOf(const GenericNote* note, bool up, bool start, bool beside) {
    const StaffFrame staff = FrameOf(StaffPar(note));
    const auto hundredths = [&](int32_t n) { return n * staff.lineDistance / 100; };
    const int32_t out = hundredths(beside ? kOverBeside : kOver + PreferredDistance(note));
    const int32_t y = staff.YOfLine(note->_line) + (up ? -out : out);
    if (beside) return {start ? RightOf(note) + hundredths(kBeside) : LeftOf(note) - hundredths(kBeside), y};
    const Rect head = RectOf(note);
    return {(head.left + head.right) / 2 + hundredths(start ? kFromMiddle : -kFromMiddle), y};
}

int32_t PreferredHeight(const GenericNote* note, bool up) {
    const auto* preferences = Preferences<TiePref>(DocumentPar(note));
    if (!preferences) return kHighest;
    return (up ? preferences->_heightAbove : preferences->_heightBelow) / 10;
}

// The arch's height in hundredths of a line distance, moved where its top would touch a staff line.
int32_t HeightOf(const StaffFrame& staff, Point tip, int32_t length, bool up, int32_t most) {
    const int32_t distance = std::max<int32_t>(staff.lineDistance, 1);
    const int32_t wanted = std::min(kFlattest + kGrowth * length / distance, most);
    const auto clearance = [&](int32_t height) {
        const int32_t top = tip.y + (up ? -1 : 1) * height * distance / 100;
        if (top < staff.top - distance / 2 || top > staff.Bottom() + distance / 2) return distance / 2;
        const int32_t past = ((top - staff.top) % distance + distance) % distance;
        return std::min(past, distance - past);
    };
    for (int32_t step = 0; step <= wanted / 2; step += 2)
        for (const int32_t height : {wanted + step, wanted - step})
            if (height <= most && clearance(height) * 100 >= kFromLine * distance) return height;
    return wanted;
}

int32_t SystemRight(const Measure* measure) {
    const System* system = SystemPar(measure);
    const Measure* last = system ? systemMeasures.Last(system) : nullptr;
    return last ? OriginOf(system).x + last->_right : 0;
}

bool IsDrawn(const GenericNote* note) {
    return note && StemPar(note) && ChordPar(note) && StaffPar(note) && SystemPar(MeasurePar(note));
}

TiePiece MakePiece(const MarkValue& mark, int32_t told) {
    const GenericNote *own = noteAttributes.ParentOf(&mark), *partner = TiePartnerOf(&mark);
    if (!IsDrawn(own) || !IsDrawn(partner)) return {};
    const bool starts = StandsBefore(own, partner);
    const bool together = SystemPar(MeasurePar(own)) == SystemPar(MeasurePar(partner));
    if (!starts && together) return {};
    const GenericNote *first = starts ? own : partner, *second = starts ? partner : own;
    const bool up = CurvesUp(first, second);
    const StaffFrame staff = FrameOf(StaffPar(own));
    const auto hundredths = [&](int32_t n) { return n * staff.lineDistance / 100; };

    // Both tips stand alike, so that the tie is level.
    const bool beside = StandsBeside(first, up, true) || StandsBeside(second, up, false);
    Point from, to;
    if (starts) from = TipOf(first, up, true, beside);
    if (!starts || together) to = TipOf(second, up, false, beside);
    if (!starts) {
        const int32_t area = FrameOf(MeasurePar(own)).XOf(0) - hundredths(kMost) + hundredths(kLeast) / 2;
        from = {std::clamp(area, to.x - hundredths(kMost), to.x - hundredths(kLeast)), to.y};
    } else if (!together) {
        to = {SystemRight(MeasurePar(own)) - hundredths(kFromBarline), from.y};
    }
    TiePiece piece;
    piece.up = up;
    piece.lineDistance = staff.lineDistance;
    piece.height = told ? std::clamp(told, kFlattestTie, kHighestTie)
                        : 10 * HeightOf(staff, from, to.x - from.x, up, PreferredHeight(own, up));
    piece.curve = ArchOf(from, to, piece.height * staff.lineDistance / 1000, up, kShoulder);
    piece.curve.tip = hundredths(kTip);
    piece.curve.middle = hundredths(kMiddle);
    return piece;
}

}  // namespace

TiePiece PieceOf(const MarkValue& mark, int32_t height) { return MakePiece(mark, height); }
TiePiece PieceOf(const MarkValue& mark) {
    const TieValue* tie = tieMarks.ParentOf(&mark);
    return MakePiece(mark, tie ? tie->_height : 0);
}

Rect InkOf(const MarkValue& mark) { return InkOf(PieceOf(mark).curve); }
void Paint(GraphicPort& port, const MarkValue& mark, const DrawContext& context) {
    const PenKept kept(port);
    if (IsHidden(&mark) && !UseHiddenColour(port, context.hiddenNotes, context.printing)) return;
    Paint(port, PieceOf(mark).curve);
}
std::vector<Point> OutlineOf(const MarkValue& mark) {
    const TaperedCurve curve = PieceOf(mark).curve;
    return curve.IsEmpty() ? std::vector<Point>{} : PointsAlong(curve);
}
int VoiceNumberOf(const MarkValue& mark) {
    const GenericNote* note = noteAttributes.ParentOf(&mark);
    const Voice* voice = note ? VoicePar(note) : nullptr;
    return voice ? voice->_number.Get() : 0;
}

}  // namespace corvane
