#include "shell/NewScoreDialog.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

#include "session/NewScoreRules.h"
#include "shell/Notices.h"

namespace corvane {
namespace {

constexpr int kUsualMost = 15;  // a person who asks for more is asked again

struct StaffChoice {
    const char* letters;
    const char* name;
};
constexpr StaffChoice kChoices[] = {
    {"D", "Pair of staves (brace)"},
    {"S", "Single staff"},
    {"B", "Bass staff"},
    {"E", "Percussion staff"},
};

const char* NameOf(const QString& letters) {
    for (const StaffChoice& choice : kChoices)
        if (letters == choice.letters) return choice.name;
    return "Custom staff";
}

// The entries of a staff string: a letter each, a custom staff with its two digits.
QStringList EntriesOf(const std::string& staffs) {
    QStringList entries;
    for (const QChar c : QString::fromStdString(staffs)) {
        if (c.isDigit() && !entries.isEmpty())
            entries.last() += c;
        else
            entries.append(c);
    }
    return entries;
}

QSpinBox* MakeNumber(int value) {
    auto* box = new QSpinBox;
    box->setRange(0, kMostInNewScore);
    box->setValue(value);
    return box;
}

}  // namespace

NewScoreDialog::NewScoreDialog(QWidget* parent, const PageLayout& layout, const std::string& staffs)
    : QDialog(parent),
      _staffs(new QListWidget),
      _measures(MakeNumber(layout.measuresPerSystem)),
      _systems(MakeNumber(layout.systemsPerPage)) {
    setWindowTitle("New Score");
    auto* form = new QFormLayout;
    form->addRow("&Measures per system:", _measures);
    form->addRow("S&ystems per page:", _systems);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* column = new QVBoxLayout(this);
    auto* label = new QLabel("S&taves, from the top:");
    label->setBuddy(_staffs);
    column->addWidget(label);
    column->addWidget(MakeStaffs());
    column->addLayout(form);
    column->addWidget(buttons);
    for (const QString& entry : EntriesOf(staffs)) AddStaff(entry);
    buttons->button(QDialogButtonBox::Ok)->setFocus();
}

QWidget* NewScoreDialog::MakeStaffs() {
    auto* add = new QPushButton("&Add");
    auto* menu = new QMenu(add);
    for (const StaffChoice& choice : kChoices)
        menu->addAction(choice.name, this, [this, &choice] { AddStaff(choice.letters); });
    add->setMenu(menu);
    auto* remove = new QPushButton("&Remove");
    connect(remove, &QPushButton::clicked, this, [this] { delete _staffs->takeItem(_staffs->currentRow()); });
    auto* up = new QPushButton("&Up");
    connect(up, &QPushButton::clicked, this, [this] { MoveStaff(-1); });
    auto* down = new QPushButton("&Down");
    connect(down, &QPushButton::clicked, this, [this] { MoveStaff(1); });

    auto* whole = new QWidget;
    auto* row = new QHBoxLayout(whole);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(_staffs, 1);
    auto* column = new QVBoxLayout;
    for (QPushButton* button : {add, remove, up, down}) {
        button->setAutoDefault(false);
        column->addWidget(button);
    }
    column->addStretch();
    row->addLayout(column);
    return whole;
}

void NewScoreDialog::AddStaff(const QString& letters) {
    auto* item = new QListWidgetItem(NameOf(letters));
    item->setData(Qt::UserRole, letters);
    _staffs->insertItem(_staffs->currentRow() + 1, item);
    _staffs->setCurrentItem(item);
}

void NewScoreDialog::MoveStaff(int by) {
    const int row = _staffs->currentRow(), to = row + by;
    if (row < 0 || to < 0 || to >= _staffs->count()) return;
    _staffs->insertItem(to, _staffs->takeItem(row));
    _staffs->setCurrentRow(to);
}

PageLayout NewScoreDialog::Layout() const { return {_measures->value(), _systems->value()}; }

std::string NewScoreDialog::Staffs() const {
    QString letters;
    for (int i = 0; i < _staffs->count(); ++i) letters += _staffs->item(i)->data(Qt::UserRole).toString();
    return letters.toStdString();
}

void NewScoreDialog::accept() {
    const auto isSure = [this](const char* question) {
        return QMessageBox::question(this, "Corvane", question) == QMessageBox::Yes;
    };
    if (_staffs->count() == 0) return ShowMessage(this, "Insert at least one staff before clicking OK");
    if (_measures->value() > kUsualMost && !isSure("Are you sure you want to insert more than 15 measures?"))
        return;
    if (_systems->value() > kUsualMost && !isSure("Are you sure you want to insert more than 15 systems?"))
        return;
    if (const Status status = CheckNewScore(Layout(), Staffs()); !status)
        return ShowMessage(this, status.message());
    QDialog::accept();
}

}  // namespace corvane
