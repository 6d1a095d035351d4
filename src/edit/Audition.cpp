#include "edit/Audition.h"

#include "edit/ToolState.h"
#include "model/Clefs.h"

namespace corvane {
namespace {
Auditioner auditionerInUse = nullptr;
}

void SetAuditioner(Auditioner auditioner) { auditionerInUse = auditioner; }

void AuditionNote(const GenericNote* note, int milliseconds) {
    if (!auditionerInUse || !Switches().playbackNotes) return;
    const int height = SoundingHeight(note);
    if (height >= 0 && height <= 127) auditionerInUse(note, milliseconds);
}

}  // namespace corvane
