// The questions before notes become a tuplet: how many in the time of how many, and how it is shown.
#pragma once

#include <QDialog>

#include "edit/CommandArguments.h"
#include "edit/Spanners.h"

class QComboBox;
class QSpinBox;

namespace corvane {

class TupletDialog : public QDialog {
public:
    TupletDialog(QWidget* parent, const TupletValue& value);
    // As the command takes them.
    CommandArguments Arguments() const;

private:
    QSpinBox *_count, *_inTimeOf;
    QComboBox *_figure, *_bracket;
};

}  // namespace corvane
