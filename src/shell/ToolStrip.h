// The toolbar: files, undo, clipboard, tools, voice, play, page, zoom.
#pragma once

#include <QToolBar>
#include <vector>

class QComboBox;
class QLabel;
class QSpinBox;

namespace corvane {

class MainFrame;

class ToolStrip : public QToolBar {
public:
    explicit ToolStrip(MainFrame& frame);

    // Shows tool, voice, page and zoom as they stand now.
    void Refresh();

private:
    struct Tool {
        int32_t mode;
        QAction* action;
    };
    void AddCommands(std::initializer_list<int> ids);
    void AddTools();
    void AddVoices();
    void AddPages();
    void AddZoom();
    void TurnPage(int by);
    void TakeZoom(const QString& text);
    void ShowPage();
    void ShowZoom();

    MainFrame& _frame;
    std::vector<Tool> _tools;
    QComboBox *_voice = nullptr, *_zoom = nullptr;
    QAction *_previous = nullptr, *_next = nullptr;
    QSpinBox* _page = nullptr;
    QLabel* _pageCount = nullptr;
};

}  // namespace corvane
