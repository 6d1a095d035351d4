// A beam is painted by its first marker; the others add nothing.
#include "layout/DrawFamilies.h"
#include "layout/HiddenInk.h"
#include "layout/NoteGeometry.h"
#include "model/NoteOperations.h"
#include "model/Par.h"

namespace corvane {

Rect InkOf(const BeamMarker& marker) { return RectOf(&marker); }

void Paint(GraphicPort& port, const BeamMarker& marker, const DrawContext& context) {
    const Beam* beam = beamMarkers.ParentOf(&marker);
    if (!beam || beamMarkers.First(beam) != &marker) return;
    const PenKept kept(port);
    if (IsHidden(beam) && !UseHiddenColour(port, context.hiddenStems, context.printing)) return;
    for (const BeamStroke& stroke : StrokesOf(beam)) {
        port.SetPenSize(1, stroke.thickness);
        port.DrawLine(stroke.from.x, stroke.from.y, stroke.to.x, stroke.to.y);
    }
}

std::vector<Point> OutlineOf(const BeamMarker& marker) {
    const Beam* beam = beamMarkers.ParentOf(&marker);
    std::vector<Point> line;
    if (!beam || beamMarkers.First(beam) != &marker) return line;
    for (const BeamStroke& stroke : StrokesOf(beam)) line.insert(line.end(), {stroke.from, stroke.to});
    return line;
}

int VoiceNumberOf(const BeamMarker& marker) {
    const BeamSymbol* symbol = beamSymbolAttributes.ParentOf(&marker);
    if (const auto* pause = As<Pause>(symbol)) return VoiceNumberOf(*pause);
    const auto* stem = As<Stem>(symbol);
    const ChordSymbol* chordSymbol = stem ? ChordSymbolPar(stem) : nullptr;
    return chordSymbol ? VoiceNumberOf(*chordSymbol) : 0;
}

}  // namespace corvane
