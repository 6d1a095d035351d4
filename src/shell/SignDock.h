// A palette of signs: all items of one group as buttons.
#pragma once

#include <QDockWidget>
#include <map>
#include <span>

namespace corvane {

class GlyphButton;

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
    std::map<int, GlyphButton*> _items;  // by item number
};

}  // namespace corvane
