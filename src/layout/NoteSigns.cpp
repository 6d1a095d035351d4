#include "layout/NoteSigns.h"

#include <algorithm>

#include "layout/Engraving.h"
#include "layout/NoteGeometry.h"
#include "layout/SlurSigns.h"
#include "layout/SymbolInk.h"
#include "model/NoteOperations.h"
#include "model/Par.h"
#include "model/SymbolTable.h"

namespace corvane {
namespace {

enum class Home { Heads, Above, Below, Behind };
enum class SignSide { Above, Below, Behind };

// Where the signs of a class belong, and how far out: a lower rank stands nearer to the heads.
struct Rule {
    int16_t classNumber;
    Home home;
    int rank;
    const char* part = "";  // only of symbols whose name holds this
};
constexpr Rule kRules[] = {
    {Articolazione::kClass, Home::Above, 2, "scampanatosu"},
    {Articolazione::kClass, Home::Above, 2, "scampanatopiccolosu"},
    {Articolazione::kClass, Home::Below, 2, "scampanatogiu"},
    {Articolazione::kClass, Home::Below, 2, "scampanatopiccologiu"},
    {Articolazione::kClass, Home::Heads, 1, "accento"},
    {Articolazione::kClass, Home::Heads, 1, "accentato"},
    {Articolazione::kClass, Home::Heads, 0},
    {Diteggiatura::kClass, Home::Above, 3},
    {Circonflesso::kClass, Home::Above, 2},
    {Armonico::kClass, Home::Above, 4},
    {SuonoAperto::kClass, Home::Above, 4},
    {SuonoChiuso::kClass, Home::Above, 4},
    {Pizzicato::kClass, Home::Above, 4},
    {ArcoGiu::kClass, Home::Above, 5},
    {ArcoSu::kClass, Home::Above, 5},
    {BartokSup::kClass, Home::Above, 5},
    {BartokInf::kClass, Home::Below, 5},
    {Mordente::kClass, Home::Above, 6},
    {Gruppetto::kClass, Home::Above, 6},
    {Tilde::kClass, Home::Above, 6},
    {Ornamenti::kClass, Home::Above, 7},
    {Corona::kClass, Home::Below, 8, "inf"},
    {Corona::kClass, Home::Above, 8},
    {Respiro::kClass, Home::Behind, 0},
};

const Rule* RuleOf(const SymbolAttribute* sign) {
    for (const Rule& rule : kRules)
        if (rule.classNumber == sign->ClassNumber() && NameHolds(sign->_symbol, rule.part)) return &rule;
    return nullptr;
}

// Hundredths of a line distance.
constexpr int32_t kGap = 35, kStaffGap = 50, kStemGap = 60, kBreathDistance = 60, kNextHeadStep = 45;

int32_t Part(int32_t hundredths, int32_t lineDistance) { return hundredths * lineDistance / 100; }

// A chord as its signs see it.
struct Seen {
    explicit Seen(const Chords* of)
        : chord(of),
          stem(StemPar(chordNotes.First(chord))),
          column(stem),
          staff(FrameOf(StaffPar(chord))),
          stemUp(IsUp(stem->_direction)),
          forced(StemsAreForced(VoicePar(chord))),
          forcedUp(forced && ForcedStemsUp(VoicePar(chord))) {}

    SignSide SideOf(Home home) const {
        if (home == Home::Behind) return SignSide::Behind;
        if (home == Home::Below) return SignSide::Below;
        if (forced) return forcedUp ? SignSide::Above : SignSide::Below;
        if (home == Home::Above) return SignSide::Above;
        return stemUp ? SignSide::Below : SignSide::Above;
    }
    // The head that a side begins at.
    const GenericNote* OuterHead(SignSide side) const {
        const GenericNote* outer = chordNotes.First(chord);
        for (const GenericNote* note : chordNotes.Of(chord))
            if (side == SignSide::Below ? note->_line < outer->_line : note->_line > outer->_line)
                outer = note;
        return outer;
    }
    // Where the ink of the chord ends on a side.
    int32_t EdgeOf(SignSide side) const {
        const Rect head = RectOf(OuterHead(side), column);
        const bool stemSide = HasStemInk(stem) && stemUp == (side == SignSide::Above);
        const int32_t end = LineOf(column).end, clear = Part(kStemGap - kGap, staff.lineDistance);
        if (side == SignSide::Above) return stemSide ? std::min(head.top, end - clear) : head.top;
        return stemSide ? std::max(head.bottom, end + clear) : head.bottom;
    }

    const Chords* chord;
    const Stem* stem;
    Column column;
    StaffFrame staff;
    bool stemUp, forced, forcedUp;
};

// The signs of one side of a chord from the heads outward.
std::vector<const SymbolAttribute*> SignsOn(const Seen& seen, SignSide side) {
    std::vector<std::pair<int, const SymbolAttribute*>> ranked;
    for (const GenericNote* note : chordNotes.Of(seen.chord))
        for (const NoteAttribute* attribute : noteAttributes.Of(note)) {
            const auto* sign = As<SymbolAttribute>(attribute);
            const Rule* rule = sign && sign->_symbol ? RuleOf(sign) : nullptr;
            if (rule && seen.SideOf(rule->home) == side) ranked.emplace_back(rule->rank, sign);
        }
    std::stable_sort(ranked.begin(), ranked.end(), [](auto& a, auto& b) { return a.first < b.first; });
    std::vector<const SymbolAttribute*> signs;
    for (const auto& [rank, sign] : ranked) signs.push_back(sign);
    return signs;
}

// Staccato and tenuto go into the staff, every other sign stays out of it.
bool GoesIntoStaff(const SymbolAttribute* sign) {
    const Rule* rule = RuleOf(sign);
    return rule->home == Home::Heads && rule->rank == 0;
}

// The middle of the next space behind a head that a sign fits into.
int32_t NextSpace(const Seen& seen, SignSide side) {
    const int32_t line = seen.OuterHead(side)->_line;
    const int32_t steps = line % 2 == 0 ? 2 : 3;
    const bool outside = side == SignSide::Above ? line >= 2 * seen.staff.lineCount - 1 : line <= 1;
    const int32_t away =
        outside ? Part(50 + kNextHeadStep, seen.staff.lineDistance) : steps * seen.staff.lineDistance / 2;
    const Rect head = RectOf(seen.OuterHead(side), seen.column);
    return (head.top + head.bottom) / 2 + (side == SignSide::Above ? -away : away);
}

// The vertical extent of a sign whose ink has that height, behind what ends at `edge`.
int32_t TopBehind(const Seen& seen, const SymbolAttribute* sign, SignSide side, int32_t edge, int32_t height,
                  bool first) {
    const int32_t distance = seen.staff.lineDistance, gap = Part(kGap, distance);
    const bool stemSide = HasStemInk(seen.stem) && seen.stemUp == (side == SignSide::Above);
    if (GoesIntoStaff(sign) && first && !stemSide) return NextSpace(seen, side) - height / 2;
    const int32_t out = Part(kStaffGap, distance);
    const bool stays = !GoesIntoStaff(sign);
    if (side == SignSide::Above) {
        const int32_t bottom = edge - gap;
        return (stays ? std::min(bottom, seen.staff.top - out) : bottom) - height;
    }
    const int32_t top = edge + gap;
    return stays ? std::max(top, seen.staff.Bottom() + out) : top;
}

// Where the chord ends for a sign that stands outside slurs too.
int32_t BeyondSlurs(const Seen& seen, SignSide side, int32_t edge, int32_t left, int32_t right) {
    const bool above = side == SignSide::Above;
    const auto slur = SlurEdgeOver(seen.chord, above, left, right);
    if (!slur) return edge;
    return above ? std::min(edge, *slur) : std::max(edge, *slur);
}

Point PlaceInStack(const Seen& seen, const SymbolAttribute* wanted, SignSide side, int32_t percent) {
    const Rect head = RectOf(seen.OuterHead(side), seen.column);
    int32_t edge = seen.EdgeOf(side);
    bool first = true;
    for (const SymbolAttribute* sign : SignsOn(seen, side)) {
        const Rect ink = InkOf(sign->_symbol, Point{}, seen.staff.lineDistance, percent);
        const int32_t left = (head.left + head.right - ink.Width()) / 2;
        if (As<Corona>(sign)) edge = BeyondSlurs(seen, side, edge, left, left + ink.Width());
        const int32_t top = TopBehind(seen, sign, side, edge, ink.Height(), first);
        if (sign == wanted) return {left - ink.left, top - ink.top};
        edge = side == SignSide::Above ? top : top + ink.Height();
        first = false;
    }
    return {};
}

// A breath is taken behind the note, at the top line.
Point PlaceBehind(const Seen& seen, const SymbolAttribute* sign, int32_t percent) {
    const int32_t distance = seen.staff.lineDistance;
    const Rect ink = InkOf(sign->_symbol, Point{}, distance, percent);
    return {HeadsOf(seen.column).right + Part(kBreathDistance, distance) - ink.left,
            seen.staff.top - (ink.top + ink.bottom) / 2};
}

}  // namespace

Rect SignPlace::Ink() const { return symbol ? InkOf(symbol, at, lineDistance, percent) : Rect{}; }

SignPlace PlaceOf(const SymbolAttribute* sign) {
    const GenericNote* note = noteAttributes.ParentOf(sign);
    const Rule* rule = sign->_symbol ? RuleOf(sign) : nullptr;
    if (!note || !rule || !StaffPar(note)) return {};
    const Seen seen(ChordPar(note));
    SignPlace place{sign->_symbol, {}, seen.staff.lineDistance, As<Grace>(note) ? kGraceSignPercent : 100};
    const SignSide side = seen.SideOf(rule->home);
    place.at = side == SignSide::Behind ? PlaceBehind(seen, sign, place.percent)
                                        : PlaceInStack(seen, sign, side, place.percent);
    place.at = place.at + Point{sign->_dx * place.lineDistance / 1000, sign->_dy * place.lineDistance / 1000};
    return place;
}

SignPlace PlaceOf(const Tremolo* tremolo) {
    const auto* chord = As<Chords>(voiceSymbolAttributes.ParentOf(tremolo));
    if (!chord || !tremolo->_symbol || !StaffPar(chord)) return {};
    const Seen seen(chord);
    const int32_t distance = seen.staff.lineDistance;
    const Rect ink = InkOf(tremolo->_symbol, Point{}, distance, 100), heads = HeadsOf(seen.column);
    const StemLine line = LineOf(seen.column);
    int32_t x = line.x, y = (seen.stemUp ? heads.top + line.end : heads.bottom + line.end) / 2;
    if (!HasStemInk(seen.stem)) {
        x = (heads.left + heads.right) / 2;
        y = seen.stemUp ? heads.top - distance - ink.Height() / 2
                        : heads.bottom + distance + ink.Height() / 2;
    }
    return {
        tremolo->_symbol, {x - (ink.left + ink.right) / 2, y - (ink.top + ink.bottom) / 2}, distance, 100};
}

}  // namespace corvane
