#include "shell/ToolStrip.h"

#include <QActionGroup>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QSpinBox>

#include "edit/ToolState.h"
#include "edit/WindowTarn.h"
#include "shell/ActionSet.h"
#include "shell/MainFrame.h"
#include "shell/MenuTable.h"
#include "shell/ScoreView.h"

namespace corvane {
namespace {

constexpr int kVoices = DocStaff::kVoices;
constexpr int kZoomPercents[] = {50, 75, 100, 150, 200, 400};
constexpr const char *kFitPage = "Fit Page", *kFitWidth = "Fit Width";

constexpr struct {
    int32_t mode;
    const char* text;
    const char* tip;
    ToolPicture picture;
} kTools[] = {
    {ModeArrow, "Arrow", "Arrow: select, set the caret (A)", ToolPicture::Arrow},
    {ModePencil, "Pencil", "Pencil: enter from the palette (P)", ToolPicture::Pencil},
    {ModeEraser, "Eraser", "Eraser: remove notes, rests and signs (E)", ToolPicture::Eraser},
};

// Of a zoom that is none of the usual ones; 0 for a text without a number.
int PercentIn(const QString& text) {
    QString digits;
    for (const QChar c : text)
        if (c.isDigit()) digits += c;
    return digits.left(5).toInt();
}

}  // namespace

ToolStrip::ToolStrip(MainFrame& frame) : QToolBar("Toolbar"), _frame(frame) {
    setObjectName("toolbar");
    setIconSize(QSize(20, 20));
    AddCommands({kNewId, kOpenId, kSaveId});
    AddCommands({kUndoId, kRedoId});
    AddCommands({kCutId, kCopyId, kPasteId, kClearId});
    AddTools();
    AddVoices();
    AddCommands({kPlayId, kStopId});
    AddPages();
    AddZoom();
}

void ToolStrip::AddCommands(std::initializer_list<int> ids) {
    for (const int id : ids) {
        QAction* action = _frame.Actions().Of(id);
        addAction(action);
        widgetForAction(action)->setObjectName(QString("command %1").arg(id));
    }
    addSeparator();
}

void ToolStrip::AddTools() {
    auto* group = new QActionGroup(this);
    for (const auto& tool : kTools) {
        QAction* action = addAction(ToolIcon(tool.picture), tool.text, this, [mode = tool.mode] {
            SetToolMode(mode);
            ApplyToolMode();
        });
        action->setToolTip(tool.tip);
        action->setCheckable(true);
        group->addAction(action);
        _tools.push_back({tool.mode, action});
    }
    addSeparator();
}

void ToolStrip::AddVoices() {
    _voice = new QComboBox;
    _voice->setObjectName("voice");
    _voice->setToolTip("The voice that is entered and edited (Ctrl+0 for all, Ctrl+1 to Ctrl+8)");
    _voice->setAccessibleName("Voice");
    _voice->addItem("All voices");
    for (int voice = 1; voice <= kVoices; ++voice) _voice->addItem(QString("Voice %1").arg(voice));
    connect(_voice, &QComboBox::activated, this, [this](int voice) {
        SetCurrentVoice(static_cast<uint16_t>(voice));
        if (ScoreView* view = _frame.CurrentView()) view->setFocus();
    });
    addWidget(_voice);
    for (int voice = 0; voice <= kVoices; ++voice) {
        auto* action = new QAction(this);
        action->setShortcut(QKeySequence(QString("Ctrl+%1").arg(voice)));
        connect(action, &QAction::triggered, this,
                [voice] { SetCurrentVoice(static_cast<uint16_t>(voice)); });
        _frame.addAction(action);
    }
    addSeparator();
}

void ToolStrip::AddPages() {
    _previous = addAction(ToolIcon(ToolPicture::Previous), "Previous Page", this, [this] { TurnPage(-1); });
    _previous->setShortcut(QKeySequence("Ctrl+PgUp"));
    _page = new QSpinBox;
    _page->setObjectName("page");
    _page->setToolTip("The page that is shown");
    _page->setAccessibleName("Page");
    _page->setButtonSymbols(QAbstractSpinBox::NoButtons);
    _page->setAlignment(Qt::AlignCenter);
    _page->setKeyboardTracking(false);
    _page->setFocusPolicy(Qt::ClickFocus);
    connect(_page, &QSpinBox::valueChanged, this, [this](int page) { _frame.GoToPage(page); });
    connect(_page, &QSpinBox::editingFinished, this, [this] {
        if (ScoreView* view = _frame.CurrentView(); view && _page->hasFocus()) view->setFocus();
    });
    addWidget(_page);
    _pageCount = new QLabel;
    addWidget(_pageCount);
    _next = addAction(ToolIcon(ToolPicture::Next), "Next Page", this, [this] { TurnPage(1); });
    _next->setShortcut(QKeySequence("Ctrl+PgDown"));
    addSeparator();
}

void ToolStrip::AddZoom() {
    addAction(_frame.Actions().Of(kZoomOutId));
    _zoom = new QComboBox;
    _zoom->setObjectName("zoom");
    _zoom->setToolTip("Zoom; 105 % shows the paper at its true size");
    _zoom->setAccessibleName("Zoom");
    _zoom->setEditable(true);
    _zoom->setInsertPolicy(QComboBox::NoInsert);
    _zoom->setCompleter(nullptr);
    _zoom->setFocusPolicy(Qt::ClickFocus);
    for (const int percent : kZoomPercents) _zoom->addItem(QString("%1 %").arg(percent));
    _zoom->addItems({kFitPage, kFitWidth});
    connect(_zoom, &QComboBox::textActivated, this, [this](const QString& text) { TakeZoom(text); });
    connect(_zoom->lineEdit(), &QLineEdit::returnPressed, this, [this] { TakeZoom(_zoom->currentText()); });
    // What was typed and left is given up.
    connect(_zoom->lineEdit(), &QLineEdit::editingFinished, this, [this] {
        _zoom->lineEdit()->setModified(false);
        ShowZoom();
    });
    addWidget(_zoom);
    addAction(_frame.Actions().Of(kZoomInId));
}

void ToolStrip::TurnPage(int by) {
    if (const WindowTarn* window = _frame.CurrentScore())
        _frame.GoToPage(window->CurrentPage()->_pageNumber + by);
}

void ToolStrip::TakeZoom(const QString& text) {
    ScoreView* view = _frame.CurrentView();
    if (!view) return;
    const int percent = PercentIn(text);
    if (text == kFitPage)
        view->SetZoom(Zoom::FitPage);
    else if (text == kFitWidth)
        view->SetZoom(Zoom::FitWidth);
    else if (percent > 0)
        view->SetZoom(Zoom::Percent, percent);
    else
        _frame.Tell("A zoom is a number of percent.");
    _zoom->lineEdit()->setModified(false);
    ShowZoom();
    view->setFocus();
}

void ToolStrip::Refresh() {
    const ToolState& tools = Tools();
    for (const Tool& tool : _tools) {
        tool.action->setChecked(tool.mode == tools.toolMode);
        tool.action->setEnabled(_frame.CurrentScore() && !IsPlaying());
    }
    _voice->setCurrentIndex(tools.currentVoice);
    _voice->setEnabled(_frame.CurrentScore() && !IsPlaying());
    ShowPage();
    ShowZoom();
}

void ToolStrip::ShowPage() {
    const WindowTarn* window = _frame.CurrentScore();
    const bool shown = window && window->CurrentPage();
    const int count = shown ? documentPages.Count(window->GetDocument()) : 0;
    const int page = shown ? int{window->CurrentPage()->_pageNumber} : 0;
    const QSignalBlocker quiet(_page);
    _page->setRange(std::min(count, 1), count);
    _page->setValue(page);
    _page->setEnabled(shown);
    _pageCount->setText(QString(" of %1 ").arg(count));
    _previous->setEnabled(page > 1);
    _next->setEnabled(page < count);
}

void ToolStrip::ShowZoom() {
    const ScoreView* view = _frame.CurrentView();
    _zoom->setEnabled(view);
    if (!view || _zoom->lineEdit()->isModified()) return;
    _zoom->setEditText(QString("%1 %").arg(view->CurrentZoom().percent));
}

}  // namespace corvane
