#include "shell/MixerRow.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSlider>
#include <QSpinBox>
#include <QToolButton>

#include "edit/MixerCommand.h"
#include "play/SoundPort.h"
#include "play/TarnPlay.h"
#include "shell/MainFrame.h"
#include "shell/MixerDock.h"
#include "shell/ProgramDialog.h"

namespace corvane {
namespace {

constexpr int kRowHeight = 24;

void Put(QAbstractButton* button, bool on) {
    const QSignalBlocker quiet(button);
    button->setChecked(on);
}
template <class Box>
void PutNumber(Box* box, int number) {
    const QSignalBlocker quiet(box);
    box->setValue(number);
}

QString ToQt(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

}  // namespace

const char* const MixerRow::kColumns[] = {"Staff", "Voice",   "On",   "Solo", "Rec",   "Volume",
                                          "Pan",   "Program", "Chan", "Port", "Trans", nullptr};

MixerRow::MixerRow(MixerDock& dock, WindowTarn& window, DocStaff* staff, int number, QGridLayout& grid)
    : _dock(dock), _window(window), _staff(staff), _number(number), _name(new QLabel) {
    _name->setMinimumWidth(90);
    Place(grid, _name, "name");
    _voiceBox = new QSpinBox;
    _voiceBox->setRange(1, DocStaff::kVoices);
    _voiceBox->setToolTip("The voice that this row shows");
    connect(_voiceBox, &QSpinBox::valueChanged, this, [this](int voice) {
        _voice = voice;
        Refresh();
    });
    Place(grid, _voiceBox, "voice");
    _on = AddSwitch(grid, "On", "on", "The staff is heard; off mutes it");
    connect(_on, &QToolButton::clicked, this, [this](bool on) { ChangeActive(_window, _staff, on); });
    _solo = AddSwitch(grid, "Solo", "solo", "Only soloed staves are heard");
    connect(_solo, &QToolButton::clicked, this, [this](bool on) { ChangeSolo(_window, _staff, on); });
    _rec = AddSwitch(grid, "Rec", "rec", "A recording goes to this staff");
    connect(_rec, &QToolButton::clicked, this, [this](bool on) { Set(VoiceValue::RecordActive, on); });
    _volume = AddSlider(grid, VoiceValue::Volume, "volume");
    _pan = AddSlider(grid, VoiceValue::Pan, "pan");
    AddProgram(grid);
    _channel = AddNumber(grid, VoiceValue::Channel, "channel");
    AddPort(grid);
    _transposition = AddNumber(grid, VoiceValue::Transposition, "transposition");
    Refresh();
}

void MixerRow::Place(QGridLayout& grid, QWidget* widget, const char* name) {
    widget->setObjectName(QString("mixer %1 %2").arg(_number).arg(name));
    widget->setMaximumHeight(kRowHeight);
    grid.addWidget(widget, _number, _column++);
}

QToolButton* MixerRow::AddSwitch(QGridLayout& grid, const char* text, const char* name, const char* tip) {
    auto* button = new QToolButton;
    button->setText(text);
    button->setToolTip(tip);
    button->setCheckable(true);
    button->setFocusPolicy(Qt::TabFocus);
    Place(grid, button, name);
    return button;
}

// A fader that is held while the score plays is heard as it moves; the step is taken when it is let go.
void MixerRow::Slide(QSlider* slider, VoiceValue value, int number) {
    slider->setToolTip(QString::number(number));
    if (!slider->isSliderDown())
        Set(value, number);
    else if (IsPlaying())
        SetVoiceValue(_staff, _voice, value, number);
}

void MixerRow::LetGo(QSlider* slider, VoiceValue value) {
    if (ValueOf(value) != _before) SetVoiceValue(_staff, _voice, value, _before);
    Set(value, slider->value());
}

QSlider* MixerRow::AddSlider(QGridLayout& grid, VoiceValue value, const char* name) {
    auto* slider = new QSlider(Qt::Horizontal);
    const VoiceValueRow& row = RowOf(value);
    slider->setRange(row.least, row.most);
    slider->setMinimumWidth(value == VoiceValue::Volume ? 110 : 70);
    connect(slider, &QSlider::sliderPressed, this, [this, value] { _before = ValueOf(value); });
    connect(slider, &QSlider::valueChanged, this,
            [this, slider, value](int number) { Slide(slider, value, number); });
    connect(slider, &QSlider::sliderReleased, this, [this, slider, value] { LetGo(slider, value); });
    Place(grid, slider, name);
    return slider;
}

QSpinBox* MixerRow::AddNumber(QGridLayout& grid, VoiceValue value, const char* name) {
    auto* box = new QSpinBox;
    const VoiceValueRow& row = RowOf(value);
    box->setRange(row.least, row.most);
    box->setKeyboardTracking(false);
    connect(box, &QSpinBox::valueChanged, this, [this, value](int number) { Set(value, number); });
    Place(grid, box, name);
    return box;
}

void MixerRow::AddProgram(QGridLayout& grid) {
    _program = new QPushButton;
    _program->setMinimumWidth(130);
    _program->setToolTip("The sound of the voice");
    connect(_program, &QPushButton::clicked, this, [this] { ChooseProgram(); });
    Place(grid, _program, "program");
}

void MixerRow::AddPort(QGridLayout& grid) {
    _port = new QComboBox;
    _port->setMinimumWidth(120);
    _port->addItem("MIDI Mapper", int{SoundPort::kBuiltIn});
    _port->setItemData(0, "The built-in synthesiser", Qt::ToolTipRole);
    for (const MidiDevice& device : _dock.Outputs())
        _port->addItem(QString::fromStdString(device.name), int{device.number});
    connect(_port, &QComboBox::activated, this,
            [this](int index) { Set(VoiceValue::Port, _port->itemData(index).toInt()); });
    Place(grid, _port, "port");
}

void MixerRow::Set(VoiceValue value, int number) { ChangeVoiceValue(_window, _staff, _voice, value, number); }

void MixerRow::ChooseProgram() {
    ProgramDialog dialog(_dock, _staff->_voices[_voice - 1]._reserved, ValueOf(VoiceValue::Program));
    if (dialog.exec() != QDialog::Accepted) return;
    ChangeProgram(_window, _staff, _voice, dialog.Program(), dialog.Name().toStdString(), dialog.Device());
}

void MixerRow::Refresh() {
    const QString name = ToQt(NameOf(_staff));
    _name->setText(QString("%1  %2").arg(_number).arg(name));
    Put(_on, _staff->_active);
    Put(_solo, _staff->_solo);
    Put(_rec, ValueOf(VoiceValue::RecordActive) != 0);
    for (const auto& [slider, value] :
         {std::pair{_volume, VoiceValue::Volume}, std::pair{_pan, VoiceValue::Pan}}) {
        if (slider->isSliderDown()) continue;
        PutNumber(slider, ValueOf(value));
        slider->setToolTip(QString::number(ValueOf(value)));
    }
    const int program = ValueOf(VoiceValue::Program);
    QString sound = ToQt(ProgramNameOf(_staff, _voice));
    if (sound.isEmpty()) sound = QString::fromStdString(std::string(GeneralMidiName(program)));
    _program->setText(program ? QString("%1  %2").arg(program).arg(sound) : QString("none"));
    PutNumber(_channel, ValueOf(VoiceValue::Channel));
    PutNumber(_transposition, ValueOf(VoiceValue::Transposition));
    const int port = ValueOf(VoiceValue::Port);
    if (_port->findData(port) < 0) _port->addItem(QString("Port %1 (not there)").arg(port), port);
    _port->setCurrentIndex(_port->findData(port));
}

}  // namespace corvane
