#include "base/Assert.h"

#include <atomic>
#include <cstdio>
#include <cstdlib>

#include "base/Notify.h"

namespace corvane {
namespace {
std::atomic<LastWords> lastWords{nullptr};
std::atomic<bool> ending{false};
}  // namespace

void SetLastWords(LastWords words) { lastWords = words; }

void AssertionFailed(const char* expression, const char* file, int line) {
    char text[1024];
    std::snprintf(text, sizeof text, "Assertion (%s) failed in \"%s\" on line %d\n", expression, file, line);
    if (ending.exchange(true)) std::abort();
    std::fputs(text, stderr);
    if (LastWords words = lastWords) words();
    Notify(Severity::Fatal, text);
    std::abort();
}

}  // namespace corvane
