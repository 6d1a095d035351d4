#include "session/Session.h"

#include <algorithm>

#include "model/ClassTable.h"
#include "base/Notify.h"
#include "layout/PageLayout.h"
#include "model/Preferences.h"
#include "model/ScoreCheck.h"
#include "model/SymbolTable.h"
#include "store/MemoryManager.h"
#include "store/ObjectFile.h"

namespace corvane {
namespace {

constexpr int kRecentFiles = 4;
constexpr const char* kUntitledTitle = "Untitled";
constexpr const char* kUntitledPath = "Untitled.cvm";

std::string FileName(const std::string& path) {
    const size_t slash = path.rfind('/');
    return slash == std::string::npos ? path : path.substr(slash + 1);
}

std::string RecentName(int index) { return "File" + std::to_string(index + 1); }

// What the file's page setup says becomes the process's.
void TakePageSize(const Document* document) {
    const auto* page = Preferences<PagePref>(document);
    if (!page) return;
    Document::pageHeight = page->_pageHeight;
    Document::pageWidth = page->_pageWidth;
}

}  // namespace

Session::Session(const SessionParts& parts) : _parts(parts), _preferences(DefaultSessionPreferences()) {
    static EditorShell silent;
    if (!_parts.shell) _parts.shell = &silent;
    MemoryManager::Instance();
    RegisterClasses();
    WatchCommands();
    if (!_parts.settings) return;
    if (const Status status = ReadSessionPreferences(*_parts.settings, _preferences); !status)
        Notify(Severity::Message, status.message());
    preferredPairDistance = _preferences.words[SessionPreferences::kPairDistance];
}

Session::~Session() {
    while (!_windows.empty()) Close(_windows.back().get());
}

WindowTarn* Session::NewScore() {
    const PageLayout layout{_preferences.words[SessionPreferences::kMeasuresPerSystem],
                            _preferences.words[SessionPreferences::kSystemsPerPage]};
    return NewScore(layout, _preferences.staffString);
}

WindowTarn* Session::NewScore(const PageLayout& layout, const std::string& staffs) {
    auto window = std::make_unique<WindowTarn>(*_parts.shell);
    window->Activate();
    Document* document = BuildNewScore(layout, staffs);
    window->Bind(document);
    window->SetIdentity(kUntitledTitle, kUntitledPath, false, true);
    window->Pool()->SetModified(false);
    _windows.push_back(std::move(window));
    return _windows.back().get();
}

WindowTarn* Session::Open(const std::string& path, Status& status, std::vector<std::string>* healed) {
    std::vector<uint8_t> bytes;
    status = _parts.files->Read(path, bytes);
    if (!status) return nullptr;
    NewMemoryPool* poolBefore = MemoryManager::Instance().GetCurrentPool();
    WindowTarn* active = WindowTarn::instance;
    auto window = std::make_unique<WindowTarn>(*_parts.shell);
    window->Activate();
    LoadReport report;
    status = ReadScore(*window->Pool(), bytes, &report);
    if (!status) {
        window.reset();
        WindowTarn::instance = active;
        MemoryManager::Instance().SetCurrentPool(poolBefore);
        return nullptr;
    }
    auto* document = static_cast<Document*>(window->Pool()->DocumentObject());
    TakePageSize(document);
    MeasureDirtySymbols(document);
    window->Bind(document);
    window->Pool()->SetModified(!report.healed.empty());
    window->SetIdentity(FileName(path), path, !_parts.files->CheckWritable(path).ok(), false);
    if (healed) *healed = std::move(report.healed);
    _windows.push_back(std::move(window));
    Remember(path);
    return _windows.back().get();
}

Status Session::Save(WindowTarn& window, const std::string& path) {
    if (window.ReadOnly() && path == window.Path()) return {Fault::ReadOnly, kFileReadOnly};
    std::vector<uint8_t> bytes;
    if (Status status = EncodeScore(*window.Pool(), bytes); !status) return status;
    if (Status status = ReplaceFile(*_parts.files, path, bytes); !status) return status;
    window.Pool()->SetModified(false);
    window.SetIdentity(FileName(path), path, false, false);
    Remember(path);
    return Status::Ok();
}

void Session::Close(WindowTarn* window) {
    const auto found = std::find_if(_windows.begin(), _windows.end(), [&](const auto& w) { return w.get() == window; });
    if (found != _windows.end()) _windows.erase(found);
}

Status Session::StorePreferences() {
    return _parts.settings ? WriteSessionPreferences(*_parts.settings, _preferences) : Status::Ok();
}

std::vector<std::string> Session::RecentFiles() const {
    std::vector<std::string> files;
    for (int i = 0; _parts.settings && i < kRecentFiles; ++i) {
        std::string path = _parts.settings->ReadText(kRecentFilesKey, RecentName(i));
        if (!path.empty()) files.push_back(std::move(path));
    }
    return files;
}

void Session::Remember(const std::string& path) {
    if (!_parts.settings) return;
    std::vector<std::string> files = RecentFiles();
    files.erase(std::remove(files.begin(), files.end(), path), files.end());
    files.insert(files.begin(), path);
    for (int i = 0; i < kRecentFiles && i < static_cast<int>(files.size()); ++i)
        _parts.settings->WriteText(kRecentFilesKey, RecentName(i), files[static_cast<size_t>(i)]);
    if (const Status status = _parts.settings->Commit(); !status) Notify(Severity::Status, status.message());
}

}  // namespace corvane
