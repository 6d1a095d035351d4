// Counts what is allocated between two places of a test.
#pragma once

namespace corvane {
void StartCountingAllocations();
int StopCountingAllocations();
}  // namespace corvane
