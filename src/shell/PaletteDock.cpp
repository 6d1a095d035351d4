#include "shell/PaletteDock.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QToolButton>

#include "edit/PaletteTable.h"
#include "edit/TarnClick.h"
#include "edit/ToolState.h"
#include "shell/GlyphButton.h"
#include "shell/PaletteScroll.h"
#include "shell/SwitchButton.h"

namespace corvane {
namespace {

struct Place {
    int group = 0, item = 0;
};
constexpr Place N(int item) { return {kNoteGroup, item}; }

// Rows of items: notes beside their rests, then dots, accidentals, and what spans notes.
constexpr Place kRows[][4] = {
    {N(1), N(2), N(11), N(12)},     {N(3), N(4), N(13), N(14)},     {N(5), N(6), N(15), N(16)},
    {N(7), N(8), N(17), N(18)},     {N(9), N(10)},                  {N(20), N(21), N(22)},
    {N(23), N(24), N(26), N(25)},   {N(27), N(29), N(30), N(31)},   {N(32), N(33), N(34)},
    {N(19), N(28), {3, 18}, {6, 13}}, {{6, 3}, {6, 4}, {6, 5}, {6, 6}}, {{5, 2}},
};

void Take(const PaletteItem& item) {
    if (item.group == kNoteGroup) return TakeNoteItem(item.item);
    if (Tools().toolMode != ModePencil) {
        SetToolMode(ModePencil);
        ApplyToolMode();
    }
    SetPaletteGroup(item.group);
    SetItem(item.item);
}

QString TipOf(const PaletteItem& item) {
    const char key = item.group == kNoteGroup ? KeyOfNoteItem(item.item) : 0;
    return key ? QString("%1 (%2)").arg(item.name, QChar(key)) : QString(item.name);
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
    setWidget(new PaletteScroll(body));
    ToolChanged();
}

QWidget* PaletteDock::MakeItems() {
    auto* items = new QWidget;
    auto* grid = new QGridLayout(items);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(1);
    int row = 0;
    for (const auto& places : kRows) {
        for (int column = 0; column < 4; ++column) {
            const PaletteItem* item = FindPaletteItem(places[column].group, places[column].item);
            if (!item) continue;
            auto* button = new GlyphButton(WholePicture(*item));
            button->setObjectName(QString("item %1 %2").arg(item->group).arg(item->item));
            button->setToolTip(TipOf(*item));
            button->setAccessibleName(item->name);
            connect(button, &QToolButton::clicked, this, [item] { Take(*item); });
            grid->addWidget(button, row, column);
            _items[{item->group, item->item}] = button;
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
    const std::pair<int, int> atHand{tools.paletteGroup, tools.items[tools.paletteGroup]};
    for (const auto& [place, button] : _items)
        button->setChecked(tools.toolMode == ModePencil && place == atHand);
    _grace->setChecked(tools.graceMode);
    _brackets->setChecked(tools.accidentParenthesis);
}

}  // namespace corvane
