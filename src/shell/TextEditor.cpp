#include "shell/TextEditor.h"

#include <QKeyEvent>
#include <QTextDocument>
#include <algorithm>
#include <cmath>

#include "edit/TextEntry.h"
#include "edit/WindowTarn.h"
#include "graphics/FontName.h"
#include "model/FontTable.h"
#include "shell/ViewScale.h"

namespace corvane {
namespace {

constexpr int32_t kLeastSize = 84, kMostSize = 1512, kSizeStep = 21;  // page units: 4 to 72 points, by one
constexpr int kRoom = 24;                                             // points behind the last letter

constexpr struct {
    int key;
    TextKey means;
} kTextKeys[] = {{Qt::Key_Space, TextKey::Space},
                 {Qt::Key_Minus, TextKey::Hyphen},
                 {Qt::Key_Underscore, TextKey::Underscore},
                 {Qt::Key_Up, TextKey::Up},
                 {Qt::Key_Down, TextKey::Down},
                 {Qt::Key_Backspace, TextKey::Back}};

}  // namespace

TextEditor::TextEditor(QWidget* parent, WindowTarn& window) : QPlainTextEdit(parent), _window(window) {
    const TextEntry& entry = *window.textEntry;
    setObjectName("textEditor");
    setAccessibleName("Text");
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setLineWrapMode(QPlainTextEdit::NoWrap);
    setTabChangesFocus(true);
    document()->setDocumentMargin(0);
    setPlainText(QString::fromStdString(entry.Text()));
    selectAll();
    _look = entry.Look();
    _at = entry.Place();
    connect(this, &QPlainTextEdit::textChanged, parent, qOverload<>(&QWidget::update));
}

void TextEditor::PlaceAt(const ViewScale& scale, Point corner) {
    QFont font(QString::fromStdString(FontName(DrawnFont(_look.font))));
    font.setPixelSize(std::max(1, static_cast<int>(std::lround(scale.Pixels(_look.size) / scale.Ratio()))));
    font.setBold(_look.style & kBoldStyle);
    font.setItalic(_look.style & kItalicStyle);
    if (font != this->font()) setFont(font);
    const QFontMetrics metrics(font);
    int width = 0;
    for (const QString& line : toPlainText().split('\n'))
        width = std::max(width, metrics.horizontalAdvance(line));
    const int x = static_cast<int>((corner.x + scale.Pixels(_at.x)) / scale.Ratio());
    const int y = static_cast<int>((corner.y + scale.Pixels(_at.y)) / scale.Ratio()) - metrics.ascent();
    const QRect place(x, y, width + kRoom, metrics.lineSpacing() * std::max(1, blockCount()) + 2);
    if (place != geometry()) setGeometry(place);
}

std::string TextEditor::Typed() const { return toPlainText().toStdString(); }

// The editor goes with what is being typed; the shell takes it away when it is told.
void TextEditor::Finish() {
    if (_done) return;
    _done = true;
    EndText(_window, Typed(), _look);
}

void TextEditor::ChangeLook(const TextLook& look) {
    _look = look;
    parentWidget()->update();
}

bool TextEditor::TakeLookKey(const QKeyEvent& event) {
    if (!(event.modifiers() & Qt::ControlModifier)) return false;
    TextLook look = _look;
    if (event.key() == Qt::Key_B) look.style ^= kBoldStyle;
    if (event.key() == Qt::Key_I) look.style ^= kItalicStyle;
    if (event.key() == Qt::Key_BracketLeft) look.size = std::max(kLeastSize, look.size - kSizeStep);
    if (event.key() == Qt::Key_BracketRight) look.size = std::min(kMostSize, look.size + kSizeStep);
    if (look == _look) return false;
    ChangeLook(look);
    return true;
}

bool TextEditor::TakeTextKey(const QKeyEvent& event) {
    if (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier)) return false;
    for (const auto& each : kTextKeys) {
        if (each.key != event.key()) continue;
        if (each.means == TextKey::Back && !toPlainText().isEmpty()) return false;
        if (!_window.textEntry || !_window.textEntry->EndsWith(each.means)) return false;
        _done = true;
        TypeTextKey(_window, Typed(), each.means);
        return true;
    }
    return false;
}

void TextEditor::keyPressEvent(QKeyEvent* event) {
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    const bool newLine =
        event->modifiers() & Qt::ShiftModifier && _window.textEntry && _window.textEntry->HasLines();
    if (event->key() == Qt::Key_Escape) {
        _done = true;
        CancelText(_window);
    } else if (isReturn && !newLine) {
        Finish();
    } else if (!TakeLookKey(*event) && !TakeTextKey(*event)) {
        QPlainTextEdit::keyPressEvent(event);
    }
}

void TextEditor::focusOutEvent(QFocusEvent* event) {
    QPlainTextEdit::focusOutEvent(event);
    if (event->reason() != Qt::PopupFocusReason) Finish();
}

}  // namespace corvane
