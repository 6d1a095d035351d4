// The icons of the window, drawn in the text colour of whatever theme is on, sharp at every size.
#pragma once

#include <QIcon>

namespace corvane {

enum class ToolPicture {
    Arrow,
    Pencil,
    Eraser,
    Undo,
    Redo,
    Cut,
    Copy,
    Paste,
    Clear,
    Play,
    Stop,
    ZoomIn,
    ZoomOut,
    Previous,
    Next,
    New,
    Open,
    Save,
    Program
};

QIcon ToolIcon(ToolPicture picture);

}  // namespace corvane
