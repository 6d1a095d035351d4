#include "interchange/VoiceTracks.h"

#include <algorithm>
#include <utility>

#include "base/Assert.h"
#include "interchange/ExportMidi.h"
#include "interchange/MeasureWalk.h"
#include "play/MeasureClock.h"

namespace corvane {
namespace {

constexpr int kNoteOn = 0x90, kController = 0xB0, kProgram = 0xC0, kVolumeController = 7, kMost = 127;
// At most, of a place in a measure: less than a quarter of a tick.
constexpr int kClocksCutOff = 8;

bool HasChannel(const VoiceRecord& voice) { return voice._channel >= 1 && voice._channel <= 16; }

// Of the part that a staff belongs to; empty for a staff that no system shows.
std::string_view NameOf(const DocStaff* docStaff) {
    const Staff* staff = docStaffStaffs.First(docStaff);
    const MultiStaff* multi = As<SimpleStaff>(staff);
    if (const auto* bot = As<StaffBot>(staff)) multi = customStaffs.ParentOf(bot);
    const AllStaff* part = multi ? allStaffStaffs.ParentOf(multi) : nullptr;
    return part ? TextOf(part->_name) : std::string_view();
}

void Begin(MidiTrackWriter& writer, const VoiceRecord& voice, const DocStaff* staff) {
    if (HasChannel(voice)) {
        const int channel = voice._channel - 1, program = voice._program;
        if (program >= 1 && program <= kMost + 1) writer.Message(0, kProgram | channel, program - 1);
        writer.Message(0, kController | channel, kVolumeController, std::clamp<int>(voice._volume, 0, kMost));
    }
    if (const std::string_view name = NameOf(staff); !name.empty()) writer.Meta(0, MetaKind::Name, name);
}

}  // namespace

VoiceTracks::VoiceTracks(const Document* document) : _document(document) {
    for (const DocStaff* staff : documentDocStaffs.Of(document)) {
        _places[staff] = _staves.size();
        _staves.push_back({staff, {}});
    }
}

std::vector<std::vector<uint8_t>> VoiceTracks::Write() {
    Walk();
    std::vector<std::vector<uint8_t>> chunks;
    for (StaffTracks& staff : _staves) {
        if (staff.tracks.empty()) {
            staff.tracks.push_back({&staff.staff->_voices[0], {}});
            Begin(staff.tracks[0].writer, *staff.tracks[0].voice, staff.staff);
        }
        for (Track& track : staff.tracks) chunks.push_back(track.writer.Finish());
    }
    return chunks;
}

// The measures in written order, as the player walks them, on a clock that no tempo bends.
void VoiceTracks::Walk() {
    const Measure* first = FirstMeasureOf(_document);
    if (!first) return;
    _start = kMidiLeadTicks;
    Enter(first);
    const TimeElement* current = FirstFromHere();
    if (current) _due = DueTime(current);
    while (current) {
        const Measure* measure = _measure;
        const TimeElement* candidate = current;
        while (candidate && _together.Holds(measure, current, _measure, candidate)) {
            current = candidate;
            Fire(current);
            candidate = Behind(current);
        }
        current = candidate;
        if (current) _due = DueTime(current);
    }
}

void VoiceTracks::Enter(const Measure* measure) {
    _measure = measure;
    _start += _length;
    const MeasureLength length = LengthOf(measure, kMidiTicksPerQuarter, _carry, 1.0);
    _length = length.ticks;
    _carry = length.carry;
    _together.Enter();
}

bool VoiceTracks::EnterNext() {
    const Measure* next = NextMeasure(_measure);
    if (next) Enter(next);
    return next;
}

const TimeElement* VoiceTracks::FirstFromHere() {
    do {
        if (const TimeElement* first = measureTimeElements.First(_measure)) return first;
    } while (EnterNext());
    return nullptr;
}

const TimeElement* VoiceTracks::Behind(const TimeElement* element) {
    if (const TimeElement* next = measureTimeElements.Next(element)) return next;
    return EnterNext() ? FirstFromHere() : nullptr;
}

// Counted from the measure's start each time: what is cut off never adds up. Clocks are cut off too, so that
// the parts of a triplet would begin a tick early, each as its beat happens to lie.
int32_t VoiceTracks::DueTime(const TimeElement* element) const {
    const int64_t num = std::max<int>(1, _measure->_num), ticks = _length;
    const int64_t due =
        _start +
        (ticks * (element->_clock + kClocksCutOff) / kClocksPerBeat + ticks * (element->_beat - 1)) / num;
    return static_cast<int32_t>(std::min<int64_t>(due, _start + _length));
}

void VoiceTracks::Fire(const TimeElement* element) {
    const auto* on = As<TimeOn>(element);
    const auto* off = As<TimeOff>(element);
    if (!on && !off) return;
    const MarkUp* markUp = on ? static_cast<const MarkUp*>(on) : off;
    for (const SoundEvent* event : markUpEvents.Of(markUp)) {
        Track* track = TrackOf(event);
        if (!track || !HasChannel(*track->voice) || (on && _together.IsOverrun())) continue;
        const int key = event->_height + track->voice->_transposition;
        if (key < 0 || key > kMost) continue;
        const auto* noteOn = As<NoteOn>(event);
        const int velocity = noteOn ? noteOn->_velocity * track->voice->_volume / kMost : 0;
        track->writer.Message(_due, kNoteOn | (track->voice->_channel - 1), key,
                              std::clamp(velocity, 0, kMost));
    }
}

VoiceTracks::Track* VoiceTracks::TrackOf(const SoundEvent* event) {
    const auto place = _places.find(event->_docStaff);
    if (place == _places.end()) return nullptr;
    StaffTracks& staff = _staves[place->second];
    for (Track& track : staff.tracks)
        if (track.voice == event->_voiceRecord) return &track;
    staff.tracks.push_back({event->_voiceRecord, {}});
    Begin(staff.tracks.back().writer, *staff.tracks.back().voice, staff.staff);
    return &staff.tracks.back();
}

}  // namespace corvane
