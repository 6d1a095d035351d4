// A button of a palette that turns a way of entering on and off.
#pragma once

#include <QToolButton>

namespace corvane {

// The palette owns it and shows its state.
inline QToolButton* MakeSwitch(const char* name, const char* text, const char* tip, void (*toggle)()) {
    auto* button = new QToolButton;
    button->setObjectName(name);
    button->setText(text);
    button->setToolTip(tip);
    button->setAccessibleName(tip);
    button->setCheckable(true);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    QObject::connect(button, &QToolButton::clicked, button, [toggle] { toggle(); });
    return button;
}

}  // namespace corvane
