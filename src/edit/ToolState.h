// What the person holds: tool, palettes and their items, voice. Process-wide; survives a change of window.
#pragma once

#include <cstdint>

#include "play/TarnPlay.h"

namespace corvane {

// The palette of notes, rests, dots and accidentals.
inline constexpr uint8_t kNoteGroup = 1;

inline constexpr int32_t ModeArrow = 1, ModePencil = 2, ModeEraser = 3;

struct ToolState {
    int32_t toolMode = ModePencil;
    uint16_t currentVoice = 0;    // 0 for all; whoever needs one voice reads it as 1
    uint8_t paletteGroup = kNoteGroup;
    uint16_t items[12] = {0, 9, 1, 1, 1, 1, 1, 1, 1, 0, 0, 1};  // current item of each group; notes start with an eighth
    bool graceMode = false, accidentParenthesis = false, ornamentParenthesis = false;

    uint16_t NoteItem() const { return items[kNoteGroup]; }
    int OneVoice() const { return currentVoice ? currentVoice : 1; }
    bool AllVoices() const { return currentVoice == 0; }
};

ToolState& Tools();

struct Document;

// How entering and erasing go on by themselves. Spacing and beaming are the score's own: they are read from its
// preferences when its window becomes the active one, and kept there; no undo changes them.
struct EditSwitches {
    bool autoSpace = true, autoBeam = true, playbackNotes = true, deleteNotesToRests = true;
    int undoLevels = 1;  // SetUndoLevels changes them
};
EditSwitches& Switches();
void TakeScoreSwitches(const Document* document);
// Writes what differs; true if anything did.
bool KeepScoreSwitches(Document* document);

// Each does nothing while playing, and tells the active window's shell.
void SetToolMode(int32_t mode);
void ApplyToolMode();
void SetPaletteGroup(uint8_t group);
void SetItem(uint16_t item);
// Brings the pencil and the note palette to hand, with the item that it has or with another.
void TakeNoteTool();
void TakeNoteItem(uint16_t item);
void SetCurrentVoice(uint16_t voice);
void ToggleGrace();
void ToggleAccidentParenthesis();
void ToggleOrnamentParenthesis();

}  // namespace corvane
