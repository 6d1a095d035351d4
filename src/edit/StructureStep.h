// One undoable step that adds, removes or deals out pages, systems, measures or staves. While it lives
// nothing is on the sheet and nothing is selected; at its end the current page is filed as it stands then.
#pragma once

#include "edit/WindowTarn.h"
#include "layout/LastSystem.h"

namespace corvane {

class StructureStep {
public:
    explicit StructureStep(WindowTarn& window);
    ~StructureStep();
    StructureStep(const StructureStep&) = delete;

    // Before a page goes: another one becomes current if it was it, the one behind it where there is one.
    void Leave(const Page* page);
    // After pages went that nobody told of; linear in the pages.
    void LookForPage();

private:
    void PlaceCaret();
    void SettleIndent();

    WindowTarn& _window;
    const EditStep _step;
    Page* _page;
    const System* const _firstSystem;
    const int32_t _firstLeft, _firstIndent;  // where it begins, and where the score has it begin
    const LastSystem _lastSystem;
    const int _pageNumber, _pageCount;
    int32_t _caretPlace = 0;  // per mille of its measure
};

}  // namespace corvane
