// Augmentation dots: one record an event, whose count and distance serve all its heads.
#include "layout/Engraving.h"
#include "model/NoteOperations.h"
#include "model/Par.h"
#include "model/SymbolTable.h"

namespace corvane {

void SetDots(VoiceSymbol* symbol, int count) {
    Document* document = DocumentPar(symbol);
    Dot* dot = DotOf(symbol);
    if (count <= 0) {
        if (!dot) return;
        DropSymbol(document, dot->_symbol);
        voiceSymbolAttributes.Remove(dot);
        Release(dot);
        return;
    }
    if (!dot) {
        dot = Make<Dot>();
        voiceSymbolAttributes.Add(symbol, dot);
        dot->_symbol = LookupSymbol(document, "Punto");
    }
    dot->_count = static_cast<int16_t>(count);
}

}  // namespace corvane
