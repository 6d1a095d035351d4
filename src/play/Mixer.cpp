#include "play/Mixer.h"

#include <algorithm>
#include <cstring>

#include "model/Par.h"
#include "play/SoundPort.h"
#include "play/TarnPlay.h"
#include "play/TarnPlaySound.h"

namespace corvane {
namespace {

constexpr VoiceValueRow kRows[] = {
    {VoiceValue::Volume, "volume", 0, 127, &VoiceRecord::_volume},
    {VoiceValue::Pan, "pan", -64, 63, &VoiceRecord::_pan},
    {VoiceValue::Program, "program", 0, 128, &VoiceRecord::_program},
    {VoiceValue::Channel, "channel", 1, 16, &VoiceRecord::_channel},
    {VoiceValue::Port, "port", SoundPort::kBuiltIn, SoundPort::kMaxDevices - 1, &VoiceRecord::_port},
    {VoiceValue::Transposition, "transposition", -127, 127, &VoiceRecord::_transposition},
    {VoiceValue::RecordActive, "rec", 0, 1, &VoiceRecord::_recordActive},
};

VoiceRecord& RecordOf(DocStaff* staff, int voice) {
    CORVANE_ASSERT(voice >= 1 && voice <= DocStaff::kVoices);
    return staff->_voices[voice - 1];
}

// What sounds might never be told to end.
void SilenceIfPlaying() {
    if (!IsPlaying()) return;
    if (SoundPort* port = SoundPort::Existing()) port->Silence();
}

void KeepSoloOfDocument(Document* document) {
    bool any = false;
    for (const DocStaff* staff : documentDocStaffs.Of(document)) any = any || staff->_solo;
    if (document->_hasSolo != static_cast<uint8_t>(any)) StoreShared(document->_hasSolo, uint8_t{any});
}

void Rename(VoiceRecord& record, std::string_view name) {
    Touch(record._name, sizeof record._name);
    const size_t length = std::min(name.size(), sizeof record._name - 1);
    std::memset(record._name, 0, sizeof record._name);
    std::copy_n(name.data(), length, record._name);
}

}  // namespace

std::span<const VoiceValueRow> VoiceValueRows() { return kRows; }

const VoiceValueRow& RowOf(VoiceValue value) { return kRows[static_cast<size_t>(value)]; }

int VoiceValueOf(const DocStaff* staff, int voice, VoiceValue value) {
    CORVANE_ASSERT(voice >= 1 && voice <= DocStaff::kVoices);
    return staff->_voices[voice - 1].*RowOf(value).field;
}

void SetVoiceValue(DocStaff* staff, int voice, VoiceValue value, int number) {
    const VoiceValueRow& row = RowOf(value);
    Stored<int16_t>& field = RecordOf(staff, voice).*row.field;
    const auto held = static_cast<int16_t>(std::clamp<int>(number, row.least, row.most));
    if (field == held) return;
    StoreShared(field, held);
    if (value == VoiceValue::Transposition) SilenceIfPlaying();
}

void SetActive(DocStaff* staff, bool on) {
    StoreShared(staff->_active, uint8_t{on});
    if (!on && staff->_solo) {
        StoreShared(staff->_solo, uint8_t{0});
        KeepSoloOfDocument(documentDocStaffs.ParentOf(staff));
    }
    SilenceIfPlaying();
}

void SetSolo(DocStaff* staff, bool on) {
    StoreShared(staff->_solo, uint8_t{on});
    if (on) StoreShared(staff->_active, uint8_t{1});
    KeepSoloOfDocument(documentDocStaffs.ParentOf(staff));
    SilenceIfPlaying();
}

void SetProgram(Document* document, DocStaff* staff, int voice, int program, std::string_view name,
                int device) {
    const VoiceRecord& wanted = RecordOf(staff, voice);
    const int16_t port = wanted._port, channel = wanted._channel;
    for (DocStaff* other : documentDocStaffs.Of(document))
        for (int v = 1; v <= DocStaff::kVoices; ++v) {
            VoiceRecord& record = RecordOf(other, v);
            const bool own = other == staff && v == voice;
            const bool shares = v <= other->_voiceCount && record._port == port && record._channel == channel;
            if (!own && !shares) continue;
            SetVoiceValue(other, v, VoiceValue::Program, program);
            Rename(record, program > 0 ? name : std::string_view());
            record._reserved = static_cast<int16_t>(device);
        }
}

std::string_view ProgramNameOf(const DocStaff* staff, int voice) {
    const char* name = staff->_voices[voice - 1]._name;
    return {name, strnlen(name, sizeof staff->_voices[0]._name)};
}

std::string_view NameOf(const DocStaff* staff) {
    const Staff* first = docStaffStaffs.First(staff);
    if (!first) return {};
    const MultiStaff* listed = nullptr;
    if (const auto* simple = As<SimpleStaff>(first)) listed = simple;
    if (const auto* part = As<StaffBot>(first)) listed = customStaffs.ParentOf(part);
    const AllStaff* all = listed ? allStaffStaffs.ParentOf(listed) : nullptr;
    return all ? TextOf(all->_name) : std::string_view();
}

}  // namespace corvane
