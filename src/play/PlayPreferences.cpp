#include "play/PlayPreferences.h"

#include <algorithm>

#include "play/SoundPort.h"

namespace corvane {

ClickSettings ClickOf(const SessionPreferences& preferences) {
    const auto word = [&](SessionWord which, int least, int most) {
        return std::clamp(GetWord(preferences, which), least, most);
    };
    constexpr int kLongest = 600, kMostMeasures = 99;
    ClickSettings click;
    click.on = IsOn(preferences, SessionWord::ClickIsOn);
    click.port =
        static_cast<int16_t>(word(SessionWord::ClickPort, SoundPort::kNone, SoundPort::kMaxDevices - 1));
    click.channel = word(SessionWord::ClickChannel, 1, 16);
    click.barPitch = word(SessionWord::BarClickPitch, 0, 127);
    click.barVolume = word(SessionWord::BarClickVolume, 0, 127);
    click.barDuration = word(SessionWord::BarClickDuration, 1, kLongest);
    click.beatPitch = word(SessionWord::BeatClickPitch, 0, 127);
    click.beatVolume = word(SessionWord::BeatClickVolume, 0, 127);
    click.beatDuration = word(SessionWord::BeatClickDuration, 1, kLongest);
    click.countOffMeasures = word(SessionWord::CountOffMeasures, 0, kMostMeasures);
    click.muteAfterCountOff = IsOn(preferences, SessionWord::MuteClickAfterCountOff);
    return click;
}

PlaySetup PlaySetupOf(const SessionPreferences& preferences) {
    PlaySetup setup;
    setup.click = ClickOf(preferences);
    setup.followsTexts = IsOn(preferences, SessionWord::FollowRepetitionTexts);
    return setup;
}

}  // namespace corvane
