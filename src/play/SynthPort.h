// A port all of whose outputs are one synthesiser: for rendering, where a score's devices may not be there.
// It stands apart from what is heard meanwhile.
#pragma once

#include "play/BuiltInSynth.h"
#include "play/SoundPort.h"

namespace corvane {

class SynthPort : public SoundPort {
public:
    // `synth` must outlive the port.
    explicit SynthPort(BuiltInSynth& synth) : SoundPort(Standing::Apart), _synth(synth) {}
    int16_t Count() const override { return kMaxDevices; }

protected:
    bool Send(int16_t, uint8_t status, uint8_t data1, uint8_t data2) override {
        return _synth.Send(status, data1, data2);
    }
    bool IsOpen(int16_t) const override { return true; }
    void ResetDevice(int16_t port) override {
        if (port == kBuiltIn) _synth.Reset();
    }
    bool IsSilent() const override { return _synth.IsSilent(); }

private:
    BuiltInSynth& _synth;
};

}  // namespace corvane
