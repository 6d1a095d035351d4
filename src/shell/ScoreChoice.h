// A list of scores from which the person takes some.
#pragma once

#include <QDialog>
#include <string>
#include <vector>

class QDialogButtonBox;
class QTreeWidget;

namespace corvane {

class ScoreChoice : public QDialog {
public:
    struct Row {
        std::string title, when, where;
    };
    ScoreChoice(QWidget* parent, const char* title, const char* what, const std::vector<Row>& rows);

    // Adds a button that gives the chosen ones up for good; all rows are chosen at first then.
    void OfferDiscard();
    // Numbers of rows, from 0; empty before the person has decided.
    const std::vector<int>& Opened() const { return _opened; }
    const std::vector<int>& Discarded() const { return _discarded; }

private:
    std::vector<int> Chosen() const;
    void Discard();

    QTreeWidget* _list;
    QDialogButtonBox* _buttons;
    std::vector<int> _opened, _discarded;
};

}  // namespace corvane
