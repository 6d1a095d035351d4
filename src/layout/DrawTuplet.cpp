// Tuplets: the first mark draws the figure and, where no beam holds the group together, the bracket.
#include <algorithm>
#include <cmath>
#include <string>
#include <string_view>

#include "base/Rounding.h"
#include "graphics/MemoryPort.h"
#include "layout/DrawFamilies.h"
#include "layout/Engraving.h"
#include "layout/HiddenInk.h"
#include "layout/LineWeights.h"
#include "layout/NoteGeometry.h"
#include "layout/TextFaces.h"
#include "layout/TupletShape.h"
#include "model/NoteOperations.h"
#include "model/Par.h"
#include "model/Preferences.h"

namespace corvane {
namespace {

// Hundredths of a line distance: what the line keeps from notes and from the staff, its hooks, the gap left
// and right of the figure, the figure's middle from a beam, its size and half the height of its digits.
constexpr int32_t kFromNotes = 70, kFromStaff = 60, kHook = 70, kFigureGap = 35, kFromBeam = 115,
                  kFigureSize = 185, kHalfDigit = 60;
constexpr int32_t kBracketWeight = 12;
constexpr double kSteepest = 0.2;
constexpr uint8_t kItalic = 2;
// The face that new scores tell for figures is of equal widths, as on a typewriter; figures are set as texts
// are until somebody chooses another one.

Rect InkOf(const VoiceSymbol* symbol) {
    if (const auto* pause = As<Pause>(symbol)) return RectOf(pause);
    return RectOf(ChordSymbolPar(As<Chords>(symbol)));
}

const BeamSymbol* BeamSymbolOf(const VoiceSymbol* symbol) {
    if (const auto* pause = As<Pause>(symbol)) return pause;
    return StemOf(As<Chords>(symbol));
}

// Works out the picture of one tuplet from its events.
class TupletShape {
public:
    TupletShape(const Irregular* irregular, const TupletEnds& ends) : _irregular(irregular), _ends(ends) {
        for (const MarkIrreg* mark : irregularMarks.Of(irregular))
            if (const VoiceSymbol* symbol = voiceSymbolAttributes.ParentOf(mark)) _events.push_back(symbol);
    }

    TupletPicture Take() {
        const Staff* staff = _events.empty() ? nullptr : StaffPar(_events.front());
        if (!staff || !OneVoice()) return {};
        _staff = FrameOf(staff);
        _beam = CommonBeam();
        _above = IsAbove();
        _picture.lineDistance = _staff.lineDistance;
        _picture.weight = WeightOf(kBracketWeight, _staff.lineDistance);
        _picture.hook = _above ? Hundredths(kHook) : -Hundredths(kHook);
        PlaceLine();
        PlaceFigure();
        return _picture;
    }

private:
    int32_t Hundredths(int32_t n) const { return n * _staff.lineDistance / 100; }

    bool OneVoice() const {
        for (const VoiceSymbol* event : _events)
            if (VoicePar(event) != VoicePar(_events.front())) return false;
        return true;
    }

    // The beam over all events; null for none.
    const Beam* CommonBeam() const {
        const BeamSymbol* first = BeamSymbolOf(_events.front());
        const Beam* beam = first ? BeamOf(first) : nullptr;
        for (const VoiceSymbol* event : _events) {
            const BeamSymbol* symbol = BeamSymbolOf(event);
            if (!symbol || BeamOf(symbol) != beam) return nullptr;
        }
        return beam;
    }

    // On the side of the stems; of stems both ways, above.
    bool IsAbove() const {
        const Voice* voice = VoicePar(_events.front());
        if (!_beam && StemsAreForced(voice)) return ForcedStemsUp(voice);
        int up = 0, down = 0;
        for (const VoiceSymbol* event : _events)
            if (const auto* chord = As<Chords>(event))
                if (const Stem* stem = StemOf(chord)) ++(IsUp(stem->_direction) ? up : down);
        return up >= down;
    }

    int32_t EdgeOf(const VoiceSymbol* event) const { return _above ? InkOf(event).top : InkOf(event).bottom; }
    int32_t Outer(int32_t a, int32_t b) const { return _above ? std::min(a, b) : std::max(a, b); }

    // From the first event's left edge to the last one's right edge, sloping gently where the outer notes do
    // and none between stands out; moved out of the staff and clear of every event.
    void PlaceLine() {
        const Rect first = InkOf(_events.front()), last = InkOf(_events.back());
        const double width = std::max(1, last.right - first.left);
        double slope =
            std::clamp((EdgeOf(_events.back()) - EdgeOf(_events.front())) / width, -kSteepest, kSteepest);
        const int32_t ends = Outer(EdgeOf(_events.front()), EdgeOf(_events.back()));
        for (const VoiceSymbol* event : _events)
            if (Outer(EdgeOf(event), ends) != ends) slope = 0;
        const auto rise = [&](int32_t x) { return Round((x - first.left) * slope); };
        int32_t y = _above ? _staff.top - Hundredths(kFromStaff) : _staff.Bottom() + Hundredths(kFromStaff);
        y = Outer(y, y - rise(last.right));
        const int32_t clear = _above ? -Hundredths(kFromNotes) : Hundredths(kFromNotes);
        for (const VoiceSymbol* event : _events) {
            const Rect ink = InkOf(event);
            for (const int32_t x : {ink.left, ink.right}) y = Outer(y, EdgeOf(event) + clear - rise(x));
        }
        _picture.left = Point{first.left, y} + Moved(_ends.left);
        _picture.right = Point{last.right, y + rise(last.right)} + Moved(_ends.right);
        const TupletBracket bracket = BracketOf(_irregular);
        _picture.bracketed =
            bracket == TupletBracket::Always || (bracket == TupletBracket::UnlessBeamed && !_beam);
    }

    Point Moved(Point by) const { return {Hundredths(by.x), Hundredths(by.y)}; }

    std::string Figure() const {
        const int count = _irregular->_count, normal = _irregular->_inTimeOf;
        int usual = 1;
        while (usual * 2 < count) usual *= 2;
        const bool isUsual = normal == usual || (count == 2 && normal == 3) || (count == 4 && normal == 3);
        const TupletFigure figure = _irregular->_figure;
        if (figure == TupletFigure::None || count <= 0) return {};
        if (figure == TupletFigure::Number || (figure == TupletFigure::AsUsual && isUsual))
            return std::to_string(count);
        return std::to_string(count) + ":" + std::to_string(normal);
    }

    // Between the ends of the line, or on the beam.
    Point FigureMiddle() const {
        if (_picture.bracketed || !_beam)
            return {(_picture.left.x + _picture.right.x) / 2, (_picture.left.y + _picture.right.y) / 2};
        const StemLine first = EndOf(_events.front()), last = EndOf(_events.back());
        const int32_t out = Hundredths(kFromBeam);
        const Point both = _ends.left + _ends.right, moved = Moved({both.x / 2, both.y / 2});
        return Point{(first.x + last.x) / 2, (first.end + last.end) / 2 + (_above ? -out : out)} + moved;
    }

    // Of a stem, or of the nearest one to a rest at the group's edge.
    StemLine EndOf(const VoiceSymbol* event) const {
        const int step = event == _events.front() ? 1 : -1;
        auto i = static_cast<int>(event == _events.front() ? 0 : _events.size() - 1);
        for (; i >= 0 && i < static_cast<int>(_events.size()); i += step)
            if (const auto* chord = As<Chords>(_events[static_cast<size_t>(i)])) return LineOf(StemOf(chord));
        const Rect ink = InkOf(event);
        return {(ink.left + ink.right) / 2, ink.bottom, ink.top};
    }

    void PlaceFigure() {
        _picture.figure = Figure();
        if (_picture.figure.empty()) return;
        const auto* preferences = Preferences<IrregPref>(DocumentPar(_events.front()));
        const Point moved = preferences ? Moved({preferences->_dx, preferences->_dy}) : Point{};
        const Point middle = FigureMiddle() + moved;
        _picture.size = Round(kFigureSize * _staff.lineDistance / 100.0);
        MemoryPort port;
        UseFigureFont(port, _events.front(), _picture.size);
        const int32_t width = port.StringWidth(_picture.figure), half = Hundredths(kHalfDigit);
        _picture.baseline = {middle.x - width / 2, middle.y + half};
        _picture.figureInk = {middle.x - width / 2, middle.y - half, middle.x + (width + 1) / 2,
                              middle.y + half};
    }

public:
    static void UseFigureFont(GraphicPort& port, const VoiceSymbol* event, int32_t size) {
        const auto* preferences = Preferences<IrregPref>(DocumentPar(event));
        const TarnFont* font = preferences ? preferences->_font.Get() : nullptr;
        port.SetFontName(FaceOfFigures(font));
        port.SetFontSize(size);
        port.SetFontStyle(font && font->_style ? font->_style.Get() : kItalic);
    }

private:
    const Irregular* _irregular;
    const TupletEnds _ends;
    std::vector<const VoiceSymbol*> _events;
    StaffFrame _staff;
    const Beam* _beam = nullptr;
    bool _above = true;
    TupletPicture _picture;
};

TupletPicture PictureOf(const MarkIrreg& mark) {
    const Irregular* irregular = irregularMarks.ParentOf(&mark);
    if (!irregular || irregularMarks.First(irregular) != &mark) return {};
    return PictureOf(irregular, EndsOf(irregular));
}

int32_t YAt(const TupletPicture& picture, int32_t x) {
    const double width = std::max(1, picture.right.x - picture.left.x);
    return picture.left.y + Round((picture.right.y - picture.left.y) * (x - picture.left.x) / width);
}

}  // namespace

TupletEnds EndsOf(const Irregular* tuplet) {
    return {{tuplet->_leftX, tuplet->_leftY}, {tuplet->_rightX, tuplet->_rightY}};
}

void MoveEnds(Irregular* tuplet, const TupletEnds& ends) {
    tuplet->_leftX = ends.left.x;
    tuplet->_leftY = ends.left.y;
    tuplet->_rightX = ends.right.x;
    tuplet->_rightY = ends.right.y;
}

TupletPicture PictureOf(const Irregular* tuplet, const TupletEnds& ends) {
    return TupletShape(tuplet, ends).Take();
}

Rect InkOf(const MarkIrreg& mark) {
    const TupletPicture picture = PictureOf(mark);
    Rect ink = picture.figureInk;
    if (!picture.bracketed) return ink;
    const int32_t half = (picture.weight + 1) / 2;
    for (const Point end : {picture.left, picture.right})
        ink = Union(ink, Rect{end.x, end.y, end.x, end.y + picture.hook}.Normalised().GrownBy(half));
    return ink;
}

void Paint(GraphicPort& port, const MarkIrreg& mark, const DrawContext& context) {
    Paint(port, mark, PictureOf(mark), context);
}

// A hidden one is seen where hidden notes are.
void Paint(GraphicPort& port, const MarkIrreg& mark, const TupletPicture& picture,
           const DrawContext& context) {
    if (picture.IsEmpty()) return;
    const PenKept kept(port);
    const bool hidden = IsHidden(irregularMarks.ParentOf(&mark));
    if (hidden && !UseHiddenColour(port, context.hiddenNotes, context.printing)) return;
    if (!picture.figureInk.IsEmpty()) {
        TupletShape::UseFigureFont(port, voiceSymbolAttributes.ParentOf(&mark), picture.size);
        port.DrawString(picture.figure, picture.baseline.x, picture.baseline.y);
    }
    if (!picture.bracketed) return;
    port.SetPenSize(picture.weight, picture.weight);
    const auto line = [&](int32_t from, int32_t to) {
        if (from < to) port.DrawLine(from, YAt(picture, from), to, YAt(picture, to));
    };
    for (const Point end : {picture.left, picture.right})
        port.DrawLine(end.x, end.y, end.x, end.y + picture.hook);
    const Rect& figure = picture.figureInk;
    if (figure.IsEmpty()) return line(picture.left.x, picture.right.x);
    const int32_t gap = kFigureGap * picture.size / kFigureSize;
    line(picture.left.x, figure.left - gap);
    line(figure.right + gap, picture.right.x);
}

std::vector<Point> OutlineOf(const MarkIrreg& mark) {
    const TupletPicture picture = PictureOf(mark);
    if (picture.bracketed) return {picture.left, picture.right};
    const Rect& ink = picture.figureInk;
    if (ink.IsEmpty()) return {};
    const int32_t middle = (ink.top + ink.bottom) / 2;
    return {{ink.left, middle}, {ink.right, middle}};
}

int VoiceNumberOf(const MarkIrreg& mark) {
    const VoiceSymbol* symbol = voiceSymbolAttributes.ParentOf(&mark);
    const Voice* voice = symbol ? VoicePar(symbol) : nullptr;
    return voice ? voice->_number.Get() : 0;
}

}  // namespace corvane
