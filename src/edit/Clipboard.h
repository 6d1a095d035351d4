// The clipboard of the program: not music, but the objects of one score that were copied or cut, with where
// they stood. A paste clones them. After a cut they stand unlinked in their pool, where only the clipboard
// reaches them, until another copy or cut completes it. Process-wide; nothing is exchanged with the system's
// clipboard. Main thread only.
#pragma once

#include <vector>

#include "edit/WindowTarn.h"
#include "model/Clefs.h"

namespace corvane {

// Where an object stood. Numbers, so that they hold whatever becomes of the score.
struct ClipPlace {
    int32_t measure = 0;  // number; 0 for what stands in no measure of its own
    int staff = 0;        // among the score's staffs, from 0
    int32_t x = 0;        // per mille of the measure
    int16_t voice = 0;    // 1 to 8; 0 for what belongs to no voice
    int clef = kTreble;   // code in force there
};

template <class R>
struct Clip {
    R* object;
    ClipPlace place;
};

struct ClipVoiceSymbol : Clip<VoiceSymbol> {
    std::vector<GenericNote*> heads = {};  // those of a chord that are meant alone; none for the whole event
    std::vector<int16_t> velocities = {};  // of its heads in their order; 0 for one that a tie spares

    // What is meant of it, in the chord's order; none for a rest.
    std::vector<GenericNote*> Heads() const;
};

struct ClipHairpin : Clip<Hairpin> {
    int32_t further = 0;  // measures from the one it begins in to the one it ends in
};

struct Clipboard {
    WindowTarn* sourceWindow = nullptr;
    bool cutInSourcePending = false;                // the objects are unlinked, but not destroyed
    std::vector<ClipVoiceSymbol> ClipVoiceSymbols;  // in score order
    std::vector<Clip<Dinamiche>> ClipDinamiche;
    std::vector<Clip<MeasureStaffText>> ClipMeasureStaffText;
    std::vector<ClipHairpin> ClipHairpins;
    std::vector<Clip<Slur>> ClipSlurs;  // both of whose events are in the list
    std::vector<Clip<PageText>> ClipPageText;
    int32_t ClipFirstMeasure = 0;
    int32_t ClipFirstX = 0;  // per mille in it
    int ClipFirstStaff = 0;
    bool ClipHasStaff = false;

    bool IsEmpty() const;
};
const Clipboard& TheClipboard();

// Copies what is selected; no edit. Nothing happens where nothing is.
void Copy(WindowTarn& window);
// The same as one undoable step that takes it out of the score. Its undo empties the clipboard, a redo fills
// it again.
void Cut(WindowTarn& window);
// Clones what was copied or cut to the caret, as one undoable step; other windows' too. False if it was
// refused, which is told.
bool Paste(WindowTarn& window);
bool CanPaste(const WindowTarn& window);
// Deletes what is selected.
void ClearSelection(WindowTarn& window);

// ---- What a window tells.

// Its next command is about to begin: what no undo reaches any more of a completed cut is destroyed.
void ClipboardCommandBegins(WindowTarn& window);
void ClipboardUndone(WindowTarn& window);
void ClipboardRedone(WindowTarn& window);
void ClipboardWindowCloses(WindowTarn& window);
// While this lives what was cut in a window is out of its pool, so that nobody saves it. Where there was
// something, the window's last step cannot be undone behind it.
class CutKeptOut {
public:
    explicit CutKeptOut(WindowTarn& window);
    ~CutKeptOut();
    CutKeptOut(const CutKeptOut&) = delete;

private:
    WindowTarn& _window;
    bool _isOut = false;
};
// The unlinked objects that the clipboard still holds of a pool: roots for the proof of its graph.
std::vector<const void*> ClipboardRoots(const NewMemoryPool& pool);

}  // namespace corvane
