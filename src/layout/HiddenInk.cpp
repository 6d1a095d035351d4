#include "layout/HiddenInk.h"

#include "layout/Engraving.h"
#include "layout/NoteGeometry.h"
#include "model/NoteOperations.h"
#include "model/Ties.h"

namespace corvane {
namespace {

// Added to a tuplet's bracket, so that it looks as before when it is shown again.
constexpr uint8_t kHiddenTuplet = 0x80;

uint8_t BracketByte(const Irregular* tuplet) { return static_cast<uint8_t>(tuplet->_bracket.Get()); }

}  // namespace

bool IsHidden(const GenericNote* note) { return note->_hidden != 0; }
bool IsHidden(const Pause* pause) { return pause->_hidden != 0; }

bool IsHidden(const Accident* accident) {
    const GenericNote* note = noteAttributes.ParentOf(accident);
    return note && IsHidden(note);
}

bool IsHidden(const Chords* chord) {
    for (const GenericNote* note : chordNotes.Of(chord))
        if (!IsHidden(note)) return false;
    return !chordNotes.IsEmpty(chord);
}

bool IsHidden(const MarkValue* mark) {
    const GenericNote *own = noteAttributes.ParentOf(mark), *partner = TiePartnerOf(mark);
    return own && partner && IsHidden(own) && IsHidden(partner);
}

bool IsHidden(const Stem* stem) { return HasStemInk(stem) && !IsVisible(stem->_direction); }

bool IsHidden(const Beam* beam) {
    bool any = false;
    for (const BeamMarker* marker : beamMarkers.Of(beam))
        if (const auto* stem = As<Stem>(beamSymbolAttributes.ParentOf(marker))) {
            if (!IsHidden(stem)) return false;
            any = true;
        }
    return any;
}

bool IsHidden(const Irregular* tuplet) { return (BracketByte(tuplet) & kHiddenTuplet) != 0; }

TupletBracket BracketOf(const Irregular* tuplet) {
    return static_cast<TupletBracket>(BracketByte(tuplet) & ~kHiddenTuplet);
}

void Hide(GenericNote* note, bool hidden) { note->_hidden = uint8_t{hidden}; }
void Hide(Pause* pause, bool hidden) { pause->_hidden = uint8_t{hidden}; }

void Hide(Stem* stem, bool hidden) {
    const bool up = IsUp(stem->_direction);
    if (hidden)
        ChangeStemDirection(stem, up ? StemDirection::HiddenUp : StemDirection::HiddenDown);
    else if (HasStemInk(stem))
        ChangeStemDirection(stem, up ? StemDirection::Up : StemDirection::Down);
}

void Hide(Irregular* tuplet, bool hidden) {
    const auto look = static_cast<uint8_t>(BracketOf(tuplet));
    tuplet->_bracket = static_cast<TupletBracket>(hidden ? look | kHiddenTuplet : look);
}

}  // namespace corvane
