#include "shell/ScoreTabs.h"

#include <QTabBar>

#include "edit/WindowTarn.h"
#include "shell/ScoreView.h"

namespace corvane {

ScoreTabs::ScoreTabs() {
    setDocumentMode(true);
    setTabsClosable(true);
    setMovable(true);
    setUsesScrollButtons(true);
    tabBar()->setFocusPolicy(Qt::TabFocus);
    connect(this, &QTabWidget::tabCloseRequested, this, [this](int index) {
        if (_closing) _closing(At(index)->Window());
    });
}

ScoreView* ScoreTabs::At(int index) const { return static_cast<ScoreView*>(widget(index)); }

ScoreView* ScoreTabs::Add(WindowTarn& window) {
    auto* view = new ScoreView(window);
    setCurrentIndex(addTab(view, QString()));
    ShowTitle(window);
    return view;
}

void ScoreTabs::Remove(const WindowTarn& window) { delete ViewOf(window); }

ScoreView* ScoreTabs::Current() const { return static_cast<ScoreView*>(currentWidget()); }

WindowTarn* ScoreTabs::CurrentWindow() const {
    ScoreView* view = Current();
    return view ? &view->Window() : nullptr;
}

ScoreView* ScoreTabs::ViewOf(const WindowTarn& window) const {
    for (int i = 0; i < count(); ++i)
        if (&At(i)->Window() == &window) return At(i);
    return nullptr;
}

void ScoreTabs::Show(const WindowTarn& window) {
    if (ScoreView* view = ViewOf(window)) setCurrentWidget(view);
}

void ScoreTabs::ShowTitle(WindowTarn& window) {
    const int index = indexOf(ViewOf(window));
    if (index < 0) return;
    const QString title = QString::fromStdString(window.Title()).replace('&', "&&");
    const QString text = window.Modified() ? title + " \u2022" : title;
    if (tabText(index) != text) setTabText(index, text);
    setTabToolTip(index, window.NeverSaved() ? QString() : QString::fromStdString(window.Path()));
}

}  // namespace corvane
