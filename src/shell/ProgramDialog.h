// Picks a program by its name on a device.
#pragma once

#include <QDialog>
#include <vector>

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace corvane {

class MixerDock;

class ProgramDialog : public QDialog {
public:
    // Device 1 to 12, anything else for General MIDI; program 1 to 128, 0 for none.
    ProgramDialog(MixerDock& mixer, int device, int program);

    int Device() const { return _device; }
    int Program() const { return _program; }
    QString Name() const;

protected:
    void done(int result) override;

private:
    QWidget* MakeGrid();
    QWidget* MakeFoot();
    void Choose(int program);
    void ShowDevice(int device);
    void Rename(const QString& name);
    bool IsPersonal() const;

    MixerDock& _mixer;
    int _device, _program;
    bool _renamed = false;
    std::vector<QPushButton*> _buttons;
    QLabel* _number;
    QLineEdit* _name;
    QComboBox* _devices;
};

}  // namespace corvane
