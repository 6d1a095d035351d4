// What the mixer changes of a score's staves and voices: written so that a play hears it with the next note,
// and so that no note hangs whose end would not be sent any more. Main thread; the caller's command holds it.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "model/HierarchyRecords.h"

namespace corvane {

// The numbers of a voice.
enum class VoiceValue : uint8_t { Volume, Pan, Program, Channel, Port, Transposition, RecordActive };

struct VoiceValueRow {
    VoiceValue value;
    const char* name;  // as commands know it
    int16_t least, most;
    Stored<int16_t> VoiceRecord::*field;
};
std::span<const VoiceValueRow> VoiceValueRows();
const VoiceValueRow& RowOf(VoiceValue value);

// Voices are numbered from 1. Values are held to their ranges.
int VoiceValueOf(const DocStaff* staff, int voice, VoiceValue value);
void SetVoiceValue(DocStaff* staff, int voice, VoiceValue value, int number);

// Mute: off takes the solo away too.
void SetActive(DocStaff* staff, bool on);
// Solo: on makes the staff active. The score knows whether any staff is soloed.
void SetSolo(DocStaff* staff, bool on);

// The program of a voice and its name, of a device of the instrument names; 0 for none. Voices in use that
// sound on the same port and channel get it too, since a channel has one program.
void SetProgram(Document* document, DocStaff* staff, int voice, int program, std::string_view name,
                int device);
std::string_view ProgramNameOf(const DocStaff* staff, int voice);

// The staff's name in the part list; empty where it has none.
std::string_view NameOf(const DocStaff* staff);

}  // namespace corvane
