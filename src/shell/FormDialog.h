// The dialog of a command, built from its form: shows the arguments as they are at hand, and on OK runs the
// command.
#pragma once

#include <QDialog>
#include <vector>

#include "edit/CommandArguments.h"
#include "edit/CommandValues.h"
#include "shell/CommandForms.h"

class QComboBox;
class QFormLayout;

namespace corvane {

class FormDialog : public QDialog {
public:
    // The window outlives the dialog.
    FormDialog(QWidget* parent, WindowTarn& window, const CommandForm& form);

    // What the fields tell now.
    CommandArguments Arguments() const;

protected:
    // OK: stays open with a message where the command refuses.
    void accept() override;

private:
    struct Field {
        const FieldRow* row;
        QWidget* widget;
    };

    void AddField(QFormLayout& layout, const FieldRow& row, const CommandArguments& values);
    // Fields that do not count in the chosen mode are grey.
    void ShowMode();
    bool Counts(const FieldRow& row) const;
    bool IsFilled() const;
    bool IsWanted(const CommandArguments& arguments);

    WindowTarn& _window;
    const CommandForm& _form;
    const ScoreExtent _extent;
    std::vector<Field> _fields;
    QComboBox* _mode = nullptr;  // the first field, where it is a list
};

}  // namespace corvane
