// Drags with the arrow: what they show before the release, and what the score is after it.
#pragma once

#include "spanner_fixture.h"

namespace corvane {

class DragTest : public SpannerTest {
protected:
    void PressItem(int group, int item, Point at) {
        SetToolMode(ModePencil);
        SetPaletteGroup(static_cast<uint8_t>(group));
        SetItem(static_cast<uint16_t>(item));
        MouseDown(*window, at.x, at.y, 0);
        SetToolMode(ModeArrow);
    }
    template <class R>
    R* Only() {
        for (const DrawPatch& patch : window->Sheet().AllPatches())
            if (R* record = patch.Record<R>()) return record;
        return nullptr;
    }
    void Take(Point at) {
        SetToolMode(ModeArrow);
        MouseDown(*window, at.x, at.y, 0);
    }
    std::vector<std::string> PictureLines(bool dragged) {
        MemoryPort port(MemoryPort::Tracing::On);
        if (!dragged)
            window->Sheet().Draw(port, PageRect(window->CurrentPage()), {});
        else if (window->interaction)
            window->interaction->Draw(port, {});
        return port.Lines();
    }
    // Drags from an object's middle; it lies there then, and everything else as before.
    void ExpectDragged(void* record, Point by) {
        const DrawPatch patch = PatchOf(record);
        const Rect rect = patch.Bounds();
        const Point from = MiddleOf(rect), to = from + by;
        const size_t calls = PictureLines(false).size();
        Step([&] {
            Take(from);
            EXPECT_TRUE(PictureLines(true).empty()) << "nothing is dragged yet";
            MouseMove(*window, to.x, to.y);
            const size_t own = PictureLines(true).size();
            EXPECT_GT(own, 0u);
            EXPECT_EQ(PictureLines(false).size() + own, calls) << "the page is painted without it";
            EXPECT_EQ(patch.Bounds(), rect) << "nothing has changed yet";
            MouseUp(*window, to.x, to.y);
        });
        const Rect now = patch.Bounds();
        EXPECT_NEAR(now.left, rect.left + by.x, 8);
        EXPECT_NEAR(now.top, rect.top + by.y, 8);
        EXPECT_EQ(PictureLines(false).size(), calls);
        EXPECT_TRUE(window->Sheet().Lifted().empty());
        ExpectSameAfterReload();
    }
};

}  // namespace corvane
