#include "model/ClassTable.h"

#include "model/Preferences.h"

namespace corvane {
namespace {

// DO NOT CHANGE numbers, names, sizes or places: files rest on them. The numbers follow the order of the rows.
// GenericText and MeasureStaffText stand twice, so that the numbers behind them hold; the lower ones are used.
// clang-format off
constexpr ClassRow kClasses[] = {
    // number, name, size, stored pointers, fields to swap, what the pointers are, second behaviour word
    {1, "Document", 150, "4,16,8,20,12", "4 p5, 24 w, 146 b, 148 w", "4 T1; 8 T3f; 12 T4p; 16 T13; 20 T30"},
    {2, "Page", 40, "4,8,12,16", "4 p4, 20 w2, 24 l4", "4 N1; 8 S1; 12 T2; 16 T50"},
    {3, "System", 42, "4,8,12,16,20", "4 p5, 24 l4, 40 w", "4 N2; 8 S2; 12 T3s; 16 T10; 20 T43"},
    {4, "GraceChord", 40, "4,8,12,20,24,28", "4 p3, 20 p3, 34 w2", "4 N21; 8 S21; 12 T39; 20 N32; 24 S32; 28 T40"},
    {5, "SimpleStaff", 78, "42,46,50,54,58,62,4,8,12", "4 p3, 16 l4, 32 w3, 42 p6", "4 N18; 8 S18; 12 T41; 42 N3s; 46 P3s; 50 S3s; 54 N4s; 58 P4s; 62 S4s", 38},
    {6, "AllStaff", 20, "12,4,8", "4 p3, 16 l", "4 T4s; 8 T49; 12 str"},
    {7, "StaffCustom", 44, "4,8,12,16,20,24,36", "4 p6, 36 p, 40 w", "4 N3s; 8 P3s; 12 S3s; 16 N4s; 20 P4s; 24 S4s; 36 T5"},
    {8, "StaffBot", 58, "38,42,46,4,8,12", "4 p3, 16 l4, 32 w3, 38 p3", "4 N18; 8 S18; 12 T41; 38 N5; 42 P5; 46 S5"},
    {9, "Staff", 38, "", "", ""},
    {10, "Measure", 60, "4,8,12,16,20,24", "4 p6, 36 l2, 48 w, 50 l, 54 w2", "4 N10; 8 P10; 12 S10; 16 T11; 20 T31; 24 T100"},
    {11, "Stringa", 4, "0", "0 p", "0 raw"},
    {12, "TarnFont", 34, "4,8,12,16", "4 p4, 20 l, 26 p, 30 l", "4 N3f; 8 P3f; 12 S3f; 16 str"},
    {13, "MeasurePreferences", 64, "4,8,12,24,16", "4 p4, 24 p, 30 w7, 44 l2, 54 w5", "4 N4p; 8 P4p; 12 S4p; 16 str; 24 font"},
    {14, "Voice", 18, "12,4,8", "4 p3, 16 w", "4 N20; 8 S20; 12 T21"},
    {15, "MeasureStaff", 38, "4,8,12,16,20,24,28,34", "4 p7, 32 w, 34 p", "4 T17; 8 T20; 12 N11; 16 S11; 20 N16; 24 P16; 28 S16; 34 staff"},
    {16, "DocStaff", 314, "4,8,12,16", "4 p4, 24 w4, 52 w8, 88 w8, 124 w8, 160 w8, 196 w8, 232 w8, 268 w8, 304 w5", "4 T16; 8 T18; 12 N13; 16 S13"},
    {17, "StaticClaf", 34, "4,8,20", "4 p2, 20 p, 24 l2", "4 N17; 8 S17; 20 sym"},
    {18, "MovingClaf", 38, "4,8,20", "4 p2, 20 p, 24 l2, 32 b2, 34 l", "4 N17; 8 S17; 20 sym"},
    {19, "ChordSymbol", 30, "4,8,16,20", "4 p2, 16 p2", "4 N31; 8 S31; 16 T32; 20 T33"},
    {20, "Chord", 32, "4,8,12,20,24,28", "4 p3, 20 p3", "4 N21; 8 S21; 12 T39; 20 N32; 24 S32; 28 T40"},
    {21, "Note", 50, "4,8,12,16,20,24,32", "4 p6, 32 p, 38 l, 42 w, 44 l", "4 N40; 8 S40; 12 N60; 16 S60; 20 T35; 24 T1002; 32 sym"},
    {22, "Stem", 44, "10,14,18,4", "4 p, 10 p3, 24 l3", "4 T70; 10 N33; 14 S33; 18 T60"},
    {23, "CompositeSymbol", 26, "4,8,22,16", "4 p2, 16 p, 20 w, 22 p", "4 N30; 8 N34; 16 str; 22 T34"},
    {24, "SimpleFont", 64, "4,8,22,16", "4 p2, 16 p, 20 w, 22 p, 28 l4, 44 p, 48 l, 54 l2", "4 N30; 8 N34; 16 str; 22 str"},
    {25, "Flag", 24, "4,8,16", "4 p2, 16 p, 20 l", "4 N70; 8 S70; 16 sym"},
    {26, "Pause", 52, "4,8,12,20,30", "4 p3, 20 p, 30 p, 34 l3", "4 N21; 8 S21; 12 T39; 20 T70; 30 sym", 16},
    {27, "TimeSignature", 36, "4,8,20", "4 p2, 20 p, 24 l2", "4 N17; 8 S17; 20 sym"},
    {28, "ClafSignature", 34, "4,8,20", "4 p2, 20 p, 24 l2", "4 N17; 8 S17; 20 sym"},
    {29, "Grace", 50, "4,8,12,16,20,24,32", "4 p6, 32 p, 38 l, 42 w, 44 l", "4 N40; 8 S40; 12 N60; 16 S60; 20 T35; 24 T1002; 32 sym"},
    {30, "Dot", 38, "4,8,20", "4 p2, 20 p, 24 l, 28 w, 30 l2", "4 N39; 8 S39; 20 sym"},
    {31, "Accident", 32, "4,8,20", "4 p2, 20 p, 24 l2", "4 N35; 8 S35; 20 sym"},
    {32, "Time", 68, "4,8,20,24,28", "4 p2, 20 p4, 36 l2, 48 w6, 60 l2", "4 N31; 8 S31; 20 any; 24 any; 28 any"},
    {33, "MarkValue", 32, "4,8,20,24,28", "4 p2, 20 p3", "4 N35; 8 S35; 20 N36; 24 S36; 28 any"},
    {34, "TieValue", 50, "4", "4 p2, 12 l9", "4 T36"},
    {35, "MarkIrreg", 36, "4,8,20,24,28,32", "4 p2, 20 p4", "4 N39; 8 S39; 20 N38; 24 S38; 28 any; 32 any"},
    {36, "Irregular", 42, "4", "4 p, 8 l7, 36 w2", "4 T38"},
    {37, "IrregPref", 46, "4,8,12,24,16", "4 p4, 24 p, 30 l2, 40 w2", "4 N4p; 8 P4p; 12 S4p; 16 str; 24 font"},
    {38, "Connection", 42, "4,8,20", "4 p2, 20 p, 26 l4", "4 N43; 8 T42; 20 sym"},
    {39, "ConnStaff", 16, "4,8,12", "4 p3", "4 N41; 8 S41; 12 N42"},
    {40, "ConnectionPref", 36, "4,8,12,16", "4 p4, 24 l3", "4 N4p; 8 P4p; 12 S4p; 16 str"},
    {41, "Endings", 28, "4,8", "4 p3, 16 l3", "4 T44; 8 str"},
    {42, "MarkEndings", 24, "4,8,16,20", "4 p2, 16 p2", "4 N31; 8 S31; 16 N44; 20 S44"},
    {43, "RipetitionPref", 36, "4,8,12,24,28,16", "4 p4, 24 p2, 34 w", "4 N4p; 8 P4p; 12 S4p; 16 str; 24 font; 28 font"},
    {44, "Coda", 32, "4,8,20", "4 p2, 20 p, 24 l2", "4 N31; 8 S31; 20 sym"},
    {45, "Mordente", 32, "4,8,20", "4 p2, 20 p, 24 l2", "4 N35 or N39; 8 S35 or S39; 20 sym"},
    {46, "Liriche", 32, "4,8,20", "4 p2, 20 p, 24 l2", "4 N35 or N39; 8 S35 or S39; 20 text"},
    {47, "Gruppetto", 32, "4,8,20", "4 p2, 20 p, 24 l2", "4 N35 or N39; 8 S35 or S39; 20 sym"},
    {48, "Tremolo", 24, "4,8,20", "4 p2, 20 p", "4 N35 or N39; 8 S35 or S39; 20 sym"},
    {49, "ArcoGiu", 32, "4,8,20", "4 p2, 20 p, 24 l2", "4 N35 or N39; 8 S35 or S39; 20 sym"},
    {50, "ArcoSu", 32, "4,8,20", "4 p2, 20 p, 24 l2", "4 N35 or N39; 8 S35 or S39; 20 sym"},
    {51, "SuonoAperto", 32, "4,8,20", "4 p2, 20 p, 24 l2", "4 N35 or N39; 8 S35 or S39; 20 sym"},
    {52, "SuonoChiuso", 32, "4,8,20", "4 p2, 20 p, 24 l2", "4 N35 or N39; 8 S35 or S39; 20 sym"},
    {53, "Armonico", 32, "4,8,20", "4 p2, 20 p, 24 l2", "4 N35 or N39; 8 S35 or S39; 20 sym"},
    {54, "Circonflesso", 32, "4,8,20", "4 p2, 20 p, 24 l2", "4 N35 or N39; 8 S35 or S39; 20 sym"},
    {55, "Respiro", 32, "4,8,20", "4 p2, 20 p, 24 l2", "4 N35 or N39; 8 S35 or S39; 20 sym"},
    {56, "Tilde", 32, "4,8,20", "4 p2, 20 p, 24 l2", "4 N35 or N39; 8 S35 or S39; 20 sym"},
    {57, "Pizzicato", 32, "4,8,20", "4 p2, 20 p, 24 l2", "4 N35 or N39; 8 S35 or S39; 20 sym"},
    {58, "BartokSup", 32, "4,8,20", "4 p2, 20 p, 24 l2", "4 N35 or N39; 8 S35 or S39; 20 sym"},
    {59, "BartokInf", 32, "4,8,20", "4 p2, 20 p, 24 l2", "4 N35 or N39; 8 S35 or S39; 20 sym"},
    {60, "Articolazione", 34, "4,8,20", "4 p2, 20 p, 24 l2", "4 N35 or N39; 8 S35 or S39; 20 sym"},
    {61, "Diteggiatura", 34, "4,8,20", "4 p2, 20 p, 24 l2", "4 N35 or N39; 8 S35 or S39; 20 sym"},
    {62, "Corona", 34, "4,8,20", "4 p2, 20 p, 24 l2", "4 N35 or N39; 8 S35 or S39; 20 sym"},
    {63, "Ornamenti", 32, "4,8,20", "4 p2, 20 p, 24 l2", "4 N35 or N39; 8 S35 or S39; 20 sym"},
    {64, "BeamMarker", 34, "4,8,16,20", "4 p2, 16 p2", "4 N70; 8 S70; 16 N900; 20 S900"},
    {65, "Beam", 10, "4", "4 p", "4 T900"},
    {66, "PagePref", 70, "4,8,12,24,16", "4 p4, 24 p, 28 l9", "4 N4p; 8 P4p; 12 S4p; 16 str; 24 font"},
    {67, "NotePref", 94, "4,8,12,24,16", "4 p4, 24 p, 60 l, 68 l5", "4 N4p; 8 P4p; 12 S4p; 16 str; 24 font"},
    {68, "VoicePref", 48, "4,8,12,16", "4 p4, 26 w3", "4 N4p; 8 P4p; 12 S4p; 16 str"},
    {69, "TimeMeasurePref", 72, "4,8,12,28,32,24,16", "4 p4, 24 p3, 38 w, 42 l2, 50 w3, 56 l4", "4 N4p; 8 P4p; 12 S4p; 16 str; 24 font; 28 font; 32 font"},
    {70, "StangPref", 36, "4,8,12,16", "4 p4, 24 l3", "4 N4p; 8 P4p; 12 S4p; 16 str"},
    {71, "TiePref", 36, "4,8,12,16", "4 p4, 24 l3", "4 N4p; 8 P4p; 12 S4p; 16 str"},
    {72, "GracePref", 44, "4,8,12,16", "4 p4, 24 w4, 32 l2, 40 w2", "4 N4p; 8 P4p; 12 S4p; 16 str"},
    {73, "AuxNotePref", 88, "4,8,12,16", "4 p4, 24 w2, 28 l2, 36 w4, 44 l2, 52 w2, 56 l, 60 w14", "4 N4p; 8 P4p; 12 S4p; 16 str"},
    {74, "PowerEditPref", 38, "4,8,12,16", "4 p4", "4 N4p; 8 P4p; 12 S4p; 16 str"},
    {75, "TimeOn", 26, "4,8,22", "4 p2, 16 w3, 22 p", "4 N100; 8 S100; 22 T1001"},
    {76, "TimeOff", 26, "4,8,22", "4 p2, 16 w3, 22 p", "4 N100; 8 S100; 22 T1001"},
    {77, "NoteOff", 36, "4,8,12,16,24,28", "4 p4, 24 p2, 32 l", "4 N1001; 8 S1001; 12 N1002; 16 S1002; 24 record; 28 docstaff"},
    {78, "NoteOn", 38, "4,8,12,16,24,28", "4 p4, 24 p2, 32 l, 36 w", "4 N1001; 8 S1001; 12 N1002; 16 S1002; 24 record; 28 docstaff"},
    {79, "MarkHairpin", 32, "4,8,20,24", "4 p2, 20 p3", "4 N17; 8 S17; 20 N45; 24 S45"},
    {80, "Hairpin", 30, "4", "4 p2, 14 l4", "4 T45"},
    {81, "Dinamiche", 34, "4,8,20", "4 p2, 20 p, 24 l2", "4 N17; 8 S17; 20 sym"},
    {82, "SimboliVari", 34, "4,8,20", "4 p2, 20 p, 24 l2", "4 N17; 8 S17; 20 sym"},
    {83, "MarkOttava", 28, "4,8,20,24", "4 p2, 20 p2", "4 N17; 8 S17; 20 N46; 24 S46"},
    {84, "Ottava", 34, "4,8", "4 p3, 18 l4", "4 T46; 8 sym"},
    {85, "MarkPedale", 28, "4,8,20,24", "4 p2, 20 p2", "4 N17; 8 S17; 20 N52; 24 S52"},
    {86, "Pedale", 28, "4", "4 p2, 12 l4", "4 T52"},
    {87, "MarkTrillo", 28, "4,8,20,24", "4 p2, 20 p2", "4 N17; 8 S17; 20 N51; 24 S51"},
    {88, "Trillo", 36, "4,8,12", "4 p4, 20 l4", "4 T51; 8 sym; 12 sym"},
    {89, "Arpeggio", 42, "4,8,20", "4 p2, 20 p, 24 l4", "4 N17; 8 S17; 20 sym"},
    {90, "MarkSlur", 32, "4,8,20,24", "4 p2, 20 p3", "4 N17; 8 S17; 20 N47; 24 S47"},
    {91, "Slur", 72, "4,12,16,20,24", "4 p6, 28 l11", "4 T47; 12 any; 16 any; 20 any; 24 any"},
    {92, "GenericText", 14, "4,8", "4 p2", "4 str; 8 font"},
    {93, "MeasureStaffText", 36, "4,8,20,24", "4 p2, 20 p2, 28 l2", "4 N17; 8 S17; 20 text; 24 T48"},
    {94, "TextPref", 34, "4,8,12,24,28,16", "4 p4, 24 p2, 32 w", "4 N4p; 8 P4p; 12 S4p; 16 str; 24 font; 28 font"},
    {95, "LirichePref", 32, "4,8,12,24,28,16", "4 p4, 24 p2", "4 N4p; 8 P4p; 12 S4p; 16 str; 24 font; 28 font"},
    {96, "MarkText", 20, "4,8,12,16", "4 p4", "4 N48; 8 S48; 12 N49; 16 S49"},
    {97, "GenericText", 14, "4,8", "4 p2", "4 str; 8 font"},
    {98, "MeasureStaffText", 36, "4,8,20,24", "4 p2, 20 p2, 28 l2", "4 N17; 8 S17; 20 text; 24 T48"},
    {99, "Tempo", 28, "4,8,22", "4 p2, 22 p, 26 w", "4 N100; 8 S100; 22 time"},
    {100, "ToolbarPref", 40, "4,8,12,16", "4 p4, 24 w8", "4 N4p; 8 P4p; 12 S4p; 16 str"},
    {101, "PageText", 32, "4,8,20", "4 p2, 20 p, 24 l2", "4 N50; 8 S50; 20 text"},
    {102, "ExtractionPref", 36, "4,8,12,16", "4 p4", "4 N4p; 8 P4p; 12 S4p; 16 str"},
    {103, "PalettePref", 64, "4,8,12,16", "4 p4, 24 w20", "4 N4p; 8 P4p; 12 S4p; 16 str"},
    {104, "StaffPref", 28, "4,8,12,16", "4 p4, 24 w2", "4 N4p; 8 P4p; 12 S4p; 16 str"},
    {105, "MultiMeasure", 64, "4,8,12,16,20,24", "4 p6, 36 l2, 48 w, 50 l, 54 w2, 60 l", "4 N10; 8 P10; 12 S10; 16 T11; 20 T31; 24 T100"},
    {106, "MultiPause", 20, "4,8", "4 p2", "4 N17; 8 S17"},
    {107, "CrossBeam", 22, "4,14,18", "4 p, 14 p2", "4 T900; 14 N31; 18 S31", 10},
    {108, "Linea", 52, "4,8,20,24,30", "4 p2, 20 p, 24 l2", "4 any; 8 any; 20 any; 24 any; 30 any"},
    {109, "CompositeObj", 34, "4,8,20,24,30", "4 p2, 20 p, 24 l2", "4 any; 8 any; 20 any; 24 any; 30 any"},
    {110, "Quadrato", 48, "4,8,20,24", "4 p2, 20 p, 24 l2", "4 any; 8 any; 20 any; 24 any"},
    {111, "Cerchio", 46, "4,8,20,24", "4 p2, 20 p, 24 l2", "4 any; 8 any; 20 any; 24 any"},
};
// clang-format on

constexpr bool NumbersFollowTheirOrder() {
    int16_t expected = 1;
    for (const ClassRow& row : kClasses)
        if (row.number != expected++) return false;
    return expected == 112;
}
static_assert(NumbersFollowTheirOrder());

}  // namespace

void RegisterClasses() {
    if (ClassTableExists()) return;
    CreateClassTable();
    for (const ClassRow& row : kClasses) RegisterClass(row, row.number == PagePref::kClass ? PageCreator() : nullptr);
}

}  // namespace corvane
