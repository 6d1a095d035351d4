#include "shell/ScoreExport.h"

#include <algorithm>
#include <vector>

#include "edit/WindowTarn.h"
#include "interchange/ExportMidi.h"
#include "layout/Sheet.h"
#include "platform/files/PosixFiles.h"
#include "platform/fluidsynth/RenderToWav.h"
#include "platform/qt/HeadlessQt.h"
#include "play/SynthPort.h"
#include "play/TarnPlay.h"

namespace corvane {
namespace {

constexpr int kScreenDpi = 96;

Status ToPdf(WindowTarn& window, const std::string& path, int page, int) {
    return RenderPdf(path, PagesOf(window, page));
}
Status ToSvg(WindowTarn& window, const std::string& path, int page, int) {
    return RenderSvg(path, PagesOf(window, page ? page : 1));
}
Status ToPng(WindowTarn& window, const std::string& path, int page, int zoom) {
    return RenderPng(path, PagesOf(window, page ? page : 1), kScreenDpi, static_cast<int16_t>(zoom));
}

// Plays the score into the file, four looks at the clock to each unit of 4 ms as live play has them.
Status ToWav(WindowTarn& window, const std::string& path, int, int) {
    std::unique_ptr<SynthPort> port;
    PlayFlags flags;
    TarnPlay play(flags);
    bool started = false;
    return RenderToWav(path, [&](int64_t tick, BuiltInSynth& synth) {
        if (!port) {
            port = std::make_unique<SynthPort>(synth);
            play.Init(window.GetDocument(), port.get(), kNormalResolution);
            flags.playing = true;
            started = play.Start(0);
        }
        for (int look = 0; started && look < 4; ++look) play.Tick(static_cast<int32_t>(tick));
        started = started && flags.playing;
        return started;
    });
}

Status ToMidi(WindowTarn& window, const std::string& path, int, int) {
    PosixFiles files;
    return ExportMidi(files, window.GetDocument(), path);
}

constexpr struct {
    const char* extension;
    Status (*write)(WindowTarn&, const std::string& path, int page, int zoom);
} kFormats[] = {{"pdf", ToPdf}, {"svg", ToSvg}, {"png", ToPng}, {"wav", ToWav}, {"mid", ToMidi}};

Status CheckPage(const WindowTarn& window, int page) {
    const int count = documentPages.Count(window.GetDocument());
    if (page >= 0 && page <= count) return Status::Ok();
    return {Fault::Refused,
            "There is no page " + std::to_string(page) + ": the score has " + std::to_string(count)};
}

}  // namespace

PagesToRender PagesOf(WindowTarn& window, int page) {
    std::vector<Page*> pages;
    for (Page* each : documentPages.Of(window.GetDocument())) pages.push_back(each);
    PagesToRender render;
    render.width = Document::pageWidth;
    render.height = Document::pageHeight;
    render.firstPage = page ? page : 1;
    render.lastPage = page ? page : static_cast<int>(pages.size());
    render.title = window.Title();
    render.draw = [pages](GraphicPort& port, int number) {
        DrawContext context;
        context.printing = true;
        DrawPage(port, pages[static_cast<size_t>(number - 1)], context);
    };
    return render;
}

std::string ExtensionOf(const std::string& path) {
    const size_t dot = path.rfind('.'), slash = path.rfind('/');
    if (dot == std::string::npos || (slash != std::string::npos && dot < slash)) return {};
    std::string extension = path.substr(dot + 1);
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return extension;
}

bool IsScoreExtension(const std::string& extension) {
    for (const char* known : {"cvn", "cvm", "cvi", "sp3", "trn"})
        if (extension == known) return true;
    return false;
}

bool IsMidiExtension(const std::string& extension) {
    return extension == "mid" || extension == "midi" || extension == "kar";
}

Status ExportScore(WindowTarn& window, const std::string& path, int page, int zoom) {
    const std::string extension = ExtensionOf(path);
    for (const auto& format : kFormats) {
        if (extension != format.extension) continue;
        if (Status status = CheckPage(window, page); !status) return status;
        StartHeadlessQt();
        return format.write(window, path, page, zoom);
    }
    return {Fault::Unsupported, "\"" + path + "\": only cvm, pdf, svg, png, wav and mid can be written"};
}

}  // namespace corvane
