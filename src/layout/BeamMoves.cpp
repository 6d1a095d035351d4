#include "layout/BeamMoves.h"

#include <algorithm>
#include <cstdlib>

#include "base/Rounding.h"
#include "layout/BeamClearance.h"
#include "layout/Beaming.h"
#include "layout/Engraving.h"
#include "layout/NoteGeometry.h"
#include "model/NoteOperations.h"
#include "model/Par.h"

namespace corvane {
namespace {

// Let go so near to where the rules would have it, a line follows them again; so alike, both its ends have
// moved as one. Page units.
constexpr int32_t kSnap = 10, kAlike = 2;

bool Opposes(const Beam* beam, const Stem* stem) {
    return As<CrossBeam>(beam) && IsUp(stem->_direction) != (beam->_direction == 'U');
}

// A stem against the beam's direction goes on through its levels.
int32_t BeyondLine(const Beam* beam, const BeamPost& post) {
    return Opposes(beam, post.stem) ? LevelReach(post.marker) : 0;
}

void PutEnd(const Beam* beam, const BeamPost& post, int32_t y) {
    SetEnd(post.stem, y + BeyondLine(beam, post));
    Say(post.stem, kSaidLength, true);
}

}  // namespace

std::vector<BeamPost> PostsOf(const Beam* beam) {
    std::vector<BeamPost> posts;
    for (const BeamMarker* marker : beamMarkers.Of(beam)) {
        auto* stem = As<Stem>(beamSymbolAttributes.ParentOf(marker));
        if (!stem || stemNotes.IsEmpty(stem)) continue;
        BeamPost post{stem, marker, BeamXOf(stem), LineOf(stem).told};
        post.y -= BeyondLine(beam, post);
        posts.push_back(post);
    }
    return posts;
}

int32_t LeastRoom(const Beam* beam, const BeamPost& post, const GenericNote* note, bool below) {
    const bool hasLevels = below == (beam->_direction == 'U');
    const int32_t depth = BeamClearance(post.stem).Depth(hasLevels ? post.marker->_leftValue.Get() : 8);
    return (depth + kHeadRoom / 2) * FrameOf(StaffPar(note)).lineDistance / 100;
}

int32_t MoveAt(const Beam* beam, const BeamMove& move, int32_t x) {
    const std::vector<BeamPost> posts = PostsOf(beam);
    if (posts.empty()) return 0;
    const int32_t way = posts.back().x - posts.front().x;
    if (!way) return move.first;
    return move.first + Round(static_cast<double>(move.last - move.first) * (x - posts.front().x) / way);
}

BeamMove WithinReach(const Beam* beam, const BeamMove& move) {
    double share = 1;
    for (const BeamPost& post : PostsOf(beam)) {
        const int32_t by = MoveAt(beam, move, post.x);
        for (const GenericNote* note : stemNotes.Of(post.stem)) {
            const int32_t gap = PlaceOf(note).stem.y - post.y;
            if (by == 0 || (gap > 0) != (by > 0)) continue;
            const int32_t room = std::max(std::abs(gap) - LeastRoom(beam, post, note, gap > 0), 0);
            share = std::min(share, static_cast<double>(room) / std::abs(by));
        }
    }
    return {Truncate(move.first * share), Truncate(move.last * share)};
}

void TellBeam(Beam* beam, const BeamMove& move) {
    std::vector<BeamPost> posts = PostsOf(beam);
    if (posts.empty()) return;
    const int32_t first = posts.front().y + move.first, last = posts.back().y + move.last;
    for (const BeamPost& post : posts) Say(post.stem, kSaidLength, false);
    RefitBeam(beam);
    posts = PostsOf(beam);
    const int32_t atFirst = first - posts.front().y, atLast = last - posts.back().y;
    if (std::abs(atFirst) <= kSnap && std::abs(atLast) <= kSnap) return;
    PutEnd(beam, posts.front(), first);
    if (std::abs(atFirst - atLast) > kAlike) PutEnd(beam, posts.back(), last);
    RefitBeam(beam);
}

}  // namespace corvane
