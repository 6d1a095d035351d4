// One face of one font file as FreeType reads it, unhinted and unscaled. All figures are for an em of 1, y
// downward.
#pragma once

#include <cstdint>
#include <memory>
#include <unordered_map>
#include <vector>

#include "graphics/GlyphMeasures.h"
#include "platform/freetype/FontFiles.h"

struct FT_FaceRec_;

namespace corvane {

// A glyph's outline as the drawing library wants it: moves, lines, quadratic and cubic curves in order.
struct OutlineStep {
    enum class Kind : uint8_t { Move, Line, Quadratic, Cubic } kind;
    double x[3], y[3];  // the last point used is where the step ends
};
using Outline = std::vector<OutlineStep>;

class FontFace {
public:
    // A file that cannot be read gives a face without glyphs.
    explicit FontFace(const FontFile& file);
    ~FontFace();
    FontFace(const FontFace&) = delete;
    FontFace& operator=(const FontFace&) = delete;

    const FontFile& File() const { return _file; }
    // 0 where the face has no such character.
    uint32_t GlyphOf(char32_t character) const;
    const EmBox& Box(uint32_t glyph) { return Known(glyph).box; }
    double Advance(uint32_t glyph) { return Known(glyph).advance; }
    double Kerning(uint32_t left, uint32_t right) const;
    // The style bits that the face itself says it has.
    uint8_t OwnStyle() const { return _ownStyle; }
    double Ascent() const { return _ascent; }
    double Descent() const { return _descent; }
    // Slanted where the file says so.
    Outline OutlineOf(uint32_t glyph) const;

private:
    struct Figures {
        EmBox box;
        double advance = 0;
    };
    const Figures& Known(uint32_t glyph);
    Figures Measure(uint32_t glyph) const;
    bool Load(uint32_t glyph) const;

    FontFile _file;
    FT_FaceRec_* _face = nullptr;
    uint8_t _ownStyle = kPlainStyle;
    double _em = 1, _ascent = 0, _descent = 0;
    std::unordered_map<uint32_t, Figures> _known;
};

// The face of a file, opened once for the whole run. Main thread only.
FontFace& FaceOf(const FontFile& file);

}  // namespace corvane
