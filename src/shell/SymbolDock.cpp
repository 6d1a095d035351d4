#include "shell/SymbolDock.h"

#include <QComboBox>
#include <QGridLayout>
#include <QScrollArea>
#include <QStackedWidget>
#include <QToolButton>
#include <QVBoxLayout>
#include <iterator>

#include "edit/PaletteTable.h"
#include "edit/ToolState.h"
#include "shell/GlyphButton.h"

namespace corvane {
namespace {

constexpr struct {
    int group, items;
    const char* name;
} kPalettes[] = {{2, 14, "Clefs"},     {3, 18, "Dynamics"},  {4, 14, "Articulations"},
                 {5, 22, "Symbols 1"}, {6, 22, "Symbols 2"}, {7, 24, "Symbols 3"},
                 {8, 3, "Text"}};
constexpr int kColumns = 4;

void Choose(int group, int item) {
    if (Tools().toolMode != ModePencil) {
        SetToolMode(ModePencil);
        ApplyToolMode();
    }
    SetPaletteGroup(static_cast<uint8_t>(group));
    SetItem(static_cast<uint16_t>(item));
}

// A glyph where the item has one, else its name.
QAbstractButton* MakeButton(const PaletteItem& item) {
    ItemPicture picture = WholePicture(item);
    QToolButton* button = nullptr;
    if (InkOf(picture).IsEmpty()) {
        button = new QToolButton;
        button->setText(item.name);
        button->setAutoRaise(true);
        button->setCheckable(true);
        button->setFocusPolicy(Qt::TabFocus);
    } else {
        button = new GlyphButton(std::move(picture));
    }
    button->setObjectName(QString("item %1 %2").arg(item.group).arg(item.item));
    button->setToolTip(item.name);
    button->setAccessibleName(item.name);
    QObject::connect(button, &QToolButton::clicked, button,
                     [group = item.group, number = item.item] { Choose(group, number); });
    return button;
}

}  // namespace

SymbolDock::SymbolDock() : QDockWidget("Symbols"), _choice(new QComboBox), _pages(new QStackedWidget) {
    setObjectName("paletteSymbols");
    _choice->setAccessibleName("Palette");
    for (const auto& palette : kPalettes) {
        _choice->addItem(palette.name);
        _pages->addWidget(MakePage(palette.group));
    }
    connect(_choice, &QComboBox::currentIndexChanged, _pages, &QStackedWidget::setCurrentIndex);
    auto* body = new QWidget;
    auto* layout = new QVBoxLayout(body);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->addWidget(_choice);
    layout->addWidget(_pages);
    setWidget(body);
    ToolChanged();
}

QWidget* SymbolDock::MakePage(int group) {
    auto* items = new QWidget;
    auto* grid = new QGridLayout;
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(1);
    int place = 0;
    for (int item = 1; item <= kPalettes[group - kPalettes[0].group].items; ++item) {
        const PaletteItem* row = FindPaletteItem(group, item);
        if (!row) continue;
        QAbstractButton* button = MakeButton(*row);
        const bool named = !button->text().isEmpty();
        if (named) place = (place + kColumns - 1) / kColumns * kColumns;
        grid->addWidget(button, place / kColumns, place % kColumns, 1, named ? kColumns : 1);
        place += named ? kColumns : 1;
        _items[{group, item}] = button;
    }
    auto* column = new QVBoxLayout(items);
    column->setContentsMargins(0, 0, 0, 0);
    column->addLayout(grid);
    column->addStretch();
    return items;
}

int SymbolDock::Group() const { return kPalettes[_choice->currentIndex()].group; }

void SymbolDock::ShowGroup(int group) {
    for (size_t i = 0; i < std::size(kPalettes); ++i)
        if (kPalettes[i].group == group) _choice->setCurrentIndex(static_cast<int>(i));
}

void SymbolDock::ToolChanged() {
    const ToolState& tools = Tools();
    const bool pencil = tools.toolMode == ModePencil;
    const std::pair<int, int> atHand{tools.paletteGroup, tools.items[tools.paletteGroup]};
    for (const auto& [number, button] : _items) button->setChecked(pencil && number == atHand);
    if (pencil) ShowGroup(tools.paletteGroup);
}

}  // namespace corvane
