// The controls of one staff in the mixer.
#pragma once

#include <QObject>

#include "play/Mixer.h"

class QComboBox;
class QGridLayout;
class QLabel;
class QPushButton;
class QSlider;
class QSpinBox;
class QToolButton;

namespace corvane {

class MixerDock;
class WindowTarn;

class MixerRow : public QObject {
public:
    // Titles of the columns, in order.
    static const char* const kColumns[];

    // The staff is of the window's score; the row goes before it.
    MixerRow(MixerDock& dock, WindowTarn& window, DocStaff* staff, int number, QGridLayout& grid);

    void Refresh();

private:
    QToolButton* AddSwitch(QGridLayout& grid, const char* text, const char* name, const char* tip);
    QSlider* AddSlider(QGridLayout& grid, VoiceValue value, const char* name);
    QSpinBox* AddNumber(QGridLayout& grid, VoiceValue value, const char* name);
    void AddProgram(QGridLayout& grid);
    void AddPort(QGridLayout& grid);
    void Place(QGridLayout& grid, QWidget* widget, const char* name);
    void Set(VoiceValue value, int number);
    void Slide(QSlider* slider, VoiceValue value, int number);
    void LetGo(QSlider* slider, VoiceValue value);
    void ChooseProgram();
    int ValueOf(VoiceValue value) const { return VoiceValueOf(_staff, _voice, value); }

    MixerDock& _dock;
    WindowTarn& _window;
    DocStaff* const _staff;
    const int _number;  // from 1
    int _voice = 1;
    int _column = 0;
    int _before = 0;  // what a slider stood at when it was taken hold of
    QLabel* _name;
    QToolButton *_on, *_solo, *_rec;
    QSlider *_volume, *_pan;
    QPushButton* _program;
    QSpinBox *_voiceBox, *_channel, *_transposition;
    QComboBox* _port;
};

}  // namespace corvane
