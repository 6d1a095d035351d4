#include "shell/MixerDock.h"

#include <QGridLayout>
#include <QLabel>
#include <QScrollArea>

#include "edit/WindowTarn.h"
#include "platform/files/FileSettings.h"
#include "platform/files/PosixFiles.h"
#include "shell/MainFrame.h"
#include "shell/MixerRow.h"

namespace corvane {
namespace {

constexpr int kHeight = 222;

// The names that the person keeps; the file is laid down for them where there is none.
InstrumentNames ReadNames() {
    PosixFiles files;
    const std::string path = ConfigFolder() + "/instruments.txt";
    std::vector<uint8_t> bytes;
    if (files.Read(path, bytes))
        return InstrumentNames({reinterpret_cast<const char*>(bytes.data()), bytes.size()});
    const std::string text = InstrumentNames::EmptyText();
    if (files.MakeFolder(ConfigFolder()))
        (void)files.Write(path, {reinterpret_cast<const uint8_t*>(text.data()), text.size()});
    return InstrumentNames();
}

}  // namespace

MixerDock::MixerDock(MainFrame& frame) : QDockWidget("Mixer"), _frame(frame) {
    setObjectName("mixer");
    auto* area = new QScrollArea;
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    setWidget(area);
    hide();
}

MixerDock::~MixerDock() = default;

void MixerDock::showEvent(QShowEvent* event) {
    _outputs.clear();
    for (MidiDevice& device : ListMidiDevices())
        if (device.isOutput) _outputs.push_back(std::move(device));
    _names = ReadNames();
    _staves.clear();
    _window = nullptr;
    QDockWidget::showEvent(event);
    Refresh();
}

void MixerDock::Refresh() {
    if (isHidden()) return;
    WindowTarn* window = _frame.CurrentScore();
    std::vector<DocStaff*> staves;
    if (window)
        for (DocStaff* staff : documentDocStaffs.Of(window->GetDocument())) staves.push_back(staff);
    if (window != _window || staves != _staves) Rebuild(window, staves);
    for (const auto& row : _rows) row->Refresh();
}

void MixerDock::AddHeadings(QGridLayout& grid) {
    for (int column = 0; MixerRow::kColumns[column]; ++column) {
        auto* heading = new QLabel(MixerRow::kColumns[column]);
        QFont font = heading->font();
        font.setBold(true);
        heading->setFont(font);
        grid.addWidget(heading, 0, column);
    }
}

void MixerDock::Rebuild(WindowTarn* window, const std::vector<DocStaff*>& staves) {
    _rows.clear();
    _window = window;
    _staves = staves;
    auto* body = new QWidget;
    auto* grid = new QGridLayout(body);
    grid->setContentsMargins(8, 4, 8, 4);
    grid->setVerticalSpacing(3);
    AddHeadings(*grid);
    int number = 0;
    for (DocStaff* staff : staves)
        _rows.push_back(std::make_unique<MixerRow>(*this, *window, staff, ++number, *grid));
    grid->setRowStretch(number + 1, 1);
    auto* area = static_cast<QScrollArea*>(widget());
    area->setWidget(body);  // the old rows' controls go
    area->setMinimumHeight(std::min(kHeight, body->sizeHint().height()));
}

}  // namespace corvane
