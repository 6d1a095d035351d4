// What belongs to a measure or to a staff in a measure, and the spanners with the marks at their ends. Positions are in
// the units that each field tells; where none is told they are hundredths of a line distance.
#pragma once

#include "model/FontRecords.h"
#include "model/HierarchyRecords.h"
#include "model/NoteRecords.h"

namespace corvane {

struct StaffMeasureSymbol : BehaviourWord, Bot2T<StaffMeasureSymbol, 17, 3>, Gap<8, 12> {
    static constexpr bool IsHeir(int16_t n) {
        constexpr int16_t heirs[] = {17, 18, 27, 28, 79, 81, 82, 83, 85, 87, 89, 90, 93, 98, 106};
        for (const int16_t heir : heirs)
            if (heir == n) return true;
        return false;
    }
};

template <int16_t Number, class Base = StaffMeasureSymbol>
struct SymbolOf : Base {
    static constexpr int16_t kClass = Number;
    static constexpr bool IsHeir(int16_t n) { return n == Number; }
};

// Clefs: code 1 to 13.
struct Claf : StaffMeasureSymbol {
    static constexpr bool IsHeir(int16_t n) { return n == 17 || n == 18; }
    Ptr<FontSymbol> _symbol;
    Stored<int32_t> _x, _y;
    Stored<uint8_t> _code, _line;
};
struct StaticClaf : SymbolOf<17, Claf> {};
struct MovingClaf : SymbolOf<18, Claf> {
    Stored<int32_t> _place;  // per mille of the note area
};

// Where a meter begins or changes; the numbers are the Measure's.
struct TimeSignature : SymbolOf<27> {
    Ptr<FontSymbol> _symbol;
    Stored<int32_t> _x, _y;
    Stored<uint8_t> _kind, _pickup;
    Filler<2> _filler34;
};
struct ClafSignature : SymbolOf<28> {
    Ptr<FontSymbol> _symbol;
    Stored<int32_t> _x, _y;
    Stored<uint8_t> _key;  // sharps less flats plus 7: 0 to 14
    Filler<1> _filler33;
};

struct Dinamiche : SymbolOf<81> {
    Ptr<FontSymbol> _symbol;
    Stored<int32_t> _x, _y;
    Filler<2> _filler32;
};
struct SimboliVari : SymbolOf<82> {
    Ptr<FontSymbol> _symbol;
    Stored<int32_t> _x, _y;
    Filler<2> _filler32;
};
struct Arpeggio : SymbolOf<89> {
    Ptr<FontSymbol> _symbol;
    Stored<int32_t> _long[4];
    Filler<2> _filler40;
};
struct MultiPause : SymbolOf<106> {};

// Symbols of the measure as a whole.
struct Time : MeasureSymbol, Gap<8, 12> {  // a tempo mark
    static constexpr int16_t kClass = 32;
    static constexpr bool IsHeir(int16_t n) { return n == 32; }
    Ptr<void> _any20, _any24, _any28;
    Filler<4> _filler32;
    Stored<int32_t> _x, _y;
    Stored<uint8_t> _placement;  // 34, 35, 36: one staff, all staves, the top staff of each connection
    Filler<3> _filler45;
    Stored<int16_t> _beat, _bpm, _figure, _dots, _tupletActual, _tupletNormal;
    Stored<int32_t> _long60, _long64;
};
struct Coda : MeasureSymbol, Gap<8, 12> {
    static constexpr int16_t kClass = 44;
    static constexpr bool IsHeir(int16_t n) { return n == 44; }
    Ptr<FontSymbol> _symbol;
    Stored<int32_t> _x, _y;
};

// Spanners. Each has a mark at either end, in this order, and between them one in the first measure of every
// system that it crosses; Endings has one in every measure under the bracket. Of the lines, the places are:
// from and to in per mille of the note area of the first and the last mark's measure; y in thousandths of the
// line distance below the top line of the staff.
struct Endings : BehaviourWord, Top2T<Endings, 44, 3> {
    static constexpr int16_t kClass = 41;
    TextBlock _text;
    Filler<4> _filler12;
    Stored<int32_t> _long[3];
};
struct MarkEndings : MeasureSymbol, Gap<4, 12>, Bot2T<MarkEndings, 44, 3> {
    static constexpr int16_t kClass = 42;
    static constexpr bool IsHeir(int16_t n) { return n == 42; }
};

enum class HairpinKind : uint8_t { Crescendo = 0, Diminuendo = 1 };
struct Hairpin : BehaviourWord, Top2T<Hairpin, 45, 3> {
    static constexpr int16_t kClass = 80;
    Stored<HairpinKind> _kind;
    Filler<5> _filler9;
    Stored<int32_t> _from, _to, _y;  // its axis
    Stored<int32_t> _opening;        // thousandths of the line distance
};
struct MarkHairpin : SymbolOf<79>, Bot2T<MarkHairpin, 45, 3> {
    Filler<4> _filler28;
};
struct Ottava : BehaviourWord, Top2T<Ottava, 46, 3> {
    static constexpr int16_t kClass = 84;
    Ptr<FontSymbol> _symbol;
    Filler<6> _filler12;
    Stored<int32_t> _from, _to, _y;  // its symbol's baseline
    Stored<int32_t> _long30;
};
struct MarkOttava : SymbolOf<83>, Bot2T<MarkOttava, 46, 3> {};
enum class SlurSide : uint8_t { ByStems = 0, Above = 1, Below = 2 };
struct Slur : BehaviourWord, Top2T<Slur, 47, 3> {
    static constexpr int16_t kClass = 91;
    Filler<4> _filler8;
    Ptr<void> _first;  // the event of a voice where it begins
    Ptr<void> _any16, _any20;
    Ptr<void> _last;            // where it ends, in the same voice
    Stored<int32_t> _moved[8];  // x and y of tip, shoulder, shoulder, tip, each from its own place
    Stored<int32_t> _side;      // SlurSide
    Stored<int32_t> _long64, _long68;
};
struct MarkSlur : SymbolOf<90>, Bot2T<MarkSlur, 47, 3> {
    Filler<4> _filler28;
};
struct Trillo : BehaviourWord, Top2T<Trillo, 51, 3> {
    static constexpr int16_t kClass = 88;
    Ptr<FontSymbol> _symbol, _bracket;  // the sign at its beginning, a wave of its line
    Filler<4> _filler16;
    Stored<int32_t> _from, _to, _y;  // the sign's baseline
    Stored<int32_t> _long32;
};
struct MarkTrillo : SymbolOf<87>, Bot2T<MarkTrillo, 51, 3> {};
struct Pedale : BehaviourWord, Top2T<Pedale, 52, 3> {
    static constexpr int16_t kClass = 86;
    Filler<4> _filler8;
    Stored<int32_t> _from, _to, _y;
    Stored<int32_t> _long24;
};
struct MarkPedale : SymbolOf<85>, Bot2T<MarkPedale, 52, 3> {};

// Text.
struct TextField : SymbolOf<93> {
    Ptr<GenericText> _text;
};
struct MeasureStaffText : TextField, Top2T<MeasureStaffText, 48, 3> {  // MarkTexts
    Stored<int32_t> _x, _y;
};
struct MarkText : BehaviourWord, Bot2T<MarkText, 48, 3>, Bot2T<MarkText, 49, 3> {
    static constexpr int16_t kClass = 96;
};
struct PageText : BehaviourWord, Bot2T<PageText, 50, 3>, Gap<8, 12> {
    static constexpr int16_t kClass = 101;
    Ptr<GenericText> _text;
    Stored<int32_t> _x, _y;
};

// Free graphics.
struct GraphicObj : BehaviourWord {
    static constexpr bool IsHeir(int16_t n) { return n >= 108 && n <= 111; }
    Ptr<void> _any4, _any8;
    Filler<8> _filler12;
    Ptr<void> _any20;
};
struct Linea : GraphicObj {
    static constexpr int16_t kClass = 108;
    Ptr<void> _any24;
    Filler<2> _filler28;
    Ptr<void> _any30;
    Filler<18> _filler34;
};
struct CompositeObj : GraphicObj {
    static constexpr int16_t kClass = 109;
    Ptr<void> _any24;
    Filler<2> _filler28;
    Ptr<void> _any30;
};
struct Quadrato : GraphicObj {
    static constexpr int16_t kClass = 110;
    Ptr<void> _any24;
    Filler<20> _filler28;
};
struct Cerchio : GraphicObj {
    static constexpr int16_t kClass = 111;
    Ptr<void> _any24;
    Filler<18> _filler28;
};

}  // namespace corvane
