// A head that goes from step to step; the one that it comes from stays in the picture.
#include "base/Rounding.h"
#include "edit/Audition.h"
#include "edit/Drag.h"
#include "edit/Drags.h"
#include "edit/NoteChanges.h"
#include "edit/SelectionPress.h"
#include "layout/MovedPictures.h"
#include "layout/NoteGeometry.h"
#include "model/Par.h"

namespace corvane {
namespace {

class HeadDrag : public Drag {
public:
    using Drag::Drag;

    void Draw(GraphicPort& port, const DrawContext& context) const override {
        const GenericNote* note = Note();
        const int steps = note ? Steps(note) : 0;
        if (!steps) return;
        port.SetColor(context.ColourOf(VoicePar(note)->_number));
        PaintHeadOn(port, note, note->_line + steps);
    }
    void Release(Point at) override {
        Move(at);
        GenericNote* note = Note();
        const int steps = note ? Steps(note) : 0;
        if (!steps) return;
        const SelectionFollower follower(_window);
        if (const Status status = MoveBySteps(_window, {note}, steps); !status)
            _window.Shell().Tell(status.message());
        else
            AuditionNote(note);
    }

private:
    GenericNote* Note() const {
        return _moving && IsThere() ? HeadAt(_patch.Record<ChordSymbol>(), _from) : nullptr;
    }
    int Steps(const GenericNote* note) const {
        const int32_t distance = FrameOf(StaffPar(note)).lineDistance;
        return distance ? Round(-2.0 * _by.y / distance) : 0;
    }
};

}  // namespace

std::unique_ptr<Interaction> DragHead(WindowTarn& window, const DrawPatch& patch, Point from) {
    return HeadAt(patch.Record<ChordSymbol>(), from) ? std::make_unique<HeadDrag>(window, patch, from)
                                                     : nullptr;
}

}  // namespace corvane
