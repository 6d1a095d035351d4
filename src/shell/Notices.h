// How the window tells a person what any floor reports: boxes, a word in the status line, the program's last
// message.
#pragma once

#include <functional>
#include <string_view>

class QWidget;

namespace corvane {

// While this lives, messages come as boxes over `frame` and words go to `tell`. Messages from before the
// frame is shown wait for it.
class Notices {
public:
    Notices(QWidget& frame, std::function<void(std::string_view)> tell);
    ~Notices();
    Notices(const Notices&) = delete;

    // Boxes may come up from now on; those that waited do at once.
    void FrameIsShown();
};

// A box with a message, under the program's name; `about` says in smaller letters what it is about.
void ShowMessage(QWidget* parent, std::string_view text, std::string_view about = {});

}  // namespace corvane
