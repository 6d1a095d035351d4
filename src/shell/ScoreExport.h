// Scores as documents, pictures and sound, by the extension of the path.
#pragma once

#include <string>

#include "base/Status.h"
#include "platform/qt/Render.h"

namespace corvane {

class WindowTarn;

inline constexpr int kTrueSizeZoom = 105;

// pdf (all pages or one), svg and png (one page), wav, mid. `page` from 1, 0 for all pages, or the first where a
// format holds one; `zoom` in percent, for png. Unsupported for another extension; a failure leaves an old
// file whole.
Status ExportScore(WindowTarn& window, const std::string& path, int page, int zoom);

// What of the score goes on paper: one page, from 1, or all for 0. Valid while the score's pages stay as they
// are.
PagesToRender PagesOf(WindowTarn& window, int page);

// Lower case, without the dot; empty for none.
std::string ExtensionOf(const std::string& path);
// cvn, cvm, cvi, sp3, trn.
bool IsScoreExtension(const std::string& extension);
// mid, midi, kar.
bool IsMidiExtension(const std::string& extension);

}  // namespace corvane
