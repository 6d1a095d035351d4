// Makes a document's symbols from their names. A name is read in this order: custom names; the glyph table;
// time signatures "ts", key signatures "cs", repetition texts (SymbolNames.h tells the three); accidentals
// "#"; fingerings "G"; dynamics "D"; and anything else is a custom symbol.
//
//   "#" ["G"] ["O"] LETTER ["("]   G: at 300 for a grace note, O: 200 smaller, (: in brackets
//   "G" DIGITS, "D" LETTERS        letters of p m f r s z
//   ("Custom" | "GraceCustom") CHARACTER [FONT [SIZE [STYLE [DX [DY]]]]]
//
// The parts of a custom name stand behind blanks or line ends, its font has underscores for blanks. The
// character of any other unknown name is its seventh, a blank where it is shorter.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/Geometry.h"
#include "model/GlyphTable.h"
#include "model/HierarchyRecords.h"

namespace corvane {

// One SimpleFont to be.
struct SymbolPart {
    GlyphPart glyph;
    std::string font;
    std::string name;  // empty: the symbol's own
};
struct SymbolDesign {
    std::vector<SymbolPart> parts;
    bool composite = false;  // else one part
};

// What a name's symbol consists of; never fails. Reads the document's preferences, if it has any.
SymbolDesign DesignSymbol(const Document* document, std::string_view name);

// A new symbol in the current pool, in no relation, use count 0. Measured, if there are glyph measures.
FontSymbol* MakeSymbol(const Document* document, std::string_view name);
FontSymbol* BuildSymbol(const SymbolDesign& design, std::string_view name);

// Ink of a part at line distance 100 and 100 percent, its offset included; empty without glyph measures.
Rect InkOf(const SymbolPart& part);
// The families, each empty for a name that is not theirs.
std::optional<SymbolDesign> DesignTimeSignature(const Document* document, std::string_view name);
std::optional<SymbolDesign> DesignKeySignature(const Document* document, std::string_view name);
std::optional<SymbolDesign> DesignRepetitionText(const Document* document, std::string_view name);
// A glyph of a music font.
SymbolPart MusicPart(const GlyphPart& glyph, std::string_view name = {});

}  // namespace corvane
