// Where the keyboard is heard while nothing records.
#pragma once

#include "play/SoundPort.h"

namespace corvane {

struct Document;

struct ThruPlace {
    int16_t port = SoundPort::kNone;
    int16_t channel = SoundPort::kNone;
};

// Where the first voice in use whose Rec box is set plays, as a take would go there; none if its staff is
// muted or there is no such voice.
ThruPlace ThruPlaceOf(const Document* document);

}  // namespace corvane
