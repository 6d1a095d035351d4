#include "edit/ToolState.h"

#include "edit/ControlPoints.h"
#include "edit/WindowTarn.h"
#include "model/Preferences.h"

namespace corvane {
namespace {

void TellShell() {
    if (WindowTarn::instance) WindowTarn::instance->Shell().ToolChanged();
}

void Toggle(bool& flag) {
    flag = !flag;
    TellShell();
}

}  // namespace

ToolState& Tools() {
    static ToolState state;
    return state;
}

EditSwitches& Switches() {
    static EditSwitches switches;
    return switches;
}

namespace {

constexpr struct {
    bool EditSwitches::*value;
    Stored<uint8_t> PowerEditPref::*kept;
} kScoreSwitches[] = {{&EditSwitches::autoSpace, &PowerEditPref::_autoSpace},
                      {&EditSwitches::autoBeam, &PowerEditPref::_autoBeam}};

}  // namespace

void TakeScoreSwitches(const Document* document) {
    const auto* preferences = document ? Preferences<PowerEditPref>(document) : nullptr;
    for (const auto& each : kScoreSwitches)
        if (preferences) Switches().*each.value = preferences->*each.kept != 0;
}

bool KeepScoreSwitches(Document* document) {
    auto* preferences = Preferences<PowerEditPref>(document);
    bool changed = false;
    for (const auto& each : kScoreSwitches) {
        const bool on = Switches().*each.value;
        if (!preferences || (preferences->*each.kept != 0) == on) continue;
        preferences->*each.kept = static_cast<uint8_t>(on);
        changed = true;
    }
    return changed;
}

void SetToolMode(int32_t mode) {
    if (!IsPlaying()) Tools().toolMode = mode;
}

void ApplyToolMode() {
    if (IsPlaying()) return;
    WindowTarn* window = WindowTarn::instance;
    if (window && Tools().toolMode != ModeArrow) {
        window->caret.visible = false;
        window->Handles().End();
    }
    if (window) window->interaction.reset();  // a stroke that has begun was another tool's
    TellShell();
}

void SetPaletteGroup(uint8_t group) {
    if (group < std::size(Tools().items)) Tools().paletteGroup = group;
    TellShell();
}

void SetItem(uint16_t item) {
    if (IsPlaying()) return;
    Tools().items[Tools().paletteGroup] = item;
    TellShell();
}

void TakeNoteTool() {
    if (Tools().toolMode != ModePencil) {
        SetToolMode(ModePencil);
        ApplyToolMode();
    }
    SetPaletteGroup(kNoteGroup);
}

void TakeNoteItem(uint16_t item) {
    TakeNoteTool();
    SetItem(item);
}

void SetCurrentVoice(uint16_t voice) {
    if (voice <= DocStaff::kVoices) Tools().currentVoice = voice;
    for (WindowTarn* window : WindowTarn::All()) {
        window->Sheet().SetEditVoice(voice);
        window->Sheet().MarkAllDirty();
        window->Shell().Refresh(*window);
    }
    TellShell();
}

void ToggleGrace() { Toggle(Tools().graceMode); }
void ToggleAccidentParenthesis() { Toggle(Tools().accidentParenthesis); }
void ToggleOrnamentParenthesis() { Toggle(Tools().ornamentParenthesis); }

}  // namespace corvane
