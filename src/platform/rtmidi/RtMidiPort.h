// The port of live play: the built-in synthesiser and the system's MIDI outputs.
#pragma once

#include <memory>
#include <vector>

#include "play/BuiltInSynth.h"
#include "play/SoundPort.h"

namespace corvane {

class JackWatch;
class MidiOutput;

// Opens every output for its lifetime, which takes some periods where a JACK server runs, as does closing: it
// knows of a connection only later, and forgets what is still under way. One that cannot be opened is stood
// in for by the synthesiser.
class RtMidiPort : public SoundPort {
public:
    // `synth` may be null and must outlive the port. Main thread.
    explicit RtMidiPort(BuiltInSynth* synth);
    // Silences everything before the devices are closed.
    ~RtMidiPort() override;

    int16_t Count() const override { return static_cast<int16_t>(_outputs.size()); }

protected:
    bool Send(int16_t port, uint8_t status, uint8_t data1, uint8_t data2) override;
    bool IsOpen(int16_t port) const override { return _synth || OutputOf(port); }
    void ResetDevice(int16_t port) override;
    bool IsSilent() const override { return _synth && _synth->IsSilent(); }

private:
    MidiOutput* OutputOf(int16_t port) const;
    void Settle() const;

    BuiltInSynth* const _synth;
    std::unique_ptr<JackWatch> _jack;                   // null without a device of JACK's
    int _settling = 0;                                  // milliseconds
    std::vector<std::unique_ptr<MidiOutput>> _outputs;  // null where the synthesiser stands in
};

}  // namespace corvane
