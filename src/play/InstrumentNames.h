// The names of the sounds of devices, 128 to a device: General MIDI's as constants, those of other devices
// from a text that a person can edit, and three personal banks.
//
// The text has a line "[Device]" for each device and behind it lines "number name", the number 1 to 128;
// lines that begin with # and empty ones say nothing. A sound without a name is called by its number.
#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>

namespace corvane {

inline constexpr int kSoundsOfDevice = 128, kDevices = 12;
inline constexpr int kGeneralMidi = 1, kFirstPersonal = 10;  // devices are numbered from 1

// "General MIDI", "Proteus 1" ... "Personal 3", by number less 1.
std::span<const char* const> DeviceNames();
// Of program 1 to 128; empty for any other.
std::string_view GeneralMidiName(int program);

class InstrumentNames {
public:
    using Personal = std::array<std::array<std::string, kSoundsOfDevice>, 3>;

    // The names in the text, those of unknown devices and numbers passed over.
    explicit InstrumentNames(std::string_view text = {});

    // What is shown for program 1 to 128 of device 1 to 12.
    std::string NameOf(int device, int program, const Personal& personal) const;

    // A text with every device and no name: what a person begins with.
    static std::string EmptyText();

private:
    std::array<std::array<std::string, kSoundsOfDevice>, kFirstPersonal - 2> _names;  // of devices 2 to 9
};

}  // namespace corvane
