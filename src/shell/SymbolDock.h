// The palettes of everything but notes: clefs, dynamics, articulations, the three palettes of symbols, texts.
// One dock shows one of them at a time.
#pragma once

#include <QDockWidget>
#include <map>
#include <utility>

class QAbstractButton;
class QComboBox;
class QStackedWidget;

namespace corvane {

class SymbolDock : public QDockWidget {
public:
    SymbolDock();

    // The palette group that is shown, and whether the dock is.
    int Group() const;
    void ShowGroup(int group);
    // Shows the item at hand, with its palette where it is one of these.
    void ToolChanged();

private:
    QWidget* MakePage(int group);

    QComboBox* _choice;
    QStackedWidget* _pages;
    std::map<std::pair<int, int>, QAbstractButton*> _items;  // by group and item
};

}  // namespace corvane
