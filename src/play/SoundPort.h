// Where notes, volumes and programs become MIDI messages.
//
// Port -1 is the built-in synthesiser, ports 0 and up the system's MIDI outputs. Channels are 1 to 16,
// programs 1 to 128. Requests may come from the timer thread, the main thread and the input thread at once:
// none of them waits, locks or allocates on the way to `Send`.
#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>

#include "play/InputRing.h"

namespace corvane {

class SoundPort {
public:
    static constexpr int16_t kBuiltIn = -1;
    static constexpr int16_t kNone = -10;  // no port, no channel
    static constexpr int kFullVolume = 127;
    static constexpr int16_t kMaxDevices = 64;  // outputs beyond these are not offered

    using Factory = std::function<std::unique_ptr<SoundPort>()>;

    // What `Instance` makes; the program sets it once at its start. Main thread.
    static void SetFactory(Factory factory);
    // The port; made by the factory when there is none. Null without a factory. Main thread makes, any thread
    // uses.
    static SoundPort* Instance();
    // The port if there is one. Any thread.
    static SoundPort* Existing();
    // Destroys the port that `Instance` made, so that devices are free until the next request; a port that
    // somebody else owns stays. Waits for a message of the keyboard that is under way. Main thread, with no
    // clock running.
    static void Close();

    virtual ~SoundPort();
    SoundPort(const SoundPort&) = delete;
    SoundPort& operator=(const SoundPort&) = delete;

    // Devices 0 to Count() - 1.
    virtual int16_t Count() const = 0;

    // All of these drop silently what goes to a port that does not exist or is not open, and to a channel
    // below 1. Past that, a channel above 16, a volume or value above 127 and a program above 128 are our own
    // mistakes and assert: who takes them from a score checks them first.

    // Velocity 0 stops the note. Keys outside 0 to 127 and channels outside 1 to 16 are dropped.
    void SendNote(int16_t port, int channel, int pitch, int velocity);
    void SetVolume(int16_t port, int channel, int volume);
    void SetPan(int16_t port, int channel, int pan);  // 64 is the middle
    // Program 1 to 128; 0 sends 255, which no device takes.
    void SetInstrument(int16_t port, int channel, int instrument);
    void SendController(int16_t port, int channel, int controller, int value);

    // A note-off for every sounding key, then pedal up and all notes off on each channel used so far, then
    // each device's own reset. Programs and volumes stay.
    void Silence();
    // The same, for the shutdown of the MIDI setup.
    void Reset() { Silence(); }
    // The same on every channel of every device: what hangs may be none of this port's doing. The synthesiser
    // is not woken for it.
    void Panic();

    // Where the keyboard's notes are echoed from now on; kNone at first. Kept over the ports' lives. Any
    // thread.
    static int16_t GetThruPort();
    static void SetThruPort(int16_t port);
    static int16_t GetThruChannel();
    static void SetThruChannel(int16_t channel);

    // What the input thread does with a message (status, first and second data from the lowest byte up):
    // stores it while recording and echoes it, or only echoes it. Every kind is echoed as a note. A note ends
    // where it began, whatever has been chosen since.
    void RecordInput(uint32_t message);
    void EchoInput(uint32_t message);
    // The same with the port that `Instance` made, which may come and go meanwhile; lost while there is none.
    enum class InputUse : uint8_t { Record, Echo };
    static void PassInput(uint32_t message, InputUse use);
    // Ends what the echo has left sounding. With no input open.
    void EndEchoes();
    InputRing& Input() { return _input; }

    // Shows "MIDI device already in use." the first time that a program or volume could not be sent, never
    // again in this run of the program. Idle tick, main thread.
    static void PollError();
    // Shows "There is no sound card: playing is silent." once in this run of the program, if that is so. Idle
    // tick while playing, main thread.
    static void PollSilence();

protected:
    // A port that stands apart is nobody's `Instance`: a rendering goes beside whatever sounds.
    enum class Standing : uint8_t { Instance, Apart };
    explicit SoundPort(Standing standing = Standing::Instance);

    // Puts out one message, of two bytes for a program. False if it could not. Must neither wait nor
    // allocate.
    virtual bool Send(int16_t port, uint8_t status, uint8_t data1, uint8_t data2) = 0;
    // There is something to send to at this port, be it a stand-in.
    virtual bool IsOpen(int16_t port) const = 0;
    // The device's own way to be quiet, after the messages that ask it to.
    virtual void ResetDevice(int16_t) {}
    virtual bool IsSilent() const { return false; }
    // A message that had been taken could not be put out after all. Any thread.
    static void NoteError();

private:
    // What one port has been asked for, so that it can be undone.
    struct Asked {
        std::array<std::array<std::atomic<uint64_t>, 2>, 16> keys{};  // sounding, a bit each
        std::atomic<uint16_t> channels{0};                            // used at all, a bit each
    };

    bool Passes(int16_t port, int channel) const;
    void SendChecked(int16_t port, int status, int channel, int data1, int data2);
    void StopKeys(int16_t port);
    void StopChannels(int16_t port);
    Asked& AskedOf(int16_t port) { return _asked[static_cast<size_t>(port + 1)]; }

    std::array<Asked, kMaxDevices + 1> _asked;
    InputRing _input;
    std::array<std::atomic<uint32_t>, 128> _echoed{};  // by key: where it sounds, 0 for nowhere
};

}  // namespace corvane
