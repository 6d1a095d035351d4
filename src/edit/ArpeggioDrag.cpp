// Arpeggios: as a whole, or longer and shorter by the lower end.
#include <algorithm>

#include "edit/Drag.h"
#include "edit/Drags.h"
#include "layout/Arpeggios.h"

namespace corvane {
namespace {

constexpr int32_t kHandle = 80, kLeast = 100;  // page units, as of lines at a staff

class ArpeggioDrag : public LiftedDrag {
public:
    ArpeggioDrag(WindowTarn& window, const DrawPatch& patch, Point from, bool byEnd)
        : LiftedDrag(window, patch, from), _byEnd(byEnd) {}

    void Draw(GraphicPort& port, const DrawContext& context) const override {
        if (!IsLifted()) return;
        port.SetColor(context.ColourOf(0));
        Paint(port, TheArpeggio(), Line());
    }

private:
    Arpeggio* TheArpeggio() const { return _patch.Record<Arpeggio>(); }
    ArpeggioLine Line() const {
        ArpeggioLine line = LineOf(TheArpeggio());
        if (_byEnd) {
            line.bottom = std::max(line.bottom + _by.y, std::min(line.top + kLeast, line.bottom));
            return line;
        }
        line.x += _by.x, line.top += _by.y, line.bottom += _by.y;
        return line;
    }
    bool Changes() const override {
        return _byEnd ? Line().bottom != LineOf(TheArpeggio()).bottom : _by != Point{};
    }
    void Apply() override {
        const ArpeggioLine line = Line();
        const EditStep step(_window);
        _window.Sheet().RemoveObject(_patch);
        SetLine(TheArpeggio(), line);
        _window.Sheet().AddObject(_patch, 0);
    }

    const bool _byEnd;
};

}  // namespace

std::unique_ptr<Interaction> DragArpeggio(WindowTarn& window, const DrawPatch& patch, Point from) {
    const Rect ink = patch.Bounds();
    const bool byEnd = ink.bottom - from.y < std::min(kHandle, ink.Height() / 3);
    return std::make_unique<ArpeggioDrag>(window, patch, from, byEnd);
}

}  // namespace corvane
