// Signs on notes and tremolo strokes.
#include "layout/DrawFamilies.h"
#include "layout/NoteSigns.h"
#include "model/Par.h"
#include "model/SymbolTable.h"

namespace corvane {
namespace {

void Paint(GraphicPort& port, const SignPlace& place) {
    if (place.symbol)
        DrawSymbol(port, place.symbol, place.at.x, place.at.y, place.lineDistance, place.percent);
}

}  // namespace

Rect InkOf(const SymbolAttribute& sign) { return PlaceOf(&sign).Ink(); }
void Paint(GraphicPort& port, const SymbolAttribute& sign, const DrawContext&) {
    Paint(port, PlaceOf(&sign));
}

Rect InkOf(const Tremolo& tremolo) { return PlaceOf(&tremolo).Ink(); }
void Paint(GraphicPort& port, const Tremolo& tremolo, const DrawContext&) { Paint(port, PlaceOf(&tremolo)); }

int VoiceNumberOf(const Tremolo& tremolo) {
    const VoiceSymbol* symbol = voiceSymbolAttributes.ParentOf(&tremolo);
    const Voice* voice = symbol ? VoicePar(symbol) : nullptr;
    return voice ? voice->_number.Get() : 0;
}

}  // namespace corvane
