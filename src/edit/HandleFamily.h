// What the handles of one kind steer: where they stand, how far they go, and what a move of them means.
// Stateless. Several handles that are dragged go together, each as far as its target does; what is drawn
// meanwhile is worked out from the records, which nothing but Apply writes.
#pragma once

#include <vector>

#include "edit/ControlPoints.h"
#include "layout/DrawPatch.h"

namespace corvane {

class HandleFamily {
public:
    virtual ~HandleFamily() = default;

    // Those of a page, in score order.
    virtual void Find(const Page* page, std::vector<Handle>& handles) const = 0;
    // Where each would come to stand; all are of this kind.
    virtual std::vector<HandleMove> Moved(const std::vector<Handle>& handles, Point by) const = 0;
    // What is out of the picture meanwhile, because Draw paints it in its other state.
    virtual std::vector<DrawPatch> Lifted(const Handle&) const { return {}; }
    // The targets as they would be. Outlines take the port's colour.
    virtual void Draw(GraphicPort& port, const std::vector<HandleMove>& moves,
                      const DrawContext& context) const = 0;
    // Within the caller's step; at least one of the moves goes somewhere.
    virtual void Apply(WindowTarn& window, const std::vector<HandleMove>& moves) const = 0;
    // Takes the target away, within the caller's step, where it can go by itself.
    virtual void Delete(WindowTarn&, const Handle&) const {}
    virtual bool CanDelete() const { return false; }
};

const HandleFamily& StemHandles();
const HandleFamily& TieHandles();
const HandleFamily& StaffHandles();
const HandleFamily& TupletHandles();
const HandleFamily& BarlineHandles();
const HandleFamily& SlurHandles();

const HandleFamily& FamilyOf(HandleKind kind);

// Calls visit(family, handles) for each kind that is among some handles.
template <class Visit>
void ForEachKind(const std::vector<Handle>& handles, Visit visit) {
    for (size_t kind = 0; kind < kHandleKinds; ++kind) {
        std::vector<Handle> ofKind;
        for (const Handle& handle : handles)
            if (static_cast<size_t>(handle.kind) == kind) ofKind.push_back(handle);
        if (!ofKind.empty()) visit(FamilyOf(static_cast<HandleKind>(kind)), ofKind);
    }
}
// Where handles of any kinds come to stand together, and what they steer there as one undoable step; no step
// where none goes anywhere.
std::vector<HandleMove> MovesOf(const std::vector<Handle>& handles, Point by);
void ApplyMoves(WindowTarn& window, const std::vector<HandleMove>& moves);

}  // namespace corvane
