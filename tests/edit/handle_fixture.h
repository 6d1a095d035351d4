// Control points: shown, found by what they steer, dragged.
#pragma once

#include "edit/ControlPoints.h"
#include "spanner_fixture.h"

namespace corvane {

class HandleTest : public SpannerTest {
protected:
    static constexpr int kStems = 33045, kTies = 33046, kStaves = 33047, kTuplets = 33055, kBarlines = 33048,
                         kSlurs = 33049, kHide = 33041, kClear = 32774;

    size_t Count() { return window->Handles().All().size(); }
    Handle HandleOf(const void* target, int part = 0) {
        for (const Handle& handle : window->Handles().All())
            if (handle.target == target && handle.part == part) return handle;
        ADD_FAILURE() << "there is no such handle";
        return {};
    }
    void Click(const Handle& handle) {
        MouseDown(*window, handle.place.x, handle.place.y, 0);
        MouseUp(*window, handle.place.x, handle.place.y);
    }
    // As far as the paper goes.
    void Drag(const Handle& handle, Point by) {
        const Rect paper = PageRect(window->CurrentPage());
        const Point to{std::clamp(handle.place.x + by.x, paper.left + 1, paper.right - 1),
                       std::clamp(handle.place.y + by.y, paper.top + 1, paper.bottom - 1)};
        MouseDown(*window, handle.place.x, handle.place.y, 0);
        MouseMove(*window, (handle.place.x + to.x) / 2, (handle.place.y + to.y) / 2);
        MouseMove(*window, to.x, to.y);
        ASSERT_NE(window->interaction, nullptr);
        MemoryPort port(MemoryPort::Tracing::On);
        window->interaction->Draw(port, {});
        EXPECT_FALSE(port.Lines().empty()) << "a drag is seen";
        MouseUp(*window, to.x, to.y);
        EXPECT_TRUE(window->Sheet().Lifted().empty());
    }
    // One step that is undone to the last byte, and is there again after a save.
    void Move(const Handle& handle, Point by) {
        Step([&] { Drag(handle, by); });
        ExpectSameAfterReload();
    }
    // A drag that its limit holds where it is.
    void ExpectHeld(const Handle& handle, Point by) {
        StateKeeper keeper(*window);
        Drag(handle, by);
        EXPECT_EQ(keeper.commands, 0);
        EXPECT_EQ(HandleOf(handle.target, handle.part).place, handle.place);
    }
};

}  // namespace corvane
