#include "play/DryPlay.h"

#include <cstdio>

#include "play/RecordingPort.h"
#include "play/SoundClock.h"
#include "play/TaskPlay.h"

namespace corvane {
namespace {

std::string LineOf(const SentMessage& sent) {
    char line[64];
    const int length = std::snprintf(line, sizeof line, "%d %d %d %d %d\n", sent.tick, sent.port, sent.status,
                                     sent.data1, sent.data2);
    return {line, static_cast<size_t>(length)};
}

}  // namespace

void DryPlay(const Document* document, const std::function<void(std::string_view)>& sink, const Measure* from,
             const PlaySetup& setup) {
    RecordingPort port(SoundPort::kMaxDevices, [&](const SentMessage& sent) { sink(LineOf(sent)); });
    PlayFlags flags;
    TarnPlay play(flags);
    TarnClock dealer(play);
    ManualClock clock(setup.resolution, 1, &dealer);
    play.Init(document, &port, setup);
    flags.playing = true;
    clock.EnableOut();
    clock.Start();
    if (play.Start(clock.Time(), from))
        while (flags.playing) clock.Advance();
}

std::string DryPlay(const Document* document, const Measure* from) {
    std::string text;
    DryPlay(
        document, [&](std::string_view line) { text += line; }, from);
    return text;
}

}  // namespace corvane
