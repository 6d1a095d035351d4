#include "shell/ScoreChoice.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <algorithm>

namespace corvane {

ScoreChoice::ScoreChoice(QWidget* parent, const char* title, const char* what, const std::vector<Row>& rows)
    : QDialog(parent), _list(new QTreeWidget), _buttons(new QDialogButtonBox) {
    setWindowTitle(title);
    resize(640, 320);
    _list->setHeaderLabels({"Score", "Time", "Place"});
    _list->setRootIsDecorated(false);
    _list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    for (const Row& row : rows)
        new QTreeWidgetItem(_list, {QString::fromStdString(row.title), QString::fromStdString(row.when),
                                    QString::fromStdString(row.where)});
    _list->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    _list->setCurrentItem(_list->topLevelItem(0));

    QPushButton* open = _buttons->addButton("&Open", QDialogButtonBox::AcceptRole);
    const auto take = [this] {
        _opened = Chosen();
        accept();
    };
    connect(open, &QPushButton::clicked, this, take);
    connect(_list, &QTreeWidget::itemDoubleClicked, this, take);
    connect(_list, &QTreeWidget::itemSelectionChanged, this, [this] {
        for (QAbstractButton* button : _buttons->buttons())
            if (_buttons->buttonRole(button) != QDialogButtonBox::RejectRole)
                button->setEnabled(!Chosen().empty());
    });
    _buttons->addButton(QDialogButtonBox::Cancel);
    connect(_buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    open->setDefault(true);

    auto* column = new QVBoxLayout(this);
    column->addWidget(new QLabel(what));
    column->addWidget(_list);
    column->addWidget(_buttons);
}

void ScoreChoice::OfferDiscard() {
    _list->selectAll();
    _buttons->button(QDialogButtonBox::Cancel)->setText("&Later");
    connect(_buttons->addButton("&Discard", QDialogButtonBox::DestructiveRole), &QPushButton::clicked, this,
            [this] { Discard(); });
}

std::vector<int> ScoreChoice::Chosen() const {
    std::vector<int> rows;
    for (const QTreeWidgetItem* item : _list->selectedItems())
        rows.push_back(_list->indexOfTopLevelItem(const_cast<QTreeWidgetItem*>(item)));
    std::sort(rows.begin(), rows.end());
    return rows;
}

// Those that stay in the list are kept for later.
void ScoreChoice::Discard() {
    const auto answer = QMessageBox::question(this, "Corvane", "Discard the chosen scores for good?");
    if (answer != QMessageBox::Yes) return;
    _discarded = Chosen();
    accept();
}

}  // namespace corvane
