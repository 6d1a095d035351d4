// Invariants. A broken one is our own mistake: the message is shown, unsaved work is put in safety, the
// program ends.
#pragma once

namespace corvane {

// Shows "Assertion (%s) failed in "%s" on line %d\n", runs the last words and ends the program. Never
// returns. Safe on any thread; a second failure while the last words run ends the program at once.
[[noreturn]] void AssertionFailed(const char* expression, const char* file, int line);

// What to do between the message and the end, such as writing recovery files. One at a time; null for
// nothing.
using LastWords = void (*)();
void SetLastWords(LastWords words);

// The part of a path behind its last slash, as the message names a source.
constexpr const char* SourceName(const char* path) {
    const char* name = path;
    for (const char* p = path; *p; ++p)
        if (*p == '/') name = p + 1;
    return name;
}

}  // namespace corvane

// The expression's own text is the message; ASSERT_AS gives another.
#define CORVANE_ASSERT(expression) CORVANE_ASSERT_AS(expression, #expression)
#define CORVANE_ASSERT_AS(expression, text) \
    (static_cast<bool>(expression)          \
         ? static_cast<void>(0)             \
         : ::corvane::AssertionFailed(text, ::corvane::SourceName(__FILE__), __LINE__))
