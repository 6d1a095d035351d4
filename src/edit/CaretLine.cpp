#include "edit/CaretLine.h"

#include <algorithm>

#include "layout/NoteGeometry.h"
#include "model/NoteOperations.h"
#include "model/Par.h"

namespace corvane {
namespace {

constexpr int32_t kGap = 30;

Rect InkOf(const VoiceSymbol* event) {
    const auto* chord = As<Chords>(event);
    return chord ? RectOf(ChordSymbolPar(chord)) : RectOf(As<Pause>(event));
}

}  // namespace

int32_t CaretLineX(const Caret& caret) {
    const MeasureStaff* crossing = MeasureStaffAt(caret.measure, caret.staff);
    if (!crossing || !crossing->_staff.Get()) return caret.x;
    const int offset = std::clamp(FrameOf(caret.measure).PerMilleOfX(caret.x), 0, 1000);
    for (const Voice* voice : measureStaffVoices.Of(crossing))
        for (const VoiceSymbol* event : voiceSymbols.Of(voice)) {
            const Rect ink = InkOf(event);
            if (caret.x < ink.left - kGap || caret.x > ink.right + kGap) continue;
            return XOf(event) <= offset ? ink.right + kGap : ink.left - kGap;
        }
    return caret.x;
}

}  // namespace corvane
