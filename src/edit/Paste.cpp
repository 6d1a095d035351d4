// Paste: clones of what the clipboard holds, from the caret on.
#include <algorithm>
#include <optional>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "base/Notify.h"
#include "edit/ClipClones.h"
#include "edit/ClipboardState.h"
#include "edit/Deletion.h"
#include "edit/Insertion.h"
#include "edit/PasteSteps.h"
#include "edit/ToolState.h"
#include "layout/BeamGroups.h"
#include "layout/Beaming.h"
#include "layout/NotePitches.h"
#include "layout/Spacing.h"
#include "model/NoteOperations.h"
#include "model/Par.h"
#include "play/MIDIGrace.h"
#include "play/MIDIUtility.h"

namespace corvane {
namespace {

constexpr int kWholeRest = 1;

// A paste under way.
class Pasting {
public:
    Pasting(WindowTarn& window, const Clipboard& clips)
        : _clips(clips),
          _clones(window.GetDocument(), clips),
          _places(window.caret, clips),
          _clipSameVoice(Tools().AllVoices()),
          _window(window) {}

    // False where a measure is full; Refused() is the event that is too much then.
    bool PasteVoiceSymbols();
    void PasteSigns() { corvane::PasteSigns(_window, _clips, _places, _clones); }
    // Beams, ties, spacing, accidentals: the score is sound behind it.
    void Finish();
    VoiceSymbol* Refused() const { return _refused; }
    bool HasDropped() const { return _places.HasDropped(); }
    bool HasIllegalBeam() const { return _clones.HasIllegalBeam(); }

private:
    // A voice that takes events: the last one, and what its first was moved by.
    struct Target {
        VoiceSymbol* last;
        int32_t dx;
    };
    Target TargetFor(Voice* voice, const VoiceSymbol* original);
    void PartBeam(Voice* voice, VoiceSymbol* before);
    VoiceSymbol* Insert(const ClipVoiceSymbol& clip, Voice* voice, const Target& target);
    bool PasteOne(const ClipVoiceSymbol& clip);

    const Clipboard& _clips;
    ClipClones _clones;
    PastePlaces _places;
    const bool _clipSameVoice;
    WindowTarn& _window;
    int _further = 0;     // measures by which events that no measure holds have wandered on
    int _lastStaff = -1;  // of the source
    std::unordered_map<const Voice*, Target> _targets;
    std::vector<Voice*> _voices;               // touched, in order
    std::unordered_set<const Voice*> _parted;  // whose beams came apart
    VoiceSymbol* _refused = nullptr;
};

Pasting::Target Pasting::TargetFor(Voice* voice, const VoiceSymbol* original) {
    const auto known = _targets.find(voice);
    if (known != _targets.end()) return known->second;
    if (MeasurePar(voice) != _places.First()) return {nullptr, 0};
    return {EventBefore(voice, _places.Told()), _places.Offset() - XOf(original)};
}

// A beam into which something comes is none any more.
void Pasting::PartBeam(Voice* voice, VoiceSymbol* before) {
    VoiceSymbol* behind = before ? voiceSymbols.Next(before) : nullptr;
    if (!behind) return;
    Beam* beam = BeamOf(BeamSymbolOf(behind));
    if (!beam || beam != BeamOf(BeamSymbolOf(before))) return;
    DissolveBeam(beam, nullptr);
    _parted.insert(voice);
}

VoiceSymbol* Pasting::Insert(const ClipVoiceSymbol& clip, Voice* voice, const Target& target) {
    PartBeam(voice, target.last);
    VoiceSymbol* clone =
        _clones.CloneEvent(clip, voice, target.last, std::clamp(XOf(clip.object) + target.dx, 0, 1000));
    if (auto* grace = As<GraceChord>(clone))
        MakeGraceEvents(grace);
    else
        InsertVoiceSymbolEvents(clone);
    return clone;
}

// Lines by the clef here, velocities as they were.
void Dress(VoiceSymbol* clone, const ClipVoiceSymbol& clip) {
    const auto* chord = As<Chords>(clone);
    if (!chord) return;
    const int clef = ClefInForce(MeasureStaffPar(chord), XOf(chord));
    size_t i = 0;
    for (GenericNote* note : chordNotes.Of(chord)) {
        if (clef != clip.place.clef)
            note->_line = static_cast<int16_t>(LineOfStep(clef, DiatonicStep(clip.place.clef, note->_line)));
        UpdateNoteHeight(note);
        NoteOn* on = NoteOnOf(note);
        if (on && i < clip.velocities.size() && clip.velocities[i]) on->_velocity = clip.velocities[i];
        ++i;
    }
}

void Discard(WindowTarn& window, VoiceSymbol* clone) {
    const DeletionChoice choice{1, true, false, false};
    if (auto* pause = As<Pause>(clone)) return DeletePause(window, pause, choice);
    auto* chord = As<Chords>(clone);
    while (!DeleteNote(window, chordNotes.First(chord), choice)) {
    }
}

bool Pasting::PasteOne(const ClipVoiceSymbol& clip) {
    if (clip.place.staff != _lastStaff) _further = 0;
    _lastStaff = clip.place.staff;
    while (MeasureStaff* crossing = _places.Destination(clip.place, _further)) {
        if (!crossing->_staff.Get()) return true;
        Voice* voice = FindOrMakeVoice(crossing, _clipSameVoice ? clip.place.voice : Tools().OneVoice());
        const Target target = TargetFor(voice, clip.object);
        VoiceSymbol* clone = Insert(clip, voice, target);
        const bool alone = voiceSymbols.First(voice) == voiceSymbols.Last(voice);
        const bool wholeRest = As<Pause>(clone) && ValueOf(clone) == kWholeRest;
        if (!wholeRest && IsMeasureFull(voice)) {
            if (!alone) _refused = clone;
            _clones.Forget(clone);
            if (_refused) return false;
            Discard(_window, clone);
            ++_further;
            continue;
        }
        if (!_targets.contains(voice)) _voices.push_back(voice);
        _targets[voice] = {clone, target.dx};
        if (!_further) _places.Take(clip.place, clone);
        Dress(clone, clip);
        return true;
    }
    return true;
}

bool Pasting::PasteVoiceSymbols() {
    for (const ClipVoiceSymbol& clip : _clips.ClipVoiceSymbols)
        if (!PasteOne(clip)) return false;
    return true;
}

// From the left to the right, which pasting among events that are not spaced can break.
bool IsInOrder(const Voice* voice) {
    const VoiceSymbol* before = nullptr;
    for (const VoiceSymbol* symbol : voiceSymbols.Of(voice)) {
        if (before && XOf(symbol) < XOf(before)) return false;
        before = symbol;
    }
    return true;
}

void Pasting::Finish() {
    _clones.JoinBeams();
    _clones.JoinTies();
    std::unordered_set<MeasureStaff*> crossings;
    for (Voice* voice : _voices) {
        if (Switches().autoSpace || !IsInOrder(voice)) SpaceVoice(voice);
        if (_parted.contains(voice) && Switches().autoBeam) BeamVoice(voice);
        if (MeasureStaff* crossing = MeasureStaffPar(voice); crossings.insert(crossing).second)
            RefitLines(crossing);
    }
    for (const MeasureStaff* crossing : crossings) RenewHeightsByClefs(crossing);
}

// What came before stays.
void TakeBack(WindowTarn& window, VoiceSymbol* refused) {
    Voice* voice = VoicePar(refused);
    Discard(window, refused);
    if (Switches().autoSpace || !IsInOrder(voice)) SpaceVoice(voice);
    RenewHeightsByClefs(MeasureStaffPar(voice));
}

}  // namespace

bool CanPaste(const WindowTarn& window) {
    return TheClipboard().sourceWindow && window.caret.measure && window.caret.staff;
}

bool Paste(WindowTarn& window) {
    if (!CanPaste(window)) return false;
    DropDeadClips(ClipboardState());
    if (TheClipboard().IsEmpty()) {
        window.Shell().Tell("What was copied is gone.");
        return false;
    }
    VoiceSymbol* refused = nullptr;
    bool illegal = false, dropped = false;
    const bool withinStep = Switches().undoLevels > 1;
    std::optional<PageRedraw> redraw(window);
    {
        const EditStep step(window);
        Pasting pasting(window, TheClipboard());
        window.caret.visible = false;
        const bool allFit = pasting.PasteVoiceSymbols();
        pasting.Finish();
        if (allFit) pasting.PasteSigns();
        refused = pasting.Refused();
        dropped = pasting.HasDropped();
        illegal = !refused && pasting.HasIllegalBeam();
        if (refused && withinStep) TakeBack(window, refused);
    }
    // Else what came before cannot be undone: the event that was too much goes outside of any step.
    if (refused && !withinStep) {
        { const EditStep empty(window); }
        TakeBack(window, refused);
    }
    if (dropped && !illegal) window.Shell().Tell("Some of it found no staff or measure here.");
    if (illegal) {
        window.Undo();
        window.ForgetUndo();
    }
    redraw.reset();  // before the box: the page behind it is whole
    if (refused) Notify(Severity::Message, "Can't paste, the measure is full!");
    if (illegal) Notify(Severity::Message, "Illegal paste");
    return !refused && !illegal;
}

}  // namespace corvane
