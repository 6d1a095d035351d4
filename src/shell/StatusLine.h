// The line below the scores: words from editing, and what is at hand.
#pragma once

#include <QStatusBar>
#include <string_view>

class QLabel;

namespace corvane {

class StatusLine : public QStatusBar {
public:
    StatusLine();

    // Shown for some seconds.
    void Tell(std::string_view text);
    void ToolChanged();

private:
    QLabel *_tool, *_voice;
};

}  // namespace corvane
