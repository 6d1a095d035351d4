// Systems fitted to their page after its size, its margins or the room for staff names changed. Page units.
#pragma once

#include "model/Relations.h"

namespace corvane {

// The least paper, and the least that margins leave of it.
inline constexpr int32_t kLeastPageHeight = 5950, kLeastPageWidth = 4060, kLeastRoom = 1000;

// The size that a score's preferences tell becomes the process's, but for what is less than the least.
void TakePageSize(const Document* document);

// From the left margin to a system: room for the names of staves before the first one of the score, for their
// short names before others.
int32_t IndentOf(const Document* document, const System* system);
// A system as wide as its page allows, its staves too; its measures share what they gain or lose in
// proportion to their note areas. Nothing is written where it fits.
void FitWidth(System* system);
// The same between any two sides, counted from the left margin.
void SetSides(System* system, int32_t left, int32_t right);
// From the left margin to the right one.
int32_t FullRight(const System* system);
// The first system of the score, null for none.
System* FirstSystem(const Document* document);
// Width of all systems, and their tops.
void FitPage(Document* document, Page* page);

}  // namespace corvane
