#include "layout/DrawFamilies.h"
#include "layout/NoteGeometry.h"
#include "model/Par.h"
#include "model/SymbolTable.h"

namespace corvane {

Rect InkOf(const Pause& pause) { return RectOf(&pause); }

void Paint(GraphicPort& port, const Pause& pause, const DrawContext& context) {
    const PenKept kept(port);
    if (pause._hidden && !UseHiddenColour(port, context.hiddenRests, context.printing)) return;
    const Point place = PlaceOf(&pause);
    DrawSymbol(port, pause._symbol, place.x, place.y, FrameOf(StaffPar(&pause)).lineDistance, 100);
    const LedgerLines ledgers = LedgerLinesOf(&pause);
    if (ledgers.count && !pause._hidden)
        PaintLevel(port, ledgers.left, ledgers.right, ledgers.first, ledgers.weight);
}

int VoiceNumberOf(const Pause& pause) {
    const Voice* voice = VoicePar(&pause);
    return voice ? voice->_number.Get() : 0;
}

}  // namespace corvane
