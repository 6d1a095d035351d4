#include "shell/SignDock.h"

#include <QGridLayout>

#include "edit/PaletteTable.h"
#include "edit/ToolState.h"
#include "shell/GlyphButton.h"
#include "shell/PaletteScroll.h"
#include "shell/SwitchButton.h"

namespace corvane {
namespace {

constexpr int kColumns = 4, kMostItem = 40, kOrnaments = 5;

constexpr SignSheet kSheets[] = {
    {2, "paletteChiavi", "Clefs"},
    {3, "paletteDinamiche", "Dynamics"},
    {4, "paletteArticolazioni", "Articulations"},
    {5, "paletteSimboli1", "Symbols 1"},
    {6, "paletteSimboli2", "Symbols 2"},
    {7, "paletteSimboli3", "Symbols 3"},
    {8, "paletteTesto", "Text"},
};

void Choose(const PaletteItem& item) {
    if (Tools().toolMode != ModePencil) {
        SetToolMode(ModePencil);
        ApplyToolMode();
    }
    SetPaletteGroup(item.group);
    SetItem(item.item);
}

// With its sign, or with its name where it is a text.
QToolButton* MakeButton(const PaletteItem& item) {
    ItemPicture picture = WholePicture(item);
    if (!InkOf(picture).IsEmpty()) return new GlyphButton(std::move(picture));
    auto* button = new QToolButton;
    button->setText(item.name);
    button->setAutoRaise(true);
    button->setCheckable(true);
    button->setFocusPolicy(Qt::TabFocus);
    return button;
}

}  // namespace

std::span<const SignSheet> SignSheets() { return kSheets; }

SignDock::SignDock(const SignSheet& sheet) : QDockWidget(sheet.title), _sheet(sheet) {
    setObjectName(sheet.name);
    auto* body = new QWidget;
    auto* grid = new QGridLayout(body);
    grid->setContentsMargins(4, 4, 4, 4);
    grid->setSpacing(1);
    for (int number = 1; number <= kMostItem; ++number) {
        const PaletteItem* item = FindPaletteItem(sheet.group, number);
        if (!item) continue;
        QToolButton* button = MakeButton(*item);
        button->setObjectName(QString("item %1 %2").arg(sheet.group).arg(number));
        button->setToolTip(item->name);
        button->setAccessibleName(item->name);
        connect(button, &QToolButton::clicked, this, [item] { Choose(*item); });
        const int place = static_cast<int>(_items.size());
        if (button->text().isEmpty())
            grid->addWidget(button, place / kColumns, place % kColumns);
        else
            grid->addWidget(button, place, 0, 1, kColumns);
        _items[number] = button;
    }
    if (sheet.group == kOrnaments) {
        _brackets = MakeSwitch("ornamentBrackets", "( )", "Enter accidentals of ornaments in brackets",
                               ToggleOrnamentParenthesis);
        grid->addWidget(_brackets, grid->rowCount(), 0);
    }
    grid->setRowStretch(grid->rowCount(), 1);
    grid->setColumnStretch(kColumns, 1);
    setWidget(new PaletteScroll(body));
    ToolChanged();
}

void SignDock::ToolChanged() {
    const ToolState& tools = Tools();
    const bool atHand = tools.toolMode == ModePencil && tools.paletteGroup == _sheet.group;
    for (const auto& [item, button] : _items) button->setChecked(atHand && item == tools.items[_sheet.group]);
    if (_brackets) _brackets->setChecked(tools.ornamentParenthesis);
}

}  // namespace corvane
