// The play palette: play and stop, the counter, the tempo slider, click, cursor and texts, the limits.
#pragma once

#include <QDockWidget>

class QCheckBox;
class QHBoxLayout;
class QLabel;
class QSlider;
class QSpinBox;
class QToolButton;

namespace corvane {

class MainFrame;
class PlayReport;
enum class SessionWord : int;

class PlayDock : public QDockWidget {
public:
    explicit PlayDock(MainFrame& frame);

    // Switches, limits and what can be done, as things stand now.
    void Refresh();
    // Where play is.
    void ShowCounter(const PlayReport& report);

private:
    QWidget* MakeCounter();
    QWidget* MakeTempo();
    QWidget* MakeSwitches();
    QWidget* MakeLimits();
    QLabel* AddNumber(QHBoxLayout& row, const char* name, const char* text, const char* widest);
    QCheckBox* AddSwitch(QHBoxLayout& row, const char* text, const char* tip, SessionWord word);
    QSpinBox* AddLimit(QHBoxLayout& row, const char* name, const char* tip, int& value);
    void ShowTempo(int place);

    MainFrame& _frame;
    QLabel *_measure, *_beat, *_minutes, *_seconds, *_tempoText;
    QSlider* _tempo;
    QCheckBox *_click, *_pageTurn, *_texts, *_limits;
    QSpinBox* _limitBoxes[4];
};

}  // namespace corvane
