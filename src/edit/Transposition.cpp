// Notes written at other pitches, or otherwise at the same.
#include <algorithm>
#include <cstdlib>

#include "edit/NoteChanges.h"
#include "edit/Respelling.h"
#include "model/Clefs.h"
#include "model/NoteOperations.h"
#include "model/Par.h"

namespace corvane {
namespace {

constexpr int kHighestKey = 127, kOctave = 12;

bool HasSmallStep(const Spelling& spelling) { return spelling.alteration > Alteration::DoubleFlat; }

// A quarter tone or an arrow, which sounds as a natural, goes along where a natural would stand.
std::vector<Spelling> WithSmallStep(std::vector<Spelling> ways, const Spelling& from) {
    if (HasSmallStep(from))
        for (Spelling& way : ways)
            if (way.alteration == Alteration::None) way.alteration = from.alteration;
    return ways;
}

// On the step that the interval leads to, else on the nearest one that can be.
std::vector<Spelling> WaysBy(const Interval& interval, const Spelling& from) {
    const int step = from.step + interval.steps;
    std::vector<Spelling> ways = SpellingsOf(HeightOf(from) + interval.semitones);
    std::stable_sort(ways.begin(), ways.end(), [step](const Spelling& a, const Spelling& b) {
        return std::abs(a.step - step) < std::abs(b.step - step);
    });
    if (ways.front().step == step) ways.resize(1);
    return ways;
}

Status In(const char* what, const GenericNote* note) {
    return {Fault::Refused, std::string(what) + " in measure " + std::to_string(MeasurePar(note)->_number)};
}

constexpr const char* kNoPitch = "None of these notes has a pitch";

// One of some ways for a note, at a height in semitones.
template <class Ways>
Status Choose(Respelling& respelling, GenericNote* note, int height, Ways ways) {
    if (height < 0 || height > kHighestKey) return In("MIDI has no key so low or so high, for a note", note);
    if (!respelling.Choose(note, ways())) return In("Two notes of a chord would stand on one line", note);
    return Status::Ok();
}

// Chooses for each note among the ways that `ways` gives, and writes them all.
template <class Ways>
Status Move(WindowTarn& window, const std::vector<GenericNote*>& notes, int semitones, Ways ways) {
    Respelling respelling(notes);
    if (respelling.Notes().empty()) return {Fault::Refused, kNoPitch};
    for (GenericNote* note : respelling.Notes()) {
        const Spelling from = SpellingOf(note);
        const auto choice = [&] { return WithSmallStep(ways(note, from), from); };
        if (const Status status = Choose(respelling, note, HeightOf(from) + semitones, choice); !status)
            return status;
    }
    (void)respelling.Write(window);
    return Status::Ok();
}

// Writes each note as `to` tells. Refused where nothing changes.
template <class To>
Status Rewrite(WindowTarn& window, const std::vector<GenericNote*>& notes, const char* unchanged, To to) {
    Respelling respelling(notes);
    if (respelling.Notes().empty()) return {Fault::Refused, kNoPitch};
    bool changes = false;
    for (GenericNote* note : respelling.Notes()) {
        const Spelling from = SpellingOf(note), way = to(note, from);
        changes |= !(way == from);
        const auto choice = [&] { return std::vector<Spelling>{way}; };
        if (const Status status = Choose(respelling, note, HeightOf(way), choice); !status) return status;
    }
    if (!changes) return {Fault::Refused, unchanged};
    (void)respelling.Write(window);
    return Status::Ok();
}

}  // namespace

Status Transpose(WindowTarn& window, const std::vector<GenericNote*>& notes, const Interval& interval) {
    return Move(window, notes, interval.semitones,
                [&](const GenericNote*, const Spelling& from) { return WaysBy(interval, from); });
}

Status TransposeBySemitones(WindowTarn& window, const std::vector<GenericNote*>& notes, int semitones) {
    if (semitones % kOctave == 0) return Transpose(window, notes, {semitones / kOctave * 7, semitones});
    return Move(window, notes, semitones, [&](const GenericNote* note, const Spelling& from) {
        return SpellingsInKey(HeightOf(from) + semitones, KeyInForce(MeasureStaffPar(note)));
    });
}

Status MoveBySteps(WindowTarn& window, const std::vector<GenericNote*>& notes, int steps) {
    return Rewrite(window, notes, "They stand there", [&](const GenericNote* note, const Spelling& from) {
        const int step = from.step + steps;
        return Spelling{step, AlterationOfKey(KeyInForce(MeasureStaffPar(note)), step)};
    });
}

Status AlterNotes(WindowTarn& window, const std::vector<GenericNote*>& notes, Alteration alteration) {
    return Rewrite(window, notes, "These notes are altered so already",
                   [&](const GenericNote*, const Spelling& from) {
                       return Spelling{from.step, alteration};
                   });
}

Status ChangeSpelling(WindowTarn& window, const std::vector<GenericNote*>& notes) {
    Respelling respelling(notes);
    if (respelling.Notes().empty()) return {Fault::Refused, kNoPitch};
    // A note that finds no room stays, so that all lines count as taken until they are left.
    for (GenericNote* note : respelling.Notes()) (void)respelling.Choose(note, {SpellingOf(note)});
    for (GenericNote* note : respelling.Notes())
        if (const Spelling now = SpellingOf(note); !HasSmallStep(now))
            (void)respelling.Choose(note, {NextSpelling(now)});
    if (!respelling.Write(window)) return {Fault::Refused, "These notes can be spelled in no other way here"};
    return Status::Ok();
}

}  // namespace corvane
