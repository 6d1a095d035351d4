// Augmentation dots.
#include "layout/Engraving.h"
#include "model/NoteOperations.h"
#include "model/Par.h"
#include "model/SymbolTable.h"

namespace corvane {

namespace {

void RemoveDots(Document* document, VoiceSymbol* symbol) {
    for (VoiceSymbolAttribute* attribute : voiceSymbolAttributes.Of(symbol))
        if (Dot* dot = As<Dot>(attribute)) {
            DropSymbol(document, dot->_symbol);
            voiceSymbolAttributes.Remove(dot);
            Release(dot);
        }
}

void AddDot(Document* document, VoiceSymbol* symbol) {
    auto* dot = Make<Dot>();
    voiceSymbolAttributes.Add(symbol, dot);
    dot->_symbol = LookupSymbol(document, "Punto");
}

}  // namespace

void SetDots(VoiceSymbol* symbol, int count) {
    Document* document = DocumentPar(symbol);
    if (count <= 0) return RemoveDots(document, symbol);
    if (!DotOf(symbol)) AddDot(document, symbol);
    for (VoiceSymbolAttribute* attribute : voiceSymbolAttributes.Of(symbol))
        if (Dot* dot = As<Dot>(attribute)) dot->_count = static_cast<int16_t>(count);
}

}  // namespace corvane
