// The dialogs of commands as data: the fields by which a person tells a command's arguments.
#pragma once

#include <span>

namespace corvane {

// One of a list; what it tells: "value=8", "type=repeatstart;on=0", "" for nothing.
struct FieldOption {
    const char* label;
    const char* arguments;
};

// What a number may reach at most.
enum class Reach { Fixed, Measures, Pages, Staves };

// A list where it has options, a number where it has a range, else a text.
struct FieldRow {
    const char* label;       // with its mnemonic
    const char* name;        // of the argument; "" for a list, whose options name theirs
    const char* usual = "";  // what stands there where the score has nothing to say
    std::span<const FieldOption> options = {};
    int least = 0, most = 0;
    Reach reach = Reach::Fixed;
    const char* words = "";      // shown for the least number
    bool leastIsSilent = false;  // the least number tells nothing
    unsigned modes = 0;          // counts for these options of the form's first field, a bit each; 0 for all
    bool mayBeEmpty = false;     // a text that need not be filled in
};

struct CommandForm {
    int id;
    std::span<const FieldRow> fields;
    const char* hint = "";
    const char* many = "";   // asked where `count` is above 15, before the command runs
    bool ofSession = false;  // changes what the session's settings keep
};

// Those of spacing, pages and staves, those of beams and stems, those of signs and of what is hidden; the
// others stand with FindForm.
std::span<const CommandForm> LayoutForms();
std::span<const CommandForm> NoteForms();
std::span<const CommandForm> SignForms();

// Null for a command that asks nothing.
const CommandForm* FindForm(int id);

}  // namespace corvane
