// Accidentals and dots.
#include "layout/DrawFamilies.h"
#include "layout/HiddenInk.h"
#include "layout/NoteGeometry.h"
#include "model/Par.h"
#include "model/SymbolTable.h"

namespace corvane {

Rect InkOf(const Accident& accident) { return RectOf(&accident); }

void Paint(GraphicPort& port, const Accident& accident, const DrawContext& context) {
    const PenKept kept(port);
    if (IsHidden(&accident) && !UseHiddenColour(port, context.hiddenNotes, context.printing)) return;
    const GenericNote* note = noteAttributes.ParentOf(&accident);
    const Point place = PlaceOf(&accident);
    DrawSymbol(port, accident._symbol, place.x, place.y, FrameOf(StaffPar(note)).lineDistance, 100);
}

int VoiceNumberOf(const NoteAttribute& sign) {
    const GenericNote* note = noteAttributes.ParentOf(&sign);
    const Voice* voice = note ? VoicePar(note) : nullptr;
    return voice ? voice->_number.Get() : 0;
}

Rect InkOf(const Dot& dot) { return RectOf(&dot); }

void Paint(GraphicPort& port, const Dot& dot, const DrawContext& context) {
    const VoiceSymbol* symbol = voiceSymbolAttributes.ParentOf(&dot);
    const auto* chord = As<Chords>(symbol);
    const auto* pause = As<Pause>(symbol);
    const bool hidden = chord ? IsHidden(chord) : pause && IsHidden(pause);
    const PenKept kept(port);
    if (hidden && !UseHiddenColour(port, chord ? context.hiddenNotes : context.hiddenRests, context.printing))
        return;
    for (const Point place : PlacesOf(&dot))
        DrawSymbol(port, dot._symbol, place.x, place.y, FrameOf(StaffPar(symbol)).lineDistance, 100);
}

int VoiceNumberOf(const Dot& dot) {
    const VoiceSymbol* symbol = voiceSymbolAttributes.ParentOf(&dot);
    const Voice* voice = symbol ? VoicePar(symbol) : nullptr;
    return voice ? voice->_number.Get() : 0;
}

}  // namespace corvane
