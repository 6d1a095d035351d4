// What a copy or cut lists, and what of it is still there later.
#include <algorithm>
#include <climits>
#include <cstdint>
#include <unordered_map>
#include <unordered_set>

#include "edit/ClipboardState.h"
#include "edit/TarnSelect.h"
#include "layout/SlurShape.h"
#include "model/NoteOperations.h"
#include "model/Par.h"
#include "play/MIDIUtility.h"

namespace corvane {
namespace {

std::vector<int16_t> VelocitiesOf(const std::vector<GenericNote*>& notes) {
    std::vector<int16_t> velocities;
    for (const GenericNote* note : notes) {
        const NoteOn* on = NoteOnOf(note);
        velocities.push_back(on ? on->_velocity.Get() : int16_t{0});
    }
    return velocities;
}

int NumberOf(const DocStaff* staff) {
    int number = 0;
    for (const DocStaff* other : documentDocStaffs.Of(documentDocStaffs.ParentOf(staff))) {
        if (other == staff) break;
        ++number;
    }
    return number;
}

ClipPlace PlaceOf(const MeasureStaff* crossing, int32_t x, int16_t voice) {
    return {MeasurePar(crossing)->_number, NumberOf(DocStaffPar(crossing)), x, voice,
            ClefInForce(crossing, x)};
}

// The selected events, chords of which single heads are picked with these.
std::vector<ClipVoiceSymbol> EventClips(int voice) {
    std::unordered_map<const VoiceSymbol*, std::vector<GenericNote*>> alone;
    for (GenericNote* head : HeadsPickedAlone(voice)) alone[ChordPar(head)].push_back(head);
    std::vector<ClipVoiceSymbol> clips;
    for (VoiceSymbol* symbol : SelectedVoiceSymbols(voice)) {
        ClipVoiceSymbol clip;
        clip.object = symbol;
        clip.place = PlaceOf(MeasureStaffPar(symbol), XOf(symbol), VoicePar(symbol)->_number);
        if (const auto found = alone.find(symbol); found != alone.end()) clip.heads = found->second;
        clip.velocities = VelocitiesOf(clip.Heads());
        clips.push_back(std::move(clip));
    }
    return clips;
}

// Slurs of which any event is listed. Those on both of its events come along also where the curve itself is
// not selected.
std::vector<Clip<Slur>> SlursAt(const std::vector<ClipVoiceSymbol>& clips) {
    std::vector<Clip<Slur>> slurs;
    std::unordered_set<const MeasureStaff*> seen;
    for (const ClipVoiceSymbol& clip : clips) {
        const MeasureStaff* crossing = MeasureStaffPar(clip.object);
        if (!seen.insert(crossing).second) continue;
        for (StaffMeasureSymbol* symbol : staffSymbols.Of(crossing))
            if (auto* mark = As<MarkSlur>(symbol); mark && mark == slurMarks.First(slurMarks.ParentOf(mark)))
                slurs.push_back({slurMarks.ParentOf(mark), {}});
    }
    return slurs;
}

std::vector<ClipHairpin> Hairpins() {
    std::vector<ClipHairpin> clips;
    for (Hairpin* hairpin : SelectedHairpins()) {
        const MeasureStaff *first = MeasureStaffPar(hairpinMarks.First(hairpin)),
                           *last = MeasureStaffPar(hairpinMarks.Last(hairpin));
        clips.push_back({{hairpin, PlaceOf(first, hairpin->_from, 0)},
                         MeasurePar(last)->_number - MeasurePar(first)->_number});
    }
    return clips;
}

// Beside events only what begins in their measures and staves: a frame around them also meets what reaches in
// from elsewhere, and a paste begins where the first thing stood.
void KeepAmongEvents(Clipboard& clips) {
    if (clips.ClipVoiceSymbols.empty()) return;
    int32_t first = INT32_MAX, last = 0;
    int top = INT_MAX, bottom = 0;
    for (const ClipVoiceSymbol& clip : clips.ClipVoiceSymbols) {
        first = std::min(first, clip.place.measure);
        last = std::max(last, clip.place.measure);
        top = std::min(top, clip.place.staff);
        bottom = std::max(bottom, clip.place.staff);
    }
    const auto beginsElsewhere = [=](const auto& clip) {
        const ClipPlace& place = clip.place;
        return place.measure < first || place.measure > last || place.staff < top || place.staff > bottom;
    };
    std::erase_if(clips.ClipDinamiche, beginsElsewhere);
    std::erase_if(clips.ClipMeasureStaffText, beginsElsewhere);
    std::erase_if(clips.ClipHairpins, beginsElsewhere);
}

template <class List>
void TakeFirst(Clipboard& clips, const List& list) {
    for (const auto& clip : list) {
        const ClipPlace& place = clip.place;
        if (!place.measure) continue;
        const bool isFirst = !clips.ClipHasStaff || place.measure < clips.ClipFirstMeasure;
        if (isFirst || (place.measure == clips.ClipFirstMeasure && place.x < clips.ClipFirstX))
            clips.ClipFirstX = place.x;
        if (isFirst) clips.ClipFirstMeasure = place.measure;
        clips.ClipFirstStaff = clips.ClipHasStaff ? std::min(clips.ClipFirstStaff, place.staff) : place.staff;
        clips.ClipHasStaff = true;
    }
}

// An address may hold another object by now.
template <class R>
bool IsStill(const Clip<R>& clip, const std::unordered_set<const void*>& living) {
    return living.contains(clip.object) && IsClass<R>(ClassNumberOf(clip.object));
}

// Of a chord of which single heads were copied, those that are still its own.
bool KeepLivingHeads(ClipVoiceSymbol& clip, const std::unordered_set<const void*>& living) {
    if (clip.heads.empty()) return true;
    std::erase_if(clip.heads, [&](GenericNote* head) {
        return !living.contains(head) || !IsClass<GenericNote>(ClassNumberOf(head)) ||
               ChordPar(head) != clip.object;
    });
    clip.velocities = VelocitiesOf(clip.heads);
    return !clip.heads.empty();
}

}  // namespace

bool Clipboard::IsEmpty() const {
    bool empty = true;
    ForEachClipList(*this, [&](const auto& list) { empty &= list.empty(); });
    return empty;
}

std::vector<GenericNote*> ClipVoiceSymbol::Heads() const {
    const auto* chord = heads.empty() ? As<Chords>(object) : nullptr;
    if (!chord) return heads;
    std::vector<GenericNote*> all;
    for (GenericNote* note : chordNotes.Of(chord)) all.push_back(note);
    return all;
}

std::vector<const void*> ObjectsOf(const Clipboard& clips) {
    std::vector<const void*> objects;
    ForEachClipList(clips, [&](const auto& list) {
        for (const auto& clip : list) objects.push_back(clip.object);
    });
    return objects;
}

Clipboard CollectClips(WindowTarn& window, int voice) {
    Clipboard clips;
    clips.sourceWindow = &window;
    clips.ClipVoiceSymbols = EventClips(voice);
    for (Dinamiche* sign : SelectedDinamiche())
        clips.ClipDinamiche.push_back({sign, PlaceOf(MeasureStaffPar(sign), sign->_x, 0)});
    for (MeasureStaffText* text : SelectedMeasureStaffText())
        clips.ClipMeasureStaffText.push_back({text, PlaceOf(MeasureStaffPar(text), text->_x, 0)});
    clips.ClipHairpins = Hairpins();
    clips.ClipSlurs = SlursAt(clips.ClipVoiceSymbols);
    KeepAmongEvents(clips);
    for (PageText* text : SelectedPageText()) clips.ClipPageText.push_back({text, {}});
    SettleClips(clips);
    return clips;
}

void SettleClips(Clipboard& clips) {
    std::unordered_set<const void*> events;
    for (const ClipVoiceSymbol& clip : clips.ClipVoiceSymbols) events.insert(clip.object);
    std::erase_if(clips.ClipSlurs, [&](const Clip<Slur>& clip) {
        return !events.contains(FirstEventOf(clip.object)) || !events.contains(LastEventOf(clip.object));
    });
    clips.ClipHasStaff = false;
    ForEachClipList(clips, [&](const auto& list) { TakeFirst(clips, list); });
}

void DropDeadClips(Clipboard& clips) {
    std::vector<const void*> objects = ObjectsOf(clips);
    for (const ClipVoiceSymbol& clip : clips.ClipVoiceSymbols)
        objects.insert(objects.end(), clip.heads.begin(), clip.heads.end());
    const auto living = clips.sourceWindow->Pool()->Living(objects);
    std::erase_if(clips.ClipVoiceSymbols, [&](ClipVoiceSymbol& clip) {
        return !IsStill(clip, living) || !KeepLivingHeads(clip, living);
    });
    ForEachClipList(clips, [&](auto& list) {
        std::erase_if(list, [&](const auto& clip) { return !IsStill(clip, living); });
    });
}

}  // namespace corvane
