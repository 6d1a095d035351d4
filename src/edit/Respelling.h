// Pitches that some notes are about to get: chosen first, so that what cannot be written is known before
// anything is touched; then written, with all that follows. For the body of one command.
#pragma once

#include <optional>
#include <unordered_map>
#include <vector>

#include "edit/WindowTarn.h"
#include "model/Spelling.h"

namespace corvane {

class Respelling {
public:
    // With the notes that ties join to them, without those that have no pitch.
    explicit Respelling(const std::vector<GenericNote*>& notes);

    // In an order in which a tie's first note comes before its second.
    const std::vector<GenericNote*>& Notes() const { return _notes; }
    // Takes the first of some ways to write a note on whose line no other head of its chord will stand. A
    // note that is tied to the one before and written alike follows it. False where no way is free.
    bool Choose(GenericNote* note, const std::vector<Spelling>& ways);
    // One undoable step; none, and false, where nothing changes.
    bool Write(WindowTarn& window) const;

private:
    void Add(GenericNote* note);
    const Spelling* ChosenFor(const GenericNote* note) const;
    bool IsFree(const GenericNote* note, const Spelling& way) const;
    bool Changes(const GenericNote* note) const;

    std::vector<GenericNote*> _notes;
    std::unordered_map<const GenericNote*, std::optional<Spelling>> _chosen;
};

}  // namespace corvane
