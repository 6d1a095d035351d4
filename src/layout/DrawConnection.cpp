// Brace and bracket at the left end of a system.
#include "layout/DrawFamilies.h"
#include "layout/Frames.h"
#include "layout/LineWeights.h"
#include "layout/SymbolInk.h"
#include "model/Par.h"
#include "model/Preferences.h"
#include "model/SymbolTable.h"

namespace corvane {
namespace {

// The tips of a bracket, drawn at the size of the staff; the bar between them is a plain line.
constexpr uint8_t kBracketTop = 194, kBracketBottom = 76;
// How far a bracket's bar reaches beyond its staves, hundredths of a line distance.
constexpr int32_t kBeyond = 25;
// What the preferred distance counts as the width of either, in hundredths of a line distance.
constexpr int32_t kUsualWidth = 60;
// Page units.
constexpr int32_t kSeam = 2;

struct ConnectionPlace {
    bool brace = false;
    int32_t right = 0;  // its right edge
    int32_t top = 0, bottom = 0;
    int32_t lineDistance = 0;
    int32_t thickness = 0;  // of a bracket's bar

    int32_t Height() const { return bottom - top; }
};

const ConnectionPref* PreferencesFor(const Staff* staff) {
    const System* system = SystemPar(staff);
    const Document* document = system ? DocumentPar(system) : nullptr;
    return document ? Preferences<ConnectionPref>(document) : nullptr;
}

ConnectionPlace PlaceOf(const Connection& connection) {
    const ConnStaff *first = connectionStaffs.First(&connection), *last = connectionStaffs.Last(&connection);
    const Staff* upper = first ? staffConnections.ParentOf(first) : nullptr;
    const Staff* lower = last ? staffConnections.ParentOf(last) : nullptr;
    if (!upper || !lower) return {};
    const StaffFrame frame = FrameOf(upper);
    const auto* preferences = PreferencesFor(upper);
    ConnectionPlace place;
    place.brace = NameHolds(connection._symbol, "Brace");
    place.lineDistance = frame.lineDistance;
    const int32_t distance = !preferences  ? 100
                             : place.brace ? preferences->_braceDistance.Get()
                                           : preferences->_bracketDistance.Get();
    place.thickness = WeightOf(preferences ? preferences->_thickness.Get() : 60, frame.lineDistance);
    place.right = frame.left - (distance - kUsualWidth) * frame.lineDistance / 100;
    place.top = frame.top;
    place.bottom = FrameOf(lower).Bottom();
    return place;
}

// A brace fits when it is drawn at a quarter of its height; its parts are then set by their own offsets.
int32_t BraceDistance(const ConnectionPlace& place) { return place.Height() / 4; }

Point BracePoint(const FontSymbol* symbol, const ConnectionPlace& place) {
    const Rect ink = SymbolRect(symbol, BraceDistance(place), 100);
    return {place.right - ink.right, place.bottom - ink.bottom};
}

void UseTipFont(GraphicPort& port, const ConnectionPlace& place) {
    port.SetFontName(kMusicFont);
    port.SetFontSize(4 * place.lineDistance);
    port.SetFontStyle(kPlainStyle);
}

}  // namespace

Rect InkOf(const Connection& connection) {
    const ConnectionPlace place = PlaceOf(connection);
    if (place.Height() <= 0) return {};
    const FontSymbol* symbol = connection._symbol;
    if (place.brace)
        return InkOf(symbol, BracePoint(symbol, place), BraceDistance(place), 100).GrownBy(kSeam);
    const int32_t tip = 2 * place.lineDistance;
    return Rect{place.right - place.thickness, place.top - tip, place.right + tip, place.bottom + tip};
}

void Paint(GraphicPort& port, const Connection& connection, const DrawContext&) {
    const ConnectionPlace place = PlaceOf(connection);
    if (place.Height() <= 0) return;
    const FontSymbol* symbol = connection._symbol;
    if (place.brace) {
        const Point at = BracePoint(symbol, place);
        // Twice, a hair apart, so that no seam shows where its halves meet.
        for (const int32_t down : {0, kSeam})
            DrawSymbol(port, symbol, at.x, at.y + down, BraceDistance(place), 100);
        return;
    }
    const PenKept kept(port);
    const int32_t left = place.right - place.thickness, beyond = kBeyond * place.lineDistance / 100;
    PaintUpright(port, left, place.top - beyond, place.bottom + beyond, place.thickness);
    UseTipFont(port, place);
    port.DrawChar(kBracketTop, left, place.top - beyond, 'l');
    port.DrawChar(kBracketBottom, left, place.bottom + beyond, 'l');
}

}  // namespace corvane
