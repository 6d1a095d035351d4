// What the painter port leaves on an image, looked at pixel by pixel.
#include <gtest/gtest.h>

#include <QPainter>

#include "graphics/MemoryPort.h"
#include "platform/freetype/FreeTypeMeasures.h"
#include "platform/qt/ImagePort.h"

namespace corvane {
namespace {

// A pixel a unit.
class UnitPort : public ImagePort {
public:
    explicit UnitPort(const Rect& rect = {0, 0, 400, 400}) : ImagePort(rect, 100, kUnitsPerInch) {
        InstallFreeTypeMeasures();
    }
    int Grey(int x, int y) const { return qGray(Image().pixel(x - ScaledRect().left, y - ScaledRect().top)); }
    // Around everything darker than `limit`.
    Rect Ink(int limit = 128) const {
        Rect ink;
        for (int y = 0; y < Image().height(); ++y) {
            const auto* row = reinterpret_cast<const QRgb*>(Image().constScanLine(y));
            for (int x = 0; x < Image().width(); ++x)
                if (qGray(row[x]) < limit) ink = Union(ink, {x, y, x + 1, y + 1});
        }
        return ink.MovedBy(ScaledRect().left, ScaledRect().top);
    }
};

// Every code of both fonts: what is painted is what was measured, whatever surface measured it.
TEST(QtPort, InkOfEveryMusicGlyphIsItsMeasuredRectangle) {
    InstallFreeTypeMeasures();
    MemoryPort memory;
    int seen = 0;
    for (const char* name : {"Marcelane", "Bellarine"})
        for (int code = 0; code < 256; ++code) {
            if (GraphicPort::RemappedCode(static_cast<uint8_t>(code)) != code) continue;
            UnitPort port({-100, -350, 500, 350});
            for (GraphicPort* p : {static_cast<GraphicPort*>(&port), static_cast<GraphicPort*>(&memory)})
                p->SetFontName(name), p->SetFontSize(100);
            const Rect measured = memory.CharRect(static_cast<uint8_t>(code));
            EXPECT_EQ(port.CharRect(static_cast<uint8_t>(code)), measured);
            port.DrawChar(static_cast<uint8_t>(code), 0, 0);
            const Rect ink = port.Ink(250);
            if (measured.IsEmpty()) {
                EXPECT_TRUE(ink.IsEmpty()) << name << " " << code;
                continue;
            }
            ++seen;
            for (const auto& [a, b] :
                 {std::pair{ink.left, measured.left}, std::pair{ink.top, measured.top},
                  std::pair{ink.right, measured.right}, std::pair{ink.bottom, measured.bottom}})
                EXPECT_NEAR(a, b, 1) << name << " " << code;
        }
    EXPECT_GT(seen, 115);
}

TEST(QtPort, SideLettersSetTheInkFlush) {
    for (int size : {150, 300}) {  // kept as a picture, and drawn as an outline
        UnitPort left({0, -400, 800, 400}), right({0, -400, 800, 400});
        for (UnitPort* port : {&left, &right}) port->SetFontName("Marcelane"), port->SetFontSize(size);
        left.DrawChar(102, 300, 0, 'l');
        right.DrawChar(102, 300, 0, 'r');
        EXPECT_NEAR(left.Ink().left, 300, 1) << size;
        EXPECT_NEAR(right.Ink().right, 300 + 1, 1) << size;
    }
}

TEST(QtPort, ThickLinesHaveSquareEnds) {
    const struct {
        const char* why;
        Point from, to;
        Rect ink;
    } cases[] = {
        {"level", {100, 200}, {300, 200}, {100, 190, 300, 210}},
        {"level, from the right", {300, 200}, {100, 200}, {100, 190, 300, 210}},
        {"upright", {200, 100}, {200, 300}, {190, 100, 210, 300}},
        {"three in four: cut at the ends' x", {100, 100}, {300, 250}, {100, 100 - 13, 300, 250 + 13}},
        {"four in three: cut at the ends' y", {100, 100}, {250, 300}, {100 - 13, 100, 250 + 13, 300}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        UnitPort port;
        port.SetPenSize(1, 20);
        port.DrawLine(c.from.x, c.from.y, c.to.x, c.to.y);
        const Rect ink = port.Ink();
        EXPECT_NEAR(ink.left, c.ink.left, 1);
        EXPECT_NEAR(ink.top, c.ink.top, 1);
        EXPECT_NEAR(ink.right, c.ink.right, 1);
        EXPECT_NEAR(ink.bottom, c.ink.bottom, 1);
        EXPECT_EQ(port.Grey((c.from.x + c.to.x) / 2, (c.from.y + c.to.y) / 2), 0);
    }
    UnitPort sloped;
    sloped.SetPenSize(1, 20);
    sloped.DrawLine(100, 100, 300, 250);
    EXPECT_EQ(sloped.Grey(101, 101 + 10), 0) << "full thickness up to the very end";
    EXPECT_EQ(sloped.Grey(101, 101 - 10), 0);
    EXPECT_EQ(sloped.Grey(98, 98), 255) << "and nothing beyond it";
}

TEST(QtPort, StaffLinesFillWholePixelsWhereverTheyFall) {
    for (int y : {100, 107, 113, 121, 150}) {
        ImagePort port({0, 0, 400, 400}, 105, 96);
        port.SetPenSize(8, 8);
        port.DrawLine(20, y, 380, y);
        int dark = 0, between = 0;
        for (int row = 0; row < port.Image().height(); ++row) {
            const int grey = qGray(port.Image().pixel(10, row));
            dark += grey == 0;
            between += grey != 0 && grey != 255;
        }
        EXPECT_EQ(dark, 1) << y;
        EXPECT_EQ(between, 0) << y;
    }
}

void DrawSome(GraphicPort& port) {
    port.SetFontName("Marcelane");
    port.SetFontSize(400);
    for (int i = 0; i < 8; ++i) port.DrawChar(207, 150 + 177 * i, 300 + 61 * i);
    port.SetPenSize(9, 9);
    for (int i = 0; i < 5; ++i) port.DrawLine(50, 200 + 100 * i, 1700, 200 + 100 * i);
    port.SetPenSize(1, 45);
    port.DrawLine(100, 900, 1700, 800);
    port.DrawBezier({{100, 1000}, {500, 1400}, {1200, 1400}, {1700, 1000}});
    port.FillPolygon({{100, 1100}, {900, 1300}, {1700, 1100}, {900, 1350}});
    port.SetFontName("Times New Roman");
    port.SetFontSize(200);
    port.SetColor(MakeColour(200, 0, 0));
    port.DrawString("Allegro ma non troppo", 100, 1700);
}

// A tile at its own offset and the dirty part of a page are the same pixels as in the whole page.
TEST(QtPort, PartsOfAPageAreThePixelsOfTheWhole) {
    const Rect page{0, 0, 1800, 1800}, part{431, 217, 1333, 1501};
    ImagePort whole(page, 105, 144), tile(part, 105, 144), again(page, 105, 144);
    DrawSome(whole);
    DrawSome(tile);
    const Rect at = tile.ScaledRect();
    EXPECT_EQ(whole.Image().copy(at.left, at.top, at.Width(), at.Height()), tile.Image());

    DrawSome(again);
    again.SetClip(WRegion::OfRect(105, at));
    again.SetColor(kWhite);
    again.FillRect(page);
    again.SetColor(kBlack);
    EXPECT_NE(again.Image(), whole.Image());
    DrawSome(again);
    EXPECT_EQ(again.Image(), whole.Image());
}

TEST(QtPort, PixelsPutByComeBack) {
    UnitPort port;
    port.SetPenSize(10, 10);
    port.DrawLine(0, 50, 400, 50);
    const QImage before = port.Image().copy();
    const auto saved = port.SavePixmap({100, 20, 200, 90});
    ASSERT_TRUE(saved);
    port.FillRect({120, 30, 180, 80});
    EXPECT_NE(port.Image(), before);
    port.RestorePixmap(saved.get());
    EXPECT_EQ(port.Image(), before);
    MemoryPort memory;
    EXPECT_EQ(memory.SavePixmap({0, 0, 5, 5}), nullptr);
    memory.RestorePixmap(nullptr);
}

TEST(QtPort, NothingIsPaintedOutsideTheClip) {
    UnitPort port;
    WRegion clip = port.NewRegion();
    port.AddRectToRegion(clip, {50, 50, 100, 100});
    port.AddRectToRegion(clip, {200, 200, 250, 260});
    port.SetClip(clip);
    port.FillRect({0, 0, 400, 400});
    EXPECT_EQ(port.Ink(), (Rect{50, 50, 250, 260}));
    EXPECT_EQ(port.Grey(150, 150), 255);
    port.InvertRegion(clip);
    EXPECT_TRUE(port.Ink().IsEmpty()) << "black turned white";
}

TEST(QtPort, DottedLinesHaveGapsAndCrossedPolygonsAreFilled) {
    UnitPort port;
    port.SetPenSize(4, 4);
    port.SetPenPattern(PenPattern::Dotted);
    port.DrawLine(0, 100, 400, 100);
    int changes = 0;
    for (int x = 1; x < 400; ++x) changes += (port.Grey(x, 100) < 128) != (port.Grey(x - 1, 100) < 128);
    EXPECT_GT(changes, 50);
    port.FillPolygon({{200, 150}, {260, 330}, {105, 218}, {295, 218}, {140, 330}});
    EXPECT_EQ(port.Grey(200, 250), 0) << "a star has no hole";
}

TEST(QtPort, CountsTruePixelsOnAFineScreen) {
    QImage fine(200, 200, QImage::Format_RGB32);
    fine.setDevicePixelRatio(2);
    fine.fill(Qt::white);
    QPainter painter(&fine);
    painter.translate(10, 10);
    {
        QtPort port(painter, GraphicPort::kUnitsPerInch);
        port.SetZoomRatio(100);
        port.FillRect({0, 0, 51, 51});
    }
    painter.fillRect(80, 80, 1, 1, Qt::black);  // in the painter's own units again
    painter.end();
    EXPECT_EQ(qGray(fine.pixel(20, 20)), 0);
    EXPECT_EQ(qGray(fine.pixel(70, 70)), 0);
    EXPECT_EQ(qGray(fine.pixel(71, 71)), 255);
    EXPECT_EQ(qGray(fine.pixel(181, 181)), 0);
}

}  // namespace
}  // namespace corvane
