// How grace notes are made and played: of the score, and of those that are selected.
#include "edit/CommandTable.h"
#include "edit/MeasureRange.h"
#include "edit/NoteChoice.h"
#include "model/Preferences.h"
#include "play/MIDIGrace.h"

namespace corvane {
namespace {

constexpr int16_t kFollowingNote = 17, kPlain = 19;

struct GraceOptions {
    bool fromPreceding, slashed;
    int percentAssigned, percentCut;
};

void Keep(GracePref& preferences, const GraceOptions& options) {
    preferences._mode = options.fromPreceding ? GracePref::kPrecedingNote : kFollowingNote;
    preferences._type = options.slashed ? GracePref::kSlashed : kPlain;
    preferences._percentAssigned = options.percentAssigned;
    preferences._percentCut = options.percentCut;
}

// Without a selection and without measures only those to come are meant.
std::vector<Chords*> ReadChosen(ArgumentReader& reader, WindowTarn& window) {
    if (window.TheSelection().IsEmpty() && !reader.Has("from")) return {};
    return ReadChords(reader, window);
}

Status GraceCommand(WindowTarn& window, const CommandArguments& arguments) {
    auto* preferences = Preferences<GracePref>(window.GetDocument());
    if (!preferences) return {Fault::Refused, "The score has no settings for grace notes"};
    ArgumentReader reader(arguments);
    const auto timeNow = static_cast<int>(preferences->_mode == GracePref::kPrecedingNote);
    const auto slashNow = static_cast<int>(preferences->_type == GracePref::kSlashed);
    GraceOptions options{};
    options.fromPreceding = reader.Choice("time", {"following", "preceding"}, timeNow) != 0;
    options.percentAssigned = reader.Number("assigned", 0, 100, preferences->_percentAssigned);
    options.percentCut = reader.Number("cut", 0, 100, preferences->_percentCut);
    options.slashed = reader.Number("slash", 0, 1, slashNow) != 0;
    const std::vector<Chords*> chosen = ReadChosen(reader, window);
    if (const Status status = reader.Result(); !status) return status;
    const EditStep step(window);
    Keep(*preferences, options);
    for (Chords* chord : chosen)
        if (auto* grace = As<GraceChord>(chord)) MakeGraceEvents(grace);
    return Status::Ok();
}

constexpr Command kGrace[] = {{33088, "Grace Notes Options", GraceCommand, NotPlaying}};

}  // namespace

CommandFamily GraceCommands() { return kGrace; }

}  // namespace corvane
