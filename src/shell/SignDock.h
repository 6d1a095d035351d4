// A palette of signs: all items of one group as buttons.
#pragma once

#include <QDockWidget>
#include <map>
#include <span>

class QToolButton;

namespace corvane {

struct SignSheet {
    int group;
    const char* name;  // by which the window keeps its place
    const char* title;
};
std::span<const SignSheet> SignSheets();

class SignDock : public QDockWidget {
public:
    explicit SignDock(const SignSheet& sheet);

    // Shows the item at hand.
    void ToolChanged();

private:
    const SignSheet& _sheet;
    std::map<int, QToolButton*> _items;  // by item number
    QToolButton* _brackets = nullptr;    // of the palette with ornaments
};

}  // namespace corvane
