#include "shell/PlayDock.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QSlider>
#include <QSpinBox>
#include <QToolButton>

#include "model/Par.h"
#include "shell/ActionSet.h"
#include "shell/MainFrame.h"
#include "shell/MenuTable.h"

namespace corvane {
namespace {

constexpr int kWritten = 100, kFastest = 200;

QFrame* MakeRule() {
    auto* rule = new QFrame;
    rule->setFrameShape(QFrame::VLine);
    rule->setFrameShadow(QFrame::Sunken);
    return rule;
}

QHBoxLayout* RowOf(QWidget* widget) {
    auto* row = new QHBoxLayout(widget);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(4);
    return row;
}

// A row that does not hold the window to its width: in a narrower one it scrolls.
class ScrolledRow : public QScrollArea {
public:
    explicit ScrolledRow(QWidget* body) {
        setFrameShape(QFrame::NoFrame);
        setWidgetResizable(true);
        setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        setWidget(body);
    }
    QSize sizeHint() const override { return widget()->sizeHint(); }
    QSize minimumSizeHint() const override { return {0, widget()->sizeHint().height()}; }

protected:
    void resizeEvent(QResizeEvent* event) override {
        QScrollArea::resizeEvent(event);
        const bool scrolls = width() < widget()->minimumSizeHint().width();
        setFixedHeight(widget()->sizeHint().height() +
                       (scrolls ? horizontalScrollBar()->sizeHint().height() : 0));
    }
};

void ShowNumber(QLabel* label, int number, int width = 1) {
    const QString text = QString("%1").arg(number, width, 10, QChar('0'));
    if (label->text() != text) label->setText(text);
}

}  // namespace

PlayDock::PlayDock(MainFrame& frame) : QDockWidget("Accompany"), _frame(frame) {
    setObjectName("palettePlay");
    auto* body = new QWidget;
    auto* row = new QHBoxLayout(body);
    row->setContentsMargins(8, 4, 8, 4);
    row->setSpacing(6);
    for (const int id : {kPlayId, kStopId}) {
        auto* button = new QToolButton;
        button->setDefaultAction(frame.Actions().Of(id));
        button->setIconSize(QSize(20, 20));
        button->setAutoRaise(true);
        button->setObjectName(id == kPlayId ? "play" : "stop");
        row->addWidget(button);
    }
    for (QWidget* part : {MakeCounter(), MakeTempo(), MakeSwitches(), MakeLimits()}) {
        row->addWidget(MakeRule());
        row->addWidget(part);
    }
    row->addStretch();
    setWidget(new ScrolledRow(body));
    ShowCounter(frame.Player().Report());
}

QLabel* PlayDock::AddNumber(QHBoxLayout& row, const char* name, const char* text, const char* widest) {
    auto* number = new QLabel("0");
    QFont font = number->font();
    font.setPointSizeF(font.pointSizeF() * 1.5);
    font.setBold(true);
    number->setFont(font);
    number->setObjectName(name);
    number->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    number->setMinimumWidth(QFontMetrics(font).horizontalAdvance(widest));
    auto* what = new QLabel(text);
    what->setEnabled(false);
    row.addWidget(what);
    row.addWidget(number);
    row.addSpacing(4);
    return number;
}

QWidget* PlayDock::MakeCounter() {
    auto* counter = new QWidget;
    QHBoxLayout* row = RowOf(counter);
    _measure = AddNumber(*row, "counterMeasure", "meas.", "0000");
    _beat = AddNumber(*row, "counterBeat", "beat", "00");
    _minutes = AddNumber(*row, "counterMinutes", "min.", "00");
    _seconds = AddNumber(*row, "counterSeconds", "sec.", "00");
    return counter;
}

QWidget* PlayDock::MakeTempo() {
    auto* tempo = new QWidget;
    QHBoxLayout* row = RowOf(tempo);
    _tempo = new QSlider(Qt::Horizontal);
    _tempo->setObjectName("tempo");
    _tempo->setRange(0, kFastest);
    _tempo->setValue(kWritten);
    _tempo->setMinimumWidth(120);
    _tempo->setToolTip("Tempo slider: from ten times slower to ten times faster; in the middle as written");
    _tempo->setAccessibleName("Tempo");
    _tempoText = new QLabel;
    _tempoText->setMinimumWidth(QFontMetrics(_tempoText->font()).horizontalAdvance("1000 %"));
    _tempoText->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    connect(_tempo, &QSlider::valueChanged, this, [this](int place) { ShowTempo(place); });
    row->addWidget(new QLabel("slower"));
    row->addWidget(_tempo);
    row->addWidget(new QLabel("faster"));
    row->addWidget(_tempoText);
    ShowTempo(kWritten);
    return tempo;
}

void PlayDock::ShowTempo(int place) {
    _frame.Player().SetTempo(place);
    _tempoText->setText(QString("%1 %").arg(100 * kNormalResolution / ResolutionOfSlider(place)));
}

QCheckBox* PlayDock::AddSwitch(QHBoxLayout& row, const char* text, const char* tip, SessionWord word) {
    auto* box = new QCheckBox(text);
    box->setToolTip(tip);
    box->setObjectName(QString("switch %1").arg(text));
    box->setFocusPolicy(Qt::TabFocus);  // a press leaves the keys, the space bar above all, to the score
    connect(box, &QCheckBox::clicked, this, [this, word](bool on) {
        SetWord(_frame.TheSession().Preferences(), word, on);
        _frame.KeepSwitches();
    });
    row.addWidget(box);
    return box;
}

QWidget* PlayDock::MakeSwitches() {
    auto* switches = new QWidget;
    QHBoxLayout* row = RowOf(switches);
    row->setSpacing(8);
    _click = AddSwitch(*row, "Click", "Sound the beats on the click's port", SessionWord::ClickIsOn);
    _pageTurn = AddSwitch(*row, "Page Turn", "Show where play is and turn the pages", SessionWord::PageTurn);
    _texts = AddSwitch(*row, "Follow repetition texts", "Play D.C., D.S., Coda and Fine",
                       SessionWord::FollowRepetitionTexts);
    return switches;
}

QSpinBox* PlayDock::AddLimit(QHBoxLayout& row, const char* name, const char* tip, int& value) {
    auto* box = new QSpinBox;
    box->setObjectName(name);
    box->setToolTip(tip);
    box->setRange(1, 1);
    connect(box, &QSpinBox::valueChanged, this, [&value](int number) { value = number; });
    row.addWidget(box);
    return box;
}

QWidget* PlayDock::MakeLimits() {
    auto* limits = new QWidget;
    QHBoxLayout* row = RowOf(limits);
    PlayLimits& held = _frame.Player().Limits();
    _limits = new QCheckBox("from");
    _limits->setObjectName("limits");
    _limits->setFocusPolicy(Qt::TabFocus);
    _limits->setToolTip("Play between these places only");
    connect(_limits, &QCheckBox::clicked, this, [this](bool on) {
        _frame.Player().Limits().on = on;
        Refresh();
    });
    row->addWidget(_limits);
    _limitBoxes[0] = AddLimit(*row, "fromMeasure", "First measure", held.firstMeasure);
    _limitBoxes[1] = AddLimit(*row, "fromBeat", "First beat of a recording", held.firstBeat);
    row->addWidget(new QLabel("to"));
    _limitBoxes[2] = AddLimit(*row, "toMeasure", "Last measure", held.lastMeasure);
    _limitBoxes[3] = AddLimit(*row, "toBeat", "Last beat", held.lastBeat);
    connect(_limitBoxes[0], &QSpinBox::editingFinished, this, [this] {
        if (_frame.Player().Limits().on) _frame.Player().Seek(_limitBoxes[0]->value());
    });
    return limits;
}

void PlayDock::Refresh() {
    const SessionPreferences& preferences = _frame.TheSession().Preferences();
    _click->setChecked(IsOn(preferences, SessionWord::ClickIsOn));
    _pageTurn->setChecked(IsOn(preferences, SessionWord::PageTurn));
    _texts->setChecked(IsOn(preferences, SessionWord::FollowRepetitionTexts));
    const WindowTarn* window = _frame.CurrentScore();
    const Measure* last = window ? LastMeasure(window->GetDocument()) : nullptr;
    const int measures = last ? int{last->_number} : 1;
    PlayLimits& limits = _frame.Player().Limits();
    if (!limits.on) {
        limits.firstMeasure = limits.firstBeat = 1;
        limits.lastMeasure = measures;
        limits.lastBeat = last ? int{last->_num} : 1;
    }
    const int values[] = {limits.firstMeasure, limits.firstBeat, limits.lastMeasure, limits.lastBeat};
    constexpr int kMostBeats = 99;
    for (int i = 0; i < 4; ++i) {
        const QSignalBlocker quiet(_limitBoxes[i]);
        _limitBoxes[i]->setRange(1, i % 2 ? kMostBeats : measures);
        _limitBoxes[i]->setValue(values[i]);
        _limitBoxes[i]->setEnabled(limits.on);
    }
}

void PlayDock::ShowCounter(const PlayReport& report) {
    constexpr int kTicksPerSecond = 250;
    const int seconds = report.elapsed / kTicksPerSecond;
    ShowNumber(_measure, report.measure);
    ShowNumber(_beat, report.beat);
    ShowNumber(_minutes, seconds / 60);
    ShowNumber(_seconds, seconds % 60, 2);
}

}  // namespace corvane
