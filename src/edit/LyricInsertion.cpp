#include "edit/Lyrics.h"
#include "edit/SystemRedraw.h"
#include "layout/Frames.h"
#include "layout/Lyrics.h"
#include "model/Par.h"
#include "model/Preferences.h"
#include "model/RecordRelease.h"

namespace corvane {
namespace {

template <class Visit>
void ForEachSyllable(const MeasureStaff* crossing, const Visit& visit) {
    for (const Voice* voice : measureStaffVoices.Of(crossing))
        for (const VoiceSymbol* symbol : voiceSymbols.Of(voice))
            if (const auto* chord = As<Chords>(symbol))
                for (const GenericNote* note : chordNotes.Of(chord))
                    for (NoteAttribute* attribute : noteAttributes.Of(note))
                        if (auto* syllable = As<Liriche>(attribute)) visit(syllable);
}

Liriche* MakeSyllable(Chords* chord, int verse) {
    auto* syllable = Make<Liriche>();
    noteAttributes.Add(chordNotes.First(chord), syllable);
    syllable->_verse = static_cast<uint8_t>(verse);
    return syllable;
}

bool Stands(const Liriche* syllable, std::string_view text, LyricJoint joint, const TextLook& look) {
    return syllable && TextOf(syllable->_text.Get()) == text && syllable->_joint == joint &&
           LookOf(syllable->_text.Get()) == look;
}

}  // namespace

TextLook LyricLook(const Document* document, int verse) {
    const auto* preferences = Preferences<LirichePref>(document);
    if (!preferences) return {};
    return LookOf(verse > 1 ? preferences->_otherFont.Get() : preferences->_font.Get());
}

void SetSyllable(WindowTarn& window, Chords* chord, int verse, std::string_view text, LyricJoint joint,
                 const TextLook& look) {
    text = CutText(text, kMostSyllableBytes);
    Liriche* syllable = SyllableOf(chord, verse);
    const bool goes = text.empty() && joint != LyricJoint::Extender;
    if (goes ? !syllable : Stands(syllable, text, joint, look)) return;
    Document* document = window.GetDocument();
    const EditStep step(window);
    const Measure* measure = MeasurePar(chord);
    const DocStaff* docStaff = DocStaffPar(chord);
    const SystemRedraw redraw(window, measure);
    if (goes) {
        DeleteSyllable(document, syllable);
    } else {
        if (!syllable) syllable = MakeSyllable(chord, verse);
        if (syllable->_text)
            ChangeGenericText(document, syllable->_text, text, look);
        else
            syllable->_text = MakeGenericText(document, text, look);
        syllable->_joint = joint;
    }
    AlignLyrics(SystemPar(measure), docStaff);
}

void EraseSyllable(WindowTarn& window, Liriche* syllable) {
    const Chords* chord = ChordPar(noteAttributes.ParentOf(syllable));
    const Measure* measure = MeasurePar(chord);
    const SystemRedraw redraw(window, measure);
    DeleteSyllable(window.GetDocument(), syllable);
    AlignLyrics(SystemPar(measure), DocStaffPar(chord));
}

void DeleteSyllable(Document* document, Liriche* syllable) {
    noteAttributes.Remove(syllable);
    DropRecord(document, syllable);
}

void AlignLyrics(const System* system, const DocStaff* docStaff) {
    const int32_t first = LyricBaseline(system, docStaff);
    for (const Measure* measure : systemMeasures.Of(system)) {
        const MeasureStaff* crossing = MeasureStaffAt(measure, docStaff);
        const Staff* staff = crossing ? crossing->_staff.Get() : nullptr;
        if (!staff || staff->_lineDistance <= 0) continue;
        ForEachSyllable(crossing, [&](Liriche* syllable) {
            const int32_t step = LineStep(LookOf(syllable->_text.Get())) * 1000 / staff->_lineDistance;
            const int32_t wanted = first + (VerseOf(syllable) - 1) * step;
            if (syllable->_dy != wanted) syllable->_dy = wanted;
        });
    }
}

}  // namespace corvane
