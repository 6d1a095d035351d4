#include "layout/Lyrics.h"

#include <algorithm>

#include "layout/Frames.h"
#include "layout/LineWeights.h"
#include "layout/NoteGeometry.h"
#include "layout/PageFiling.h"
#include "model/NoteOperations.h"
#include "model/Par.h"

namespace corvane {
namespace {

constexpr std::string_view kHyphen = "-";
// Ems of the text: between a text and what follows it on its line, from a hyphen to the next, a capital's
// height.
constexpr double kGap = 0.12, kHyphenStep = 5, kCapital = 0.68;
// Thousandths of a line distance: the usual baseline below the staff, and what stays free above a capital.
constexpr int32_t kUsualBaseline = 3500, kClearance = 600;

Voice* SameVoice(const MeasureStaff* crossing, int number) {
    for (Voice* voice : measureStaffVoices.Of(crossing))
        if (voice->_number == number) return voice;
    return nullptr;
}

Chords* SungFrom(VoiceSymbol* symbol) {
    for (; symbol; symbol = voiceSymbols.Next(symbol))
        if (auto* chord = As<Chords>(symbol); chord && !IsGrace(chord)) return chord;
    return nullptr;
}

Chords* SungBackFrom(VoiceSymbol* symbol) {
    for (; symbol; symbol = voiceSymbols.Prev(symbol))
        if (auto* chord = As<Chords>(symbol); chord && !IsGrace(chord)) return chord;
    return nullptr;
}

Chords* ChordOf(const Liriche* syllable) { return ChordPar(noteAttributes.ParentOf(syllable)); }
const System* SystemOf(const Chords* chord) { return SystemPar(MeasurePar(chord)); }

bool IsContinuation(const Liriche* syllable) { return TextOf(syllable->_text.Get()).empty(); }

// Horizontal ink of a chord's heads.
Rect HeadsOf(const Chords* chord) {
    Rect ink;
    for (const GenericNote* note : chordNotes.Of(chord)) ink = Union(ink, RectOf(note));
    return ink;
}

int32_t Ems(const TextLook& look, double ems) { return static_cast<int32_t>(look.size * ems); }

TextPlace PlaceOfText(const Liriche* syllable, const TextLook& look) {
    const Chords* chord = ChordOf(syllable);
    const Rect heads = HeadsOf(chord);
    const StaffFrame frame = FrameOf(StaffPar(chord));
    const int32_t y = frame.Bottom() + syllable->_dy * frame.lineDistance / 1000;
    // A syllable that is held over further notes begins with its first one.
    const Liriche* next = syllable->_joint == LyricJoint::Extender ? NextInVerse(syllable) : nullptr;
    const int32_t width = WidthOfText(TextOf(syllable->_text.Get()), look);
    const bool held = next && IsContinuation(next) && width > heads.Width();
    const int32_t x = (held ? heads.left : (heads.left + heads.right - width) / 2) +
                      syllable->_dx * frame.lineDistance / 1000;
    return {{x, y}};
}

// The hyphens of the room between two syllables; one close behind the text where the next is on another
// system.
void AddHyphens(LyricPicture& picture, const Liriche* syllable, const TextLook& look, int32_t end) {
    const int32_t width = WidthOfText(kHyphen, look), y = picture.text.at.y;
    const Liriche* next = NextInVerse(syllable);
    if (!next) return picture.hyphens.push_back({end + Ems(look, kGap), y});
    const int32_t room = PlaceOfText(next, LookOf(next->_text.Get())).at.x - end;
    if (room < width) return;
    const int32_t count = std::max<int32_t>(1, room / std::max(1, Ems(look, kHyphenStep)));
    for (int32_t i = 0; i < count; ++i)
        picture.hyphens.push_back({end + room * (2 * i + 1) / (2 * count) - width / 2, y});
}

Rect LineAt(const Liriche* syllable, int32_t left, int32_t right, int32_t y) {
    const int32_t weight = std::max(1, StaffLineWeight(StaffPar(ChordOf(syllable))->_lineDistance));
    return {left, y - weight, std::max(left + 1, right), y};
}

void AddLines(LyricPicture& picture, const Liriche* syllable, const TextLook& look, int32_t end) {
    const Chords* chord = ChordOf(syllable);
    const int32_t y = picture.text.at.y;
    const MeasureFrame last = FrameOf(systemMeasures.Last(SystemOf(chord)));
    if (syllable->_joint == LyricJoint::Extender) {
        const Liriche* next = NextInVerse(syllable);
        const int32_t left = IsContinuation(syllable) ? HeadsOf(chord).right : end + Ems(look, kGap);
        int32_t right = left;
        if (next && IsContinuation(next)) right = HeadsOf(ChordOf(next)).right;
        const Chords* following = next ? nullptr : NextSung(chord);
        if (following && SystemOf(following) != SystemOf(chord)) {
            const Liriche* there = SyllableOf(following, VerseOf(syllable));
            if (there && IsContinuation(there)) right = last.left + last.width;
        }
        if (right > left) picture.extender = LineAt(syllable, left, right, y);
    }
    if (IsContinuation(syllable) && !PrevInVerse(syllable)) {
        const MeasureFrame first = FrameOf(systemMeasures.First(SystemOf(chord)));
        picture.lead = LineAt(syllable, first.XOf(0), HeadsOf(chord).right, y);
    }
}

// What of a crossing reaches down between its notes and its lyrics.
int32_t LowestInk(const MeasureStaff* crossing) {
    int32_t lowest = INT32_MIN;
    ForEachPatch(crossing, [&](const DrawPatch& patch, int) {
        const bool counts = patch.Record<ChordSymbol>() || patch.Record<Pause>() ||
                            patch.Record<BeamMarker>() || patch.Record<Dinamiche>() ||
                            patch.Record<SymbolAttribute>();
        const Rect ink = counts ? patch.Bounds() : Rect{};
        if (!ink.IsEmpty()) lowest = std::max(lowest, ink.bottom);
    });
    return lowest;
}

}  // namespace

Chords* NextSung(const Chords* chord) {
    const Voice* voice = VoicePar(chord);
    Chords* next = SungFrom(voiceSymbols.Next(chord));
    for (const MeasureStaff* crossing = MeasureStaffPar(voice); !next && (crossing = NextOnStaff(crossing));)
        if (const Voice* same = SameVoice(crossing, voice->_number))
            next = SungFrom(voiceSymbols.First(same));
    return next;
}

Chords* PrevSung(const Chords* chord) {
    const Voice* voice = VoicePar(chord);
    Chords* before = SungBackFrom(voiceSymbols.Prev(chord));
    for (const MeasureStaff* crossing = MeasureStaffPar(voice);
         !before && (crossing = PrevOnStaff(crossing));)
        if (const Voice* same = SameVoice(crossing, voice->_number))
            before = SungBackFrom(voiceSymbols.Last(same));
    return before;
}

Liriche* SyllableOf(const Chords* chord, int verse) {
    for (const GenericNote* note : chordNotes.Of(chord))
        for (NoteAttribute* attribute : noteAttributes.Of(note))
            if (auto* syllable = As<Liriche>(attribute); syllable && VerseOf(syllable) == verse)
                return syllable;
    return nullptr;
}

Liriche* NextInVerse(const Liriche* syllable) {
    const Chords* chord = ChordOf(syllable);
    const System* system = SystemOf(chord);
    while ((chord = NextSung(chord)) && SystemOf(chord) == system)
        if (Liriche* next = SyllableOf(chord, VerseOf(syllable))) return next;
    return nullptr;
}

Liriche* PrevInVerse(const Liriche* syllable) {
    const Chords* chord = ChordOf(syllable);
    const System* system = SystemOf(chord);
    while ((chord = PrevSung(chord)) && SystemOf(chord) == system)
        if (Liriche* before = SyllableOf(chord, VerseOf(syllable))) return before;
    return nullptr;
}

LyricPicture PictureOf(const Liriche* syllable) {
    const GenericNote* note = noteAttributes.ParentOf(syllable);
    if (!note || !StaffPar(note)) return {};
    const TextLook look = LookOf(syllable->_text.Get());
    LyricPicture picture;
    picture.text = PlaceOfText(syllable, look);
    const int32_t end = picture.text.at.x + WidthOfText(TextOf(syllable->_text.Get()), look);
    if (syllable->_joint == LyricJoint::Hyphen) AddHyphens(picture, syllable, look, end);
    AddLines(picture, syllable, look, end);
    return picture;
}

std::vector<Liriche*> LyricsReaching(const MeasureStaff* crossing) {
    std::vector<Liriche*> found;
    const System* system = SystemPar(MeasurePar(crossing));
    for (const MeasureStaff* before = PrevOnStaff(crossing);
         before && found.empty() && SystemPar(MeasurePar(before)) == system; before = PrevOnStaff(before))
        for (const Voice* voice : measureStaffVoices.Of(before))
            for (const VoiceSymbol* symbol : voiceSymbols.Of(voice))
                if (const auto* chord = As<Chords>(symbol))
                    for (const GenericNote* note : chordNotes.Of(chord))
                        for (NoteAttribute* attribute : noteAttributes.Of(note))
                            if (auto* syllable = As<Liriche>(attribute);
                                syllable && syllable->_joint != LyricJoint::WordEnd)
                                found.push_back(syllable);
    return found;
}

int32_t LyricBaseline(const System* system, const DocStaff* docStaff) {
    int32_t lowest = INT32_MIN;
    const Staff* staff = nullptr;
    for (const Measure* measure : systemMeasures.Of(system)) {
        const MeasureStaff* crossing = MeasureStaffAt(measure, docStaff);
        if (!crossing || !crossing->_staff) continue;
        staff = crossing->_staff;
        lowest = std::max(lowest, LowestInk(crossing));
    }
    if (!staff || staff->_lineDistance <= 0 || lowest == INT32_MIN) return kUsualBaseline;
    const int32_t capital = Ems(TextLook{}, kCapital) * 1000 / staff->_lineDistance;
    const int32_t below = (lowest - FrameOf(staff).Bottom()) * 1000 / staff->_lineDistance;
    return std::max(kUsualBaseline, below + kClearance + capital);
}

}  // namespace corvane
