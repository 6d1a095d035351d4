#include "shell/StatusLine.h"

#include <QLabel>

#include "edit/PaletteTable.h"
#include "edit/ToolState.h"

namespace corvane {
namespace {

constexpr int kMilliseconds = 6000;

QString ToolText(const ToolState& tools) {
    if (tools.toolMode == ModeArrow) return "Arrow";
    if (tools.toolMode == ModeEraser) return "Eraser";
    const PaletteItem* item = FindPaletteItem(tools.paletteGroup, tools.items[tools.paletteGroup]);
    QString text = item ? QString("Pencil: %1").arg(item->name) : QString("Pencil");
    if (item && item->suffix == PaletteItem::GraceNote && tools.graceMode) text += ", grace";
    if (item && item->suffix == PaletteItem::Bracketed && tools.accidentParenthesis) text += ", in brackets";
    if (item && item->suffix == PaletteItem::OrnamentBracketed && tools.ornamentParenthesis)
        text += ", in brackets";
    return text;
}

}  // namespace

StatusLine::StatusLine() : _tool(new QLabel), _voice(new QLabel) {
    _tool->setObjectName("statusTool");
    for (QLabel* label : {_tool, _voice}) {
        label->setContentsMargins(8, 0, 8, 0);
        addPermanentWidget(label);
    }
    ToolChanged();
}

void StatusLine::Tell(std::string_view text) {
    showMessage(QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())), kMilliseconds);
}

void StatusLine::ToolChanged() {
    const ToolState& tools = Tools();
    _tool->setText(ToolText(tools));
    _voice->setText(tools.AllVoices() ? QString("All voices") : QString("Voice %1").arg(tools.currentVoice));
}

}  // namespace corvane
