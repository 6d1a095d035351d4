// The open scores, a tab each. A tab's text is its score's title, with a mark while there are unsaved
// changes.
#pragma once

#include <QTabWidget>
#include <functional>

namespace corvane {

class ScoreView;
class WindowTarn;

class ScoreTabs : public QTabWidget {
public:
    ScoreTabs();

    // A view of the window as the current tab.
    ScoreView* Add(WindowTarn& window);
    // Takes the view away; the window itself stays.
    void Remove(const WindowTarn& window);
    ScoreView* Current() const;         // null for none
    WindowTarn* CurrentWindow() const;  // null for none
    ScoreView* ViewOf(const WindowTarn& window) const;
    void Show(const WindowTarn& window);
    void ShowTitle(WindowTarn& window);

    void OnClosing(std::function<void(WindowTarn&)> asked) { _closing = std::move(asked); }

private:
    ScoreView* At(int index) const;
    std::function<void(WindowTarn&)> _closing;
};

}  // namespace corvane
