// A score's own preferences: one record of each class, found by class name. docs/records.md tells which
// default value stands where and why. Fields named by type and offset (_byte41) are carried through files and
// read by nobody.
#pragma once

#include "model/FontRecords.h"

namespace corvane {

struct ClassPreferences : BehaviourWord, BotT<ClassPreferences, 4, 3> {
    static constexpr bool IsHeir(int16_t n) {
        constexpr int16_t heirs[] = {13, 37, 40, 43, 66, 67,  68,  69,  70, 71,
                                     72, 73, 74, 94, 95, 100, 102, 103, 104};
        for (const int16_t heir : heirs)
            if (heir == n) return true;
        return false;
    }
    TextBlock _className;
    Stored<int32_t> _long20;  // kept 0
};

template <int16_t Number>
struct PreferencesOf : ClassPreferences {
    static constexpr int16_t kClass = Number;
    static constexpr bool IsHeir(int16_t n) { return n == Number; }
};

// A number of 16 bits where the class's field plan moves no bytes: the higher byte first, in memory as in
// files.
class ByteWord {
public:
    uint16_t Get() const { return static_cast<uint16_t>(_bytes[0] << 8 | _bytes[1]); }
    void Put(uint16_t value) {
        _bytes.Put(0, static_cast<uint8_t>(value >> 8));
        _bytes.Put(1, static_cast<uint8_t>(value));
    }

private:
    Filler<2> _bytes;
};

// Barlines and measure numbers. Percents are hundredths of a line distance.
struct MeasurePreferences : PreferencesOf<13> {
    Ptr<TarnFont> _numberFont;
    Stored<uint8_t> _showNumbers, _numberPlacement;  // 34, 35, 36: all staves, the top one, that of each connection
    Stored<int16_t> _numbering, _numberStep;         // 1 every so many measures, 2 the first of each system
    Stored<int16_t> _word34, _word36;
    Stored<int16_t> _thickBarline, _barlineGap;  // percent; the gap is that between the lines of a pair
    Stored<int16_t> _numberDx;                   // percent
    Stored<int32_t> _numberDy;                   // percent above the staff
    Stored<int32_t> _firstNumber;
    Filler<2> _filler52;
    Stored<int16_t> _word54, _word56, _word58, _word60, _word62;
};

struct IrregPref : PreferencesOf<37> {
    Ptr<TarnFont> _font;
    Stored<uint8_t> _figure, _bracket;  // of a new tuplet: TupletFigure, TupletBracket
    Stored<int32_t> _dx, _dy;           // of the figure, percent
    Stored<uint8_t> _byte38, _byte39;
    Stored<int16_t> _count, _inTimeOf;  // what a new tuplet starts with
    Filler<2> _filler44;
};

struct ConnectionPref : PreferencesOf<40> {
    Stored<int32_t> _braceDistance, _bracketDistance;  // percent left of the staves
    Stored<int32_t> _thickness;                        // of a bracket's line, percent
};

struct RipetitionPref : PreferencesOf<43> {
    Ptr<TarnFont> _endingFont, _phraseFont;
    Stored<uint8_t> _byte32, _byte33;
    Stored<int16_t> _word34;
};

// Page and spacing. Gaps are page units but for `_lastNoteGap`.
struct PagePref : PreferencesOf<66> {
    Ptr<TarnFont> _font;  // page numbers and title
    Stored<int32_t> _pageHeight, _pageWidth;
    Stored<int32_t> _long36;
    Stored<int32_t> _firstNoteGap;  // header, or barline, to the first note
    Stored<int32_t> _long44;
    Stored<int32_t> _lastNoteGap;  // per mille of the note area kept free before the barline
    Stored<int32_t> _barlineClefGap, _clefKeyGap, _keyTimeGap;
    Stored<uint8_t> _byte64, _byte65, _byte66;
    Filler<3> _filler67;
};

// What a group of notes shares a beam with; the codes are those of the choices in the dialogs.
enum class BinaryGroups : uint8_t { EachBeat = 5, TwoBeats = 6, All = 7 };
enum class TernaryGroups : uint8_t { EachBeat = 8, All = 9 };
enum class CompositeGroups : uint8_t { TwoBeats = 10, ThreeBeats = 11, All = 12 };
enum class FiveGroups : uint8_t { TwoThree = 13, ThreeTwo = 14, All = 15 };
enum class SevenGroups : uint8_t { FourThree = 16, ThreeFour = 17, All = 18 };
enum class SubGroups : uint8_t { NotConnected = 4, ByEighthBeam = 5, ByLargerValue = 6 };
enum class Completion : uint8_t { Complete = 7, Leave = 8 };
enum class CompletedBy : uint8_t { LongerBeam = 9, StemsOnRests = 10 };
enum class SingleNote : uint8_t { Beam = 11, Flag = 12 };

// Notes, their accidentals, dots and beams. Percents are hundredths of a line distance.
struct NotePref : PreferencesOf<67> {
    Ptr<TarnFont> _font;
    Stored<uint8_t> _byte28, _velocity, _velocityLow, _velocityHigh;  // of new notes; limits of the dialog
    Stored<uint8_t> _accidentalScope;                                 // 1: to the end of the measure
    Stored<uint8_t> _byte33;
    Stored<BinaryGroups> _binary;
    Stored<TernaryGroups> _ternary;
    Stored<CompositeGroups> _composite;
    Stored<FiveGroups> _five;
    Stored<SevenGroups> _seven;
    Stored<uint8_t> _byte39;
    Stored<SubGroups> _subGroups;
    Stored<Completion> _completion;
    Stored<CompletedBy> _completedBy;
    Stored<SingleNote> _singleNote;
    Stored<uint8_t> _byte44, _byte45, _byte46;
    Filler<1> _filler47;
    ByteWord _beamThickness, _beamGap, _beamMinDistance;  // percent; read by the functions below
    Filler<6> _filler54;
    Stored<int32_t> _long60;
    Filler<4> _filler64;
    Stored<int32_t> _headSize;  // percent of the symbol's size, of new notes
    Stored<int32_t> _long72;
    Stored<int32_t> _accidentalGap;      // from an accidental's left edge to the head's, percent
    Stored<int32_t> _accidentalSpacing;  // between columns of accidentals, percent
    Stored<int32_t> _dotGap;             // from the head's middle to the dot's left edge, percent
    Stored<uint8_t> _byte88;
    Filler<5> _filler89;

    // A file that has no value there gives the default.
    int32_t BeamThickness() const { return _beamThickness.Get() ? _beamThickness.Get() : kBeamThickness; }
    int32_t BeamGap() const { return _beamGap.Get() ? _beamGap.Get() : kBeamGap; }
    int32_t BeamMinDistance() const {
        return _beamMinDistance.Get() ? _beamMinDistance.Get() : kBeamMinDistance;
    }
    static constexpr uint16_t kBeamThickness = 42, kBeamGap = 42, kBeamMinDistance = 400;
};

enum class ForcedStems : uint8_t {
    ByNumber = 0,
    Up = 1,
    Down = 2
};  // ByNumber: odd voices up, even ones down

struct VoicePref : PreferencesOf<68> {
    Stored<uint8_t> _automaticStems;  // by the line, while the voice is alone in its measure
    Filler<1> _filler25;
    Stored<int16_t> _word26, _word28, _word30;
    Stored<ForcedStems> _forced[8];  // of voices 1 to 8
    Filler<8> _filler40;

    // Whether the stems of a voice point up where they are not automatic.
    bool ForcedUp(int voice) const {
        const ForcedStems forced =
            voice >= 1 && voice <= 8 ? _forced[voice - 1].Get() : ForcedStems::ByNumber;
        return forced == ForcedStems::ByNumber ? voice % 2 != 0 : forced == ForcedStems::Up;
    }
};

// Time signatures and tempo marks. Gaps are hundredths of a line distance.
struct TimeMeasurePref : PreferencesOf<69> {
    Ptr<TarnFont> _digitFont, _tempoFont, _figureFont;
    Stored<uint8_t> _showTimeSignature, _pickup;
    Stored<int16_t> _type;            // the form of a time signature's symbol: 5 stacked
    Stored<uint8_t> _tempoPlacement;  // 34, 35, 36, as in Time
    Stored<uint8_t> _byte41;
    Stored<int32_t> _long42, _bpm;  // what the tempo dialog starts with
    Stored<int16_t> _tupletActual, _tupletNormal, _word54;
    Stored<int32_t> _numeratorGap, _denominatorGap;  // from the middle line, beyond one line distance
    Stored<int32_t> _long64, _long68;
};

struct StangPref : PreferencesOf<70> {
    Stored<int32_t> _long24, _long28;
    Stored<int32_t> _stemLength;  // beyond the outer head, hundredths of a line distance
};

struct TiePref : PreferencesOf<71> {
    Stored<int32_t> _heightAbove, _distance, _heightBelow;  // thousandths of a line distance
};

struct GracePref : PreferencesOf<72> {
    static constexpr int16_t kSlashed = 20, kPrecedingNote = 18;
    Stored<int16_t> _type;  // kSlashed: new grace chords carry a slash
    Stored<int16_t> _word26, _word28, _word30;
    Stored<int32_t> _percentAssigned,
        _percentCut;  // of the assigned duration, of the note that gives the time
    Stored<int16_t> _word40;
    Stored<int16_t> _mode;  // kPrecedingNote: the chord before gives the time, else the next
};

struct AuxNotePref : PreferencesOf<73> {
    Stored<int16_t> _word24, _word26;
    Stored<int32_t> _long28, _long32;
    Stored<int16_t> _word36, _word38, _word40, _word42;
    Stored<int32_t> _long44, _long48;
    Stored<int16_t> _word52, _word54;
    Stored<int32_t> _long56;
    Stored<int16_t> _word60, _word62;
    Stored<int16_t> _dynamics[12];  // velocities that dynamic marks stand for
};

// Editing switches, each 0 or 1.
struct PowerEditPref : PreferencesOf<74> {
    Stored<uint8_t> _autoSpace, _autoBeam, _useDotsWidth, _useClefsWidth, _useAccidentWidth;
    Stored<uint8_t> _byte29, _byte30, _byte31, _byte32, _byte33;
    Filler<4> _filler34;
};

struct TextPref : PreferencesOf<94> {
    Ptr<TarnFont> _font, _pageFont;
    Stored<int16_t> _word32;
};

struct LirichePref : PreferencesOf<95> {
    Ptr<TarnFont> _font, _otherFont;
};

struct ToolbarPref : PreferencesOf<100> {
    Stored<int16_t> _commands[8];
};

struct ExtractionPref : PreferencesOf<102> {
    Stored<uint8_t> _byte24;
    Filler<11> _filler25;
};

struct PalettePref : PreferencesOf<103> {
    Stored<int16_t> _places[20];  // x and y of ten palettes
};

struct StaffPref : PreferencesOf<104> {
    Stored<int16_t> _nameWidth;  // room left of the first system for staff names, page units
    Stored<int16_t> _shortNameWidth;  // the same left of all others
};

}  // namespace corvane
