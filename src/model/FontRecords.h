// Fonts, symbols and texts that a document owns.
#pragma once

#include "model/Record.h"

namespace corvane {

// A text of the pool held by a record of its own. Read from files, never made: name fields hold their text in place.
struct Stringa {
    static constexpr int16_t kClass = 11;
    TextBlock _head;
};

struct TarnFont : BehaviourWord, BotT<TarnFont, 3, 3> {
    static constexpr int16_t kClass = 12;
    TextBlock _name;
    Stored<int32_t> _size;
    Stored<uint8_t> _style;     // 1 bold, 2 italic, else plain
    Filler<1> _filler25;
    Stored<int32_t> _fontId;    // kept 0: font handles live beside the pool
    Stored<int32_t> _useCount;
};

// A named, counted entry of the document's symbol table.
struct FontSymbol : BehaviourWord,
                    Bot3T<FontSymbol, 30, 3>,   // of the Document
                    Bot3T<FontSymbol, 34, 3>,   // of a CompositeSymbol
                    Gap<4, 12> {
    static constexpr bool IsHeir(int16_t n) { return n == 23 || n == 24; }
    TextBlock _name;
    Stored<int16_t> _useCount;
};

// Parts drawn in order at the same place.
struct CompositeSymbol : FontSymbol, Top3T<CompositeSymbol, 34, 3> {
    static constexpr int16_t kClass = 23;
    static constexpr bool IsHeir(int16_t n) { return n == 23; }
};

// One character of a font.
struct SimpleFont : FontSymbol {
    static constexpr int16_t kClass = 24;
    static constexpr bool IsHeir(int16_t n) { return n == 24; }
    TextBlock _fontName;
    Stored<uint8_t> _dirty;       // metrics are still to be measured
    Filler<1> _filler27;
    Stored<int32_t> _metrics[4];  // left, top, right, bottom at line distance 100, percent 100, offset included
    Stored<int32_t> _fontId;      // kept 0
    Stored<int32_t> _fontSize;    // hundredths of a line distance
    Stored<uint8_t> _style;
    Filler<1> _filler53;
    Stored<int32_t> _dx, _dy;     // hundredths of a line distance
    Stored<uint8_t> _code;
    Filler<1> _zero;
};

struct GenericText : BehaviourWord {
    static constexpr int16_t kClass = 92;
    TextBlock _text;      // UTF-8
    Ptr<TarnFont> _font;
    Filler<2> _filler12;
};

}  // namespace corvane
