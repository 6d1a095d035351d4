// Beams: what their markers and the ends of their stems make them paint.
#include <algorithm>
#include <cmath>

#include "base/Rounding.h"
#include "layout/Beaming.h"
#include "layout/LineWeights.h"
#include "layout/NoteGeometry.h"
#include "model/NoteOperations.h"
#include "model/Par.h"
#include "model/Preferences.h"

namespace corvane {
namespace {

// A marker with what it stands on.
struct Post {
    const BeamMarker* marker = nullptr;
    const Stem* stem = nullptr;  // one of the two is there
    const Pause* pause = nullptr;
    int32_t left = 0, right = 0;  // edges of a stem's ink; a rest's centre
    int32_t end = 0;              // y of the beam's line at a stem
};

Post PostOf(const BeamMarker* marker) {
    Post post;
    post.marker = marker;
    const BeamSymbol* symbol = beamSymbolAttributes.ParentOf(marker);
    CORVANE_ASSERT_AS(symbol, "beamSymbol");
    post.stem = As<Stem>(symbol);
    post.pause = As<Pause>(symbol);
    if (post.stem) {
        const Column column(post.stem);
        const Rect ink = StemInk(column);
        post.left = ink.left, post.right = ink.right, post.end = LineOf(column).told;
        // Over several staves a stem against the beam's direction goes on through its levels.
        const Beam* beam = beamMarkers.ParentOf(marker);
        if (As<CrossBeam>(beam) && IsUp(post.stem->_direction) != (beam->_direction == 'U'))
            post.end -= LevelReach(marker);
    } else {
        post.left = post.right = BeamXOf(symbol);
    }
    return post;
}

// Sizes of one beam, in page units.
struct BeamMeasures {
    int32_t thickness, step;  // the step to the next level, towards the heads
    int32_t stub;
};

BeamMeasures MeasuresOf(const Beam* beam, const Stem* first) {
    const GenericNote* note = stemNotes.First(first);
    const Document* document = DocumentPar(first);
    const auto* preferences = document ? Preferences<NotePref>(document) : nullptr;
    const int32_t percent = preferences ? preferences->BeamThickness() : NotePref::kBeamThickness;
    const int32_t gap = preferences ? preferences->BeamGap() : NotePref::kBeamGap;
    const bool grace = IsGrace(first);
    const int32_t distance = note ? FrameOf(StaffPar(note)).lineDistance : 0, part = grace ? 200 : 100;
    const int32_t thickness = std::max(1, percent * distance / part);
    const int32_t step = (gap + percent) * distance / part;
    const int32_t full = percent * distance / 100;
    return {thickness, beam->_direction == 'U' ? step : -step, grace ? full * 3 / 2 : full * 2};
}

class BeamPicture {
public:
    explicit BeamPicture(const Beam* beam) {
        for (const BeamMarker* marker : beamMarkers.Of(beam)) _posts.push_back(PostOf(marker));
        const auto isStem = [](const Post& post) { return post.stem != nullptr; };
        const auto first = std::find_if(_posts.begin(), _posts.end(), isStem);
        if (first == _posts.end()) return;
        const auto last = std::find_if(_posts.rbegin(), _posts.rend(), isStem);
        _measures = MeasuresOf(beam, first->stem);
        _origin = {(first->left + first->right) / 2, first->end};
        const int32_t across = (last->left + last->right) / 2 - _origin.x;
        if (across != 0) _slope = static_cast<float>(last->end - first->end) / static_cast<float>(across);
        if (_posts.size() == 1) {
            Single(_posts.front());
            return;
        }
        Stroke(0, _posts.front().left, _posts.back().right);
        for (int level = 1, value = 16; value <= 128; ++level, value *= 2) Level(level, value);
        for (const Post& post : _posts) ReachRest(post);
    }

    std::vector<BeamStroke> Take() { return std::move(_strokes); }

private:
    Point At(int level, int32_t x) const {
        return {x, Round(static_cast<double>(_origin.y) + static_cast<double>(x - _origin.x) * _slope) +
                       level * _measures.step};
    }

    void Stroke(int level, int32_t left, int32_t right) {
        _strokes.push_back({At(level, left), At(level, right), _measures.thickness});
    }

    static bool Reaches(const Post& post, int value) { return post.marker->_groupValue >= value; }

    bool Connects(size_t left, int value) const {
        return left + 1 < _posts.size() && LevelConnects(_posts[left].marker, _posts[left + 1].marker, value);
    }

    // The pieces of one level: a stroke for each run of connected markers, a stub for a stem alone.
    void Level(int level, int value) {
        for (size_t i = 0; i < _posts.size(); ++i) {
            if (!Reaches(_posts[i], value)) continue;
            const size_t begin = i;
            while (Connects(i, value)) ++i;
            if (i > begin)
                Stroke(level, _posts[begin].left, _posts[i].right);
            else if (_posts[i].stem)
                Stub(level, _posts[i]);
        }
    }

    void Stub(int level, const Post& post) {
        if (post.marker->_stubSide == 'L')
            Stroke(level, post.right - _measures.stub, post.right);
        else
            Stroke(level, post.left, post.left + _measures.stub);
    }

    // A beam over one stem stands for its flag.
    void Single(const Post& post) {
        Stub(0, post);
        for (int level = 1, value = 16; value <= post.marker->_leftValue; ++level, value *= 2)
            Stub(level, post);
    }

    // From the edge of the rest that is nearer to the beam.
    void ReachRest(const Post& post) {
        if (!post.pause || !post.marker->_drawToRest) return;
        const Rect rest = RectOf(post.pause);
        const Point beam = At(0, post.left);
        const int32_t from =
            std::abs(beam.y - rest.top) < std::abs(beam.y - rest.bottom) ? rest.top : rest.bottom;
        const int32_t weight = StemWeight(FrameOf(StaffPar(post.pause)).lineDistance);
        _strokes.push_back({{post.left, from}, beam, weight});
    }

    std::vector<Post> _posts;
    BeamMeasures _measures{};
    Point _origin;
    float _slope = 0;
    std::vector<BeamStroke> _strokes;
};

Rect InkOf(const BeamStroke& stroke) {
    const Rect box = Rect{stroke.from.x, stroke.from.y, stroke.to.x, stroke.to.y}.Normalised();
    const int32_t half = (stroke.thickness + 1) / 2;
    if (box.left == box.right) return {box.left - half, box.top, box.right + half, box.bottom};
    // An upright cut through a sloping stroke is a little longer than the stroke is thick.
    const double slope = static_cast<double>(box.Height()) / box.Width();
    const int32_t reach = static_cast<int32_t>(std::ceil(half * std::sqrt(1 + slope * slope)));
    return {box.left, box.top - reach, box.right, box.bottom + reach};
}

}  // namespace

int32_t BeamXOf(const BeamSymbol* symbol) {
    if (const auto* stem = As<Stem>(symbol)) return Column(stem).x;
    const Rect rest = RectOf(As<Pause>(symbol));
    return (rest.left + rest.right) / 2;
}

int32_t LevelReach(const BeamMarker* marker) {
    const Beam* beam = beamMarkers.ParentOf(marker);
    const auto* stem = As<Stem>(beamSymbolAttributes.ParentOf(marker));
    if (!beam || !stem) return 0;
    const int32_t step = MeasuresOf(beam, stem).step;
    int32_t reach = 0;
    for (int value = 16; value <= marker->_leftValue; value *= 2) reach += step;
    return reach;
}

std::vector<BeamStroke> StrokesOf(const Beam* beam) { return BeamPicture(beam).Take(); }

Rect RectOf(const BeamMarker* marker) {
    const Beam* beam = beamMarkers.ParentOf(marker);
    if (!beam || beamMarkers.First(beam) != marker) return {};
    Rect all;
    for (const BeamStroke& stroke : StrokesOf(beam)) all = Union(all, InkOf(stroke));
    return all;
}

}  // namespace corvane
