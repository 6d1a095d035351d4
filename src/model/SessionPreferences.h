// What the words of the session's "Preferenze" mean to the code that reads them. Words without a name are
// carried; docs/records.md tells all of them.
#pragma once

#include "store/SettingsStorePreferences.h"

namespace corvane {

// Numbers of words. Switches are 0 or 1. Ports are -1 and up, -10 for none chosen. Durations are sixtieths of
// a second.
// clang-format off
enum class SessionWord : int {
    PairDistance = 2,             // between the staves of a braced pair, page units

    RecordPort = 49,
    QuantizationLevel = 50,       // 1 none, 2 half, 3 quarter ... 8 a 128th
    RecordChannel = 51,
    SmallestTuplet = 52,
    SplitKey = 53,                // 0: no split point
    SplitVoice = 54,

    ClickChannel = 55,
    BarClickPitch = 56,
    BarClickVolume = 57,
    BarClickDuration = 58,
    BeatClickPitch = 59,
    BeatClickVolume = 60,
    BeatClickDuration = 61,
    CountOffMeasures = 62,
    ClickPort = 63,
    MuteClickAfterCountOff = 64,

    FollowRepetitionTexts = 67,
    CursorStep = 68,              // of the play cursor: 0 a beat, 1 half a measure, 2 a measure
    PageTurn = 69,                // the play cursor is shown and pages turn
    ClickIsOn = 79,
    ShowMargins = 80,             // of pages, on screen

    ShowHiddenRests = 71,         // on screen, in grey
    HideRestsInPrint = 72,
    ShowHiddenStems = 73,
    HideStemsInPrint = 74,
    ShowHiddenNotes = 75,
    HideNotesInPrint = 76,

    MeasuresPerSystem = 83,
    SystemsPerPage = 84,
    PlaybackNotes = 85,           // a note that is entered sounds
    AngledBeam = 86,
    VoiceColouring = 87,
    MidiThru = 88,
    DeleteNotesToRests = 89,
    UndoLevels = 90,              // 1 to 100
};
// clang-format on

inline int GetWord(const SessionPreferences& preferences, SessionWord word) {
    return preferences.words[static_cast<size_t>(word)];
}
inline bool IsOn(const SessionPreferences& preferences, SessionWord word) {
    return GetWord(preferences, word) != 0;
}
inline void SetWord(SessionPreferences& preferences, SessionWord word, int value) {
    preferences.words[static_cast<size_t>(word)] = static_cast<int16_t>(value);
}

}  // namespace corvane
