// Changes of the mixer, one undoable step each. They act while the score plays, too: the rest of the score
// stays as it is.
#pragma once

#include "edit/WindowTarn.h"
#include "play/Mixer.h"

namespace corvane {

void ChangeActive(WindowTarn& window, DocStaff* staff, bool on);
void ChangeSolo(WindowTarn& window, DocStaff* staff, bool on);
void ChangeVoiceValue(WindowTarn& window, DocStaff* staff, int voice, VoiceValue value, int number);
void ChangeProgram(WindowTarn& window, DocStaff* staff, int voice, int program, std::string_view name,
                   int device);

}  // namespace corvane
