#include "platform/freetype/FontFace.h"

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_BBOX_H
#include FT_OUTLINE_H

#include <map>

namespace corvane {
namespace {

FT_Library Library() {
    static FT_Library library = [] {
        FT_Library made = nullptr;
        FT_Init_FreeType(&made);
        return made;
    }();
    return library;
}

constexpr FT_Int32 kUnhinted = FT_LOAD_NO_SCALE | FT_LOAD_NO_HINTING | FT_LOAD_NO_BITMAP;

// Gathers what FreeType's walk of an outline tells.
struct OutlineWriter {
    Outline& steps;
    double em;

    void Add(OutlineStep::Kind kind, std::initializer_list<const FT_Vector*> points) {
        OutlineStep step{kind, {}, {}};
        size_t i = 0;
        for (const FT_Vector* p : points) {
            step.x[i] = p->x / em;
            step.y[i++] = -p->y / em;
        }
        steps.push_back(step);
    }
    static OutlineWriter& Of(void* user) { return *static_cast<OutlineWriter*>(user); }
};

int MoveTo(const FT_Vector* to, void* user) {
    OutlineWriter::Of(user).Add(OutlineStep::Kind::Move, {to});
    return 0;
}
int LineTo(const FT_Vector* to, void* user) {
    OutlineWriter::Of(user).Add(OutlineStep::Kind::Line, {to});
    return 0;
}
int QuadraticTo(const FT_Vector* control, const FT_Vector* to, void* user) {
    OutlineWriter::Of(user).Add(OutlineStep::Kind::Quadratic, {control, to});
    return 0;
}
int CubicTo(const FT_Vector* a, const FT_Vector* b, const FT_Vector* to, void* user) {
    OutlineWriter::Of(user).Add(OutlineStep::Kind::Cubic, {a, b, to});
    return 0;
}

}  // namespace

FontFace::FontFace(const FontFile& file) : _file(file) {
    if (file.path.empty() || FT_New_Face(Library(), file.path.c_str(), file.index, &_face) != 0)
        _face = nullptr;
    if (!_face || _face->units_per_EM == 0) return;
    _ownStyle = static_cast<uint8_t>((_face->style_flags & FT_STYLE_FLAG_BOLD ? kBoldStyle : 0) |
                                     (_face->style_flags & FT_STYLE_FLAG_ITALIC ? kItalicStyle : 0));
    _em = _face->units_per_EM;
    _ascent = _face->ascender / _em;
    _descent = -_face->descender / _em;
}

FontFace::~FontFace() {
    if (_face) FT_Done_Face(_face);
}

uint32_t FontFace::GlyphOf(char32_t character) const {
    return _face ? FT_Get_Char_Index(_face, character) : 0;
}

bool FontFace::Load(uint32_t glyph) const {
    if (!_face || FT_Load_Glyph(_face, glyph, kUnhinted) != 0) return false;
    if (_face->glyph->format != FT_GLYPH_FORMAT_OUTLINE) return false;
    const FT_Matrix slant{0x10000, static_cast<FT_Fixed>(kSlant * 0x10000), 0, 0x10000};
    if (_file.slanted) FT_Outline_Transform(&_face->glyph->outline, &slant);
    return true;
}

FontFace::Figures FontFace::Measure(uint32_t glyph) const {
    if (!Load(glyph)) return {};
    Figures figures;
    figures.advance = _face->glyph->metrics.horiAdvance / _em;
    FT_BBox box{};
    if (_face->glyph->outline.n_points > 0 && FT_Outline_Get_BBox(&_face->glyph->outline, &box) == 0)
        figures.box = {box.xMin / _em, -box.yMax / _em, box.xMax / _em, -box.yMin / _em};
    return figures;
}

const FontFace::Figures& FontFace::Known(uint32_t glyph) {
    const auto [entry, isNew] = _known.try_emplace(glyph);
    if (isNew) entry->second = Measure(glyph);
    return entry->second;
}

double FontFace::Kerning(uint32_t left, uint32_t right) const {
    FT_Vector gap{};
    if (!_face || !FT_HAS_KERNING(_face)) return 0;
    FT_Get_Kerning(_face, left, right, FT_KERNING_UNSCALED, &gap);
    return gap.x / _em;
}

Outline FontFace::OutlineOf(uint32_t glyph) const {
    Outline steps;
    if (!Load(glyph)) return steps;
    OutlineWriter writer{steps, _em};
    FT_Outline_Funcs walk{};
    walk.move_to = MoveTo;
    walk.line_to = LineTo;
    walk.conic_to = QuadraticTo;
    walk.cubic_to = CubicTo;
    FT_Outline_Decompose(&_face->glyph->outline, &walk, &writer);
    return steps;
}

FontFace& FaceOf(const FontFile& file) {
    static std::map<FontFile, std::unique_ptr<FontFace>> faces;
    std::unique_ptr<FontFace>& face = faces[file];
    if (!face) face = std::make_unique<FontFace>(file);
    return *face;
}

}  // namespace corvane
