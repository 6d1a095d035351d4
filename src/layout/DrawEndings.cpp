// Endings: each mark draws the bracket's piece over its own measure, the first with the hook and the text at
// its left, the last with a hook at its right where the music jumps or ends there.
#include <string>

#include "base/Rounding.h"
#include "graphics/MemoryPort.h"
#include "layout/AboveStaff.h"
#include "layout/DrawFamilies.h"
#include "layout/Frames.h"
#include "layout/LineWeights.h"
#include "layout/SpacingHeader.h"
#include "layout/TextFaces.h"
#include "model/Par.h"
#include "model/Preferences.h"

namespace corvane {
namespace {

// Hundredths of a line distance: the line above the top staff line, the hooks' length, what two brackets keep
// between them, the text from the hook and from the line.
constexpr int32_t kHeight = 400, kHook = 200, kApart = 25, kTextIn = 45, kTextDown = 155, kTextSize = 180;

struct Piece {
    int32_t left = 0, right = 0, y = 0, bottom = 0;
    int32_t weight = 0;
    bool opens = false, closes = false;
    std::string text;  // of the first piece
    Point textAt;
    int32_t textSize = 0;

    bool IsEmpty() const { return right <= left; }
};

bool EndsThere(const Measure* measure) {
    return measure->_endRepeat || measure->_barline == BarlineKind::Final;
}

// Behind the signs of a system's head, else at the barline.
int32_t LeftOf(const Measure* measure) {
    if (systemMeasures.Prev(measure)) return 0;
    const HeaderPlaces places = PlacesOf(measure);
    const SpacingGaps gaps = GapsOf(DocumentPar(measure));
    return places.noteArea > gaps.firstNote ? places.noteArea - gaps.firstNote / 2 : 0;
}

Piece PieceOf(const MarkEndings& mark) {
    const Endings* endings = endingsMarks.ParentOf(&mark);
    const Measure* measure = MeasurePar(&mark);
    const Staff* staff = measure ? TopStaffOf(measure) : nullptr;
    if (!endings || !staff) return {};
    const StaffFrame frame = FrameOf(staff);
    const int32_t distance = frame.lineDistance, origin = OriginOf(SystemPar(measure)).x;
    const auto hundredths = [distance](int32_t n) { return n * distance / 100; };

    Piece piece;
    const bool last = endingsMarks.Last(endings) == &mark;
    piece.opens = endingsMarks.First(endings) == &mark;
    piece.closes = last && EndsThere(measure);
    piece.left = origin + measure->_left + LeftOf(measure);
    piece.right = origin + measure->_right - (last ? hundredths(kApart) : 0);
    piece.y = frame.top + hundredths(endings->_long[0] - kHeight);
    piece.bottom = piece.y + hundredths(kHook);
    piece.weight = BarlineWeight(distance);
    if (!piece.opens) return piece;
    piece.text = TextOf(endings->_text);
    piece.textAt = {piece.left + hundredths(kTextIn), piece.y + hundredths(kTextDown)};
    piece.textSize = Round(kTextSize * distance / 100.0);
    return piece;
}

void UseTextFont(GraphicPort& port, const MarkEndings& mark, int32_t size) {
    const auto* preferences = Preferences<RipetitionPref>(DocumentPar(MeasurePar(&mark)));
    const TarnFont* font = preferences ? preferences->_endingFont.Get() : nullptr;
    port.SetFontName(FaceOfFigures(font));
    port.SetFontSize(size);
    port.SetFontStyle(font ? font->_style.Get() : uint8_t{0});
}

Rect TextInk(const MarkEndings& mark, const Piece& piece) {
    if (piece.text.empty()) return {};
    MemoryPort port;
    UseTextFont(port, mark, piece.textSize);
    return port.StringRect(piece.text).MovedBy(piece.textAt.x, piece.textAt.y);
}

}  // namespace

Rect InkOf(const MarkEndings& mark) {
    const Piece piece = PieceOf(mark);
    if (piece.IsEmpty()) return {};
    const int32_t half = (piece.weight + 1) / 2;
    Rect ink{piece.left, piece.y - half, piece.right, piece.y + half};
    if (piece.opens || piece.closes) ink.bottom = piece.bottom;
    return Union(ink, TextInk(mark, piece));
}

std::vector<Point> OutlineOf(const MarkEndings& mark) {
    const Piece piece = PieceOf(mark);
    if (piece.IsEmpty()) return {};
    std::vector<Point> line{{piece.left, piece.y}, {piece.right, piece.y}};
    if (piece.opens) line.insert(line.begin(), {piece.left, piece.bottom});
    if (piece.closes) line.push_back({piece.right, piece.bottom});
    return line;
}

bool Touches(const MarkEndings& mark, Point p) {
    return IsNearLine(OutlineOf(mark), p) || TextInk(mark, PieceOf(mark)).EnclosesStrictly(p);
}

Rect InkOfMark(const MarkEndings* mark) { return InkOf(*mark); }

void Paint(GraphicPort& port, const MarkEndings& mark, const DrawContext&) {
    const Piece piece = PieceOf(mark);
    if (piece.IsEmpty()) return;
    const PenKept kept(port);
    PaintLevel(port, piece.left, piece.right, piece.y, piece.weight);
    if (piece.opens) PaintUpright(port, piece.left, piece.y, piece.bottom, piece.weight);
    if (piece.closes) PaintUpright(port, piece.right - piece.weight, piece.y, piece.bottom, piece.weight);
    if (piece.text.empty()) return;
    UseTextFont(port, mark, piece.textSize);
    port.DrawString(piece.text, piece.textAt.x, piece.textAt.y);
}

}  // namespace corvane
