// What the commands may be told, so that each of them can act: a table for throwing dice.
#pragma once

#include <map>

#include "edit/CommandArguments.h"
#include "edit/CommandValues.h"
#include "random_steps.h"

namespace corvane {

// A number from `low` to `high`, or one of the words.
struct ArgumentChoice {
    const char* name;
    int low, high;
    std::vector<const char*> words = {};
    bool always = false;  // the command does nothing without it; others are left out now and then
};

// In place of a highest number: as many as the score has.
inline constexpr int kMeasures = 1000001, kStaves = 1000002, kPages = 1000003;

using ArgumentTable = std::map<int, std::vector<ArgumentChoice>>;

inline const ArgumentTable& ArgumentChoices() {
    static const ArgumentTable table = {
        {32776, {{"left", 0, 400}, {"right", 0, 400}, {"top", 0, 400}, {"bottom", 0, 400}}},
        {32777, {{"from", 1, kStaves, {}, true}, {"size", 60, 140}, {"lines", 1, 6}, {"distance", 0, 900}}},
        {32778,
         {{"measure", 1, kMeasures, {}, true},
          {"bpm", 40, 200},
          {"beat", 1, 5},
          {"figure", 0, 0, {"2", "4", "8"}},
          {"dots", 0, 1}}},
        {32779,
         {{"num", 0, 0, {"2", "3", "4", "4", "5", "6", "7", "12", "3+2"}, true},
          {"den", 0, 0, {"1", "2", "4", "4", "4", "6", "8", "16"}, true},
          {"from", 1, kMeasures, {}, true},
          {"to", 1, kMeasures},
          {"pickup", 0, 1}}},
        {32780, {{"start", 0, 127, {}, true}, {"end", 0, 127}}},
        {32781, {{"fifths", -7, 7, {}, true}, {"from", 1, kMeasures, {}, true}, {"to", 1, kMeasures}}},
        {32782,
         {{"show", 0, 1},
          {"at", 0, 0, {"every", "systems"}},
          {"step", 1, 5},
          {"staves", 0, 0, {"top", "all", "connections"}},
          {"first", -3, 90}}},
        {32783,
         {{"measure", 1, kMeasures, {}, true},
          {"type", 0, 0, {"single", "double", "final", "repeatstart", "repeatend", "dashed", "none"}, true},
          {"on", 0, 1}}},
        {32784, {{"automatic", 0, 1}, {"voice1", 0, 0, {"number", "up", "down"}}}},
        {32786, {{"first", 0, 120}, {"last", 0, 120}, {"clef", 0, 90}, {"key", 0, 90}, {"time", 0, 90}}},
        {32787, {{"indent", 0, 900, {}, true}}},
        {32788, {{"count", 1, 6, {}, true}, {"from", 1, kMeasures}, {"to", 1, kMeasures}}},
        {32789, {{"count", 1, 4, {}, true}, {"from", 1, kPages}, {"measures", 1, 4}}},
        {32790, {{"count", 1, 1}, {"after", 0, kPages}}},
        {32791, {{"count", 1, 5}, {"after", 0, kMeasures}}},
        {32792, {{"count", 1, 1}, {"type", 0, 0, {"S", "D", "B", "E"}}, {"after", 0, kStaves}}},
        {32793, {{"from", 1, kPages, {}, true}}},
        {32794, {{"from", 1, kMeasures, {}, true}}},
        {32795, {{"from", 1, kStaves, {}, true}}},
        {32796, {{"from", 1, kMeasures, {}, true}, {"to", 1, kMeasures}, {"text", 0, 0, {"1.", "2.", ""}}}},
        {32797,
         {{"measure", 1, kMeasures, {}, true}, {"text", 0, 0, {"D.C.", "Fine", "Coda", "Segno"}, true}}},
        {32798, {{"show", 0, 1, {}, true}}},
        {32805,
         {{"count", 0, 0, {"3", "3", "3", "5", "6", "9"}, true},
          {"in", 0, 0, {"2", "2", "2", "4", "8"}, true},
          {"figure", 0, 0, {"usual", "number", "ratio", "none"}},
          {"bracket", 0, 0, {"unbeamed", "always", "none"}}}},
        {32807,
         {{"mode", 0, 0, {"mathematical", "engraver"}},
          {"from", 1, kMeasures},
          {"to", 1, kMeasures},
          {"all", 0, 1},
          {"dots", 0, 1},
          {"clefs", 0, 1},
          {"accidentals", 0, 1},
          {"lyrics", 0, 1}}},
        {32810,
         {{"binary", 0, 0, {"beat", "two", "all"}},
          {"ternary", 0, 0, {"beat", "all"}},
          {"five", 0, 0, {"2+3", "3+2", "all"}},
          {"single", 0, 0, {"beam", "flag"}},
          {"apply", 0, 0, {"new", "score"}}}},
        {32811,
         {{"connect", 0, 0, {"none", "eighth", "larger"}},
          {"complete", 0, 0, {"yes", "no"}},
          {"by", 0, 0, {"beam", "stems"}},
          {"apply", 0, 0, {"new", "score"}}}},
        {32814, {{"show", 0, 0, {"needed", "reminders", "always"}}}},
        {32817,
         {{"by", 0, 0, {"half", "double"}},
          {"value", 0, 0, {"1", "2", "4", "8", "16", "64"}},
          {"dots", 0, 3}}},
        {32818, {{"sign", 0, 0, {"None", "Accent", "Staccato", "Tenuto"}}}},
        {32819,
         {{"interval", 0, 0, {"M2", "m3", "P5", "P8", "A4"}, true}, {"direction", 0, 0, {"up", "down"}}}},
        {32820,
         {{"thickness", 30, 80},
          {"accidental", 0, 90},
          {"dot", 0, 90},
          {"stem", 200, 400},
          {"holds", 0, 0, {"note", "measure"}}}},
        {32821, {{"above", 100, 300}, {"below", 100, 300}, {"distance", 0, 90}}},
        {32822, {{"count", 2, 7}, {"in", 1, 4}, {"dx", -90, 90}, {"dy", -90, 90}}},
        {33050,
         {{"staff", 1, kStaves, {}, true},
          {"voice", 1, 8},
          {"on", 0, 1},
          {"solo", 0, 1},
          {"volume", 0, 127},
          {"program", 0, 128},
          {"channel", 1, 16},
          {"transposition", -12, 12}}},
        {33082,
         {{"notes", 0, 1},
          {"stems", 0, 1},
          {"rests", 0, 1},
          {"printnotes", 0, 1},
          {"printstems", 0, 1},
          {"printrests", 0, 1}}},
        {33088,
         {{"time", 0, 0, {"following", "preceding"}},
          {"assigned", 0, 100},
          {"cut", 0, 100},
          {"slash", 0, 1}}},
        {33177, {{"1/4", 5, 40}, {"1/8", 5, 40}, {"min", 1, 9}}},
        {40011, {{"text", 0, 0, {"Of nothing", ""}, true}}},
        {40012,
         {{"staff", 1, kStaves}, {"name", 0, 0, {"Viola d'amore", ""}, true}, {"short", 0, 0, {"Vla"}}}},
        {40020, {{"side", 0, 0, {"stems", "above", "below"}}}},
        {40023, {{"kind", 0, 0, {"8up", "8down", "15up", "15down"}}}},
        {33029, {{"from", 1, kMeasures}}},
        {33090, {{"doc", 0, 0, {"Marcelane"}, true}, {"sys", 0, 0, {"Serif", "Sans"}}}},
        {40026, {{"connect", 0, 0, {"all", "eighth", "larger"}}}},
        {40050, {{"levels", 1, 4, {}, true}}},
        {57606, {{"height", 14000, 20000}, {"width", 9000, 15000}}},
    };
    return table;
}

inline CommandArguments AnyArguments(Dice& dice, int id, const ScoreExtent& extent) {
    CommandArguments arguments;
    const auto row = ArgumentChoices().find(id);
    if (row == ArgumentChoices().end()) return arguments;
    const std::map<int, int> extents = {
        {kMeasures, extent.measures}, {kStaves, extent.staves}, {kPages, extent.pages}};
    for (const ArgumentChoice& choice : row->second) {
        if (!choice.always && dice.OneIn(3)) continue;
        const auto most = extents.find(choice.high);
        arguments[choice.name] =
            choice.words.empty()
                ? std::to_string(dice.Pick(choice.low, most == extents.end() ? choice.high : most->second))
                : dice.AnyOf(choice.words);
    }
    return arguments;
}

}  // namespace corvane
