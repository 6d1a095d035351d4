#include "edit/LyricEntry.h"

#include <algorithm>
#include <cstdlib>

#include "edit/Lyrics.h"
#include "edit/ToolState.h"
#include "layout/Frames.h"
#include "layout/Lyrics.h"
#include "layout/NoteGeometry.h"
#include "model/NoteOperations.h"
#include "model/Par.h"

namespace corvane {
namespace {

constexpr LyricJoint JointOf(TextKey key) {
    if (key == TextKey::Hyphen) return LyricJoint::Hyphen;
    return key == TextKey::Underscore ? LyricJoint::Extender : LyricJoint::WordEnd;
}

class LyricEntry : public TextEntry {
public:
    LyricEntry(Chords* chord, int verse, bool behindLine = false)
        : _chord(chord), _verse(verse), _behindLine(behindLine) {}

    std::string Text() const override {
        const Liriche* old = SyllableOf(_chord, _verse);
        return old ? std::string(TextOf(old->_text.Get())) : std::string();
    }
    TextLook Look() const override {
        const Liriche* old = SyllableOf(_chord, _verse);
        return old ? LookOf(old->_text.Get()) : LyricLook(DocumentPar(_chord), _verse);
    }
    // Below the note, where a syllable of this verse will begin.
    Point Place() const override {
        if (const Liriche* old = SyllableOf(_chord, _verse)) return PictureOf(old).text.at;
        const StaffFrame frame = FrameOf(StaffPar(_chord));
        const int32_t line = LineStep(Look()) * (_verse - 1);
        const int32_t first = LyricBaseline(SystemPar(MeasurePar(_chord)), DocStaffPar(_chord));
        return {RectOf(chordNotes.First(_chord)).left,
                frame.Bottom() + first * frame.lineDistance / 1000 + line};
    }
    size_t MostBytes() const override { return kMostSyllableBytes; }
    bool HasLines() const override { return false; }
    bool EndsWith(TextKey) const override { return true; }

    void Take(WindowTarn& window, std::string_view text, const TextLook& look) override {
        const Liriche* old = SyllableOf(_chord, _verse);
        SetSyllable(window, _chord, _verse, text, old ? old->_joint.Get() : LyricJoint::WordEnd, look);
    }

    std::unique_ptr<TextEntry> TakeAndGoOn(WindowTarn& window, std::string_view text, TextKey key) override {
        if (key == TextKey::Up || key == TextKey::Down) {
            Take(window, text, Look());
            return std::make_unique<LyricEntry>(
                _chord, std::clamp(_verse + (key == TextKey::Down ? 1 : -1), 1, kMostVerses));
        }
        if (key == TextKey::Back) {
            Take(window, text, Look());
            return At(window, PrevSung(_chord));
        }
        // The blank that ends a line of underscores is already at the next note.
        if (text.empty() && key == TextKey::Space && _behindLine)
            return std::make_unique<LyricEntry>(_chord, _verse);
        // A key without letters skips the note, or draws the syllable before over it.
        if (!text.empty() || key == TextKey::Underscore)
            SetSyllable(window, _chord, _verse, text, JointOf(key), Look());
        return At(window, NextSung(_chord), key == TextKey::Underscore);
    }

private:
    std::unique_ptr<TextEntry> At(WindowTarn& window, Chords* chord, bool behindLine = false) const {
        if (!chord) return nullptr;
        if (Page* page = PagePar(MeasurePar(chord)); page != window.CurrentPage())
            window.SetCurrentPage(page);
        return std::make_unique<LyricEntry>(chord, _verse, behindLine);
    }

    Chords* _chord;
    int _verse;
    bool _behindLine;
};

}  // namespace

std::unique_ptr<TextEntry> EntryOfSyllable(Liriche* syllable) {
    return std::make_unique<LyricEntry>(ChordPar(noteAttributes.ParentOf(syllable)), VerseOf(syllable));
}

std::unique_ptr<TextEntry> EntryAtNote(const MeasureStaff* crossing, Point p) {
    Chords* nearest = nullptr;
    int32_t best = INT32_MAX;
    for (const Voice* voice : measureStaffVoices.Of(crossing)) {
        if (!Tools().AllVoices() && voice->_number != Tools().OneVoice()) continue;
        for (VoiceSymbol* symbol : voiceSymbols.Of(voice)) {
            auto* chord = As<Chords>(symbol);
            if (!chord || IsGrace(chord) || chordNotes.IsEmpty(chord)) continue;
            const Rect head = RectOf(chordNotes.First(chord));
            const int32_t away = std::abs(p.x - (head.left + head.right) / 2);
            if (away >= best) continue;
            best = away;
            nearest = chord;
        }
    }
    return nearest ? std::make_unique<LyricEntry>(nearest, 1) : nullptr;
}

}  // namespace corvane
