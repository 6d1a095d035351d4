// Commands that put ties, tuplets, slurs and lines on the selected notes.
#include "edit/CommandTable.h"
#include "edit/Spanners.h"
#include "edit/TarnSelect.h"
#include "edit/ToolState.h"

namespace corvane {
namespace {

Status TieNotesCommand(WindowTarn& window, const CommandArguments& arguments) {
    ArgumentReader reader(arguments);
    if (const Status status = reader.Result(); !status) return status;
    SetSelectionAnchors(window);
    const std::vector<GenericNote*> notes = SelectedNotes(Tools().OneVoice());
    ClearSelectionAnchors();
    return TieNotesOf(window, notes);
}

constexpr Command kSpanners[] = {
    {32804, "Tie Notes", TieNotesCommand, NotPlaying},
};

}  // namespace

CommandFamily SpannerCommands() { return kSpanners; }

}  // namespace corvane
