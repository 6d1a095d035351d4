// The page on the screen is pieced together from pictures: nobody may see that, and an edit may remake only a
// few.
#include <QPainter>

#include "ViewFixture.h"
#include "platform/qt/ImagePort.h"
#include "shell/TileCache.h"
#include "shell/ViewScale.h"

namespace corvane {
namespace {

// An upright line, thinner than a pixel.
struct Hair {
    Rect rect;
};
class HairBehaviour : public PatchBehaviour {
public:
    void Draw(GraphicPort& port, void* object, const DrawContext&) const override {
        const Rect& rect = static_cast<Hair*>(object)->rect;
        port.DrawLine(rect.left, rect.top, rect.left, rect.bottom);
    }
    Rect Bounds(const void* object) const override { return static_cast<const Hair*>(object)->rect; }
    int16_t ClassNumber() const override { return 0; }
};

class Tiles : public ViewTest {
protected:
    Rect Page() const { return PageRect(window->CurrentPage()); }

    QImage AtOnce(const ViewScale& scale) {
        ImagePort port(Page(), scale.Zoom(), scale.Dpi());
        window->Sheet().Draw(port, Page(), {});
        return port.Image().copy();
    }
    // What paints of the given parts show together.
    QImage Pieced(const ViewScale& scale, const std::vector<QRect>& parts = {}) {
        const Rect pixels = scale.Pixels(Page());
        QImage image(pixels.Width(), pixels.Height(), QImage::Format_RGB32);
        image.fill(Qt::red);
        QPainter painter(&image);
        for (const QRect& part : parts.empty() ? std::vector<QRect>{image.rect()} : parts) {
            painter.setClipRect(part);
            cache.Paint(painter, window->Sheet(), Page(), scale, {}, part);
        }
        return image;
    }

    // Where the first pixel differs; empty for none.
    static std::string Difference(const QImage& a, const QImage& b) {
        if (a.size() != b.size()) return "the size";
        for (int y = 0; y < a.height(); ++y)
            for (int x = 0; x < a.width(); ++x)
                if (a.pixel(x, y) != b.pixel(x, y))
                    return "at " + std::to_string(x) + " " + std::to_string(y);
        return "";
    }

    TileCache cache;
};

TEST_F(Tiles, ThePageLooksAsIfDrawnAtOnceAtEveryZoomAndResolution) {
    EnterSome();
    const struct {
        int16_t zoom;
        int32_t dpi;
        double ratio;
    } cases[] = {{50, 96, 1},     {100, 96, 1},  {105, 96, 1}, {137, 96, 1},
                 {105, 144, 1.5}, {100, 192, 2}, {200, 101, 1}};
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << c.zoom << " percent, " << c.dpi << " dots to the inch");
        ViewScale scale;
        scale.Set(c.zoom, c.dpi, c.ratio);
        cache.Clear();
        EXPECT_EQ(Difference(Pieced(scale), AtOnce(scale)), "");
    }
}

TEST_F(Tiles, PartialPaintsJoinAndPaintNothingTwice) {
    EnterSome();
    ViewScale scale;
    std::vector<QRect> strips;
    for (int x = 0; x < 1000; x += 70)
        for (int y = 0; y < 1200; y += 130) strips.emplace_back(x, y, 70, 130);
    EXPECT_EQ(Difference(Pieced(scale, strips), AtOnce(scale)), "");
    const int made = cache.MadeCount();
    Pieced(scale);
    EXPECT_EQ(cache.MadeCount(), made) << "nothing has changed between the paints";
}

TEST_F(Tiles, ANoteAndItsUndoRemakeOnlyWhatTheyTouch) {
    EnterSome();
    ViewScale scale;
    Pieced(scale);
    const int all = cache.MadeCount();
    Enter(3, 5);
    EXPECT_EQ(Difference(Pieced(scale), AtOnce(scale)), "");
    EXPECT_GT(cache.MadeCount(), all);
    EXPECT_LE(cache.MadeCount(), all + all / 4);
    window->Undo();
    EXPECT_EQ(Difference(Pieced(scale), AtOnce(scale)), "");
}

// A picture ends at 1500 units; what stands just before that is painted on the pixels behind.
TEST_F(Tiles, InkThatIsRoundedIntoTheNextPictureComesAndGoesThere) {
    static const HairBehaviour behaviour;
    ViewScale scale;
    scale.Set(100, 96, 1);
    for (int32_t x = 1480; x <= 1520; x += 3) {
        Hair hair{{x, 200, x + 1, 400}};
        const DrawPatch patch(&hair, &behaviour);
        window->Sheet().AddObject(patch, 0);
        const QImage with = AtOnce(scale);
        EXPECT_EQ(Difference(Pieced(scale), with), "") << x;
        window->Sheet().RemoveObject(patch);
        EXPECT_NE(Difference(Pieced(scale), with), "");
        EXPECT_EQ(Difference(Pieced(scale), AtOnce(scale)), "") << x << ", gone";
    }
}

}  // namespace
}  // namespace corvane
