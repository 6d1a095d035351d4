// The face of figures that belong to a sign: of tuplets and endings.
#pragma once

#include <string_view>

#include "model/Record.h"
#include "model/Texts.h"

namespace corvane {

inline constexpr std::string_view kTextFace = "Times New Roman";

// A new score tells this face for them, which stands for what nobody has chosen: it would look typed.
inline constexpr std::string_view kUnchosenFace = "Courier New";

inline std::string_view FaceOfFigures(const TarnFont* font) {
    const std::string_view name = font ? TextOf(font->_name) : kUnchosenFace;
    return name == kUnchosenFace ? kTextFace : name;
}

}  // namespace corvane
