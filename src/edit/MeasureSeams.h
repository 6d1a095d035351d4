// What reaches over the place between two measures, where measures come in or go. Each belongs to the
// caller's step.
#pragma once

#include <vector>

#include "edit/WindowTarn.h"

namespace corvane {

// Ties and beams from a measure to what follows it end.
void CutBehind(WindowTarn& window, const Measure* measure);
// An ending's bracket that reaches over new measures, behind each other, stands over them too.
void ContinueEndings(const std::vector<Measure*>& made);
// A final barline stays at the end of the score: it moves from one measure to another.
void MoveFinalBarline(Measure* from, Measure* to);

// Takes consecutive measures out, with their signs said behind them again where those would be lost, and
// gives the systems that held them, emptied ones included. Later measures are numbered anew.
std::vector<System*> TakeOutMeasures(WindowTarn& window, const std::vector<Measure*>& going);

}  // namespace corvane
