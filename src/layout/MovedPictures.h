// Pictures of things as they would look elsewhere, while no record says so yet: what a hand that drags them
// sees. Absolute page units; colour and pen are the port's.
#pragma once

#include "layout/SpannerLines.h"

namespace corvane {

class GraphicPort;

// A head with its ledger lines on another staff step.
void PaintHeadOn(GraphicPort& port, const GenericNote* note, int line);
// What a page would show of the line of a mark if it ran so.
void PaintRun(GraphicPort& port, const StaffMeasureSymbol* mark, const LineRun& run, const Page* page);

}  // namespace corvane
