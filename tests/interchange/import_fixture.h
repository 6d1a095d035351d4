// MIDI files made by hand, and what becomes of them.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <iterator>

#include "interchange/ExportMidi.h"
#include "interchange/ImportMidi.h"
#include "layout/ScoreBuilder.h"
#include "midi_sounds.h"
#include "model/ClassTable.h"
#include "model/Clefs.h"
#include "model/NoteOperations.h"
#include "model/Par.h"
#include "model/ScoreCheck.h"
#include "model/SymbolTable.h"
#include "platform/freetype/FreeTypeMeasures.h"
#include "play/MIDIUtility.h"

namespace corvane {

struct MadeNote {
    int32_t on, off;  // ticks
    int key, channel = 0;
};

class ImportTest : public ::testing::Test {
protected:
    using Bytes = std::vector<uint8_t>;

    ImportTest() {
        static const bool ready = [] {
            RegisterClasses();
            InstallFreeTypeMeasures();
            return true;
        }();
        (void)ready;
    }
    ~ImportTest() override { Drop(); }

    // Messages of a track in the order of their times.
    static Bytes Track(const std::vector<MadeNote>& notes) {
        struct Message {
            int32_t time;
            int status, key;
        };
        std::vector<Message> messages;
        for (const MadeNote& note : notes) {
            messages.push_back({note.on, 0x90 | note.channel, note.key});
            if (note.off >= 0) messages.push_back({note.off, 0x80 | note.channel, note.key});
        }
        std::stable_sort(messages.begin(), messages.end(), [](const Message& a, const Message& b) {
            return a.time != b.time ? a.time < b.time : (a.status & 0x10) < (b.status & 0x10);
        });
        MidiTrackWriter writer;
        for (const Message& message : messages)
            writer.Message(message.time, message.status, message.key, message.status & 0x10 ? 80 : 0);
        return writer.Finish();
    }
    static Bytes File(const std::vector<Bytes>& tracks, int ticksPerQuarter = 480) {
        Bytes bytes = MidiHeader(static_cast<int>(tracks.size()), ticksPerQuarter);
        for (const Bytes& track : tracks) bytes.insert(bytes.end(), track.begin(), track.end());
        return bytes;
    }
    static Bytes Music(const std::vector<MadeNote>& notes) {
        return File({MidiTrackWriter().Finish(), Track(notes)});
    }
    static Bytes Meter(int num, int doublings) {
        MidiTrackWriter writer;
        const char numbers[] = {static_cast<char>(num), static_cast<char>(doublings), 24, 8};
        writer.Meta(0, MetaKind::Meter, {numbers, 4});
        return writer.Finish();
    }
    static Bytes Real(const std::string& name) {
        std::ifstream file(std::string(CORVANE_SOURCE_DIR) + "/tests/data/midi/" + name, std::ios::binary);
        EXPECT_TRUE(file.good()) << name;
        return {std::istreambuf_iterator<char>(file), {}};
    }

    // Gives back the score of the last import.
    void Drop() {
        if (_pool) MemoryManager::Instance().DeletePool(_pool);
        _pool = nullptr;
    }
    Status Import(const Bytes& bytes) {
        Drop();
        _pool = MemoryManager::Instance().NewPool();
        score = BuildNewScore({1, 1}, "");
        ImportProgress silent;
        const Status status = ImportMidi(score, bytes, options, silent);
        if (status)
            for (const Finding& finding : CheckScore(*_pool)) ADD_FAILURE() << TextOf(finding);
        return status;
    }

    // The events of a voice, a bar a line: "4:60" a quarter on middle C, "8.:60+64" a dotted chord, "4:60~"
    // tied to what follows, "r2" a rest, "8/3:60" in a triplet; a group begins with "(".
    std::string Voice(int staff = 1, int number = 1) {
        DocStaff* docStaff = documentDocStaffs.First(score);
        while (--staff > 0) docStaff = documentDocStaffs.Next(docStaff);
        std::string text;
        for (const MeasureStaff* crossing : docStaffMeasureStaffs.Of(docStaff)) {
            text += text.empty() ? "" : "|";
            const corvane::Voice* voice = FindVoice(crossing, number);
            std::string bar;
            for (const VoiceSymbol* symbol :
                 voiceSymbols.Of(voice ? voice : measureStaffVoices.First(crossing)))
                if (voice) bar += (bar.empty() ? "" : " ") + Symbol(symbol);
            text += bar;
        }
        return text;
    }

    // What the notes of the first staff show, voice by voice, a bar ending with "|": "-" for nothing.
    std::string Signs() {
        std::string signs;
        for (const MeasureStaff* crossing : docStaffMeasureStaffs.Of(documentDocStaffs.First(score))) {
            for (const auto* voice : measureStaffVoices.Of(crossing))
                for (const VoiceSymbol* symbol : voiceSymbols.Of(voice))
                    if (const auto* chord = As<Chords>(symbol))
                        for (const GenericNote* note : chordNotes.Of(chord))
                            signs += AccidentOf(note) ? SymbolName(AccidentOf(note)->_symbol) : "-";
            signs += '|';
        }
        return signs;
    }

    ImportOptions options;
    Document* score = nullptr;

private:
    static std::string Symbol(const VoiceSymbol* symbol) {
        const auto* chord = As<Chords>(symbol);
        std::string text = (chord ? "" : "r") + std::to_string(ValueOf(symbol));
        text += std::string(static_cast<size_t>(DotCount(symbol)), '.');
        for (const VoiceSymbolAttribute* attribute : voiceSymbolAttributes.Of(symbol))
            if (const auto* mark = As<MarkIrreg>(attribute)) {
                const Irregular* tuplet = irregularMarks.ParentOf(mark);
                if (irregularMarks.First(tuplet) == mark) text = "(" + text;
                text += "/" + std::to_string(tuplet->_count);
            }
        if (!chord) return text;
        std::string keys;
        for (const GenericNote* note : chordNotes.Of(chord)) {
            keys += (keys.empty() ? ":" : "+") + std::to_string(SoundingHeight(note));
            if (TiedToAfter(note)) keys += "~";
        }
        return text + keys;
    }

    NewMemoryPool* _pool = nullptr;
};

}  // namespace corvane
