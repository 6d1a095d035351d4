// While this lives, nothing of some systems is on the sheet; at its end their measures share the width anew,
// where headers have changed, and what the current page shows of them is filed as it stands then. So an edit
// may release and move records freely. Cost: the systems.
#pragma once

#include <functional>
#include <vector>

#include "edit/WindowTarn.h"
#include "layout/NoteAreas.h"

namespace corvane {

class SystemRedraw {
public:
    // The systems of two measures, the first not behind the last, and all between; also the one before, where
    // the first measure is its system's first.
    SystemRedraw(WindowTarn& window, const Measure* first, const Measure* last);
    SystemRedraw(WindowTarn& window, const Measure* measure) : SystemRedraw(window, measure, measure) {}
    ~SystemRedraw();
    SystemRedraw(const SystemRedraw&) = delete;

private:
    bool IsShown(const System* system) const;

    WindowTarn& _window;
    std::vector<System*> _systems;
    std::vector<NoteAreas> _areas;
};

// One undoable step in which anything of the score may change, and where it stands.
void ChangeScore(WindowTarn& window, const std::function<void()>& change);

}  // namespace corvane
