#include "shell/PaletteDock.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QToolButton>

#include "edit/PaletteTable.h"
#include "edit/TarnClick.h"
#include "edit/ToolState.h"
#include "shell/GlyphButton.h"

namespace corvane {
namespace {

// Rows of items: notes beside their rests, then dots, then accidentals.
constexpr int kRows[][4] = {
    {1, 2, 11, 12},  {3, 4, 13, 14},   {5, 6, 15, 16},   {7, 8, 17, 18},  {9, 10, 0, 0},
    {20, 21, 22, 0}, {23, 24, 26, 25}, {27, 29, 30, 31}, {32, 33, 34, 0},
};

QString TipOf(const PaletteItem& item) {
    const char key = KeyOfNoteItem(item.item);
    return key ? QString("%1 (%2)").arg(item.name, QChar(key)) : QString(item.name);
}

QToolButton* MakeSwitch(const char* name, const char* text, const char* tip, void (*toggle)()) {
    auto* button = new QToolButton;
    button->setObjectName(name);
    button->setText(text);
    button->setToolTip(tip);
    button->setCheckable(true);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    QObject::connect(button, &QToolButton::clicked, button, [toggle] { toggle(); });
    return button;
}

}  // namespace

PaletteDock::PaletteDock() : QDockWidget("Notes") {
    setObjectName("paletteNote");
    auto* body = new QWidget;
    auto* layout = new QVBoxLayout(body);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->addWidget(MakeItems());
    layout->addWidget(MakeSwitches());
    layout->addStretch();
    setWidget(body);
    ToolChanged();
}

QWidget* PaletteDock::MakeItems() {
    auto* items = new QWidget;
    auto* grid = new QGridLayout(items);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(1);
    int row = 0;
    for (const auto& numbers : kRows) {
        for (int column = 0; column < 4; ++column) {
            const PaletteItem* item = FindPaletteItem(kNoteGroup, numbers[column]);
            if (!item) continue;
            auto* button = new GlyphButton(WholePicture(*item));
            button->setObjectName(QString("item %1 %2").arg(kNoteGroup).arg(item->item));
            button->setToolTip(TipOf(*item));
            button->setAccessibleName(item->name);
            connect(button, &QToolButton::clicked, this, [number = item->item] { TakeNoteItem(number); });
            grid->addWidget(button, row, column);
            _items[item->item] = button;
        }
        ++row;
    }
    return items;
}

QWidget* PaletteDock::MakeSwitches() {
    auto* switches = new QWidget;
    auto* row = new QHBoxLayout(switches);
    row->setContentsMargins(0, 4, 0, 0);
    _grace = MakeSwitch("grace", "Grace", "Enter grace notes (G)", ToggleGrace);
    _brackets = MakeSwitch("brackets", "( )", "Enter accidentals in brackets", ToggleAccidentParenthesis);
    row->addWidget(_grace);
    row->addWidget(_brackets);
    row->addStretch();
    return switches;
}

void PaletteDock::ToolChanged() {
    const ToolState& tools = Tools();
    const bool atHand = tools.toolMode == ModePencil && tools.paletteGroup == kNoteGroup;
    for (const auto& [item, button] : _items) button->setChecked(atHand && item == tools.NoteItem());
    _grace->setChecked(tools.graceMode);
    _brackets->setChecked(tools.accidentParenthesis);
}

}  // namespace corvane
