// Syllables of sung texts.
#pragma once

#include "base/Status.h"
#include "edit/WindowTarn.h"
#include "model/Texts.h"

namespace corvane {

inline constexpr int kMostVerses = 9;

// The syllable of a chord in a verse, made, changed or, for an empty text, taken away; one undoable step,
// none where nothing changes. An empty text with an extender stands for a further note of the syllable
// before.
void SetSyllable(WindowTarn& window, Chords* chord, int verse, std::string_view text, LyricJoint joint,
                 const TextLook& look);

// Belongs to the caller's step: the syllable goes, those around it are shown as they are then.
void EraseSyllable(WindowTarn& window, Liriche* syllable);
// The same with nothing of the system on the sheet.
void DeleteSyllable(Document* document, Liriche* syllable);
// Puts all syllables of a staff in a system on their lines, below what stands there.
void AlignLyrics(const System* system, const DocStaff* docStaff);

TextLook LyricLook(const Document* document, int verse);

}  // namespace corvane
