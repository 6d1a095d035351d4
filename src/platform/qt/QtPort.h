// The port that paints through a QPainter: screen, image, printer, PDF, SVG.
#pragma once

#include <QRegion>
#include <cstdint>

#include "graphics/GraphicPort.h"
#include "platform/qt/InkBatch.h"

class QPainter;
class QImage;

namespace corvane {

class FontFace;
struct PlacedGlyph;

// A pixel of the port is a true pixel of the painter's device, also where Qt counts several to one of its own
// (HiDPI): give `dpi` as true pixels to the inch. What the painter was translated to is the port's 0, 0; its
// clip holds beside the port's. The painter must outlive the port and gets its state back at the port's end.
//
// On pixels, upright and level lines and rectangles fill whole pixels, so that staff lines are crisp; all
// else is smoothed at its exact place. Paper and files get exact places for all. A file that can embed fonts
// gets text as text.
class QtPort : public GraphicPort {
public:
    QtPort(QPainter& painter, int32_t dpi, int32_t unitsPerInch = kUnitsPerInch);
    ~QtPort() override;

protected:
    void DoGlyph(char32_t character, DevicePoint baseline, double size) override;
    void DoText(std::string_view text, DevicePoint baseline, double size) override;
    void DoLine(DevicePoint from, DevicePoint to, double width) override;
    void DoBezier(const std::vector<DevicePoint>& points, double width) override;
    void DoPolygon(const std::vector<DevicePoint>& points) override;
    void DoFrameRect(const DeviceRect& rect, DevicePoint cornerRadii, double width) override;
    void DoFillRect(const DeviceRect& rect) override;
    void DoFrameEllipse(const DeviceRect& bounds, double width) override;
    void DoFillEllipse(const DeviceRect& bounds) override;
    void DoPaintRegion(const WRegion& deviceRegion, bool invert) override;
    void DoSetClip(const WRegion* deviceRegion) override;
    std::unique_ptr<Pixmap> DoSavePixmap(const Rect& deviceRect) override;
    void DoRestorePixmap(const Pixmap& pixmap) override;

private:
    enum class Surface { Pixels, Outlines, Embedding };

    void DrawGlyphs(const PlacedGlyph* glyphs, size_t count, DevicePoint baseline, double size);
    void DrawPictureOrPath(FontFace& face, uint32_t glyph, DevicePoint pen, double size);
    void DrawPath(FontFace& face, uint32_t glyph, DevicePoint pen, double size);
    bool SnapLine(DevicePoint from, DevicePoint to, double width);
    bool GatherLine(DevicePoint from, DevicePoint to, double width);
    // What a file is told together. Before other ink is painted it must be, but for ink of the same colour.
    void PaintGathered();
    void MakeWayFor(Colour colour);
    void UseFill(Colour colour);
    void UsePen(double width);
    QImage* Image(Point& shift) const;

    QPainter& _painter;
    Surface _surface;
    QRegion _outerClip;
    bool _hasOuterClip;
    Colour _fillInUse = 0;
    bool _fillIsSet = false;
    InkBatch _gathered;
};

}  // namespace corvane
