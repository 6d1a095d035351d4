// Hiding what is selected and showing it again, and whether what is hidden is seen all the same.
#include <algorithm>
#include <unordered_set>

#include "edit/CommandTable.h"
#include "edit/ControlPoints.h"
#include "edit/MeasureRange.h"
#include "edit/NoteChoice.h"
#include "edit/SessionChoices.h"
#include "edit/SystemRedraw.h"
#include "layout/HiddenInk.h"
#include "layout/NoteGeometry.h"
#include "model/NoteOperations.h"

namespace corvane {
namespace {

// ---- What the commands find among the chosen events, each once.

std::vector<GenericNote*> NotesOf(ArgumentReader& reader, WindowTarn& window) {
    return ReadNotes(reader, window);
}

std::vector<Stem*> StemsOf(ArgumentReader& reader, WindowTarn& window) {
    std::vector<Stem*> stems;
    std::unordered_set<const Stem*> seen;
    for (const Chords* chord : ReadChords(reader, window)) {
        Stem* stem = StemOf(chord);
        if (HasStemInk(stem) && seen.insert(stem).second) stems.push_back(stem);
    }
    return stems;
}

std::vector<Pause*> RestsOf(ArgumentReader& reader, WindowTarn& window) {
    std::vector<Pause*> rests;
    for (VoiceSymbol* event : ReadEvents(reader, window))
        if (auto* rest = As<Pause>(event)) rests.push_back(rest);
    return rests;
}

std::vector<Irregular*> TupletsOf(ArgumentReader& reader, WindowTarn& window) {
    std::vector<Irregular*> tuplets;
    std::unordered_set<const Irregular*> seen;
    for (const VoiceSymbol* event : ReadEvents(reader, window))
        for (const VoiceSymbolAttribute* attribute : voiceSymbolAttributes.Of(event))
            if (const auto* mark = As<MarkIrreg>(attribute)) {
                Irregular* tuplet = irregularMarks.ParentOf(mark);
                if (tuplet && seen.insert(tuplet).second) tuplets.push_back(tuplet);
            }
    return tuplets;
}

constexpr const char *kNoNote = "Select some notes first", *kNoStem = "Select notes with stems first",
                     *kNoRest = "Select some rests first", *kNoTuplet = "Select the notes of a tuplet first";

// Without `show` all are hidden where any can be seen, else shown.
template <auto Find, const auto& none>
Status HideCommand(WindowTarn& window, const CommandArguments& arguments) {
    ArgumentReader reader(arguments);
    const int show = reader.Choice("show", {"0", "1"}, -1);
    const std::vector<VoiceSymbol*> events = ReadEvents(reader, window);
    const auto objects = Find(reader, window);
    if (objects.empty()) reader.Refuse(none);
    if (const Status status = reader.Result(); !status) return status;
    const bool anySeen =
        std::any_of(objects.begin(), objects.end(), [](const auto* object) { return !IsHidden(object); });
    const bool hide = show < 0 ? anySeen : show == 0;
    const EditStep step(window);
    const MeasureRange range = SpanOf(events);
    const SystemRedraw redraw(window, range.first, range.last);
    for (auto* object : objects)
        if (IsHidden(object) != hide) Hide(object, hide);
    return Status::Ok();
}

// ---- Whether it is seen

bool ReadSwitch(ArgumentReader& reader, const char* name, bool now) {
    return reader.Choice(name, {"0", "1"}, now) == 1;
}

Status ShowHideOptionsCommand(WindowTarn&, const CommandArguments& arguments) {
    ArgumentReader reader(arguments);
    const auto read = [&](const char* show, const char* print, const HiddenRule& now) {
        return HiddenRule{ReadSwitch(reader, show, now.show), !ReadSwitch(reader, print, !now.hideInPrint)};
    };
    SessionChoices choices = Choices();
    choices.hiddenNotes = read("notes", "printnotes", choices.hiddenNotes);
    choices.hiddenStems = read("stems", "printstems", choices.hiddenStems);
    choices.hiddenRests = read("rests", "printrests", choices.hiddenRests);
    if (const Status status = reader.Result(); !status) return status;
    Choices() = choices;
    for (WindowTarn* each : WindowTarn::All()) {
        each->Sheet().MarkAllDirty();
        each->Handles().Renew();  // what is not seen has none
        each->Shell().Refresh(*each);
    }
    return Status::Ok();
}

constexpr Command kHide[] = {
    {33082, "Show-Hide Options", ShowHideOptionsCommand, NotPlaying},
    {33083, "Rests", HideCommand<RestsOf, kNoRest>, NotPlaying, Needs::Rests},
    {33084, "Stems", HideCommand<StemsOf, kNoStem>, NotPlaying, Needs::Notes},
    {33085, "Notes", HideCommand<NotesOf, kNoNote>, NotPlaying, Needs::Notes},
    {33086, "Tuplets", HideCommand<TupletsOf, kNoTuplet>, NotPlaying, Needs::Events},
};

}  // namespace

CommandFamily HideCommands() { return kHide; }

}  // namespace corvane
