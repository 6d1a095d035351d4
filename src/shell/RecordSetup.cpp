#include "shell/RecordSetup.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QSpinBox>
#include <QVBoxLayout>

#include "platform/rtmidi/MidiSystems.h"
#include "play/SoundPort.h"
#include "shell/MainFrame.h"

namespace corvane {
namespace {

constexpr int kLongestClick = 120, kMostMeasures = 9;

}  // namespace

RecordSetup::RecordSetup(MainFrame& frame) : QDialog(&frame), _frame(frame) {
    setWindowTitle("Accompany - Record Setup");
    using W = SessionWord;
    new QVBoxLayout(this);
    QFormLayout* click = AddGroup("Click");
    AddPort(*click, "&Port:", W::ClickPort, true);
    AddNumber(*click, "&Channel:", W::ClickChannel, 1, 16);
    AddNumber(*click, "Bar click: p&itch", W::BarClickPitch, 0, 127);
    AddNumber(*click, "Bar click: &volume", W::BarClickVolume, 0, 127);
    AddNumber(*click, "Bar click: d&uration (1/60 s)", W::BarClickDuration, 1, kLongestClick);
    AddNumber(*click, "Beat click: pi&tch", W::BeatClickPitch, 0, 127);
    AddNumber(*click, "Beat click: v&olume", W::BeatClickVolume, 0, 127);
    AddNumber(*click, "Beat click: dur&ation (1/60 s)", W::BeatClickDuration, 1, kLongestClick);
    AddNumber(*click, "Count-off &measures:", W::CountOffMeasures, 0, kMostMeasures);
    AddSwitch(*click, "Mut&e click after count-off", W::MuteClickAfterCountOff);
    AddChoice(*click, "Cursor &steps:", W::CursorStep, {{"Beat", 0}, {"Half a measure", 1}, {"Measure", 2}});
    QFormLayout* record = AddGroup("Recording");
    AddPort(*record, "Po&rt:", W::RecordPort, false);
    AddNumber(*record, "Cha&nnel:", W::RecordChannel, 1, 16);
    AddChoice(*record, "&Quantization level:", W::QuantizationLevel,
              {{"None", 1},
               {"Half", 2},
               {"Quarter", 3},
               {"8th", 4},
               {"16th", 5},
               {"32nd", 6},
               {"64th", 7},
               {"128th", 8}});
    AddNumber(*record, "Sp&lit Point:", W::SplitKey, 0, 127, "None");
    AddNumber(*record, "Voice &below the split:", W::SplitVoice, 0, DocStaff::kVoices, "None");
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, [this] { Store(); });
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout()->addWidget(buttons);
}

QFormLayout* RecordSetup::AddGroup(const char* title) {
    auto* group = new QGroupBox(title);
    layout()->addWidget(group);
    return new QFormLayout(group);
}

void RecordSetup::AddNumber(QFormLayout& form, const char* text, SessionWord word, int least, int most,
                            const char* none) {
    auto* box = new QSpinBox;
    box->setRange(least, most);
    box->setValue(GetWord(_frame.TheSession().Preferences(), word));
    if (none) box->setSpecialValueText(none);
    if (word == SessionWord::SplitKey) box->setToolTip("Middle C (C3) = 60\nEach unity = 1 semitone");
    form.addRow(text, box);
    _stores.push_back([box, word](SessionPreferences& p) { SetWord(p, word, box->value()); });
}

void RecordSetup::AddSwitch(QFormLayout& form, const char* text, SessionWord word) {
    auto* box = new QCheckBox(text);
    box->setChecked(IsOn(_frame.TheSession().Preferences(), word));
    form.addRow(box);
    _stores.push_back([box, word](SessionPreferences& p) { SetWord(p, word, box->isChecked()); });
}

void RecordSetup::AddChoice(QFormLayout& form, const char* text, SessionWord word,
                            const std::vector<std::pair<const char*, int>>& choices) {
    auto* box = new QComboBox;
    for (const auto& [name, value] : choices) box->addItem(name, value);
    box->setCurrentIndex(std::max(0, box->findData(GetWord(_frame.TheSession().Preferences(), word))));
    form.addRow(text, box);
    _stores.push_back([box, word](SessionPreferences& p) { SetWord(p, word, box->currentData().toInt()); });
}

void RecordSetup::AddPort(QFormLayout& form, const char* text, SessionWord word, bool output) {
    auto* box = new QComboBox;
    box->addItem("None", int{SoundPort::kNone});
    if (output) box->addItem("MIDI Mapper", int{SoundPort::kBuiltIn});
    for (const MidiDevice& device : ListMidiDevices())
        if (device.isOutput == output) box->addItem(QString::fromStdString(device.name), int{device.number});
    const int port = GetWord(_frame.TheSession().Preferences(), word);
    if (box->findData(port) < 0) box->addItem(QString("Port %1 (not there)").arg(port), port);
    box->setCurrentIndex(box->findData(port));
    form.addRow(text, box);
    _stores.push_back([box, word](SessionPreferences& p) { SetWord(p, word, box->currentData().toInt()); });
}

void RecordSetup::Store() {
    for (const auto& store : _stores) store(_frame.TheSession().Preferences());
    _frame.KeepSwitches();
    accept();
}

}  // namespace corvane
