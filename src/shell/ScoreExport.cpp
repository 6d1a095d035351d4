#include "shell/ScoreExport.h"

#include <algorithm>
#include <vector>

#include "edit/SessionChoices.h"
#include "edit/WindowTarn.h"
#include "interchange/ExportMidi.h"
#include "layout/Sheet.h"
#include "model/Par.h"
#include "platform/files/PosixFiles.h"
#include "platform/fluidsynth/RenderSound.h"
#include "platform/qt/HeadlessQt.h"
#include "play/SoundClock.h"
#include "play/SynthPort.h"
#include "play/TarnPlay.h"

namespace corvane {
namespace {

Status ToPdf(WindowTarn& window, const ExportJob& job) {
    return RenderPdf(job.path, PagesOf(window, job.page));
}
Status ToSvg(WindowTarn& window, const ExportJob& job) {
    return RenderSvg(job.path, PagesOf(window, job.page ? job.page : 1));
}
Status ToPng(WindowTarn& window, const ExportJob& job) {
    return RenderPng(job.path, PagesOf(window, job.page ? job.page : 1), kScreenDpi,
                     static_cast<int16_t>(job.zoom));
}

// How far a play has come, by its measures.
class Progress : public PlayListener {
public:
    explicit Progress(const Document* document) : _last(LastMeasure(document)) {}
    void Counter(const Measure* measure, int) override { _number = std::max(_number, int{measure->_number}); }
    int PerMille() const { return _last ? 1000 * (_number - 1) / std::max<int>(1, _last->_number) : 0; }

private:
    const Measure* _last;
    int _number = 1;
};

// Plays the score into the file, a look at the clock each millisecond as live play has them.
Status ToSound(WindowTarn& window, const ExportJob& job) {
    std::unique_ptr<SynthPort> port;
    PlayFlags flags;
    TarnPlay play(flags);
    Progress progress(window.GetDocument());
    bool started = false;
    const auto feed = [&](int64_t tick, BuiltInSynth& synth) {
        if (!port) {
            port = std::make_unique<SynthPort>(synth);
            PlaySetup setup;
            setup.listener = &progress;
            play.Init(window.GetDocument(), port.get(), setup);
            flags.playing = true;
            started = play.Start(0);
        }
        for (int look = 0; started && look < SoundClock::kUnitMilliseconds; ++look)
            play.Tick(static_cast<int32_t>(tick));
        started = started && flags.playing;
        return started;
    };
    return RenderSound(job.path, feed, [&] { return !job.goOn || job.goOn(progress.PerMille()); });
}

Status ToMidi(WindowTarn& window, const ExportJob& job) {
    PosixFiles files;
    return ExportMidi(files, window.GetDocument(), job.path);
}

constexpr ExportKind kExportKinds[] = {
    {"pdf", "PDF Document", false, false, ToPdf},
    {"svg", "SVG Picture of this Page", true, false, ToSvg},
    {"png", "PNG Picture of this Page", true, false, ToPng},
    {"wav", "Sound", false, true, ToSound},
    {"flac", "Compressed Sound", false, true, ToSound},
    {"mid", "MIDI File", false, false, ToMidi},
};

// Files of the last kind are only read.
constexpr const char* kScoreExtensions[] = {"cvm", "cvn", "cvi", "sp3", "trn"};
constexpr size_t kSavedExtensions = 4;
constexpr const char* kMidiExtensions[] = {"mid", "midi", "kar"};

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
        DrawPage(port, pages[static_cast<size_t>(number - 1)], ContextFor(true));
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

std::span<const ExportKind> ExportKinds() { return kExportKinds; }
std::span<const char* const> ScoreExtensions() { return kScoreExtensions; }

bool IsScoreExtension(const std::string& extension) {
    return std::find(std::begin(kScoreExtensions), std::end(kScoreExtensions), extension) !=
           std::end(kScoreExtensions);
}

std::string SavedExtension(const std::string& path) {
    const std::string extension = ExtensionOf(path);
    const auto saved = ScoreExtensions().first(kSavedExtensions);
    return std::find(saved.begin(), saved.end(), extension) != saved.end() ? extension : saved.front();
}

std::vector<std::string> WrittenExtensions() {
    std::vector<std::string> all{kScoreExtensions[0]};
    for (const ExportKind& kind : kExportKinds) all.emplace_back(kind.extension);
    return all;
}

std::string Listed(const std::vector<std::string>& words, const char* last) {
    std::string list;
    for (size_t i = 0; i < words.size(); ++i) {
        if (i) list += i + 1 < words.size() ? ", " : std::string(" ") + last + " ";
        list += words[i];
    }
    return list;
}

bool IsMidiExtension(const std::string& extension) {
    return std::find(std::begin(kMidiExtensions), std::end(kMidiExtensions), extension) !=
           std::end(kMidiExtensions);
}

std::vector<std::string> ReadExtensions() {
    std::vector<std::string> all(std::begin(kScoreExtensions), std::end(kScoreExtensions));
    all.insert(all.end(), std::begin(kMidiExtensions), std::end(kMidiExtensions));
    return all;
}

const ExportKind* ExportKindOf(const std::string& path) {
    const std::string extension = ExtensionOf(path);
    for (const ExportKind& kind : kExportKinds)
        if (extension == kind.extension) return &kind;
    return nullptr;
}

Status ExportScore(WindowTarn& window, const ExportJob& job) {
    const ExportKind* kind = ExportKindOf(job.path);
    if (!kind)
        return {Fault::Unsupported,
                "\"" + job.path + "\": only " + Listed(WrittenExtensions()) + " can be written"};
    if (Status status = CheckPage(window, job.page); !status) return status;
    StartHeadlessQt();
    return kind->write(window, job);
}

}  // namespace corvane
