// Barlines and repeats.
#include "edit/Signs.h"
#include "edit/SystemRedraw.h"
#include "model/Par.h"

namespace corvane {
namespace {

struct RightEdge {
    BarlineKind kind = BarlineKind::Single;
    bool endRepeat = false, hidden = false;
};

RightEdge EdgeFor(BarlineChange change, bool on, const Measure* measure) {
    switch (change) {
        case BarlineChange::Double:
            return {BarlineKind::Double};
        case BarlineChange::Final:
            return {BarlineKind::Final};
        case BarlineChange::Dashed:
            return {BarlineKind::Dashed};
        case BarlineChange::RepeatEnd:
            return {on ? BarlineKind::Single : measure->_barline.Get(), on};
        case BarlineChange::None:
            return {measure->_barline, measure->_endRepeat != 0, on};
        default:
            return {};
    }
}

}  // namespace

Status ChangeBarline(WindowTarn& window, Measure* measure, BarlineChange change, bool on) {
    const EditStep step(window);
    const SystemRedraw redraw(window, measure);
    if (change == BarlineChange::RepeatStart) {
        measure->_startRepeat = on ? 1 : 0;
        return Status::Ok();
    }
    const RightEdge edge = EdgeFor(change, on, measure);
    measure->_barline = edge.kind;
    measure->_endRepeat = edge.endRepeat ? 1 : 0;
    measure->_hiddenBarline = edge.hidden ? 1 : 0;
    return Status::Ok();
}

}  // namespace corvane
