// Asks for what a new score starts with: its staves from the top, measures to a system, systems to a page.
#pragma once

#include <QDialog>
#include <string>

#include "layout/ScoreBuilder.h"

class QListWidget;
class QSpinBox;

namespace corvane {

class NewScoreDialog : public QDialog {
public:
    NewScoreDialog(QWidget* parent, const PageLayout& layout, const std::string& staffs);

    PageLayout Layout() const;
    std::string Staffs() const;  // as a staff string

protected:
    // OK: stays open with a message where no such score can be made.
    void accept() override;

private:
    QWidget* MakeStaffs();
    void AddStaff(const QString& letters);
    void MoveStaff(int by);

    QListWidget* _staffs;
    QSpinBox *_measures, *_systems;
};

}  // namespace corvane
