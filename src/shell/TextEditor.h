// The editor over a score in which a text is typed, where it will stand and in its font. Return ends it,
// Shift with Return begins a line, Escape leaves everything as it was; Ctrl with B and I make the text bold
// and slanted, with [ and ] smaller and larger.
#pragma once

#include <QPlainTextEdit>

#include "base/Geometry.h"
#include "model/Texts.h"

namespace corvane {

class ViewScale;
class WindowTarn;

class TextEditor : public QPlainTextEdit {
public:
    // For what the window is typing at the moment.
    TextEditor(QWidget* parent, WindowTarn& window);

    // Puts it over its place; the corner is the page's in the view, pixels.
    void PlaceAt(const ViewScale& scale, Point corner);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    std::string Typed() const;
    void Finish();
    void ChangeLook(const TextLook& look);
    bool TakeLookKey(const QKeyEvent& event);
    bool TakeTextKey(const QKeyEvent& event);

    WindowTarn& _window;
    TextLook _look;
    Point _at;  // page units
    bool _done = false;
};

}  // namespace corvane
