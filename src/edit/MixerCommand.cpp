#include "edit/MixerCommand.h"

#include "edit/CommandTable.h"
#include "play/InstrumentNames.h"

namespace corvane {
namespace {

DocStaff* StaffOfNumber(const WindowTarn& window, int number) {
    for (DocStaff* staff : documentDocStaffs.Of(window.GetDocument()))
        if (--number == 0) return staff;
    return nullptr;
}

// staff=N voice=N and any of on, solo, rec, volume, pan, program, channel, port, transposition.
Status MixerOf(WindowTarn& window, const CommandArguments& arguments) {
    ArgumentReader reader(arguments);
    DocStaff* staff =
        StaffOfNumber(window, reader.Number("staff", 1, documentDocStaffs.Count(window.GetDocument())));
    const int voice = reader.Number("voice", 1, DocStaff::kVoices, 1);
    struct Switch {
        const char* name;
        void (*set)(DocStaff*, bool);
        int value;
    } switches[] = {{"on", SetActive, -1}, {"solo", SetSolo, -1}};
    for (Switch& s : switches)
        if (reader.Has(s.name)) s.value = reader.Number(s.name, 0, 1);
    std::vector<std::pair<VoiceValue, int>> values;
    for (const VoiceValueRow& row : VoiceValueRows())
        if (reader.Has(row.name))
            values.emplace_back(row.value, reader.Number(row.name, row.least, row.most));
    if (const Status status = reader.Result(); !status) return status;
    const EditStep step(window);
    for (const Switch& s : switches)
        if (s.value >= 0) s.set(staff, s.value != 0);
    for (const auto& [value, number] : values) SetVoiceValue(staff, voice, value, number);
    // The last: it goes to whoever shares the port and channel that were given.
    for (const auto& [value, number] : values)
        if (value == VoiceValue::Program)
            SetProgram(window.GetDocument(), staff, voice, number, GeneralMidiName(number), kGeneralMidi);
    return Status::Ok();
}

bool Always(const WindowTarn&) { return true; }

constexpr Command kMixer[] = {{33050, "Mixer", MixerOf, Always}};

}  // namespace

CommandFamily MixerCommands() { return kMixer; }

void ChangeActive(WindowTarn& window, DocStaff* staff, bool on) {
    const EditStep step(window);
    SetActive(staff, on);
}

void ChangeSolo(WindowTarn& window, DocStaff* staff, bool on) {
    const EditStep step(window);
    SetSolo(staff, on);
}

void ChangeVoiceValue(WindowTarn& window, DocStaff* staff, int voice, VoiceValue value, int number) {
    if (VoiceValueOf(staff, voice, value) == number) return;
    const EditStep step(window);
    SetVoiceValue(staff, voice, value, number);
}

void ChangeProgram(WindowTarn& window, DocStaff* staff, int voice, int program, std::string_view name,
                   int device) {
    const EditStep step(window);
    SetProgram(window.GetDocument(), staff, voice, program, name, device);
}

}  // namespace corvane
