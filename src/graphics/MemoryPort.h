// A port on no surface: it measures, keeps regions and clip, traces if asked, and paints nothing.
#pragma once

#include "graphics/GraphicPort.h"

namespace corvane {

class MemoryPort : public GraphicPort {
public:
    enum class Tracing { Off, On };

    // At true size on a screen of 96 dots to the inch.
    explicit MemoryPort(Tracing tracing = Tracing::Off);
    MemoryPort(int32_t unitsPerInch, int32_t dpi, Tracing tracing = Tracing::Off);

    const std::vector<std::string>& Lines() const { return _lines; }
    void ClearLines() { _lines.clear(); }

private:
    void DoGlyph(char32_t, DevicePoint, double) override {}
    void DoText(std::string_view, DevicePoint, double) override {}
    void DoLine(DevicePoint, DevicePoint, double) override {}
    void DoBezier(const std::vector<DevicePoint>&, double) override {}
    void DoPolygon(const std::vector<DevicePoint>&) override {}
    void DoFrameRect(const DeviceRect&, DevicePoint, double) override {}
    void DoFillRect(const DeviceRect&) override {}
    void DoFrameEllipse(const DeviceRect&, double) override {}
    void DoFillEllipse(const DeviceRect&) override {}
    void DoPaintRegion(const WRegion&, bool) override {}
    void DoSetClip(const WRegion*) override {}

    std::vector<std::string> _lines;
};

}  // namespace corvane
