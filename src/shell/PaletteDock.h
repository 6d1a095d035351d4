// The palette of notes, rests, dots and accidentals.
#pragma once

#include <QDockWidget>
#include <map>

class QToolButton;

namespace corvane {

class GlyphButton;

class PaletteDock : public QDockWidget {
public:
    PaletteDock();

    // Shows the item at hand and the switches.
    void ToolChanged();

private:
    QWidget* MakeItems();
    QWidget* MakeSwitches();

    std::map<std::pair<int, int>, GlyphButton*> _items;  // by group and item
    QToolButton *_grace = nullptr, *_brackets = nullptr;
};

}  // namespace corvane
