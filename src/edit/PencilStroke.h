// A stroke of the pencil, from press to release, with an item that spans a stretch.
#pragma once

#include "edit/Interaction.h"
#include "edit/PaletteTable.h"

namespace corvane {

class PencilStroke : public Interaction {
public:
    PencilStroke(WindowTarn& window, const PaletteItem& item, Point from, int voice)
        : _window(window), _item(item), _from(from), _to(from), _voice(voice) {}
    void Move(Point to) override;
    void Release(Point at) override;
    Rect Band() const override;

private:
    WindowTarn& _window;
    const PaletteItem& _item;
    const Point _from;
    Point _to;
    const int _voice;
};

}  // namespace corvane
