#include "shell/ActionSet.h"

#include <QAction>
#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>

#include "edit/CommandTable.h"
#include "edit/ToolState.h"
#include "shell/FormDialog.h"
#include "shell/MainFrame.h"
#include "shell/MenuTable.h"

namespace corvane {

namespace {

// The words of an entry with the first key that it has.
QString TipOf(const MenuRow& row) {
    const QStringList text = QString(row.text).remove('&').remove("...").split('\t');
    const QStringList keys = text.mid(1) + QString(row.keys).split("; ", Qt::SkipEmptyParts);
    return keys.isEmpty() ? text.front() : QString("%1 (%2)").arg(text.front(), keys.front());
}

}  // namespace

ActionSet::ActionSet(MainFrame& frame) : _frame(frame) {
    for (const MenuRow& row : MenuRows()) {
        QMenu& menu = MenuOf(row.menu);
        if (row.id == 0)
            menu.addSeparator();
        else if (row.fill)
            AddSubmenu(menu, row);
        else
            Add(menu, row);
    }
}

QMenu& ActionSet::MenuOf(const QString& path) {
    QMenu*& menu = _menus[path];
    if (menu) return *menu;
    const qsizetype slash = path.lastIndexOf('/');
    menu =
        slash < 0 ? _frame.menuBar()->addMenu(path) : MenuOf(path.left(slash)).addMenu(path.mid(slash + 1));
    return *menu;
}

void ActionSet::Add(QMenu& menu, const MenuRow& row) {
    if (const auto known = _actions.find(row.id); known != _actions.end())
        return menu.addAction(known->second);  // an entry of two menus
    auto* action = new QAction(row.text, this);
    action->setShortcuts(QKeySequence::listFromString(row.keys));
    action->setCheckable(row.checked != nullptr);
    if (row.picture) action->setIcon(ToolIcon(*row.picture));
    if (row.picture) action->setToolTip(TipOf(row));
    action->setIconVisibleInMenu(false);
    connect(action, &QAction::triggered, this, [this, &row] { Run(row); });
    menu.addAction(action);
    _actions[row.id] = action;
}

void ActionSet::AddSubmenu(QMenu& menu, const MenuRow& row) {
    QMenu* submenu = menu.addMenu(row.text);
    connect(submenu, &QMenu::aboutToShow, this, [this, submenu, &row] {
        submenu->clear();
        row.fill(_frame, *submenu);
    });
    _actions[row.id] = submenu->menuAction();
}

void ActionSet::Run(const MenuRow& row) {
    if (row.run) {
        row.run(_frame);
    } else if (const CommandForm* form = FindForm(row.id)) {
        Ask(*form);
    } else if (WindowTarn* window = _frame.CurrentScore()) {
        if (const Status status = RunCommand(*window, row.id); !status) _frame.Tell(status.message());
        if (row.checked) _frame.KeepSwitches();
    }
    _frame.RefreshActions();
}

bool ActionSet::TellWhyNot(const QKeyEvent& event) {
    const QKeySequence keys(event.keyCombination());
    for (const MenuRow& row : MenuRows()) {
        const QAction* action = row.id ? _actions.at(row.id) : nullptr;
        if (!action || action->isEnabled() || !action->shortcuts().contains(keys)) continue;
        WindowTarn* window = _frame.CurrentScore();
        if (!window)
            _frame.Tell("Open a score first");
        else if (const Command* command = FindCommand(row.id))
            _frame.Tell(ReasonAgainst(*window, *command));
        else if (IsPlaying())
            _frame.Tell("Stop the play first");
        return true;
    }
    return false;
}

void ActionSet::Ask(const CommandForm& form) {
    WindowTarn* window = _frame.CurrentScore();
    if (!window) return;
    if (FormDialog(&_frame, *window, form).exec() == QDialog::Accepted && form.ofSession)
        _frame.KeepSwitches();
}

void ActionSet::Refresh() {
    WindowTarn* window = _frame.CurrentScore();
    const SelectedKinds selected = window ? KindsSelected(*window) : SelectedKinds{};
    for (const MenuRow& row : MenuRows()) {
        if (row.id == 0) continue;
        QAction* action = _actions.at(row.id);
        if (row.enabled) {
            action->setEnabled(row.enabled(_frame));
        } else if (const Command* command = row.run ? nullptr : FindCommand(row.id)) {
            action->setEnabled(window && CanAct(*window, *command, selected));
        }
        if (row.checked) action->setChecked(row.checked(_frame));
    }
}

}  // namespace corvane
