// What the session's settings choose for how scores are shown and filled; process-wide, for every score and
// no edit of any.
#pragma once

#include "layout/DrawPatch.h"
#include "model/SessionPreferences.h"

namespace corvane {

struct SessionChoices {
    HiddenRule hiddenNotes{false, true}, hiddenStems{false, true}, hiddenRests{false, true};
    int measuresPerSystem = 5;  // of a new system, where nobody tells
};
SessionChoices& Choices();

// From the settings and back to them.
void TakeChoices(const SessionPreferences& preferences);
void KeepChoices(SessionPreferences& preferences);

// How a page is drawn by them, on the screen or on paper.
DrawContext ContextFor(bool printing);

}  // namespace corvane
