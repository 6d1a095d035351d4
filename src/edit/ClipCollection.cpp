// What a copy or cut lists, and what of it is still there later.
#include <algorithm>
#include <climits>
#include <cstdint>
#include <unordered_set>

#include "edit/ClipboardState.h"
#include "edit/TarnSelect.h"
#include "layout/SlurShape.h"
#include "model/NoteOperations.h"
#include "model/Par.h"
#include "play/MIDIUtility.h"

namespace corvane {
namespace {

std::vector<int16_t> VelocitiesOf(const VoiceSymbol* symbol) {
    std::vector<int16_t> velocities;
    if (const auto* chord = As<Chords>(symbol))
        for (const GenericNote* note : chordNotes.Of(chord)) {
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

}  // namespace

bool Clipboard::IsEmpty() const {
    bool empty = true;
    ForEachClipList(*this, [&](const auto& list) { empty &= list.empty(); });
    return empty;
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
    for (VoiceSymbol* symbol : SelectedVoiceSymbols(voice)) {
        const ClipPlace place = PlaceOf(MeasureStaffPar(symbol), XOf(symbol), VoicePar(symbol)->_number);
        clips.ClipVoiceSymbols.push_back({{symbol, place}, VelocitiesOf(symbol)});
    }
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
    const auto living = clips.sourceWindow->Pool()->Living(ObjectsOf(clips));
    ForEachClipList(clips, [&](auto& list) {
        std::erase_if(list, [&](const auto& clip) { return !IsStill(clip, living); });
    });
}

}  // namespace corvane
