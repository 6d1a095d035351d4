#include "model/Clefs.h"

#include "model/NoteOperations.h"
#include "model/Par.h"

namespace corvane {
namespace {

// `line` is where the clef's own line stands: the G line of a G clef, the F line, the C line; the middle for percussion.
constexpr ClefInfo kClefs[] = {
    {1, "ChiaveSol", 3, 1},         {2, "ChiaveFa", 7, -11},     {3, "ChiaveSolSu", 3, 8},
    {4, "ChiaveSolGiu", 3, -6},     {5, "ChiaveFaGiu", 7, -18},  {6, "ChiaveDoBar", 9, -9},
    {7, "ChiaveDoTen", 7, -7},      {8, "ChiaveDoCont", 5, -5},  {9, "ChiaveDoMezzSop", 3, -3},
    {10, "ChiaveDoSop", 1, -1},     {11, "ChiaveScatola", 5, 1}, {12, "ChiaveLinee", 5, 1},
    {13, "ChiaveRastrello", 5, 1},
};

constexpr int kSemitones[] = {0, 2, 4, 5, 7, 9, 11};
// For remainders of steps below the middle C: -1 to -6.
constexpr int kSemitonesBelow[] = {0, -1, -3, -5, -7, -8, -10};
// Diatonic steps in the order in which sharps are set; flats go the other way.
constexpr int kSharpOrder[] = {3, 0, 4, 1, 5, 2, 6};

// The last clef of a crossing left of x; without `left` the last of all. Null for a crossing without a clef.
const Claf* LastClef(const MeasureStaff* measureStaff, const int32_t* left) {
    const Claf* fixed = nullptr;
    const MovingClaf* moving = nullptr;
    for (StaffMeasureSymbol* symbol : staffSymbols.Of(measureStaff)) {
        if (const auto* clef = As<StaticClaf>(symbol)) fixed = clef;
        const auto* clef = As<MovingClaf>(symbol);
        if (!clef || (left && clef->_place >= *left)) continue;
        if (!moving || clef->_place >= moving->_place) moving = clef;
    }
    return moving ? moving : fixed;
}

int ClefAround(const MeasureStaff* measureStaff, const int32_t* left) {
    const Claf* clef = LastClef(measureStaff, left);
    for (const MeasureStaff* m = PrevOnStaff(measureStaff); !clef && m; m = PrevOnStaff(m)) clef = LastClef(m, nullptr);
    return clef ? int{clef->_code} : kTreble;
}

}  // namespace

const ClefInfo& ClefOf(int code) { return kClefs[code >= 1 && code <= 13 ? code - 1 : 0]; }

int ClefLine(int code, int lineCount) { return code < kPercussion ? ClefOf(code).line : lineCount; }

int ClefCodeOfSymbol(std::string_view name) {
    for (const ClefInfo& clef : kClefs)
        if (name == clef.symbol) return clef.code;
    return 0;
}

int ClefInForce(const MeasureStaff* measureStaff, int32_t x) { return ClefAround(measureStaff, &x); }

int KeyInForce(const MeasureStaff* measureStaff) {
    for (const MeasureStaff* m = measureStaff; m; m = PrevOnStaff(m))
        for (StaffMeasureSymbol* symbol : staffSymbols.Of(m))
            if (const auto* key = As<ClafSignature>(symbol)) return key->_key - 7;
    return 0;
}

int DiatonicStep(int clefCode, int line) { return line + ClefOf(clefCode).offset; }

int LineOfStep(int clefCode, int step) { return step - ClefOf(clefCode).offset; }

int SemitonesOfStep(int step) {
    const int rest = step % 7;
    return step / 7 * 12 + (rest < 0 ? kSemitonesBelow[-rest] : kSemitones[rest]);
}

int KeyAlteration(int key, int step) {
    const int name = ((step % 7) + 7) % 7;
    for (int i = 0; i < key; ++i)
        if (kSharpOrder[i] == name) return 1;
    for (int i = 0; i < -key; ++i)
        if (kSharpOrder[6 - i] == name) return -1;
    return 0;
}

int SemitonesOf(Alteration alteration) {
    constexpr int kSteps[] = {0, 1, -1, 2, -2};
    const auto code = static_cast<unsigned>(alteration);
    return code < 5 ? kSteps[code] : 0;
}

Alteration AlterationOfKey(int key, int step) {
    const int a = KeyAlteration(key, step);
    return a > 0 ? Alteration::Sharp : a < 0 ? Alteration::Flat : Alteration::None;
}

int ClefCodeOf(const GenericNote* note) {
    const MeasureStaff* measureStaff = MeasureStaffPar(note);
    if (!measureStaff) return kTreble;
    const Stem* stem = StemPar(note);
    const int32_t x = stem ? stem->_x : 0;
    return ClefAround(measureStaff, As<Grace>(note) ? nullptr : &x);
}

int NoteHeight(const GenericNote* note) { return 60 + SemitonesOfStep(DiatonicStep(ClefCodeOf(note), note->_line)); }

int SoundingHeight(const GenericNote* note) { return NoteHeight(note) + SemitonesOf(note->_alteration); }

}  // namespace corvane
