// The mixer: a row for each staff with the sound of one of its voices. What is changed is heard from the next
// note on, also while the score plays.
#pragma once

#include <QDockWidget>
#include <memory>
#include <vector>

#include "platform/rtmidi/MidiSystems.h"
#include "play/InstrumentNames.h"

class QGridLayout;

namespace corvane {

class MainFrame;
class MixerRow;
class WindowTarn;
struct DocStaff;

class MixerDock : public QDockWidget {
public:
    explicit MixerDock(MainFrame& frame);
    ~MixerDock() override;

    // The current score's staves and values, as things stand now; nothing while it is hidden.
    void Refresh();

    MainFrame& Frame() { return _frame; }
    const std::vector<MidiDevice>& Outputs() const { return _outputs; }
    const InstrumentNames& Names() const { return _names; }

protected:
    void showEvent(QShowEvent* event) override;

private:
    void Rebuild(WindowTarn* window, const std::vector<DocStaff*>& staves);
    void AddHeadings(QGridLayout& grid);

    MainFrame& _frame;
    WindowTarn* _window = nullptr;
    std::vector<DocStaff*> _staves;  // a row each
    std::vector<std::unique_ptr<MixerRow>> _rows;
    std::vector<MidiDevice> _outputs;
    InstrumentNames _names;
};

}  // namespace corvane
