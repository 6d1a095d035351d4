// Spacing of measures over a range, by one of the two rules.
#include <algorithm>
#include <vector>

#include "edit/LayoutSteps.h"
#include "edit/SystemRedraw.h"
#include "edit/TarnSelect.h"
#include "edit/ToolState.h"
#include "layout/Spacing.h"
#include "model/Par.h"
#include "model/Preferences.h"

namespace corvane {
namespace {

// Room for lyrics: a byte that was only carried, 1 in every score.
constexpr auto kUseLyricsWidth = &PowerEditPref::_byte29;

std::vector<Voice*> SelectedVoices(WindowTarn& window) {
    std::vector<Voice*> voices;
    SetSelectionAnchors(window);
    for (const VoiceSymbol* symbol : SelectedVoiceSymbols(Tools().currentVoice)) {
        Voice* voice = VoicePar(symbol);
        if (std::find(voices.begin(), voices.end(), voice) == voices.end()) voices.push_back(voice);
    }
    ClearSelectionAnchors();
    return voices;
}

void SpaceProportionally(Measure* measure) {
    for (const MeasureStaff* crossing : measureStaffs.Of(measure))
        for (Voice* voice : measureStaffVoices.Of(crossing)) SpaceVoice(voice);
}

// What was chosen once is what the dialog offers next.
void KeepRoom(const Document* document, const SpacingRoom& room) {
    auto* preferences = Preferences<PowerEditPref>(document);
    const auto keep = [](Stored<uint8_t>& field, bool value) {
        if ((field != 0) != value) field = value;
    };
    keep(preferences->_useDotsWidth, room.dots);
    keep(preferences->_useClefsWidth, room.clefs);
    keep(preferences->_useAccidentWidth, room.accidents);
    keep(preferences->*kUseLyricsWidth, room.lyrics);
}

}  // namespace

SpacingRoom PreferredRoom(const Document* document) {
    const auto* preferences = Preferences<PowerEditPref>(document);
    return {preferences->_useDotsWidth != 0, preferences->_useClefsWidth != 0,
            preferences->_useAccidentWidth != 0, preferences->*kUseLyricsWidth != 0};
}

Status SpaceMeasures(WindowTarn& window, const MeasureRange& range, const SpacingChoice& choice) {
    const bool engraver = choice.mode == SpacingMode::Engraver;
    const std::vector<Voice*> selected =
        engraver || choice.allStaves ? std::vector<Voice*>() : SelectedVoices(window);
    const EditStep step(window);
    const SystemRedraw redraw(window, range.first, range.last);
    if (engraver) KeepRoom(window.GetDocument(), choice.room);
    for (Voice* voice : selected)
        if (IsWithin(range, MeasurePar(voice))) SpaceVoice(voice);
    if (!selected.empty()) return Status::Ok();
    for (Measure* measure = range.first; IsWithin(range, measure); measure = NextMeasure(measure))
        if (engraver)
            SpaceMeasure(measure, choice.room);
        else
            SpaceProportionally(measure);
    return Status::Ok();
}

Status SetSpacingGaps(WindowTarn& window, const SpacingGaps& gaps) {
    ChangeScore(window, [&] {
        auto* page = Preferences<PagePref>(window.GetDocument());
        page->_barlineClefGap = gaps.barlineClef;
        page->_clefKeyGap = gaps.clefKey;
        page->_keyTimeGap = gaps.keyTime;
        page->_firstNoteGap = gaps.firstNote;
        page->_lastNoteGap = gaps.lastNote;
    });
    return Status::Ok();
}

Status ShowTimeSignatures(WindowTarn& window, bool show) {
    ChangeScore(window, [&] {
        Preferences<TimeMeasurePref>(window.GetDocument())->_showTimeSignature = uint8_t{show};
    });
    return Status::Ok();
}

}  // namespace corvane
