// Where the line of a beam over several staves lies.
#include <algorithm>
#include <cstdlib>
#include <limits>
#include <optional>

#include "layout/BeamClearance.h"
#include "layout/BeamMoves.h"
#include "layout/CrossBeams.h"
#include "layout/Engraving.h"
#include "layout/NoteGeometry.h"
#include "model/NoteOperations.h"
#include "model/Par.h"

namespace corvane {
namespace {

// Stems between the staves may be shorter than others by this, hundredths of a line distance, before the beam
// goes above or below all.
constexpr int32_t kShortened = 125;

enum class Lie { Between, Above, Below };

// A stem under the beam, with its heads as they stand.
struct CrossPost {
    Stem* stem;
    const BeamMarker* marker;
    const Staff *top, *bottom;  // of its highest and its lowest head
    int32_t high, low;          // y of these heads
    int32_t x = 0;

    bool IsOver(int32_t staffTop) const { return bottom->_top <= staffTop; }
    bool IsUnder(int32_t staffTop) const { return top->_top > staffTop; }
};

int32_t DistanceOf(const Staff* staff) { return FrameOf(staff).lineDistance; }

std::vector<CrossPost> CrossPostsOf(const Beam* beam) {
    std::vector<CrossPost> posts;
    for (const BeamMarker* marker : beamMarkers.Of(beam)) {
        auto* stem = As<Stem>(beamSymbolAttributes.ParentOf(marker));
        if (!stem || stemNotes.IsEmpty(stem)) continue;
        const GenericNote *high = stemNotes.First(stem), *low = stemNotes.Last(stem);
        const Staff *top = StaffPar(high), *bottom = StaffPar(low);
        if (top && bottom)
            posts.push_back({stem, marker, top, bottom, FrameOf(top).YOfLine(high->_line),
                             FrameOf(bottom).YOfLine(low->_line)});
    }
    return posts;
}

// The tops of the staves under the beam but the lowest, downward: the line may lie below each.
std::vector<int32_t> GapsOf(const std::vector<CrossPost>& posts) {
    std::vector<int32_t> tops;
    for (const CrossPost& post : posts)
        for (const Staff* staff : {post.top, post.bottom}) tops.push_back(staff->_top);
    std::sort(tops.begin(), tops.end());
    tops.erase(std::unique(tops.begin(), tops.end()), tops.end());
    if (!tops.empty()) tops.pop_back();
    return tops;
}

std::optional<Lie> ToldLie(const std::vector<CrossPost>& posts) {
    for (const CrossPost& post : posts)
        if (IsPointed(post.stem)) return IsUp(post.stem->_direction) ? Lie::Above : Lie::Below;
    return std::nullopt;
}

// The angle that the notes tell: as their first and last stand on the page.
double SlopeOf(const std::vector<CrossPost>& posts) {
    const auto middle = [](const CrossPost& post) { return (post.high + post.low) / 2; };
    const int32_t rise = middle(posts.front()) - middle(posts.back());
    const int32_t least = DistanceOf(posts.front().top) / 2;
    if (!AngledBeams() || std::abs(rise) < least) return 0.0;
    return CappedSlope(rise > 0 ? -kBeamSlope : kBeamSlope, posts.back().x - posts.front().x,
                       DistanceOf(posts.front().top));
}

// Fits one beam to its posts.
class CrossLine {
public:
    CrossLine(CrossBeam* beam, std::vector<CrossPost> posts) : _beam(beam), _posts(std::move(posts)) {}

    void Fit() {
        const std::vector<int32_t> gaps = GapsOf(_posts);
        if (FitTold()) return Put();
        const std::optional<Lie> told = ToldLie(_posts);
        if (!told)
            for (const int32_t gap : gaps)
                if (FitBetween(gap)) return Put();
        const bool firstIsUpper = !gaps.empty() && _posts.front().IsOver(gaps.front());
        FitBeside(told.value_or(firstIsUpper ? Lie::Below : Lie::Above) == Lie::Above);
        Put();
    }

private:
    void Point(const CrossPost& post, bool up) {
        if (IsUp(post.stem->_direction) != up) PointStem(post.stem, up);
    }
    void Direct(bool up) {
        const uint8_t direction = up ? 'U' : 'D';
        if (_beam->_direction != direction) _beam->_direction = direction;
    }
    void TakePlaces() {
        for (CrossPost& post : _posts) post.x = BeamXOf(post.stem);
    }
    bool Opposes(const CrossPost& post) const {
        return IsUp(post.stem->_direction) != (_beam->_direction == 'U');
    }

    // The least length of a stem from its outer head to the primary line.
    int32_t Need(const CrossPost& post, const Staff* staff) const {
        const BeamClearance clearance(post.stem);
        const int32_t levels = Opposes(post) ? 0 : clearance.Depth(post.marker->_leftValue) + kHeadRoom;
        return std::max(clearance.least, levels) * DistanceOf(staff) / 100;
    }

    // Stems over the gap point down, those under it up; one across it as the beam does. False without room.
    bool FitBetween(int32_t gap) {
        Direct(!_posts.front().IsOver(gap));
        bool over = false, under = false;
        for (const CrossPost& post : _posts) {
            const bool isOver = post.IsOver(gap), isUnder = post.IsUnder(gap);
            over |= isOver, under |= isUnder;
            Point(post, isOver ? false : isUnder || _beam->_direction == 'U');
        }
        if (!over || !under) return false;
        TakePlaces();
        const double slope = SlopeOf(_posts);
        return Centre(gap, slope, 0) || (slope != 0.0 && Centre(gap, 0.0, 0)) || Centre(gap, 0.0, kShortened);
    }

    // Along the ends that a person has told, each stem from its heads towards it. False where none is told,
    // and where heads have come in its way.
    bool FitTold() {
        std::vector<BeamPost> told = PostsOf(_beam);
        std::erase_if(told, [](const BeamPost& post) { return !IsLengthTold(post.stem); });
        if (told.empty()) return false;
        TakePlaces();
        RunThrough(told);
        if (!IsClear()) return false;
        for (const CrossPost& post : _posts) {
            const int32_t y = _line.YAt(post.x);
            const bool straddles = post.high < y && post.low > y;
            Point(post, straddles ? _beam->_direction == 'U' : post.low > y);
        }
        Direct(IsUp(_posts.front().stem->_direction));
        // Stems that have turned stand on the other side of their heads.
        TakePlaces();
        for (BeamPost& post : told) post.x = BeamXOf(post.stem);
        RunThrough(told);
        return true;
    }
    void RunThrough(const std::vector<BeamPost>& told) {
        const BeamPost &first = told.front(), &last = told.back();
        _line.slope = SlopeOf(_posts);
        if (first.x != last.x && AngledBeams())
            _line.slope = static_cast<double>(last.y - first.y) / (last.x - first.x);
        _line.b = first.y - first.x * _line.slope;
    }
    bool IsClear() const {
        constexpr int32_t kRounding = 3;
        for (const BeamPost& post : PostsOf(_beam))
            for (const GenericNote* note : stemNotes.Of(post.stem)) {
                const int32_t gap = PlaceOf(note).stem.y - _line.YAt(post.x);
                if (std::abs(gap) + kRounding < LeastRoom(_beam, post, note, gap > 0)) return false;
            }
        return true;
    }

    // The line in the middle of the room that the stems leave.
    bool Centre(int32_t gap, double slope, int32_t shortened) {
        double least = -std::numeric_limits<double>::infinity(), most = -least;
        for (const CrossPost& post : _posts) {
            const double at = post.x * slope;
            const auto need = [&](const Staff* staff) {
                return Need(post, staff) - shortened * DistanceOf(staff) / 100;
            };
            if (post.IsOver(gap)) least = std::max(least, post.low + need(post.bottom) - at);
            if (post.IsUnder(gap)) most = std::min(most, post.high - need(post.top) - at);
            if (post.IsOver(gap) || post.IsUnder(gap)) continue;
            // The line crosses the stem between its heads of both sides.
            const int32_t room = kHeadRoom * DistanceOf(post.bottom) / 100;
            for (const GenericNote* note : stemNotes.Of(post.stem)) {
                const Staff* staff = StaffPar(note);
                const int32_t y = FrameOf(staff).YOfLine(note->_line);
                if (staff->_top <= gap)
                    least = std::max(least, y + room - at);
                else
                    most = std::min(most, y - room - at);
            }
        }
        if (least > most) return false;
        _line.slope = slope;
        _line.b = (least + most) / 2;
        return true;
    }

    // All stems up to a line above, or down to one below.
    void FitBeside(bool above) {
        Direct(above);
        for (const CrossPost& post : _posts) Point(post, above);
        TakePlaces();
        const int sign = above ? 1 : -1;  // upward
        double furthest = -std::numeric_limits<double>::infinity();
        _line.slope = SlopeOf(_posts);
        for (const CrossPost& post : _posts) {
            const int32_t y = above ? post.high : post.low;
            const int32_t need = Need(post, above ? post.top : post.bottom);
            furthest = std::max(furthest, need - sign * (y - post.x * _line.slope));
        }
        _line.b = -sign * furthest;
    }

    // Stems against the beam's direction go on to the level that is furthest from their heads.
    void Put() {
        for (const CrossPost& post : _posts)
            SetEnd(post.stem, _line.YAt(post.x) + (Opposes(post) ? LevelReach(post.marker) : 0));
        SetMarkerStubs(_beam);
    }

    CrossBeam* _beam;
    std::vector<CrossPost> _posts;
    BeamLine _line;
};

}  // namespace

void RefitCrossBeam(CrossBeam* beam) {
    if (std::vector<CrossPost> posts = CrossPostsOf(beam); !posts.empty())
        CrossLine(beam, std::move(posts)).Fit();
}

}  // namespace corvane
