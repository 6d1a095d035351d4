// Commands that turn a way of editing on and off.
#include "edit/CommandTable.h"
#include "edit/ToolState.h"

namespace corvane {
namespace {

template <bool EditSwitches::*Switch>
Status Toggle(WindowTarn&, const CommandArguments&) {
    Switches().*Switch = !(Switches().*Switch);
    return Status::Ok();
}
constexpr Command kSwitches[] = {
    {32808, "Auto Beaming", Toggle<&EditSwitches::autoBeam>, NotPlaying},
    {32809, "Auto Spacing", Toggle<&EditSwitches::autoSpace>, NotPlaying},
    {33130, "Playback notes", Toggle<&EditSwitches::playbackNotes>, NotPlaying},
    {33153, "Delete Notes To Rests", Toggle<&EditSwitches::deleteNotesToRests>, NotPlaying},
};

}  // namespace

CommandFamily SwitchCommands() { return kSwitches; }

}  // namespace corvane
