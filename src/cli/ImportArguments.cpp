#include "cli/ImportArguments.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <span>

namespace corvane {
namespace {

struct WordNumber {
    const char* word;
    int number;
};
constexpr WordNumber kLevels[] = {{"none", 0}, {"half", 1}, {"quarter", 2}, {"8", 3},
                                  {"16", 4},   {"32", 5},   {"64", 6},      {"128", 7}};
constexpr WordNumber kTuplets[] = {{"none", 0}, {"3", 1}, {"5", 2}, {"7", 3}, {"9", 4}, {"11", 5}};
constexpr WordNumber kResolutions[] = {{"2", 2},   {"4", 4},   {"8", 8},    {"16", 16},
                                       {"32", 32}, {"64", 64}, {"128", 128}};
constexpr const char *kQuantize = "--quantize", *kTupletWord = "--tuplets",
                     *kResolution = "--tuplet-resolution", *kSplit = "--split";

int TupletNumber(const ImportOptions& options) { return options.tuplets ? options.tupletKind : 0; }

std::string WordOf(std::span<const WordNumber> words, int number) {
    for (const WordNumber& each : words)
        if (each.number == number) return each.word;
    return words.front().word;
}

// One of the words; that of `usual` is told as the default.
template <class Take>
void AddWords(CLI::App& sub, const char* name, const char* what, std::span<const WordNumber> words, int usual,
              Take take) {
    std::vector<std::string> known;
    for (const WordNumber& each : words) known.emplace_back(each.word);
    const auto chosen = [words, take](const std::string& word) {
        for (const WordNumber& each : words)
            if (word == each.word) take(each.number);
    };
    sub.add_option_function<std::string>(name, chosen, what)
        ->check(CLI::IsMember(known))
        ->default_str(WordOf(words, usual));
}

}  // namespace

void AddImportOptions(CLI::App& sub, ImportOptions& options) {
    AddWords(sub, kQuantize, "For MIDI files: the grid that notes are moved to", kLevels, options.level,
             [&options](int level) { options.level = level; });
    AddWords(sub, kTupletWord, "For MIDI files: the richest tuplet looked for", kTuplets,
             TupletNumber(options), [&options](int kind) {
                 options.tuplets = kind > 0;
                 options.tupletKind = std::max(kind, 1);
             });
    AddWords(sub, kResolution, "For MIDI files: the smallest value in a tuplet", kResolutions,
             options.tupletResolution, [&options](int value) { options.tupletResolution = value; });
    sub.add_option(kSplit, options.splitVoice,
                   "For MIDI files: the voice of notes that do not begin and end with the others; 0 for none")
        ->check(CLI::Range(0, 8))
        ->capture_default_str();
}

std::vector<std::string> ArgumentsOf(const ImportOptions& options) {
    return {kQuantize,   WordOf(kLevels, options.level),
            kTupletWord, WordOf(kTuplets, TupletNumber(options)),
            kResolution, WordOf(kResolutions, options.tupletResolution),
            kSplit,      std::to_string(options.splitVoice)};
}

}  // namespace corvane
