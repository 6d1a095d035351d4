#include "play/InstrumentNames.h"

#include <charconv>

namespace corvane {
namespace {

constexpr size_t kLongestName = 20;

constexpr const char* kDeviceNames[kDevices] = {
    "General MIDI", "Proteus 1",       "Proteus 2", "Roland MT-32", "Roland U-220", "Roland D110",
    "Kawai K1",     "Kurzweill K1000", "Korg M1",   "Personal 1",   "Personal 2",   "Personal 3",
};

constexpr const char* kGeneralMidiNames[kSoundsOfDevice] = {
    "Acou Piano",    "Bright Grand", "Elect Grand",   "Hony Tonk",     "Rhodes",       "Chorus Piano",
    "Harpshicord",   "Clavinet",     "Celeste",       "Glockenspiel",  "Music Box",    "Vibraphone",
    "Marimba",       "Xylophone",    "Tubular Bells", "Dulcimer",      "Hamnd Organ",  "Perc Organ",
    "Rock Organ",    "ChurchOrgan",  "Piano&Vibes",   "Accordion",     "Harmonica",    "TangoAccord",
    "AcNylonGuit",   "AcSteelguit",  "ElecJazzGuit",  "ElecCleanGuit", "ElecMuteGuit", "OvrdriveGuit",
    "DistortedGuit", "GuitHarmonix", "AcousticBass",  "ElecBassFingr", "ElecBassPick", "FretlessBass",
    "SlapBass",      "SlapBass 2",   "Synth Bass 1",  "Synth Bass 2",  "Violin",       "Viola",
    "Cello",         "Contrabass",   "TremloString",  "Pizz String",   "Orchst Harp",  "Timpani",
    "Str Ensmbl 1",  "Str Ensmbl 2", "SnthString 1",  "SnthString 2",  "Choir Ahhs",   "Voice Oohs",
    "Synth Voice",   "Orch Hit",     "Trumpet",       "Trombone",      "Tuba",         "MuteTrumpt",
    "French Horn",   "BrassSection", "Snth Brass 1",  "Snth Brass 2",  "Soprano Sax",  "Alto Sax",
    "Tenor Sax",     "Baritone Sax", "Oboe",          "English Horn",  "Bassoon",      "Clarinet",
    "Piccolo",       "Flute",        "Recorder",      "Pan Flute",     "Bottle Blow",  "Shakuhachi",
    "Whistle",       "Ocarina",      "Square Wave",   "SawTooth",      "Caliope",      "Chiff Lead",
    "Charang",       "SoloSyntVx",   "Brite Saw",     "Brass&Lead",    "FantasiaPad",  "Warm Pad",
    "PolySnthPad",   "SpaceVoxPad",  "BowdGlasPad",   "MetalPad",      "Halo Pad",     "Sweep Pad",
    "Ice Rain",      "Soundtrack",   "Crystal",       "Atmosphere",    "Brightness",   "Goblin",
    "Echo Drops",    "Star Theme",   "Sitar",         "Banjo",         "Shamisen",     "Koto",
    "Kalimba",       "Bagpipe",      "Fiddle",        "Shanai",        "Tinkle Bell",  "Agogo",
    "Steel Drums",   "Woodblock",    "Taiko Drums",   "Melodic Tom",   "Synth Drum",   "RevrsCymbl",
    "GuitFretNois",  "Breath Noise", "Seashore",      "Bird Tweet",    "Phone Ring",   "Helicopter",
    "Applause",      "Gun Shot",
};

std::string_view Trimmed(std::string_view text) {
    const size_t from = text.find_first_not_of(" \t\r"), to = text.find_last_not_of(" \t\r");
    return from == text.npos ? std::string_view() : text.substr(from, to - from + 1);
}

int DeviceNamed(std::string_view name) {
    for (int device = 1; device <= kDevices; ++device)
        if (name == kDeviceNames[device - 1]) return device;
    return 0;
}

bool IsSound(int program) { return program >= 1 && program <= kSoundsOfDevice; }

}  // namespace

std::span<const char* const> DeviceNames() { return kDeviceNames; }

std::string_view GeneralMidiName(int program) {
    return IsSound(program) ? kGeneralMidiNames[program - 1] : std::string_view();
}

InstrumentNames::InstrumentNames(std::string_view text) {
    int device = 0;
    while (!text.empty()) {
        const size_t end = text.find('\n');
        const std::string_view line = Trimmed(text.substr(0, end));
        text = end == text.npos ? std::string_view() : text.substr(end + 1);
        if (line.empty() || line[0] == '#') continue;
        if (line.front() == '[' && line.back() == ']') {
            device = DeviceNamed(Trimmed(line.substr(1, line.size() - 2)));
            continue;
        }
        int program = 0;
        const auto [behind, error] = std::from_chars(line.data(), line.data() + line.size(), program);
        if (error != std::errc() || !IsSound(program) || device <= kGeneralMidi || device >= kFirstPersonal)
            continue;
        const auto name = Trimmed(line.substr(static_cast<size_t>(behind - line.data())));
        _names[static_cast<size_t>(device - 2)][static_cast<size_t>(program - 1)] =
            name.substr(0, kLongestName);
    }
}

std::string InstrumentNames::NameOf(int device, int program, const Personal& personal) const {
    if (!IsSound(program)) return {};
    std::string name;
    const auto at = static_cast<size_t>(program - 1);
    if (device >= kFirstPersonal && device <= kDevices)
        name = personal[static_cast<size_t>(device - kFirstPersonal)][at];
    else if (device > kGeneralMidi && device < kFirstPersonal)
        name = _names[static_cast<size_t>(device - 2)][at];
    else
        name = GeneralMidiName(program);
    return name.empty() ? std::to_string(program) : name;
}

std::string InstrumentNames::EmptyText() {
    std::string text =
        "# Names of the sounds of devices, as the program dialog shows them. A line \"number name\" behind "
        "the\n"
        "# device names one of its 128 sounds; a name has at most 20 characters.\n";
    for (int device = kGeneralMidi + 1; device < kFirstPersonal; ++device)
        text += std::string("\n[") + kDeviceNames[device - 1] + "]\n";
    return text;
}

}  // namespace corvane
