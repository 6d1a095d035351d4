// What is no event leaves the score with a cut.
#include "edit/ClipboardState.h"
#include "edit/Texts.h"
#include "model/Par.h"

namespace corvane {
namespace {

template <class List, class Unlink>
void ForEachObject(const List& list, Unlink unlink) {
    for (const auto& clip : list) unlink(clip.object);
}

// The marks stay with what they draw.
template <class List, class Marks>
void UnlinkMarks(const List& list, const Marks& marks) {
    for (const auto& clip : list)
        for (auto* mark : marks.Of(clip.object)) staffSymbols.Remove(mark);
}

}  // namespace

void CutSigns(const Clipboard& clips) {
    ForEachObject(clips.ClipDinamiche, [](Dinamiche* sign) { staffSymbols.Remove(sign); });
    ForEachObject(clips.ClipMeasureStaffText, [](MeasureStaffText* text) {
        DropTextMarks(text);
        staffSymbols.Remove(text);
    });
    UnlinkMarks(clips.ClipHairpins, hairpinMarks);
    UnlinkMarks(clips.ClipSlurs, slurMarks);
    ForEachObject(clips.ClipPageText, [](PageText* text) { pageTexts.Remove(text); });
}

}  // namespace corvane
