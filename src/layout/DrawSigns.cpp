// Accidentals and dots.
#include "layout/DrawFamilies.h"
#include "layout/NoteGeometry.h"
#include "model/Par.h"
#include "model/SymbolTable.h"

namespace corvane {

Rect InkOf(const Accident& accident) { return RectOf(&accident); }

void Paint(GraphicPort& port, const Accident& accident, const DrawContext&) {
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

void Paint(GraphicPort& port, const Dot& dot, const DrawContext&) {
    const VoiceSymbol* symbol = voiceSymbolAttributes.ParentOf(&dot);
    for (const Point place : PlacesOf(&dot))
        DrawSymbol(port, dot._symbol, place.x, place.y, FrameOf(StaffPar(symbol)).lineDistance, 100);
}

int VoiceNumberOf(const Dot& dot) {
    const VoiceSymbol* symbol = voiceSymbolAttributes.ParentOf(&dot);
    const Voice* voice = symbol ? VoicePar(symbol) : nullptr;
    return voice ? voice->_number.Get() : 0;
}

}  // namespace corvane
