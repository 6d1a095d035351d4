// What a person's preferences say about play.
#pragma once

#include "model/SessionPreferences.h"
#include "play/PlaySetup.h"

namespace corvane {

// Values that no device takes are held to what one does.
ClickSettings ClickOf(const SessionPreferences& preferences);
// Click and texts; the rest as it is at first.
PlaySetup PlaySetupOf(const SessionPreferences& preferences);

}  // namespace corvane
