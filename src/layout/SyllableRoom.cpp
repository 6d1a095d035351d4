#include "layout/SyllableRoom.h"

#include <map>
#include <optional>

#include "layout/EventSymbols.h"
#include "layout/Lyrics.h"
#include "layout/NoteGeometry.h"
#include "model/Par.h"

namespace corvane {
namespace {

// Between two words, and between syllables that a hyphen parts; sizes of the letters.
constexpr double kBlank = 0.3, kHyphenRoom = 0.6;

// What a syllable takes on both sides of its note's place.
struct Span {
    size_t event = 0;
    int32_t left = 0, right = 0;
};

Span SpanOf(size_t event, const Liriche* syllable) {
    const TextLook look = LookOf(syllable->_text.Get());
    const int32_t width = WidthOfText(TextOf(syllable->_text.Get()), look);
    const int32_t head = RectOf(noteAttributes.ParentOf(syllable)).Width();
    const double gap = syllable->_joint == LyricJoint::Hyphen ? kHyphenRoom : kBlank;
    // It is centred below the head, whose left edge is the place of the event.
    return {event, (width - head) / 2, (width + head) / 2 + static_cast<int32_t>(look.size * gap)};
}

}  // namespace

std::vector<EventNeed> SyllableNeedsOf(std::span<const Event> events) {
    std::vector<EventNeed> needs;
    std::map<std::pair<const Voice*, int>, Span> last;
    for (size_t i = 0; i < events.size(); ++i)
        for (const auto& each : events[i].symbols) {
            const auto* chord = As<Chords>(static_cast<const MusicSymbol&>(*each).Symbol());
            if (!chord) continue;
            for (const GenericNote* note : chordNotes.Of(chord))
                for (const NoteAttribute* attribute : noteAttributes.Of(note)) {
                    const auto* syllable = As<Liriche>(attribute);
                    if (!syllable || TextOf(syllable->_text.Get()).empty()) continue;
                    const Span span = SpanOf(i, syllable);
                    const auto [before, first] = last.try_emplace({VoicePar(chord), VerseOf(syllable)}, span);
                    if (!first) needs.push_back({before->second.event, i, before->second.right + span.left});
                    before->second = span;
                }
        }
    return needs;
}

}  // namespace corvane
