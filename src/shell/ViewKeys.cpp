#include "shell/ViewKeys.h"

#include <QKeyEvent>

namespace corvane {
namespace {

constexpr struct {
    Qt::Key key;
    Qt::KeyboardModifier modifier;
    int id;
} kArrowKeys[] = {
    {Qt::Key_Right, Qt::NoModifier, 40060},      {Qt::Key_Left, Qt::NoModifier, 40061},
    {Qt::Key_Right, Qt::ShiftModifier, 40062},   {Qt::Key_Left, Qt::ShiftModifier, 40063},
    {Qt::Key_Right, Qt::ControlModifier, 40064}, {Qt::Key_Left, Qt::ControlModifier, 40065},
    {Qt::Key_Up, Qt::AltModifier, 40066},        {Qt::Key_Down, Qt::AltModifier, 40067},
    {Qt::Key_Up, Qt::NoModifier, 40040},         {Qt::Key_Down, Qt::NoModifier, 40041},
    {Qt::Key_Up, Qt::ControlModifier, 40042},    {Qt::Key_Down, Qt::ControlModifier, 40043},
};

constexpr struct {
    Qt::Key key;
    Qt::KeyboardModifier modifier;
    PenMove move;
} kPenKeys[] = {
    {Qt::Key_Right, Qt::NoModifier, PenMove::Right},    {Qt::Key_Left, Qt::NoModifier, PenMove::Left},
    {Qt::Key_Up, Qt::NoModifier, PenMove::Up},          {Qt::Key_Down, Qt::NoModifier, PenMove::Down},
    {Qt::Key_Up, Qt::AltModifier, PenMove::StaffAbove}, {Qt::Key_Down, Qt::AltModifier, PenMove::StaffBelow},
};

constexpr int32_t kNudge = 20, kShiftedNudge = 5 * kNudge;  // page units: a fifth of a space, a space
constexpr struct {
    Qt::Key key;
    Point by;
} kNudgeKeys[] = {
    {Qt::Key_Right, {1, 0}}, {Qt::Key_Left, {-1, 0}}, {Qt::Key_Up, {0, -1}}, {Qt::Key_Down, {0, 1}}};

template <class Row>
bool IsPressed(const Row& row, const QKeyEvent& event) {
    return event.key() == row.key && (event.modifiers() & ~Qt::KeypadModifier) == row.modifier;
}

}  // namespace

int ArrowCommandOf(const QKeyEvent& event) {
    for (const auto& row : kArrowKeys)
        if (IsPressed(row, event)) return row.id;
    return 0;
}

std::optional<Point> NudgeOf(const QKeyEvent& event) {
    const Qt::KeyboardModifiers modifiers = event.modifiers() & ~Qt::KeypadModifier;
    if (modifiers & ~Qt::ShiftModifier) return {};
    const int32_t step = modifiers ? kShiftedNudge : kNudge;
    for (const auto& row : kNudgeKeys)
        if (event.key() == row.key) return Point{step * row.by.x, step * row.by.y};
    return {};
}

std::optional<PenMove> PenMoveOf(const QKeyEvent& event) {
    for (const auto& row : kPenKeys)
        if (IsPressed(row, event)) return row.move;
    return {};
}

bool IsEnter(const QKeyEvent& event) { return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter; }

}  // namespace corvane
