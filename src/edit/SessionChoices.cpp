#include "edit/SessionChoices.h"

namespace corvane {
namespace {

constexpr struct {
    HiddenRule SessionChoices::*rule;
    SessionWord show, hideInPrint;
} kHidden[] = {
    {&SessionChoices::hiddenRests, SessionWord::ShowHiddenRests, SessionWord::HideRestsInPrint},
    {&SessionChoices::hiddenStems, SessionWord::ShowHiddenStems, SessionWord::HideStemsInPrint},
    {&SessionChoices::hiddenNotes, SessionWord::ShowHiddenNotes, SessionWord::HideNotesInPrint},
};

}  // namespace

SessionChoices& Choices() {
    static SessionChoices choices;
    return choices;
}

void TakeChoices(const SessionPreferences& preferences) {
    for (const auto& row : kHidden)
        Choices().*row.rule = {IsOn(preferences, row.show), IsOn(preferences, row.hideInPrint)};
    Choices().measuresPerSystem = GetWord(preferences, SessionWord::MeasuresPerSystem);
}

// Other dialogs write the measures of a system.
void KeepChoices(SessionPreferences& preferences) {
    for (const auto& row : kHidden) {
        const HiddenRule& rule = Choices().*row.rule;
        SetWord(preferences, row.show, rule.show);
        SetWord(preferences, row.hideInPrint, rule.hideInPrint);
    }
}

DrawContext ContextFor(bool printing) {
    DrawContext context;
    context.printing = printing;
    context.hiddenNotes = Choices().hiddenNotes;
    context.hiddenStems = Choices().hiddenStems;
    context.hiddenRests = Choices().hiddenRests;
    return context;
}

}  // namespace corvane
