#include "shell/ProgramDialog.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>

#include "play/InstrumentNames.h"
#include "shell/MainFrame.h"
#include "shell/MixerDock.h"

namespace corvane {
namespace {

constexpr int kColumns = 8, kRows = 16, kLongestName = 19;
static_assert(kColumns * kRows == kSoundsOfDevice);

}  // namespace

ProgramDialog::ProgramDialog(MixerDock& mixer, int device, int program)
    : QDialog(&mixer),
      _mixer(mixer),
      _device(device >= 1 && device <= kDevices ? device : kGeneralMidi),
      _program(program) {
    setWindowTitle("Program Change");
    auto* column = new QVBoxLayout(this);
    column->addWidget(MakeGrid());
    column->addWidget(MakeFoot());
    ShowDevice(_device);
}

// Programs go down the columns, so that families stay together.
QWidget* ProgramDialog::MakeGrid() {
    auto* grid = new QWidget;
    auto* layout = new QGridLayout(grid);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    for (int program = 1; program <= kSoundsOfDevice; ++program) {
        auto* button = new QPushButton;
        button->setCheckable(true);
        button->setAutoDefault(false);
        button->setObjectName(QString("program %1").arg(program));
        connect(button, &QPushButton::clicked, this,
                [this, program] { Choose(program == _program ? 0 : program); });
        layout->addWidget(button, (program - 1) % kRows, (program - 1) / kRows);
        _buttons.push_back(button);
    }
    return grid;
}

QWidget* ProgramDialog::MakeFoot() {
    auto* foot = new QWidget;
    auto* row = new QHBoxLayout(foot);
    row->setContentsMargins(0, 4, 0, 0);
    _number = new QLabel;
    _number->setMinimumWidth(30);
    _name = new QLineEdit;
    _name->setMaxLength(kLongestName);
    connect(_name, &QLineEdit::textEdited, this, [this](const QString& name) { Rename(name); });
    _devices = new QComboBox;
    for (const char* name : DeviceNames()) _devices->addItem(name);
    _devices->setObjectName("device");
    connect(_devices, &QComboBox::activated, this, [this](int index) { ShowDevice(index + 1); });
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    for (const auto& [text, widget] :
         {std::pair<const char*, QWidget*>{"N.", _number}, {"Timbre:", _name}, {"Device:", _devices}}) {
        row->addWidget(new QLabel(text));
        row->addWidget(widget);
        row->addSpacing(12);
    }
    row->addStretch();
    row->addWidget(buttons);
    return foot;
}

bool ProgramDialog::IsPersonal() const { return _device >= kFirstPersonal; }

QString ProgramDialog::Name() const {
    const auto& personal = _mixer.Frame().TheSession().Preferences().soundNames;
    return QString::fromStdString(_mixer.Names().NameOf(_device, _program, personal));
}

void ProgramDialog::Choose(int program) {
    _program = program;
    for (int i = 0; i < kSoundsOfDevice; ++i) _buttons[static_cast<size_t>(i)]->setChecked(i + 1 == program);
    _number->setText(program ? QString::number(program) : QString("-"));
    _name->setText(Name());
    _name->setReadOnly(!IsPersonal() || !program);
}

void ProgramDialog::ShowDevice(int device) {
    _device = device;
    const QSignalBlocker quiet(_devices);
    _devices->setCurrentIndex(device - 1);
    const auto& personal = _mixer.Frame().TheSession().Preferences().soundNames;
    for (int program = 1; program <= kSoundsOfDevice; ++program)
        _buttons[static_cast<size_t>(program - 1)]->setText(
            QString::fromStdString(_mixer.Names().NameOf(device, program, personal)).replace('&', "&&"));
    Choose(_program);
}

// Personal names are the person's own.
void ProgramDialog::Rename(const QString& name) {
    if (!IsPersonal() || !_program) return;
    auto& bank =
        _mixer.Frame().TheSession().Preferences().soundNames[static_cast<size_t>(_device - kFirstPersonal)];
    bank[static_cast<size_t>(_program - 1)] = name.toStdString();
    _buttons[static_cast<size_t>(_program - 1)]->setText(QString(name).replace('&', "&&"));
    _renamed = true;
}

void ProgramDialog::done(int result) {
    if (_renamed) _mixer.Frame().KeepSwitches();
    QDialog::done(result);
}

}  // namespace corvane
