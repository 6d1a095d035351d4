// The menu bar and its actions, made from the table of entries.
#pragma once

#include <QObject>
#include <QString>
#include <map>

class QAction;
class QKeyEvent;
class QMenu;

namespace corvane {

class MainFrame;
struct CommandForm;
struct MenuRow;

class ActionSet : public QObject {
public:
    explicit ActionSet(MainFrame& frame);

    QAction* Of(int id) const { return _actions.at(id); }
    // Tells why the entry of a key that came to nothing cannot act now; false for a key of no entry.
    bool TellWhyNot(const QKeyEvent& event);
    // Checks and enabled states as things stand now.
    void Refresh();

private:
    // The menu of a row, made on first use.
    QMenu& MenuOf(const QString& path);
    void Add(QMenu& menu, const MenuRow& row);
    void AddSubmenu(QMenu& menu, const MenuRow& row);
    void Run(const MenuRow& row);
    // Opens the dialog of a command.
    void Ask(const CommandForm& form);

    MainFrame& _frame;
    std::map<QString, QMenu*> _menus;  // by their paths
    std::map<int, QAction*> _actions;
};

}  // namespace corvane
