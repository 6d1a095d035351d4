#include "shell/FormDialog.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QSpinBox>
#include <algorithm>

#include "edit/CommandTable.h"
#include "edit/Structure.h"
#include "shell/Notices.h"

namespace corvane {
namespace {

constexpr int kFieldWidth = 200;  // so that titles are not cut

// "type=repeatstart;on=0" as arguments.
CommandArguments Parsed(const char* text) {
    CommandArguments arguments;
    for (const QString& part : QString(text).split(';', Qt::SkipEmptyParts))
        arguments[part.section('=', 0, 0).toStdString()] = part.section('=', 1).toStdString();
    return arguments;
}

// The option that tells what stands in `values`; -1 for none.
int OptionFor(const FieldRow& row, const CommandArguments& values) {
    for (size_t i = 0; i < row.options.size(); ++i) {
        const CommandArguments told = Parsed(row.options[i].arguments);
        const bool holds = std::all_of(told.begin(), told.end(), [&](const auto& argument) {
            const auto found = values.find(argument.first);
            return found != values.end() && found->second == argument.second;
        });
        if (holds && !told.empty()) return static_cast<int>(i);
    }
    return -1;
}

// A command speaks of its arguments, a person knows the fields.
std::string InWordsOfTheForm(const CommandForm& form, const std::string& message) {
    for (const FieldRow& row : form.fields) {
        const std::string name = std::string(row.name) + " ";
        if (name.size() < 2 || !message.starts_with(name)) continue;
        const QString label = QString(row.label).remove('&').remove(':');
        return QString("\"%1\" ").arg(label).toStdString() + message.substr(name.size());
    }
    return message;
}

QWidget* MakeList(const FieldRow& row, const CommandArguments& values) {
    auto* list = new QComboBox;
    for (const FieldOption& option : row.options) list->addItem(option.label);
    const int wanted = OptionFor(row, values);
    list->setCurrentIndex(std::max(0, wanted >= 0 ? wanted : OptionFor(row, Parsed(row.usual))));
    list->setMaxVisibleItems(20);
    return list;
}

std::string ValueOf(const FieldRow& row, const CommandArguments& values) {
    const auto found = values.find(row.name);
    return found != values.end() ? found->second : row.usual;
}

int MostOf(const FieldRow& row, const ScoreExtent& extent) {
    switch (row.reach) {
        case Reach::Measures:
            return extent.measures;
        case Reach::Pages:
            return extent.pages;
        case Reach::Staves:
            return extent.staves;
        case Reach::Fixed:
            break;
    }
    return row.most;
}

QWidget* MakeNumber(const FieldRow& row, int most, const CommandArguments& values) {
    auto* number = new QSpinBox;
    number->setRange(row.least, std::max(row.least, most));
    number->setSpecialValueText(row.words);
    number->setValue(QString::fromStdString(ValueOf(row, values)).toInt());
    number->selectAll();
    return number;
}

void AddArguments(CommandArguments& arguments, const FieldRow& row, const QWidget* widget) {
    if (const auto* list = qobject_cast<const QComboBox*>(widget)) {
        arguments.merge(Parsed(row.options[static_cast<size_t>(list->currentIndex())].arguments));
    } else if (const auto* number = qobject_cast<const QSpinBox*>(widget)) {
        if (!row.leastIsSilent || number->value() > row.least)
            arguments[row.name] = std::to_string(number->value());
    } else if (const auto* line = qobject_cast<const QLineEdit*>(widget)) {
        arguments[row.name] = line->text().toStdString();
    }
}

}  // namespace

FormDialog::FormDialog(QWidget* parent, WindowTarn& window, const CommandForm& form)
    : QDialog(parent), _window(window), _form(form), _extent(ExtentOf(window)) {
    setWindowTitle(FindCommand(form.id)->name);
    auto* column = new QVBoxLayout(this);
    auto* layout = new QFormLayout;
    layout->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    column->addLayout(layout);
    const CommandArguments values = ValuesAtHand(window, form.id);
    for (const FieldRow& row : form.fields) AddField(*layout, row, values);
    if (*form.hint) column->addWidget(new QLabel(form.hint));
    column->addSpacing(8);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    column->addWidget(buttons);
    column->setSizeConstraint(QLayout::SetFixedSize);
    _mode = qobject_cast<QComboBox*>(_fields.front().widget);
    if (_mode) connect(_mode, &QComboBox::currentIndexChanged, this, [this] { ShowMode(); });
    ShowMode();
}

void FormDialog::AddField(QFormLayout& layout, const FieldRow& row, const CommandArguments& values) {
    QWidget* widget = nullptr;
    const int most = MostOf(row, _extent);
    if (!row.options.empty())
        widget = MakeList(row, values);
    else if (row.most > row.least || row.reach != Reach::Fixed)
        widget = MakeNumber(row, most, values);
    else
        widget = new QLineEdit(QString::fromStdString(ValueOf(row, values)));
    widget->setMinimumWidth(kFieldWidth);
    layout.addRow(row.label, widget);
    _fields.push_back({&row, widget});
}

bool FormDialog::Counts(const FieldRow& row) const {
    return row.modes == 0 || (_mode && (row.modes >> _mode->currentIndex() & 1U));
}

void FormDialog::ShowMode() {
    for (const Field& field : _fields) field.widget->setEnabled(Counts(*field.row));
}

CommandArguments FormDialog::Arguments() const {
    CommandArguments arguments;
    for (const Field& field : _fields)
        if (Counts(*field.row)) AddArguments(arguments, *field.row, field.widget);
    return arguments;
}

bool FormDialog::IsFilled() const {
    return std::all_of(_fields.begin(), _fields.end(), [this](const Field& field) {
        const auto* line = qobject_cast<const QLineEdit*>(field.widget);
        return !line || field.row->mayBeEmpty || !Counts(*field.row) || !line->text().trimmed().isEmpty();
    });
}

bool FormDialog::IsWanted(const CommandArguments& arguments) {
    const auto count = arguments.find("count");
    if (!*_form.many || count == arguments.end() || std::stoi(count->second) <= kManyMeasures) return true;
    return QMessageBox::question(this, "Corvane", _form.many) == QMessageBox::Yes;
}

void FormDialog::accept() {
    if (!IsFilled()) return ShowMessage(this, "Please fill in all the fields");
    const CommandArguments arguments = Arguments();
    if (!IsWanted(arguments)) return;
    if (const Status status = RunCommand(_window, _form.id, arguments); !status)
        return ShowMessage(this, InWordsOfTheForm(_form, status.message()));
    QDialog::accept();
}

}  // namespace corvane
