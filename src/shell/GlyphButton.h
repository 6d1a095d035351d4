// A button of a palette that shows its item in the music font, sharp at every size and in the theme's
// colours.
#pragma once

#include <QToolButton>

#include "shell/ItemPicture.h"

namespace corvane {

class GlyphButton : public QToolButton {
public:
    explicit GlyphButton(ItemPicture picture, QWidget* parent = nullptr);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    ItemPicture _picture;
    Rect _ink;
};

}  // namespace corvane
