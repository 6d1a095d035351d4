// Scores of any size for benchmarks.
#pragma once

#include <memory>

#include "edit/WindowTarn.h"

namespace corvane {

// What a program does before its first score; once.
void StartUpForBench();

// A score of at least `measures` measures on as many pages as it takes, each voice with `notes` eighth notes
// that sound (0 to 8 in a measure of 4/4), spaced only where asked.
std::unique_ptr<WindowTarn> LargeScore(int measures, const char* staffs, int notes, bool spaced = false);

// The score as it stands after saving and opening it.
std::unique_ptr<WindowTarn> Reopened(const WindowTarn& score);

long ObjectCount(const NewMemoryPool& pool);

}  // namespace corvane
