// Which installed font stands in for each font that scores name. The list belongs to the session: it comes
// from the settings, the Font Table dialog edits it, and drawing reads it. Main thread only.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "graphics/FontName.h"
#include "model/HierarchyRecords.h"

namespace corvane {

// Pairs in ascending order of the score's font names, case-sensitive, each name once.
class FontList {
public:
    struct Pair {
        std::string docFont, sysFont;
        friend bool operator==(const Pair&, const Pair&) = default;
    };

    // Adds a pair or changes the one of that name. Neither name may be empty.
    void Set(std::string_view docFont, std::string_view sysFont);
    void Remove(std::string_view docFont);
    // The name that stands in; the given one where the list has none.
    std::string_view SystemFont(std::string_view docFont) const;
    const std::vector<Pair>& Pairs() const { return _pairs; }

    // As the settings hold them: both names of each pair in turn.
    std::vector<std::string> ToNames() const;
    static FontList FromNames(const std::vector<std::string>& names);

private:
    std::vector<Pair> _pairs;
};

// A list with each font of the document and its symbols, parts of composites included, standing for itself.
FontList FontsOf(const Document* document);

// The list in force; a new session has an empty one.
const FontList& TheFontList();
void UseFontList(FontList list);
// What the port is to draw a score's font with.
FontId DrawnFont(std::string_view docFont);

}  // namespace corvane
