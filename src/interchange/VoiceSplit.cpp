#include "interchange/VoiceSplit.h"

#include <algorithm>
#include <array>

namespace corvane {
namespace {

constexpr size_t kMostHeld = 40;

struct HeldNote {
    NoteEvent on, off;
};

class Splitter {
public:
    void Take(const NoteEvent& event) {
        if (!_ended.empty() && event.time > _lastEnd) Flush(_result.second);
        if (event.isOn)
            NoteOn(event);
        else
            NoteOff(event);
    }

    // What still sounds ends with `last`.
    SplitEvents Finish(const NoteEvent& last) {
        for (HeldNote& note : _held) {
            note.off.time = last.time;
            note.off.plain = last.plain;
            _ended.push_back(note);
        }
        _held.clear();
        Flush(_result.first);
        for (auto* events : {&_result.first, &_result.second}) {
            std::stable_sort(events->begin(), events->end(),
                             [](const NoteEvent& a, const NoteEvent& b) { return a.time < b.time; });
            OrderMoments(*events);
        }
        return std::move(_result);
    }

private:
    static NoteEvent OffOf(NoteEvent event) {
        event.isOn = false;
        return event;
    }
    void NoteOn(const NoteEvent& event) {
        const bool starts = _held.empty() && _ended.empty();
        const bool joins = !_held.empty() && _held.front().on.time == event.time;
        if ((starts || joins) && _held.size() < kMostHeld)
            _held.push_back({event, OffOf(event)});
        else {
            _result.second.push_back(event);
            ++_elsewhere[event.key & 127];
        }
    }

    // The end of a note that is not held belongs where the note went.
    void NoteOff(const NoteEvent& event) {
        const auto held = std::find_if(_held.begin(), _held.end(),
                                       [&](const HeldNote& note) { return note.on.key == event.key; });
        if (held == _held.end()) {
            if (_elsewhere[event.key & 127] > 0) {
                --_elsewhere[event.key & 127];
                _result.second.push_back(event);
            }
            return;
        }
        _lastEnd = event.time;
        _ended.push_back({held->on, event});
        _held.erase(held);
        if (_held.empty()) Flush(_result.first);
    }

    void Flush(std::vector<NoteEvent>& list) {
        for (const HeldNote& note : _ended) list.push_back(note.on);
        for (const HeldNote& note : _ended) list.push_back(note.off);
        _ended.clear();
    }

    std::vector<HeldNote> _held, _ended;  // notes that began together: still sounding, and over
    int32_t _lastEnd = 0;
    std::array<int, 128> _elsewhere{};  // notes of the second list that sound
    SplitEvents _result;
};

}  // namespace

SplitEvents SplitInTwo(const std::vector<NoteEvent>& events) {
    Splitter splitter;
    for (const NoteEvent& event : events) splitter.Take(event);
    return events.empty() ? SplitEvents() : splitter.Finish(events.back());
}

}  // namespace corvane
