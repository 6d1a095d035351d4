// Scores as documents, pictures and sound, by the extension of the path.
#pragma once

#include <string>

#include "base/Status.h"

namespace corvane {

class WindowTarn;

inline constexpr int kTrueSizeZoom = 105;

// pdf (all pages or one), svg and png (one page), wav. `page` from 1, 0 for all pages, or the first where a format holds
// one; `zoom` in percent, for png. Unsupported for another extension; a failure leaves an old file whole.
Status ExportScore(WindowTarn& window, const std::string& path, int page, int zoom);

// Lower case, without the dot; empty for none.
std::string ExtensionOf(const std::string& path);
// cvn, cvm, cvi, sp3, trn.
bool IsScoreExtension(const std::string& extension);

}  // namespace corvane
