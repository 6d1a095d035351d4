// What a palette's buttons stand in: it takes the room that they want where there is some, and scrolls them
// where there is none, so that no palette makes the window grow.
#pragma once

#include <QScrollArea>

namespace corvane {

class PaletteScroll : public QScrollArea {
public:
    // Takes the body over.
    explicit PaletteScroll(QWidget* body);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
};

}  // namespace corvane
