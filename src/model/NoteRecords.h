// What holds the music inside a Voice: one chord or rest for each event, the heads, the stem that holds them,
// and the signs on them. No record holds an absolute place: x counts in per mille of the measure's note area,
// y in staff steps or fractions of the staff's line distance.
#pragma once

#include "model/Record.h"

namespace corvane {

struct FontSymbol;

// Note values: 1, 2, 4 ... 128, and 11 for the double whole.
inline constexpr uint8_t kDoubleWhole = 11;

enum class Side : uint8_t { Right = 0, Left = 1, Centre = 2 };  // where the head lies of its reference x
enum class Alteration : uint8_t {
    None = 0,
    Sharp = 1,
    Flat = 2,
    DoubleSharp = 3,
    DoubleFlat = 4,
    HalfSharp = 5,
    HalfFlat = 6,
    ThreeQuarterSharp = 7,
    ThreeQuarterFlat = 8,
    NaturalUp = 9,
    NaturalDown = 10,
};

// A head of a chord and of its stem.
struct GenericNote : BehaviourWord,
                     Bot2T<GenericNote, 40, 3>,    // of Chords
                     Bot2T<GenericNote, 60, 3>,    // of a Stem; the highest line first
                     Top2T<GenericNote, 35, 3>,    // NoteAttributes
                     Top2T<GenericNote, 1002, 3>,  // SoundEvents
                     Gap<4, 28> {
    static constexpr bool IsHeir(int16_t n) { return n == 21 || n == 29; }
    Ptr<FontSymbol> _symbol;
    Stored<Side> _side;
    Stored<Alteration> _alteration;
    Stored<int32_t> _playData;
    Stored<int16_t> _line;  // staff step: 1 the bottom line, each step half a line distance up
    Stored<int32_t> _size;  // percent
    Stored<uint8_t> _hidden;
    Filler<1> _filler49;
};
struct Note : GenericNote {
    static constexpr int16_t kClass = 21;
    static constexpr bool IsHeir(int16_t n) { return n == 21; }
};
struct Grace : GenericNote {
    static constexpr int16_t kClass = 29;
    static constexpr bool IsHeir(int16_t n) { return n == 29; }
};

// An event of a voice.
struct VoiceSymbol : BehaviourWord,
                     Bot2T<VoiceSymbol, 21, 3>,
                     Top2T<VoiceSymbol, 39, 3> {  // VoiceSymbolAttributes
    static constexpr bool IsHeir(int16_t n) { return n == 4 || n == 20 || n == 26; }
};

// One voice's chord. Its value is its ChordSymbol's.
struct Chords : VoiceSymbol,
                Gap<4, 16>,
                Bot2T<Chords, 32, 3>,   // of a ChordSymbol
                Top2T<Chords, 40, 3> {  // GenericNotes
    static constexpr int16_t kClass = 20;
    static constexpr bool IsHeir(int16_t n) { return n == 20 || n == 4; }
};

struct GraceChord : Chords {
    static constexpr int16_t kClass = 4;
    static constexpr bool IsHeir(int16_t n) { return n == 4; }
    Stored<uint8_t> _beforeBeat;  // the play mode is 18: the chord before gives the time
    Filler<1> _filler33;
    Stored<int16_t> _percentAssigned, _percentCut;  // play timing, as when the events were made
    Stored<uint8_t> _slash;
    Filler<1> _filler39;
};

// A stem or a rest: what can carry flags and stand under a beam.
struct BeamSymbol : BehaviourWord, Top2T<BeamSymbol, 70, 3> {  // BeamSymbolAttributes
    static constexpr bool IsHeir(int16_t n) { return n == 22 || n == 26; }
};

// A rest.
struct Pause : VoiceSymbol, BeamSymbol {
    static constexpr int16_t kClass = 26;
    static constexpr bool IsHeir(int16_t n) { return n == 26; }
    using VoiceSymbol::ClassNumber;
    Stored<uint8_t> _value;
    Filler<5> _filler25;
    Ptr<FontSymbol> _symbol;
    Stored<int32_t> _x;      // per mille of the note area
    Stored<int32_t> _y;      // thousandths of a line distance below the staff's top line
    Stored<int32_t> _beamY;  // height while under a beam
    Stored<uint8_t> _hidden;
    Filler<5> _filler47;
};

inline constexpr int32_t kVerticalStem = 2147483647;

// What a person has said of a stem; else it points, is beamed and ends by the rules.
inline constexpr uint8_t kSaidDirection = 1, kSaidAlone = 2, kSaidLength = 4;

enum class StemDirection : uint8_t { Down = 0, Up = 1, HiddenDown = 2, HiddenUp = 3 };
constexpr bool IsUp(StemDirection d) { return d == StemDirection::Up || d == StemDirection::HiddenUp; }
constexpr bool IsVisible(StemDirection d) { return d == StemDirection::Up || d == StemDirection::Down; }

struct Stem : BeamSymbol,
              Gap<2, 8>,
              Bot2T<Stem, 33, 3>,   // of a ChordSymbol
              Top2T<Stem, 60, 3> {  // GenericNotes, the highest line first
    static constexpr int16_t kClass = 22;
    static constexpr bool IsHeir(int16_t n) { return n == 22; }
    Stored<StemDirection> _direction;
    Stored<uint8_t> _said;    // a sum of kSaid...
    Stored<int32_t> _slant;   // kVerticalStem or a divisor
    Stored<int32_t> _x;       // per mille of the note area
    Stored<int32_t> _length;  // beyond the outer head, hundredths of a line distance
    Filler<8> _filler36;
};

// A flag of a stem, or the mark that puts a stem or rest under a beam.
struct BeamSymbolAttribute : BehaviourWord, Bot2T<BeamSymbolAttribute, 70, 3> {
    static constexpr bool IsHeir(int16_t n) { return n == 25 || n == 64; }
};
struct Flag : BeamSymbolAttribute, Gap<4, 12> {
    static constexpr int16_t kClass = 25;
    static constexpr bool IsHeir(int16_t n) { return n == 25; }
    Ptr<FontSymbol> _symbol;
    Stored<int32_t> _dx;
};
struct BeamMarker : BeamSymbolAttribute, Gap<4, 12>, Bot2T<BeamMarker, 900, 3>, Gap<4, 24> {
    static constexpr int16_t kClass = 64;
    static constexpr bool IsHeir(int16_t n) { return n == 64; }
    Stored<uint8_t> _leftValue;   // the note value, 8 to 128
    Stored<uint8_t> _rightValue;  // value of the connection to the right; 255 until computed
    Stored<uint8_t> _groupValue;  // 8 to 128
    Stored<uint8_t> _stubSide;    // 'L' or 'R'
    Stored<uint8_t> _level;       // code of the connection between sub-groups
    Stored<uint8_t> _drawToRest;  // of a stem's marker 1 where a person has turned its stub
};

struct Beam : BehaviourWord, Top2T<Beam, 900, 3> {  // BeamMarkers, in order
    static constexpr int16_t kClass = 65;
    static constexpr bool IsHeir(int16_t n) { return n == 65 || n == 107; }
    Stored<uint8_t> _direction;  // 'U' or 'D'
    Stored<uint8_t> _kept;       // 1: a person made it; grouping leaves it as it is
};

// A column of a measure.
struct MeasureSymbol : BehaviourWord, Bot2T<MeasureSymbol, 31, 3> {
    static constexpr bool IsHeir(int16_t n) { return n == 19 || n == 32 || n == 42 || n == 44 || n == 107; }
};

// A beam whose stems stand on several staves; it hangs in its first measure.
struct CrossBeam : Beam, MeasureSymbol {
    static constexpr int16_t kClass = 107;
    static constexpr bool IsHeir(int16_t n) { return n == 107; }
    using Beam::ClassNumber;
};

// The chords that share a stem or stems.
struct ChordSymbol : MeasureSymbol,
                     Gap<4, 12>,
                     Top2T<ChordSymbol, 32, 3>,  // Chords
                     Top2T<ChordSymbol, 33, 3>,  // Stems
                     Gap<4, 24> {
    static constexpr int16_t kClass = 19;
    static constexpr bool IsHeir(int16_t n) { return n == 19; }
    Stored<uint8_t> _value;
    Filler<1> _filler29;
};

// A sign on a head.
struct NoteAttribute : BehaviourWord, Bot2T<NoteAttribute, 35, 3> {
    static constexpr bool IsHeir(int16_t n) { return n == 31 || n == 33 || (n >= 45 && n <= 63 && n != 48); }
};
// A sign on an event.
struct VoiceSymbolAttribute : BehaviourWord, Bot2T<VoiceSymbolAttribute, 39, 3> {
    static constexpr bool IsHeir(int16_t n) { return n == 30 || n == 35 || n == 48; }
};

struct Accident : NoteAttribute, Gap<8, 12> {
    static constexpr int16_t kClass = 31;
    static constexpr bool IsHeir(int16_t n) { return n == 31; }
    Ptr<FontSymbol> _symbol;
    Stored<int32_t> _dx, _dy;  // from the head, thousandths of a line distance
};

struct Dot : VoiceSymbolAttribute, Gap<8, 12> {
    static constexpr int16_t kClass = 30;
    static constexpr bool IsHeir(int16_t n) { return n == 30; }
    Ptr<FontSymbol> _symbol;
    Stored<int32_t> _dx;
    Stored<int16_t> _count;  // 1 to 3
    Stored<int32_t> _dy, _gap;
};

// The signs that are a symbol on a head at an offset (45, 47, 49 to 63), the lyric syllable (46).
struct SymbolAttribute : NoteAttribute, Gap<8, 12> {
    static constexpr bool IsHeir(int16_t n) { return n >= 45 && n <= 63 && n != 46 && n != 48; }
    Ptr<FontSymbol> _symbol;
    Stored<int32_t> _dx, _dy;
};
template <int16_t Number, int Extra>
struct SymbolAttributeOf : SymbolAttribute {
    static constexpr int16_t kClass = Number;
    static constexpr bool IsHeir(int16_t n) { return n == Number; }
    Filler<Extra> _filler32;
};
template <int16_t Number>
struct SymbolAttributeOf<Number, 0> : SymbolAttribute {
    static constexpr int16_t kClass = Number;
    static constexpr bool IsHeir(int16_t n) { return n == Number; }
};
using Mordente = SymbolAttributeOf<45, 0>;
using Gruppetto = SymbolAttributeOf<47, 0>;
using ArcoGiu = SymbolAttributeOf<49, 0>;
using ArcoSu = SymbolAttributeOf<50, 0>;
using SuonoAperto = SymbolAttributeOf<51, 0>;
using SuonoChiuso = SymbolAttributeOf<52, 0>;
using Armonico = SymbolAttributeOf<53, 0>;
using Circonflesso = SymbolAttributeOf<54, 0>;
using Respiro = SymbolAttributeOf<55, 0>;
using Tilde = SymbolAttributeOf<56, 0>;
using Pizzicato = SymbolAttributeOf<57, 0>;
using BartokSup = SymbolAttributeOf<58, 0>;
using BartokInf = SymbolAttributeOf<59, 0>;
using Articolazione = SymbolAttributeOf<60, 2>;
using Diteggiatura = SymbolAttributeOf<61, 2>;
using Corona = SymbolAttributeOf<62, 2>;
using Ornamenti = SymbolAttributeOf<63, 0>;

struct GenericText;
enum class LyricJoint : uint8_t { WordEnd = 0, Hyphen = 1, Extender = 2 };
// A syllable, or with an empty text a further note of the syllable before.
struct Liriche : NoteAttribute {
    static constexpr int16_t kClass = 46;
    static constexpr bool IsHeir(int16_t n) { return n == 46; }
    Stored<uint8_t> _verse;     // from 1; 0 stands for 1
    Stored<LyricJoint> _joint;  // to the next syllable of the verse
    Filler<6> _filler14;
    Ptr<GenericText> _text;
    Stored<int32_t> _dx, _dy;  // off the middle of the head, below the staff: thousandths of a line distance
};

struct Tremolo : VoiceSymbolAttribute, Gap<8, 12> {
    static constexpr int16_t kClass = 48;
    static constexpr bool IsHeir(int16_t n) { return n == 48; }
    Ptr<FontSymbol> _symbol;
};

// A tie and the two marks of its heads.
struct MarkValue : NoteAttribute, Gap<8, 12>, Bot2T<MarkValue, 36, 3> {
    static constexpr int16_t kClass = 33;
    static constexpr bool IsHeir(int16_t n) { return n == 33; }
    Ptr<void> _any28;
};
struct TieValue : BehaviourWord, Top2T<TieValue, 36, 3> {
    static constexpr int16_t kClass = 34;
    Filler<4> _filler8;
    Stored<int32_t>
        _height;  // of its arch as a person has told it, thousandths of a line distance; 0: by the rule
    Filler<32> _filler16;
    Filler<2> _filler48;
};

// A tuplet and the marks of its events.
enum class TupletFigure : uint8_t {
    AsUsual = 0,
    Number = 1,
    Ratio = 2,
    None = 3
};  // the ratio where it is unusual
enum class TupletBracket : uint8_t { UnlessBeamed = 0, Always = 1, None = 2 };
struct MarkIrreg : VoiceSymbolAttribute, Gap<8, 12>, Bot2T<MarkIrreg, 38, 3> {
    static constexpr int16_t kClass = 35;
    static constexpr bool IsHeir(int16_t n) { return n == 35; }
    Ptr<void> _any28, _any32;
};
struct Irregular : BehaviourWord, Top2T<Irregular, 38, 3> {
    static constexpr int16_t kClass = 36;
    Stored<int32_t> _leftX, _leftY, _rightX,
        _rightY;  // the bracket's ends moved, hundredths of a line distance
    Stored<int32_t> _long24, _long28, _long32;
    Stored<int16_t> _count, _inTimeOf;  // so many in the time of so many
    Stored<TupletFigure> _figure;
    Stored<TupletBracket> _bracket;
};

}  // namespace corvane
