// The entries of the menus in their order, with the numbers by which toolbars and scripts know them.
#pragma once

#include <optional>
#include <span>

#include "shell/ToolIcons.h"

class QMenu;

namespace corvane {

class MainFrame;

struct MenuRow {
    const char* menu;  // with its mnemonic; "&Score/&Add" is a menu within another
    int id;            // 0 for a separator
    const char* text = "";
    const char* keys = "";  // shortcuts, parted by "; "
    // Null for a command of the command table, which then tells whether it can act.
    void (*run)(MainFrame&) = nullptr;
    bool (*enabled)(MainFrame&) = nullptr;
    bool (*checked)(MainFrame&) = nullptr;       // null for an entry without a check mark
    void (*fill)(MainFrame&, QMenu&) = nullptr;  // a submenu, filled when it opens
    std::optional<ToolPicture> picture = std::nullopt;
};

std::span<const MenuRow> MenuRows();

// Ids that others than the table name.
inline constexpr int kNewId = 57600, kOpenId = 57601, kSaveId = 57603, kUndoId = 57643, kRedoId = 57644,
                     kCutId = 57635, kCopyId = 57634, kPasteId = 57637, kClearId = 32774,
                     kSelectAllId = 57642, kSelectNothingId = 57641,
                     kPlayId = 33051, kStopId = 33052, kZoomInId = 33080, kZoomOutId = 33081;

}  // namespace corvane
