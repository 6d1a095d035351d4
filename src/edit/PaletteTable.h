// The items of the palettes: what each enters and which handler does it.
#pragma once

#include <cstdint>
#include <string>

#include "edit/Insertion.h"

namespace corvane {

struct PaletteItem {
    uint8_t group;
    uint16_t item;
    const char* descriptor;  // "" where the item alone tells
    const char* name;        // for tooltips and the status line
    // Null for a text, which is typed before it stands anywhere.
    void (*handler)(const InsertionPlace& place, const PaletteItem& item, const std::string& descriptor);
    // An accidental takes "(" and a note "_Grace_" behind its descriptor where the switch is on.
    enum Suffix { Plain, GraceNote, Bracketed, OrnamentBracketed } suffix;
    // Of an item that spans a stretch, in place of the handler (SpannerSteps.h): done when the press is let
    // go.
    void (*stroke)(WindowTarn& window, const PaletteItem& item, Point from, Point to, int voice) = nullptr;
};

// Null for an item that enters nothing.
const PaletteItem* FindPaletteItem(int group, int item);
// The item's descriptor with what the switches of the tool state add.
std::string DescriptorOf(const PaletteItem& item);

}  // namespace corvane
