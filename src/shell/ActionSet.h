// The menu bar and its actions, made from the table of entries.
#pragma once

#include <QObject>
#include <map>

class QAction;
class QMenu;

namespace corvane {

class MainFrame;
struct MenuRow;

class ActionSet : public QObject {
public:
    explicit ActionSet(MainFrame& frame);

    QAction* Of(int id) const { return _actions.at(id); }
    // Checks and enabled states as things stand now.
    void Refresh();

private:
    void Add(QMenu& menu, const MenuRow& row);
    void AddSubmenu(QMenu& menu, const MenuRow& row);
    void Run(const MenuRow& row);

    MainFrame& _frame;
    std::map<int, QAction*> _actions;
};

}  // namespace corvane
