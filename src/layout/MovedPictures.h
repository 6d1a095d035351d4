// Pictures of things as they would look elsewhere, while no record says so yet: what a hand that drags them
// sees. Absolute page units; colour and pen are the port's.
#pragma once

#include "layout/BeamMoves.h"
#include "layout/SpannerLines.h"

namespace corvane {

class GraphicPort;
struct DrawContext;

// A head with its ledger lines on another staff step.
void PaintHeadOn(GraphicPort& port, const GenericNote* note, int line);
// What a page would show of the line of a mark if it ran so.
void PaintRun(GraphicPort& port, const StaffMeasureSymbol* mark, const LineRun& run, const Page* page);
// A beam with the columns of its stems, as it would look with its line moved.
void PaintBeamMoved(GraphicPort& port, const Beam* beam, const BeamMove& move, const DrawContext& context);

}  // namespace corvane
