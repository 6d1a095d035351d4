#include "interchange/ImportTrack.h"

#include "interchange/ImportFailure.h"

namespace corvane {
namespace {

constexpr int kNoteOff = 0x80, kNoteOn = 0x90, kController = 0xB0, kProgram = 0xC0, kVolume = 7;
constexpr size_t kMostName = 250;

std::string NameIn(MidiBytes data) {
    std::string name(data.begin(), data.end());
    if (name.size() > kMostName) name.resize(kMostName);
    for (char& c : name)
        if (static_cast<unsigned char>(c) < ' ') c = ' ';
    while (!name.empty() && name.back() == ' ') name.pop_back();
    return name;
}

void TakeMeta(const MidiEvent& event, ImportTrack& track) {
    KeyAt key{};
    if (event.kind == MetaKind::Key && ReadKey(event, key)) track.keys.push_back(key);
    if (event.kind != MetaKind::Text && event.kind != MetaKind::Name) return;
    // A title says more than a text, of which a file may hold hundreds.
    if (std::string name = NameIn(event.data);
        !name.empty() && (event.kind == MetaKind::Name || track.name.empty()))
        track.name = std::move(name);
}

void TakeMessage(const MidiEvent& event, ImportTrack& track) {
    const auto channel = static_cast<uint8_t>(event.status & 15);
    switch (event.status & 0xF0) {
        case kNoteOff:
        case kNoteOn:
            track.events.push_back({event.time, event.time, channel, event.data1,
                                    (event.status & 0x10) != 0 && event.data2 != 0});
            break;
        case kController:
            if (event.data1 != kVolume) break;
            track.channels.Register(channel);
            track.sounds[channel].volume = event.data2;
            break;
        case kProgram:
            track.channels.Register(channel);
            track.sounds[channel].program = event.data1;
            break;
        default:
            break;
    }
}

}  // namespace

ChannelTable::Place ChannelTable::PlaceOf(int channel) const {
    for (int staff = 0; staff < kStaves; ++staff)
        for (int place = 0; place < kVoices; ++place)
            if (_channels[static_cast<size_t>(staff)][static_cast<size_t>(place)] == channel)
                return {staff, place + 1};
    return {0, 0};
}

bool ChannelTable::Has(int channel) const { return PlaceOf(channel).voice > 0; }

ChannelTable::Place ChannelTable::Register(int channel) {
    if (!Has(channel))
        for (auto& staff : _channels)
            for (int& place : staff) {
                if (place >= 0) continue;
                place = channel;
                if (&place != &staff[0]) _single = false;
                return PlaceOf(channel);
            }
    return PlaceOf(channel);
}

Status ReadImportTrack(MidiBytes bytes, ImportTrack& track) {
    MidiTrackReader reader(bytes);
    for (MidiEvent event; reader.Next(event);)
        if (event.status == 0xFF)
            TakeMeta(event, track);
        else
            TakeMessage(event, track);
    return reader.IsDamaged() ? InvalidMidiFile() : Status::Ok();
}

std::string ReadTitle(MidiBytes tempoMap) {
    MidiTrackReader reader(tempoMap);
    for (MidiEvent event; reader.Next(event);)
        if (event.status == 0xFF && event.kind == MetaKind::Name) return NameIn(event.data);
    return {};
}

}  // namespace corvane
