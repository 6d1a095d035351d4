// play and devices: what makes sound.
#include <csignal>
#include <cstdio>
#include <thread>

#include "base/Notify.h"
#include "cli/Program.h"
#include "edit/MeasureRange.h"
#include "platform/fluidsynth/FluidSynth.h"
#include "platform/rtmidi/MidiSystems.h"
#include "platform/rtmidi/RtMidiPort.h"
#include "platform/timer/TimerClock.h"
#include "play/DryPlay.h"
#include "play/TaskPlay.h"

namespace corvane {
namespace {

volatile std::sig_atomic_t interrupted = 0;

PlaySetup SetupOf(const PlayOptions& options) {
    PlaySetup setup;
    setup.followsTexts = options.texts;
    setup.click.on = options.click || options.countOff > 0;
    setup.click.port = SoundPort::kBuiltIn;
    setup.click.countOffMeasures = options.countOff;
    return setup;
}

int PlayAloud(const Document* document, const Measure* from, const PlaySetup& setup) {
    FluidSynth synth;
    SoundPort::SetFactory([&] { return std::make_unique<RtMidiPort>(&synth); });
    for (const int end : {SIGINT, SIGTERM, SIGHUP}) std::signal(end, [](int) { interrupted = 1; });
    TaskPlay task;
    const auto makeClock = [](int resolution, int unit, ClockDealer* out) {
        return std::make_unique<TimerClock>(resolution, unit, out);
    };
    if (!task.Init(document, makeClock, setup) || !task.Start(from)) {
        SoundPort::SetFactory(nullptr);
        return kDone;  // nothing to play
    }
    while (!interrupted && !task.StopIfOver()) {
        SoundPort::PollError();
        SoundPort::PollSilence();
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    if (task.IsPrepared()) task.Stop();
    SoundPort::SetFactory(nullptr);
    return kDone;
}

}  // namespace

int RunPlay(const PlayOptions& options) {
    HeadlessProgram program;
    WindowTarn* window = program.OpenOrTell(options.file);
    if (!window) return kRefused;
    const Document* document = window->GetDocument();
    const Measure* from = MeasureOfNumber(*window, options.from);
    if (!from) return Refuse("There is no measure " + std::to_string(options.from));
    const PlaySetup setup = SetupOf(options);
    if (!options.dry) return PlayAloud(document, from, setup);
    DryPlay(
        document, [](std::string_view line) { std::fwrite(line.data(), 1, line.size(), stdout); }, from,
        setup);
    return kDone;
}

int RunDevices() {
    std::puts("output -1  built-in synthesiser");
    for (const MidiDevice& device : ListMidiDevices())
        std::printf("%-6s %2d  %s (%s)\n", device.isOutput ? "output" : "input", device.number,
                    device.name.c_str(), device.system.c_str());
    return kDone;
}

}  // namespace corvane
