// What every port shares, whatever surface it paints on.
#include <gtest/gtest.h>

#include "TestPorts.h"
#include "graphics/MemoryPort.h"

namespace corvane {
namespace {

TEST(Port, ScalesBothAxesByTheHorizontalResolution) {
    const struct {
        const char* why;
        int16_t zoom;
        int32_t unitsPerInch, dpi, units, pixels;
    } cases[] = {
        {"one unit is one pixel", 100, 1512, 1512, 12345, 12345},
        {"an inch on a screen", 100, 1512, 96, 1512, 96},
        {"an inch at the zoom of a new port", 105, 1512, 96, 1512, 101},
        {"the zoom that symbols were measured at", 416, 1512, 96, 1512, 399},
        {"a half goes away from zero", 50, 1512, 1512, 1, 1},
        {"a negative half too", 50, 1512, 1512, -1, -1},
        {"no units per inch: undivided", 100, 0, 96, 10, 960},
        {"no resolution", 100, 1512, 0, 10, 0},
        {"too much for 32 bits saturates", 32000, 1, 100000, 2000000000, INT32_MAX},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        RecordingPort port(c.dpi, 300, c.unitsPerInch);
        port.SetZoomRatio(c.zoom);
        EXPECT_EQ(port.Scale(c.units), c.pixels);
        EXPECT_EQ(port.ToDevice(Point{c.units, c.units}), (Point{c.pixels, c.pixels}));
    }
}

TEST(Port, ScalesBackToWithinHalfAPixel) {
    RecordingPort port(96);
    for (int16_t zoom : {25, 100, 105, 400})
        for (int32_t units = -5000; units < 16000; units += 37) {
            port.SetZoomRatio(zoom);
            const int32_t slack = static_cast<int32_t>(0.5 * 1512 * 100 / (96.0 * zoom)) + 1;
            EXPECT_NEAR(port.Unscale(port.Scale(units)), units, slack) << zoom;
        }
    port.SetZoomRatio(0);
    EXPECT_EQ(port.Unscale(3), 3 * 100 * 1512);
    RecordingPort noResolution(0);
    EXPECT_EQ(noResolution.Unscale(3), 3 * 100 * 1512);
}

TEST(Port, OriginIsTakenOffBeforeScalingAndDeviceOffsetAddedAfter) {
    RecordingPort port(756);
    port.SetOrigin(100, 200);
    port.SetDeviceOffset(7, -9);
    EXPECT_EQ(port.ToDevice(Point{300, 600}), (Point{107, 191}));
    EXPECT_EQ(port.ToLogical({107, 191}), (Point{300, 600}));
    port.ClearDeviceOffset();
    EXPECT_EQ(port.ToDevice(Point{100, 200}), (Point{0, 0}));
}

TEST(Port, ANewPortShowsPagesAtTrueSizeWithAThinBlackPen) {
    MemoryPort port;
    EXPECT_EQ(port.ZoomRatio(), 105);
    EXPECT_EQ(port.CurrentColor(), kBlack);
    EXPECT_EQ(port.PenSize(), (Point{1, 1}));
    EXPECT_EQ(MakeColour(0x50, 0x68, 0x70), 0x706850u) << "red is in the low byte";
}

TEST(Port, FiveCodesAreDrawnAsOthersButMeasuredAsThemselves) {
    RoundMeasures measures;
    RecordingPort port;
    for (int code = 0; code < 256; ++code) port.DrawChar(static_cast<uint8_t>(code), 0, 0);
    ASSERT_EQ(port.glyphs.size(), 256u);
    for (int code = 0; code < 256; ++code) {
        const int drawn = code == 0                   ? 38
                          : code == 9                 ? 39
                          : code == 13 || code == 158 ? 40
                          : code == 47                ? 148
                                                      : code;
        EXPECT_EQ(port.glyphs[static_cast<size_t>(code)].character, 0xF000u + static_cast<unsigned>(drawn));
        EXPECT_EQ(port.CharRect(static_cast<uint8_t>(code)).Width(), code);
    }
    port.SetFontName("Times New Roman");
    port.DrawChar('a', 0, 0);
    EXPECT_EQ(port.glyphs.back().character, U'a') << "only music fonts keep their glyphs at U+F000";
}

TEST(Port, SideLettersPutTheInkNotThePenAtX) {
    RoundMeasures measures;
    RecordingPort port;  // code 200 at size 1000: ink from 60 to 260; code 47 is drawn as 148: from 60 to 208
    const struct {
        uint8_t code;
        char side;
        double pen;
    } cases[] = {{200, 0, 3000},   {200, 'l', 3000 - 60}, {200, 'r', 3000 - (260 - 1)},
                 {200, 'c', 3000}, {47, 'l', 3000 - 60},  {47, 'r', 3000 - (208 - 1)}};
    for (const auto& c : cases) {
        port.DrawChar(c.code, 3000, 40, c.side);
        EXPECT_EQ(port.glyphs.back().baseline.x, c.pen) << int{c.code} << c.side;
        EXPECT_EQ(port.glyphs.back().baseline.y, 40) << int{c.code} << c.side;
    }
}

TEST(Port, MeasuresTheSameAtAnyZoomAndResolution) {
    RoundMeasures measures;
    RecordingPort fine(1512), coarse(96);
    coarse.SetZoomRatio(30);
    for (RecordingPort* port : {&fine, &coarse}) {
        port->SetFontSize(777);
        EXPECT_EQ(port->CharRect(100), (Rect{39, -389, 117, 0}));
        EXPECT_EQ(port->StringWidth("abc"), 1166);
        EXPECT_EQ(port->StringRect("abc"), (Rect{0, -622, 1166, 155}));
        EXPECT_EQ(port->CharAdvance(100), 155);
    }
    EXPECT_EQ(fine.GlyphRect(100), (Rect{39, -389, 117, 0}));
    EXPECT_EQ(coarse.DeviceFontSize(), 15);
    EXPECT_EQ(coarse.GlyphRect(100), (Rect{1, -8, 2, 0}));
}

TEST(Port, AFontAndAPenAreNeverLessThanAPixel) {
    RoundMeasures measures;
    RecordingPort port(96);
    port.SetFontSize(0);
    port.DrawChar(65, 0, 0);
    EXPECT_EQ(port.glyphs.back().size, 1);
    EXPECT_EQ(port.DeviceFontSize(), 1);
    port.SetPenSize(1, 1);
    port.DrawLine(0, 0, 100, 0);
    port.SetPenSize(1, 63);  // the larger counts
    port.DrawLine(0, 0, 100, 0);
    EXPECT_EQ(port.lineWidths, (std::vector<double>{1, 4}));
}

TEST(Port, TextEndsAtXWhenDrawnFromTheRight) {
    RoundMeasures measures;
    RecordingPort port;
    port.DrawStringRight("four", 5000, 10);
    EXPECT_EQ(port.text, "four");
    EXPECT_EQ(port.glyphs.back().baseline.x, 3000);
}

TEST(Port, ABrushColoursFillsOnlyWhileItIsSet) {
    RecordingPort port;
    port.SetColor(0x0000ff);
    port.FillRect({0, 0, 9, 9});
    port.SetBrush(GraphicPort::NewBrush(0xff0000));
    port.FillEllipse({0, 0, 9, 9});
    port.SetBrush(std::nullopt);
    port.FillPolygon({{0, 0}, {9, 0}, {9, 9}});
    EXPECT_EQ(port.fills, (std::vector<Colour>{0x0000ff, 0xff0000, 0x0000ff}));
}

TEST(Port, AnOpenPathKeepsCallsAndReplaysThemInOrder) {
    RoundMeasures measures;
    MemoryPort port(MemoryPort::Tracing::On);
    port.SetFontName("Marcelane");
    const auto path = port.BeginPath();
    port.DrawLine(1, 2, 3, 4);
    port.DrawCurve({0, 0}, {1, 1}, {2, 1}, {3, 0});
    port.DrawThickLine({0, 0}, {0, 5}, {50, 9}, {50, 14});
    port.DrawString("da capo", 5, 6);
    port.EndPath();
    EXPECT_TRUE(port.Lines().empty());
    port.FillRect({1, 1, 2, 2});
    port.DrawPath(*path);
    port.SetPenSize(10, 1);
    port.DrawPath(*path);
    ASSERT_EQ(port.Lines().size(), 9u);
    EXPECT_EQ(port.Lines()[1], "line 1 2 3 4 pen 1 solid #000000");
    EXPECT_EQ(port.Lines()[2], "bezier 0 0 1 1 2 1 3 0 pen 1 solid #000000");
    EXPECT_EQ(port.Lines()[3], "polygon 0 0 50 9 50 14 0 5 fill #000000");
    EXPECT_EQ(port.Lines()[4], "text 5 6 Marcelane 0 0 #000000 da capo");
    EXPECT_EQ(port.Lines()[5], "line 1 2 3 4 pen 10 solid #000000") << "drawn with the pen of the replay";
}

TEST(Port, AClipStaysOnThePageWhileTheViewMoves) {
    RecordingPort port(756);
    const WRegion clip = WRegion::OfRect(100, {10, 20, 30, 40});
    port.SetClip(clip);
    port.SetDeviceOffset(5, 5);
    port.SetOrigin(20, 40);
    port.SetPenSize(50, 50);
    port.DrawLine(0, 0, 100, 100);
    EXPECT_TRUE(port.GetClip().Equals(clip)) << "a thick line leaves the clip as it was";
    port.ClearClip();
    EXPECT_EQ(port.clips,
              (std::vector<Rect>{{10, 20, 30, 40}, {15, 25, 35, 45}, {5, 5, 25, 25}, {0, 0, 0, 0}}));
    EXPECT_TRUE(port.GetClip().PointIn({-32000, 32000}));
}

TEST(Port, RegionsAreMadeAndAskedInPageUnits) {
    RecordingPort port(756);
    port.SetOrigin(1000, 1000);  // regions take no part in scrolling
    WRegion region = port.NewRegion();
    port.AddRectToRegion(region, {100, 100, 200, 300});
    EXPECT_EQ(region.BoundingBox(), (Rect{50, 50, 100, 150}));
    port.OffsetRegion(region, 20, -20);
    EXPECT_TRUE(port.PointInRegion(region, {121, 81}));
    EXPECT_FALSE(port.PointInRegion(region, {110, 100}));
    EXPECT_TRUE(port.RectMeetsRegion(region, {0, 0, 130, 90}));
    EXPECT_FALSE(port.RectMeetsRegion(region, {0, 0, 120, 90}));
    port.SetZoomRatio(200);
    port.RescaleRegion(region);
    EXPECT_EQ(region.BoundingBox(), (Rect{120, 80, 220, 280}));
}

TEST(PortDeathTest, AMistakeOfOursIsNamed) {
    const auto emptyPixmap = [] { MemoryPort().SavePixmap({0, 5, 9, 5}); };
    const auto openPath = [] {
        MemoryPort port;
        port.DeletePath(port.BeginPath());
    };
    const auto twisted = [] { MemoryPort().DrawThickLine({0, 5}, {0, 0}, {9, 0}, {9, 5}); };
    EXPECT_DEATH(emptyPixmap(), "myRect.top < myRect.bottom");
    EXPECT_DEATH(openPath(), "_currentPath != p");
    EXPECT_DEATH(twisted(), "p1.v<=p2.v");
    EXPECT_DEATH(MemoryPort().FillPolygon({}), "pvec && n");
}

}  // namespace
}  // namespace corvane
