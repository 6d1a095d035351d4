#include "shell/ImportDialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QTabWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "store/SettingsStore.h"

namespace corvane {
namespace {

constexpr const char* kLevels[] = {"None", "Half", "Quarter", "Eighth", "16th", "32nd", "64th", "128th"};
constexpr const char* kSplits[] = {"Don't split", "Voice 1", "Voice 2", "Voice 3", "Voice 4",
                                   "Voice 5",     "Voice 6", "Voice 7", "Voice 8"};
constexpr const char* kKinds[] = {"Triplet", "Quintuplet", "7tuplet", "9tuplet", "11tuplet"};
constexpr const char* kResolutions[] = {"Half", "Quarter", "Eighth", "16th", "32nd", "64th", "128th"};
constexpr const char
    *kHint = "Note: for a generic MIDI file try first to set the\nquantization level to 16th or 32th",
    *kSplitText =
        "If you wish to split on two different voices notes\nrecorded simultaneously on the "
        "same voice, insert\nthe second voice on voice";

constexpr const char* kKey = "Settings/Quantizzazione";

// The fields of the options that are numbers, by the names of their settings.
constexpr struct {
    const char* name;
    int ImportOptions::*field;
    int least, most;
} kNumbers[] = {
    {"Level", &ImportOptions::level, 0, 7},
    {"Split", &ImportOptions::splitVoice, 0, 8},
    {"Smallest Tuplet", &ImportOptions::tupletKind, 1, 5},
    {"Resolution", &ImportOptions::tupletResolution, 2, 128},
};
constexpr const char* kTuplets = "Allow tuplets";

template <size_t Count>
QComboBox* MakeList(const char* const (&entries)[Count], int chosen) {
    auto* list = new QComboBox;
    for (const char* entry : entries) list->addItem(entry);
    list->setCurrentIndex(chosen);
    return list;
}

// Resolutions are the powers of two from a half on.
int PlaceOf(int resolution) {
    int place = 0;
    while (4 << place <= resolution) ++place;
    return place;
}

}  // namespace

ImportDialog::ImportDialog(QWidget* parent, const ImportOptions& options) : QDialog(parent) {
    setWindowTitle("Import MIDI");
    auto* pages = new QTabWidget;
    pages->addTab(MakeQuantization(options), "Quantization");
    pages->addTab(MakeAdvanced(options), "Advanced settings");
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* column = new QVBoxLayout(this);
    column->addWidget(pages);
    column->addWidget(buttons);
}

QWidget* ImportDialog::MakeQuantization(const ImportOptions& options) {
    _level = MakeList(kLevels, options.level);
    _split = MakeList(kSplits, options.splitVoice);
    auto* page = new QWidget;
    auto* form = new QFormLayout(page);
    form->addRow("&Quantization level", _level);
    form->addRow(new QLabel(kHint));
    form->addRow(new QLabel(kSplitText));
    form->addRow("&Second voice", _split);
    return page;
}

QWidget* ImportDialog::MakeAdvanced(const ImportOptions& options) {
    _tuplets = new QCheckBox("&Allow tuplets");
    _tuplets->setChecked(options.tuplets);
    _kind = MakeList(kKinds, options.tupletKind - 1);
    _resolution = MakeList(kResolutions, PlaceOf(options.tupletResolution));
    for (QComboBox* list : {_kind, _resolution}) {
        list->setEnabled(options.tuplets);
        connect(_tuplets, &QCheckBox::toggled, list, &QComboBox::setEnabled);
    }
    auto* page = new QWidget;
    auto* form = new QFormLayout(page);
    form->addRow(_tuplets);
    form->addRow("S&mallest Tuplet", _kind);
    form->addRow("&Resolution", _resolution);
    return page;
}

ImportOptions ImportDialog::Options() const {
    ImportOptions options;
    options.level = _level->currentIndex();
    options.splitVoice = _split->currentIndex();
    options.tuplets = _tuplets->isChecked();
    options.tupletKind = _kind->currentIndex() + 1;
    options.tupletResolution = 2 << _resolution->currentIndex();
    return options;
}

ImportOptions ReadImportOptions(const SettingsStore& settings) {
    ImportOptions options;
    for (const auto& number : kNumbers) {
        bool isNumber = false;
        const int value = QString::fromStdString(settings.ReadText(kKey, number.name)).toInt(&isNumber);
        if (isNumber) options.*number.field = std::clamp(value, number.least, number.most);
    }
    options.tupletResolution = 2 << PlaceOf(options.tupletResolution);
    options.tuplets = settings.ReadText(kKey, kTuplets, "1") == "1";
    return options;
}

void WriteImportOptions(SettingsStore& settings, const ImportOptions& options) {
    for (const auto& number : kNumbers)
        settings.WriteText(kKey, number.name, std::to_string(options.*number.field));
    settings.WriteText(kKey, kTuplets, options.tuplets ? "1" : "0");
}

}  // namespace corvane
