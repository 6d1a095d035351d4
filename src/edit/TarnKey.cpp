// Typed characters.
#include <cctype>

#include "edit/TarnClick.h"
#include "edit/ToolState.h"

namespace corvane {
namespace {

constexpr uint8_t kNoteGroup = 1;
constexpr uint16_t kQuarterNote = 7;

// Brings the note palette and the pencil to hand.
void TakeNoteTool() {
    if (Tools().toolMode != ModePencil) {
        SetToolMode(ModePencil);
        ApplyToolMode();
    }
    SetPaletteGroup(kNoteGroup);
}

void TakeNoteItem(WindowTarn&, int item) {
    TakeNoteTool();
    SetItem(static_cast<uint16_t>(item));
}

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
    {' ', TogglePlay, 0, true},
    {'1', TakeNoteItem, 3},
    {'2', TakeNoteItem, 5},
    {'3', TakeNoteItem, 7},
    {'4', TakeNoteItem, 9},
    {'5', TakeNoteItem, 11},
    {'6', TakeNoteItem, 13},
    {'7', TakeNoteItem, 15},
    {'8', TakeNoteItem, 17},
    {'A', TakeTool, ModeArrow},
    {'D', TakeNoteItem, 20},
    {'E', TakeTool, ModeEraser},
    {'F', TakeNoteItem, 24},
    {'G', FlipGrace, 0},
    {'N', TakeNoteItem, 26},
    {'P', TakeTool, ModePencil},
    {'R', FlipRest, 0},
    {'S', TakeNoteItem, 23},
};

}  // namespace

void KeyChar(WindowTarn& window, char character) {
    if (character < 32 || character > 115) return;
    const char upper = static_cast<char>(std::toupper(static_cast<unsigned char>(character)));
    for (const auto& key : kKeys)
        if (key.key == upper && (key.whilePlaying || !IsPlaying())) return key.act(window, key.argument);
}

}  // namespace corvane
