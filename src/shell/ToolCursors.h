// The pointer's shape for each tool.
#pragma once

#include <QCursor>

namespace corvane {

QCursor ToolCursor(int32_t toolMode);

}  // namespace corvane
