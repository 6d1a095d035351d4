// What a score's notes are kept to sound, beside what its notation alone gives: that is told by the same
// score read from its own bytes, with all events made anew. The score and its undo are left in peace.
#pragma once

#include <gtest/gtest.h>

#include <unordered_map>

#include "edit/WindowTarn.h"
#include "model/NoteOperations.h"
#include "model/Par.h"
#include "play/MIDIUtility.h"
#include "store/MemoryManager.h"
#include "store/ObjectFile.h"

namespace corvane {

// The events of one note. Which they are must be right; where they stand may be off by what was cut away.
struct NoteEvents {
    struct What {
        int measure, staff, voice;
        int ons = 0, offs = 0, strangers = 0;  // events; those of another staff or voice
        int onHeight = 0, offHeight = 0;
        friend auto operator<=>(const What&, const What&) = default;
    } what;
    int on = 0, off = 0;  // clocks in the measure
    const GenericNote* note;
    const Voice* voice;

    NoteEvents(const GenericNote* of, const Voice* in, int staff)
        : what{MeasurePar(in)->_number, staff, in->_number}, note(of), voice(in) {
        const DocStaff* docStaff = DocStaffPar(note);
        for (const SoundEvent* event : noteEvents.Of(note)) {
            const bool isOn = As<NoteOn>(event);
            const TimePlace place = TimePlaceOf(event);
            ++(isOn ? what.ons : what.offs);
            (isOn ? what.onHeight : what.offHeight) = event->_height;
            (isOn ? on : off) = place.beat * kClocksPerBeat + place.clock;
            what.strangers += event->_docStaff.Get() != docStaff ||
                              event->_voiceRecord.Get() != &docStaff->_voices[voice->_number - 1];
        }
    }
};

inline std::ostream& operator<<(std::ostream& out, const NoteEvents::What& what) {
    return out << "measure " << what.measure << ", staff " << what.staff << ", voice " << what.voice << ": "
               << what.ons << " on " << what.onHeight << ", " << what.offs << " off " << what.offHeight
               << ", " << what.strangers << " strangers";
}

template <class Visit>
void ForEachVoice(const Document* document, Visit visit) {
    int staff = 0;
    for (const DocStaff* docStaff : documentDocStaffs.Of(document)) {
        ++staff;
        for (const MeasureStaff* crossing : docStaffMeasureStaffs.Of(docStaff))
            for (Voice* voice : measureStaffVoices.Of(crossing)) visit(voice, staff);
    }
}

// In the order of the notation.
inline std::vector<NoteEvents> EventsOf(const Document* document) {
    std::vector<NoteEvents> events;
    ForEachVoice(document, [&](const Voice* voice, int staff) {
        for (const VoiceSymbol* symbol : voiceSymbols.Of(voice))
            if (const auto* chord = As<Chords>(symbol))
                for (const GenericNote* note : chordNotes.Of(chord)) events.emplace_back(note, voice, staff);
    });
    return events;
}

inline std::vector<NoteEvents> RebuiltEventsOf(const NewMemoryPool& score) {
    std::vector<uint8_t> bytes;
    EXPECT_TRUE(EncodeScore(score, bytes));
    MemoryManager& memory = MemoryManager::Instance();
    const PoolScope before(memory.GetCurrentPool());
    NewMemoryPool* pool = memory.NewPool();
    EXPECT_TRUE(LoadScore(*pool, bytes));
    const auto* document = static_cast<const Document*>(pool->DocumentObject());
    ForEachVoice(document, [](Voice* voice, int) { RebuildVoiceEvents(voice); });
    std::vector<NoteEvents> events = EventsOf(document);
    memory.DeletePool(pool);
    return events;
}

// Which voices hold what leaves events beside their exact places, or have held it and not been exact since:
// what an undo can bring back counts as held.
class RoundedVoices {
public:
    // After each step; `edited` where it was an edit, behind which undo reaches one step less far.
    void Watch(const Document* document, bool edited) {
        ForEachVoice(document, [&](const Voice* voice, int) {
            Held& held = _of[voice];
            if (edited && held.exact && ++held.exactEdits > kBeyondUndo) Forget(voice, held);
            int earlier = 0;
            held.clean = true;
            for (const VoiceSymbol* symbol : voiceSymbols.Of(voice)) Watch(symbol, held, earlier++);
            if (!held.clean) held.exactEdits = 0;
            held.exact = held.clean;
        });
    }
    // Clocks. Where there are tuplets, each symbol before a note that comes or goes moves it by up to one
    // clock less than it counts in the sum, and both may have been as many as stood before the note: three
    // notes of a triplet that go take 31998 clocks with them of the 32000 that they had put there. A tie that
    // goes leaves its own notes on a grid of 32.
    int MostOff(const NoteEvents& note) const {
        const auto found = _of.find(note.voice);
        if (found == _of.end()) return 0;
        const auto own = _notes.find(note.note);
        if (own == _notes.end()) return 0;
        return (found->second.tuplets ? 2 * own->second.earlier : 0) + (own->second.tied ? 32 : 0);
    }
    // A note was found that far from its exact place.
    void Found(const NoteEvents& note, int off) {
        if (off == 0) return;
        _of[note.voice].exact = false;
        _of[note.voice].exactEdits = 0;
    }

private:
    static constexpr int kBeyondUndo = 8;  // edits: more than the most steps that the tests keep
    struct Held {
        bool tuplets = false;
        bool clean = true;   // holds neither tuplets nor ties now
        bool exact = false;  // nor was any of its notes found beside its place
        int exactEdits = 0;
    };
    struct HeldNote {
        bool tied = false;
        int earlier = 0;  // symbols at a time
    };
    void Watch(const VoiceSymbol* symbol, Held& held, int earlier) {
        for (const VoiceSymbolAttribute* attribute : voiceSymbolAttributes.Of(symbol))
            if (As<MarkIrreg>(attribute)) held.tuplets = true, held.clean = false;
        if (const auto* chord = As<Chords>(symbol))
            for (const GenericNote* note : chordNotes.Of(chord)) {
                HeldNote& own = _notes[note];
                own.earlier = std::max(own.earlier, earlier);
                for (const NoteAttribute* attribute : noteAttributes.Of(note))
                    if (As<MarkValue>(attribute)) own.tied = true, held.clean = false;
            }
    }
    void Forget(const Voice* voice, Held& held) {
        held = {};
        for (const VoiceSymbol* symbol : voiceSymbols.Of(voice))
            if (const auto* chord = As<Chords>(symbol))
                for (const GenericNote* note : chordNotes.Of(chord)) _notes.erase(note);
    }

    // Also of what is gone: an undo may bring it back.
    std::unordered_map<const Voice*, Held> _of;
    std::unordered_map<const GenericNote*, HeldNote> _notes;
};

// The notes, their owners and kinds are those of the notation, their places too but for what was cut off.
inline void ExpectTheEventsOfTheNotation(const WindowTarn& window, RoundedVoices& rounded) {
    const std::vector<NoteEvents> kept = EventsOf(window.GetDocument()),
                                  told = RebuiltEventsOf(*window.Pool());
    ASSERT_EQ(kept.size(), told.size());
    for (size_t i = 0; i < kept.size(); ++i) {
        ASSERT_EQ(kept[i].what, told[i].what);
        const int mostOff = rounded.MostOff(kept[i]);
        ASSERT_NEAR(kept[i].on, told[i].on, mostOff) << kept[i].what << ", the start";
        ASSERT_NEAR(kept[i].off, told[i].off, mostOff) << kept[i].what << ", the end";
        rounded.Found(kept[i], std::abs(kept[i].on - told[i].on) + std::abs(kept[i].off - told[i].off));
    }
}

}  // namespace corvane
