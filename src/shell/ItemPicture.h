// What palette items look like: on the buttons of the palette, and as the ghost under the pointer.
#pragma once

#include <vector>

#include "base/Geometry.h"
#include "model/GlyphTable.h"

namespace corvane {

class GraphicPort;
struct PaletteItem;

// Lengths are hundredths of a line distance, counted from the left edge of a head or sign on its line.
struct ItemPicture {
    struct Line {
        Point from, to;
    };
    static constexpr int32_t kWeight = 14;  // of lines
    std::vector<GlyphPart> glyphs;
    std::vector<Line> lines;
    bool hasLine = true;  // stands on the line that is pressed; else in the middle of the staff
    bool onHead = false;  // ledger lines belong to it
};

// With stem and flag, and the staff line without which a whole and a half rest look alike.
ItemPicture WholePicture(const PaletteItem& item);
// A note's head alone.
ItemPicture GhostPicture(const PaletteItem& item);

// The ink, in hundredths of a line distance.
Rect InkOf(const ItemPicture& picture);
// In the port's colour; `lineDistance` in page units.
void DrawPicture(GraphicPort& port, const ItemPicture& picture, Point at, int32_t lineDistance);

}  // namespace corvane
