#include "shell/TupletDialog.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QPushButton>
#include <QSpinBox>

namespace corvane {
namespace {

constexpr int kMostParts = 99;

// An entry's text and the word by which the command knows it, in the order of the codes.
struct Choice {
    const char* text;
    const char* word;
};
constexpr Choice kFigures[] = {{"Number, with the ratio where it is unusual", "usual"},
                               {"Number", "number"},
                               {"Ratio", "ratio"},
                               {"None", "none"}};
constexpr Choice kBrackets[] = {
    {"Unless one beam holds the notes", "unbeamed"}, {"Always", "always"}, {"None", "none"}};

QSpinBox* MakeNumber(const char* name, int least, int value) {
    auto* box = new QSpinBox;
    box->setObjectName(name);
    box->setRange(least, kMostParts);
    box->setValue(value);
    return box;
}

template <size_t N>
QComboBox* MakeChoice(const char* name, const Choice (&choices)[N], int code) {
    auto* box = new QComboBox;
    box->setObjectName(name);
    for (const Choice& choice : choices) box->addItem(choice.text, QString(choice.word));
    box->setCurrentIndex(code);
    return box;
}

}  // namespace

TupletDialog::TupletDialog(QWidget* parent, const TupletValue& value)
    : QDialog(parent),
      _count(MakeNumber("count", 2, value.count)),
      _inTimeOf(MakeNumber("in", 1, value.inTimeOf)),
      _figure(MakeChoice("figure", kFigures, static_cast<int>(value.figure))),
      _bracket(MakeChoice("bracket", kBrackets, static_cast<int>(value.bracket))) {
    setWindowTitle("Tuplets");
    auto* form = new QFormLayout(this);
    form->addRow("&Notes:", _count);
    form->addRow("In the &time of:", _inTimeOf);
    form->addRow("&Figure:", _figure);
    form->addRow("&Bracket:", _bracket);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    form->addRow(buttons);
    _count->selectAll();
    buttons->button(QDialogButtonBox::Ok)->setDefault(true);
}

CommandArguments TupletDialog::Arguments() const {
    return {{"count", std::to_string(_count->value())},
            {"in", std::to_string(_inTimeOf->value())},
            {"figure", _figure->currentData().toString().toStdString()},
            {"bracket", _bracket->currentData().toString().toStdString()}};
}

}  // namespace corvane
