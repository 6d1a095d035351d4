// Scores as documents, pictures and sound, and the kinds of files that scores are kept in, by the extension
// of the path: lower case, without the dot.
#pragma once

#include <functional>
#include <span>
#include <string>
#include <vector>

#include "base/Status.h"
#include "platform/qt/Render.h"

namespace corvane {

class WindowTarn;

// Without `page` (from 1) the whole score, or the first page where a kind holds one; `zoom` in percent, for
// png.
struct ExportJob {
    std::string path;
    int page = 0, zoom = 0;
    // Told now and then how far it has come, 0 to 1000; false gives it up. Null for nobody.
    std::function<bool(int perMille)> goOn = {};
};

// What a score can be exported as.
struct ExportKind {
    const char* extension;
    const char* name;  // for a dialog
    bool onePage;
    bool takesLong;  // and tells how far it is
    Status (*write)(WindowTarn& window, const ExportJob& job);
};
std::span<const ExportKind> ExportKinds();

// By the path's extension: Unsupported for another one. A failure leaves an old file whole; what was given up
// is Refused without a message.
Status ExportScore(WindowTarn& window, const ExportJob& job);
// Null for an extension that is none of them.
const ExportKind* ExportKindOf(const std::string& path);

// What of the score goes on paper: one page, from 1, or all for 0. Valid while the score's pages stay as they
// are.
PagesToRender PagesOf(WindowTarn& window, int page);

// Lower case, without the dot; empty for none.
std::string ExtensionOf(const std::string& path);
// What scores are read from, the usual one first.
std::span<const char* const> ScoreExtensions();
bool IsScoreExtension(const std::string& extension);
// mid, midi, kar.
bool IsMidiExtension(const std::string& extension);
// All that convert reads: scores and MIDI files.
std::vector<std::string> ReadExtensions();
// Under which a score of that path is saved: its own where files of that kind are still written, else the
// usual one.
std::string SavedExtension(const std::string& path);
// Everything that a score can be written as.
std::vector<std::string> WrittenExtensions();
// "cvm, pdf and png".
std::string Listed(const std::vector<std::string>& words, const char* last = "and");

}  // namespace corvane
