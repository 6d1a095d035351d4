// A column: for each chord its heads, each followed by its ledger lines, then stem, flags and the slash of a
// grace chord.
#include "layout/DrawFamilies.h"
#include "layout/HiddenInk.h"
#include "layout/LineWeights.h"
#include "layout/NoteGeometry.h"
#include "model/NoteOperations.h"
#include "model/Par.h"
#include "model/SymbolTable.h"

namespace corvane {
namespace {

int32_t DistanceAt(const GenericNote* note) { return FrameOf(StaffPar(note)).lineDistance; }

void PaintHead(GraphicPort& port, const GenericNote* note, const Column& column, const DrawContext& context) {
    const PenKept kept(port);
    if (note->_hidden && !UseHiddenColour(port, context.hiddenNotes, context.printing)) return;
    const Point place = DrawnPlaceOf(note, column);
    DrawSymbol(port, note->_symbol, place.x, place.y, DistanceAt(note), note->_size, SideLetterOf(note));
    if (!note->_hidden) Paint(port, LedgerLinesOf(note, column));
}

void PaintStem(GraphicPort& port, const Column& column, int32_t endMovedBy) {
    if (!HasStemInk(column.stem)) return;
    const PenKept kept(port);
    Rect ink = StemInk(column);
    (IsUp(column.stem->_direction) ? ink.top : ink.bottom) += endMovedBy;
    PaintUpright(port, ink.left, ink.top, ink.bottom, ink.Width());
}

void PaintSlash(GraphicPort& port, const GraceSlash& slash) {
    const PenKept kept(port);
    port.SetPenSize(slash.weight, slash.weight);
    port.DrawLine(slash.from.x, slash.from.y, slash.to.x, slash.to.y);
}

void PaintFlags(GraphicPort& port, const Column& column) {
    const GenericNote* outer = NoteOuter(column.stem);
    for (const BeamSymbolAttribute* attribute : beamSymbolAttributes.Of(column.stem)) {
        const Flag* flag = As<Flag>(attribute);
        if (!flag || !outer) continue;
        const Point place = PlaceOf(flag, column);
        DrawSymbol(port, flag->_symbol, place.x, place.y, DistanceAt(outer), 100);
    }
    if (const std::optional<GraceSlash> slash = SlashOf(column)) PaintSlash(port, *slash);
}

}  // namespace

void Paint(GraphicPort& port, const LedgerLines& ledgers) {
    for (int i = 0; i < ledgers.count; ++i)
        PaintLevel(port, ledgers.left, ledgers.right, ledgers.first + i * ledgers.step, ledgers.weight);
}

Rect InkOf(const ChordSymbol& chordSymbol) { return RectOf(&chordSymbol); }

void Paint(GraphicPort& port, const ChordSymbol& chordSymbol, const DrawContext& context) {
    Paint(port, chordSymbol, context, nullptr);
}

void Paint(GraphicPort& port, const ChordSymbol& chordSymbol, const DrawContext& context,
           const EndMove& endMovedBy) {
    const PenKept kept(port);
    const Colour columnColour = port.CurrentColor();
    for (const Chords* chord : chordSymbolChords.Of(&chordSymbol)) {
        const Voice* voice = VoicePar(chord);
        if (!voice) continue;
        port.SetColor(context.ColourOf(voice->_number));
        for (const GenericNote* note : chordNotes.Of(chord))
            if (const Stem* stem = StemPar(note)) PaintHead(port, note, Column(stem), context);
    }
    port.SetColor(columnColour);
    for (const Stem* stem : chordSymbolStems.Of(&chordSymbol)) {
        if (IsHidden(stem) && !UseHiddenColour(port, context.hiddenStems, context.printing)) continue;
        const Column column(stem);
        PaintStem(port, column, endMovedBy ? endMovedBy(stem) : 0);
        PaintFlags(port, column);
        port.SetColor(columnColour);
    }
}

int VoiceNumberOf(const ChordSymbol& chordSymbol) {
    const Chords* chord = chordSymbolChords.First(&chordSymbol);
    const Voice* voice = chord ? VoicePar(chord) : nullptr;
    return voice ? voice->_number.Get() : 0;
}

}  // namespace corvane
