// Beams up and down: by the third of the line that is pressed, its left end, its right one or both.
#include "edit/Drag.h"
#include "edit/Drags.h"
#include "edit/MeasureRedraw.h"
#include "layout/BeamMoves.h"
#include "layout/Beaming.h"
#include "layout/MovedPictures.h"
#include "layout/NoteGeometry.h"
#include "model/Par.h"

namespace corvane {
namespace {

enum class Third { Left, Middle, Right };

// Where beams are level they only go as a whole.
Third ThirdAt(const Rect& beam, int32_t x) {
    if (!AngledBeams()) return Third::Middle;
    const int32_t third = beam.Width() / 3;
    if (x < beam.left + third) return Third::Left;
    return x > beam.right - third ? Third::Right : Third::Middle;
}

// Its stems follow, so their columns are out of the picture with it.
class BeamDrag : public LiftedDrag {
public:
    BeamDrag(WindowTarn& window, const DrawPatch& patch, Point from)
        : LiftedDrag(window, patch, from), _third(ThirdAt(patch.Bounds(), from.x)) {}

    void Draw(GraphicPort& port, const DrawContext& context) const override {
        if (IsLifted()) PaintBeamMoved(port, TheBeam(), Way(), context);
    }

private:
    Beam* TheBeam() const { return beamMarkers.ParentOf(_patch.Record<BeamMarker>()); }
    BeamMove Way() const {
        const int32_t dy = _by.y;
        return WithinReach(TheBeam(), {_third == Third::Right ? 0 : dy, _third == Third::Left ? 0 : dy});
    }
    std::vector<DrawPatch> Drawers() const override {
        std::vector<DrawPatch> patches = LiftedDrag::Drawers();
        for (const BeamPost& post : PostsOf(TheBeam())) patches.push_back(PatchOf(ChordSymbolPar(post.stem)));
        return patches;
    }
    bool Changes() const override { return Way() != BeamMove{}; }
    void Apply() override {
        const BeamMove way = Way();
        const EditStep step(_window);
        const MeasureRedraw redraw(_window,
                                   MeasureStaffPar(stemNotes.First(PostsOf(TheBeam()).front().stem)));
        TellBeam(TheBeam(), way);
    }

    const Third _third;
};

}  // namespace

std::unique_ptr<Interaction> DragBeam(WindowTarn& window, const DrawPatch& patch, Point from) {
    const Beam* beam = beamMarkers.ParentOf(patch.Record<BeamMarker>());
    if (PostsOf(beam).empty()) return nullptr;
    return std::make_unique<BeamDrag>(window, patch, from);
}

}  // namespace corvane
