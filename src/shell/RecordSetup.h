// The dialog of the click and of recording.
#pragma once

#include <QDialog>
#include <functional>
#include <vector>

#include "model/SessionPreferences.h"

class QFormLayout;

namespace corvane {

class MainFrame;

class RecordSetup : public QDialog {
public:
    explicit RecordSetup(MainFrame& frame);

private:
    void AddNumber(QFormLayout& form, const char* text, SessionWord word, int least, int most,
                   const char* none = nullptr);
    void AddSwitch(QFormLayout& form, const char* text, SessionWord word);
    void AddPort(QFormLayout& form, const char* text, SessionWord word, bool output);
    void AddChoice(QFormLayout& form, const char* text, SessionWord word,
                   const std::vector<std::pair<const char*, int>>& choices);
    QFormLayout* AddGroup(const char* title);
    void Store();

    MainFrame& _frame;
    std::vector<std::function<void(SessionPreferences&)>> _stores;  // one a control
};

}  // namespace corvane
