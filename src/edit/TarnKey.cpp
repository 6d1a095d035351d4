// Typed characters.
#include <cctype>

#include "edit/TarnClick.h"
#include "edit/ToolState.h"

namespace corvane {
namespace {

constexpr uint16_t kQuarterNote = 7;

void TakeItem(WindowTarn&, int item) { TakeNoteItem(static_cast<uint16_t>(item)); }

void TakeTool(WindowTarn&, int mode) {
    SetToolMode(mode);
    ApplyToolMode();
}

void FlipRest(WindowTarn&, int) {
    const bool onNotes = Tools().paletteGroup == kNoteGroup;
    TakeNoteTool();
    const uint16_t item = Tools().NoteItem();
    const bool flips = onNotes && item >= 3 && item <= 18;
    SetItem(static_cast<uint16_t>(!flips ? kQuarterNote : item % 2 ? item + 1 : item - 1));
}

void FlipGrace(WindowTarn&, int) {
    TakeNoteTool();
    ToggleGrace();
}

void TogglePlay(WindowTarn& window, int) {
    TakeTool(window, ModeArrow);
    window.Shell().PlayToggled(window);
}

constexpr struct {
    char key;
    void (*act)(WindowTarn&, int);
    int argument;
    bool whilePlaying = false;
} kKeys[] = {
    {' ', TogglePlay, 0, true}, {'1', TakeItem, 3},         {'2', TakeItem, 5},  {'3', TakeItem, 7},
    {'4', TakeItem, 9},         {'5', TakeItem, 11},        {'6', TakeItem, 13}, {'7', TakeItem, 15},
    {'8', TakeItem, 17},        {'A', TakeTool, ModeArrow}, {'D', TakeItem, 20}, {'E', TakeTool, ModeEraser},
    {'F', TakeItem, 24},        {'G', FlipGrace, 0},        {'N', TakeItem, 26}, {'P', TakeTool, ModePencil},
    {'R', FlipRest, 0},         {'S', TakeItem, 23},
};

}  // namespace

char KeyOfNoteItem(int item) {
    for (const auto& key : kKeys)
        if (key.act == TakeItem && key.argument == item) return key.key;
    return 0;
}

bool KeyChar(WindowTarn& window, char character) {
    if (character < 32 || character > 115) return false;
    const char upper = static_cast<char>(std::toupper(static_cast<unsigned char>(character)));
    for (const auto& key : kKeys) {
        if (key.key != upper) continue;
        if (IsPlaying() && !key.whilePlaying)
            window.Shell().Tell("Stop the play to edit.");
        else
            key.act(window, key.argument);
        return true;
    }
    return false;
}

}  // namespace corvane
