// Asks how a MIDI file is to be read.
#pragma once

#include <QDialog>

#include "interchange/ImportOptions.h"

class QCheckBox;
class QComboBox;

namespace corvane {

class SettingsStore;

class ImportDialog : public QDialog {
public:
    ImportDialog(QWidget* parent, const ImportOptions& options);
    ImportOptions Options() const;

private:
    QWidget* MakeQuantization(const ImportOptions& options);
    QWidget* MakeAdvanced(const ImportOptions& options);

    QComboBox *_level = nullptr, *_split = nullptr, *_kind = nullptr, *_resolution = nullptr;
    QCheckBox* _tuplets = nullptr;
};

// What the person chose last, kept with the settings.
ImportOptions ReadImportOptions(const SettingsStore& settings);
void WriteImportOptions(SettingsStore& settings, const ImportOptions& options);

}  // namespace corvane
