// The skeleton of a score: by layout Document, Page, System, Measure; by instrument DocStaff and its Staffs; at each
// crossing a MeasureStaff with its Voices. Page coordinates are page units (1512 to the inch), y grows downward.
#pragma once

#include "model/Record.h"

namespace corvane {

struct Staff;

// One a pool, the first object of its first block.
struct Document : BehaviourWord,
                  Top2T<Document, 1, 3>,   // Pages
                  TopT<Document, 3, 3>,    // TarnFonts
                  TopT<Document, 4, 3>,    // ClassPreferences
                  Top2T<Document, 13, 3>,  // DocStaffs, from the top
                  Top3T<Document, 30, 3> { // FontSymbols
    static constexpr int16_t kClass = 1;
    Stored<int16_t> _pageCount;
    char _text[120];            // zero-ended; Touch before a write
    Stored<uint8_t> _hasSolo;   // some staff is soloed; kept equal to the staves' flags
    Filler<1> _filler147;
    Stored<int16_t> _word148;

    // Page size of the score made or loaded last, in 1/1435 inch.
    static inline int32_t pageHeight = 10000, pageWidth = 7000;
    static inline int8_t pageByte = 9;
};

// Margins count from the paper's edges.
struct Page : BehaviourWord,
              Bot2T<Page, 1, 3>,
              Top2T<Page, 2, 3>,    // Systems
              Top2T<Page, 50, 3> {  // PageTexts
    static constexpr int16_t kClass = 2;
    Stored<int16_t> _pageNumber;   // from 1
    Stored<int16_t> _systemCount;
    Stored<int32_t> _leftMargin, _rightMargin, _topMargin, _bottomMargin;
};

// Left and right count from the page's left margin, top and bottom from the page's top.
struct System : BehaviourWord,
                Bot2T<System, 2, 3>,
                TopT<System, 3, 3>,     // MultiStaffs, from the top
                TopT<System, 10, 3>,    // Measures
                Top3T<System, 43, 3> {  // Connections
    static constexpr int16_t kClass = 3;
    Stored<int32_t> _left, _top, _right, _bottom;
    Stored<int16_t> _measureCount;
};

enum class BarlineKind : uint8_t { Single = 0, Double = 1, Final = 2, Dashed = 3 };

// Left and right count from the system's left.
struct Measure : BehaviourWord,
                 BotT<Measure, 10, 3>,
                 Top2T<Measure, 11, 3>,     // MeasureStaffs
                 Top2T<Measure, 31, 3>,     // MeasureSymbols
                 Top2T<Measure, 100, 3> {   // TimeElements, in time order
    static constexpr int16_t kClass = 10;
    static constexpr bool IsHeir(int16_t n) { return n == 10 || n == 105; }
    Filler<8> _filler28;
    Stored<int32_t> _left, _right;
    Stored<BarlineKind> _barline;      // at its right edge
    Stored<uint8_t> _startRepeat, _endRepeat, _hiddenBarline;
    Stored<int16_t> _word48;
    Stored<int32_t> _number;           // over the score, from 1
    Stored<int16_t> _num, _den;        // meter
    Stored<int16_t> _word58;           // kept 0

    int32_t Width() const { return _right - _left; }
};

struct MultiMeasure : Measure {
    static constexpr int16_t kClass = 105;
    static constexpr bool IsHeir(int16_t n) { return n == 105; }
    Stored<int32_t> _count;
};

// One staff in one measure.
struct MeasureStaff : BehaviourWord,
                      Top2T<MeasureStaff, 17, 3>,  // StaffMeasureSymbols
                      Top2T<MeasureStaff, 20, 3>,  // Voices, at least one
                      Bot2T<MeasureStaff, 11, 3>,  // of a Measure
                      BotT<MeasureStaff, 16, 3> {  // of a DocStaff
    static constexpr int16_t kClass = 15;
    Stored<int16_t> _word32;
    Ptr<Staff> _staff;  // the one that draws it, of the same DocStaff and System; may be null
};

struct Voice : BehaviourWord,
               Bot2T<Voice, 20, 3>,
               Top2T<Voice, 21, 3> {  // VoiceSymbols, in time order
    static constexpr int16_t kClass = 14;
    Stored<int16_t> _number;  // from 1 to 8
};

// How one voice of a staff sounds.
struct VoiceRecord {
    Stored<int16_t> _recordActive;
    Stored<int16_t> _volume;         // 0 to 127
    Stored<int16_t> _pan;
    Stored<int16_t> _program;        // 1 to 128, 0 for none
    char _name[20];                  // zero-ended; Touch before a write
    Stored<int16_t> _channel;        // 1 to 16
    Stored<int16_t> _reserved;
    Stored<int16_t> _port;           // -1 the built-in synthesiser
    Stored<int16_t> _transposition;  // semitones
};
static_assert(sizeof(VoiceRecord) == 36);

// A staff of the score as a whole.
struct DocStaff : BehaviourWord,
                  TopT<DocStaff, 16, 3>,    // MeasureStaffs, in score order
                  Top2T<DocStaff, 18, 3>,   // Staffs, one a system
                  Bot2T<DocStaff, 13, 3> {
    static constexpr int16_t kClass = 16;
    static constexpr int kVoices = 8;
    Stored<uint8_t> _active, _solo, _flag22;
    Filler<1> _filler23;
    VoiceRecord _voices[kVoices];  // of voice numbers 1 to 8
    Stored<int16_t> _voiceCount;
};

enum class StaffKind : int16_t { Simple = 0, Pair = 1, Custom = 2, Custom3 = 3, Custom4 = 4, Bass = 5, Percussion = 6 };

// One staff in one system. Left and top count from the system's left and top.
struct Staff : BehaviourWord,
               Bot2T<Staff, 18, 3>,    // of a DocStaff
               Top2T<Staff, 41, 3> {   // ConnStaffs
    static constexpr bool IsHeir(int16_t n) { return n == 5 || n == 8; }
    Stored<int32_t> _left, _top, _right, _bottom;
    Stored<int16_t> _lineDistance;  // 100 by default
    Stored<int16_t> _lineCount;     // 5 by default
    Stored<StaffKind> _kind;

    int32_t Height() const { return _bottom - _top; }
    int32_t LinesHeight() const { return (_lineCount - 1) * _lineDistance; }
};

// A staff as part of its system and of the part list.
struct MultiStaff : BehaviourWord,
                    BotT<MultiStaff, 3, 3>,   // of a System
                    BotT<MultiStaff, 4, 3> {  // of an AllStaff
    static constexpr bool IsHeir(int16_t n) { return n == 5 || n == 7; }
};

struct SimpleStaff : Staff, MultiStaff {
    static constexpr int16_t kClass = 5;
    static constexpr bool IsHeir(int16_t n) { return n == 5; }
    using Staff::ClassNumber;
    Filler<12> _filler66;
};

// Several line groups in one staff.
struct StaffCustom : MultiStaff, Gap<8, 28>, TopT<StaffCustom, 5, 3> {
    static constexpr int16_t kClass = 7;
    static constexpr bool IsHeir(int16_t n) { return n == 7; }
    Stored<int16_t> _kind;
    Filler<2> _filler42;
};

struct StaffBot : Staff, BotT<StaffBot, 5, 3> {
    static constexpr int16_t kClass = 8;
    static constexpr bool IsHeir(int16_t n) { return n == 8; }
    Filler<8> _filler50;
};

// One for each DocStaff, joining that staff over all systems: the part list.
struct AllStaff : BehaviourWord,
                  TopT<AllStaff, 4, 3>,
                  Top2T<AllStaff, 49, 3> {  // MarkTexts
    static constexpr int16_t kClass = 6;
    TextBlock _name;
    Stored<int32_t> _long16;
};

struct FontSymbol;

// Joins staves of a system at their left end, as "Brace" or "Bracket".
struct Connection : BehaviourWord,
                    Bot3T<Connection, 43, 3>,
                    Top3T<Connection, 42, 3>,  // ConnStaffs: the first and the last staff
                    Gap<8, 12> {
    static constexpr int16_t kClass = 38;
    Ptr<FontSymbol> _symbol;
    Filler<2> _filler24;
    Stored<int32_t> _long26, _long30, _long34, _long38;
};

struct ConnStaff : BehaviourWord, Bot2T<ConnStaff, 41, 3>, Bot3T<ConnStaff, 42, 3> {
    static constexpr int16_t kClass = 39;
};

}  // namespace corvane
