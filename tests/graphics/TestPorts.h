// Helpers of the graphics tests: measures with round figures, and a port that keeps what a surface would
// paint.
#pragma once

#include <string>
#include <vector>

#include "graphics/GlyphMeasures.h"
#include "graphics/GraphicPort.h"

namespace corvane {

// The glyph of code c is c thousandths of an em wide, starts 50 thousandths right of the pen and stands 500
// high.
class RoundMeasures : public GlyphMeasures {
public:
    RoundMeasures() { SetGlyphMeasures(this); }
    ~RoundMeasures() override { SetGlyphMeasures(nullptr); }
    EmBox GlyphBox(FontId, uint8_t, uint8_t code) override {
        const double left = code < 128 ? 0.05 : 0.06;
        return {left, -0.5, left + code * 0.001, 0};
    }
    double GlyphAdvance(FontId, uint8_t, uint8_t code) override { return 0.1 + code * 0.001; }
    TextExtent MeasureText(FontId, uint8_t, std::string_view text) override {
        return {0.5 * static_cast<double>(text.size()), 0.8, 0.2};
    }
};

class RecordingPort : public GraphicPort {
public:
    explicit RecordingPort(int32_t dpi = kUnitsPerInch, int32_t dpiV = kUnitsPerInch,
                           int32_t unitsPerInch = kUnitsPerInch)
        : GraphicPort(unitsPerInch, kUnitsPerInch, dpi, dpiV) {
        SetZoomRatio(100);
        SetFontName("Marcelane");
        SetFontSize(1000);
    }
    struct Glyph {
        char32_t character;
        DevicePoint baseline;
        double size;
    };
    std::vector<Glyph> glyphs;
    std::vector<double> lineWidths;
    std::vector<Colour> fills;
    std::vector<Rect> clips;  // bounding boxes; all zero for none
    std::string text;

private:
    void DoGlyph(char32_t c, DevicePoint p, double size) override { glyphs.push_back({c, p, size}); }
    void DoText(std::string_view t, DevicePoint p, double size) override {
        text = t;
        glyphs.push_back({0, p, size});
    }
    void DoLine(DevicePoint, DevicePoint, double width) override { lineWidths.push_back(width); }
    void DoBezier(const std::vector<DevicePoint>&, double) override {}
    void DoPolygon(const std::vector<DevicePoint>&) override { fills.push_back(Fill()); }
    void DoFrameRect(const DeviceRect&, DevicePoint, double) override {}
    void DoFillRect(const DeviceRect&) override { fills.push_back(Fill()); }
    void DoFrameEllipse(const DeviceRect&, double) override {}
    void DoFillEllipse(const DeviceRect&) override { fills.push_back(Fill()); }
    void DoPaintRegion(const WRegion&, bool) override { fills.push_back(Fill()); }
    void DoSetClip(const WRegion* region) override {
        clips.push_back(region ? region->BoundingBox() : Rect{});
    }
};

}  // namespace corvane
