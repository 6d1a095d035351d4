#include "session/Recovery.h"

#include <vector>

#include "base/Assert.h"
#include "edit/WindowTarn.h"
#include "store/FileLayer.h"
#include "store/NewMemoryPool.h"
#include "store/ObjectFile.h"

namespace corvane {
namespace {

FileLayer* layer = nullptr;
std::string recoveryFolder;

std::string Stem(const std::string& title) {
    const size_t dot = title.rfind('.');
    return dot == std::string::npos || dot == 0 ? title : title.substr(0, dot);
}

// A name that no file of the folder has yet.
std::string FreePath(const std::string& title) {
    std::vector<std::string> taken;
    if (!layer->List(recoveryFolder, taken)) taken.clear();
    for (int n = 0;; ++n) {
        const std::string name = Stem(title) + "-recovered" + (n ? "-" + std::to_string(n + 1) : "") + ".cvm";
        bool free = true;
        for (const std::string& other : taken) free = free && other != name;
        if (free) return recoveryFolder + "/" + name;
    }
}

void WriteChangedScores() {
    if (!layer->MakeFolder(recoveryFolder)) return;
    for (WindowTarn* window : WindowTarn::All()) {
        if (!window->Modified()) continue;
        std::vector<uint8_t> bytes;
        if (EncodeScore(*window->Pool(), bytes)) (void)ReplaceFile(*layer, FreePath(window->Title()), bytes);
    }
}

}  // namespace

void RecoverInto(FileLayer& files, std::string folder) {
    layer = &files;
    recoveryFolder = std::move(folder);
    SetLastWords(recoveryFolder.empty() ? nullptr : WriteChangedScores);
}

}  // namespace corvane
