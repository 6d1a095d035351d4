#include "session/Session.h"

#include <algorithm>

#include "base/Notify.h"
#include "edit/Clipboard.h"
#include "edit/SessionChoices.h"
#include "interchange/ImportMidi.h"
#include "layout/ListaEventi.h"
#include "layout/PageFit.h"
#include "layout/PageLayout.h"
#include "model/ClassTable.h"
#include "model/FontTable.h"
#include "model/Preferences.h"
#include "model/ScoreCheck.h"
#include "model/SymbolTable.h"
#include "session/Journals.h"
#include "session/Recovery.h"
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

std::string ForeignMessage(const std::string& path) {
    return "Another program had changed " + FileName(path) +
           " in the meantime. What it had written is kept as a backup.";
}

}  // namespace

Session::Session(const SessionParts& parts) : _parts(parts), _preferences(DefaultSessionPreferences()) {
    static EditorShell silent;
    if (!_parts.shell) _parts.shell = &silent;
    MemoryManager::Instance();
    RegisterClasses();
    WatchCommands();
    const std::string rescued = _parts.stateFolder.empty() ? "" : _parts.stateFolder + "/rescued";
    if (!rescued.empty()) {
        _backups = std::make_unique<Backups>(*_parts.files, _parts.stateFolder + "/backups");
        RecoverInto(*_parts.files, rescued);
    }
    if (_parts.journals) {
        _journals = std::make_unique<Journals>(*_parts.journals);
        _recovered = std::make_unique<RecoveryList>(*_parts.journals, *_parts.files, rescued);
    }
    if (!_parts.settings) return;
    if (const Status status = ReadSessionPreferences(*_parts.settings, _preferences); !status)
        Notify(Severity::Message, status.message());
    preferredPairDistance = GetWord(_preferences, SessionWord::PairDistance);
    spacingTable.widths = _preferences.spacing;
    TakeChoices(_preferences);
    UseFontList(FontList::FromNames(_preferences.fonts));
}

Session::~Session() {
    if (_journals) {
        for (const auto& window : _windows)
            if (!window->Modified()) _journals->Close(*window, false);
        _journals->MakeSafe();
        for (const auto& window : _windows) _journals->Close(*window, true);
    }
    if (_backups) RecoverInto(*_parts.files, {});
    while (!_windows.empty()) Close(_windows.back().get());
}

WindowTarn* Session::Join(std::unique_ptr<WindowTarn> window) {
    _windows.push_back(std::move(window));
    if (_journals) _journals->Open(*_windows.back());
    return _windows.back().get();
}

WindowTarn* Session::NewScore() { return NewScore(UsualLayout(), _preferences.staffString); }

PageLayout Session::UsualLayout() const {
    return {GetWord(_preferences, SessionWord::MeasuresPerSystem),
            GetWord(_preferences, SessionWord::SystemsPerPage)};
}

WindowTarn* Session::NewScore(const PageLayout& layout, const std::string& staffs) {
    auto window = std::make_unique<WindowTarn>(*_parts.shell);
    window->Activate();
    Document* document = BuildNewScore(layout, staffs);
    window->Bind(document);
    window->SetIdentity(kUntitledTitle, kUntitledPath, false, true);
    window->Pool()->SetModified(false);
    return Join(std::move(window));
}

// A window with what `load` fills its pool with, without an identity yet. Null, and nothing changed, where it
// fails.
WindowTarn* Session::OpenBy(const Load& load, Status& status, std::vector<std::string>* healed) {
    NewMemoryPool* poolBefore = MemoryManager::Instance().GetCurrentPool();
    WindowTarn* active = WindowTarn::instance;
    auto window = std::make_unique<WindowTarn>(*_parts.shell);
    window->Activate();
    LoadReport report;
    status = load(*window->Pool(), report);
    if (!status) {
        window.reset();
        WindowTarn::instance = active;
        MemoryManager::Instance().SetCurrentPool(poolBefore);
        return nullptr;
    }
    auto* document = static_cast<Document*>(window->Pool()->DocumentObject());
    RefreshPreferences(document);
    MeasureDirtySymbols(document);
    window->Bind(document);
    window->Pool()->SetModified(!report.healed.empty());
    if (healed) *healed = std::move(report.healed);
    return Join(std::move(window));
}

WindowTarn* Session::Open(const std::string& path, Status& status, std::vector<std::string>* healed) {
    std::vector<uint8_t> bytes;
    status = _parts.files->Read(path, bytes);
    if (!status) return nullptr;
    const auto load = [&](NewMemoryPool& pool, LoadReport& report) {
        return ReadScore(pool, bytes, &report);
    };
    WindowTarn* window = OpenBy(load, status, healed);
    if (!window) return nullptr;
    const bool readOnly = (_backups && _backups->Holds(path)) || !_parts.files->CheckWritable(path).ok();
    window->SetIdentity(FileName(path), path, readOnly, false);
    if (_backups) _backups->Read(path, bytes);
    Remember(path);
    return window;
}

WindowTarn* Session::Import(const std::string& path, const ImportOptions& options, ImportProgress& progress,
                            Status& status) {
    std::vector<uint8_t> bytes;
    status = _parts.files->Read(path, bytes);
    if (!status) return nullptr;
    const auto load = [&](NewMemoryPool&, LoadReport&) {
        return ImportMidi(BuildNewScore({1, 1}, ""), bytes, options, progress);
    };
    WindowTarn* window = OpenBy(load, status, nullptr);
    if (!window) return nullptr;
    const std::string name = FileName(path), title = name.substr(0, name.rfind('.'));
    window->SetIdentity(title, title + ".cvm", false, true);
    window->Pool()->SetModified(true);
    return window;
}

Status Session::Save(WindowTarn& window, const std::string& path) {
    if (window.ReadOnly() && path == window.Path()) return {Fault::ReadOnly, kFileReadOnly};
    if (_backups && _backups->Holds(path)) return {Fault::ReadOnly, kFileReadOnly};
    std::vector<uint8_t> bytes;
    {
        const CutKeptOut out(window);
        if (Status status = EncodeScore(*window.Pool(), bytes); !status) return status;
    }
    const bool foreign = _backups && path == window.Path() && _backups->IsForeign(path);
    const Status kept = _backups ? _backups->Keep(path) : Status::Ok();
    const Status saved = ReplaceFile(*_parts.files, path, bytes);
    if (!kept) Notify(Severity::Message, kept.message());
    if (!saved) return saved;
    if (_backups) _backups->Wrote(path, bytes);
    window.Pool()->SetModified(false);
    window.SetIdentity(FileName(path), path, false, false);
    Remember(path);
    if (foreign && kept) Notify(Severity::Message, ForeignMessage(path));
    return Status::Ok();
}

void Session::Close(WindowTarn* window) {
    const auto found =
        std::find_if(_windows.begin(), _windows.end(), [&](const auto& w) { return w.get() == window; });
    if (found == _windows.end()) return;
    if (_journals) _journals->Close(**found, false);
    _windows.erase(found);
}

bool Session::KeepSafe() { return _journals && _journals->Slice(std::chrono::steady_clock::now()); }

void Session::MakeSafe() {
    if (_journals) _journals->MakeSafe();
}

std::vector<RecoveredScore> Session::FindRecovered() {
    return _recovered ? _recovered->Find() : std::vector<RecoveredScore>();
}

WindowTarn* Session::OpenRecovered(const RecoveredScore& score, Status& status,
                                   std::vector<std::string>* healed) {
    const RecoveredScore item = score;
    const auto load = [&](NewMemoryPool& pool, LoadReport& report) {
        return _recovered->Load(item, pool, report);
    };
    WindowTarn* window = OpenBy(load, status, healed);
    if (!window) return nullptr;
    const bool readOnly = !item.neverSaved && !_parts.files->CheckWritable(item.path).ok();
    window->SetIdentity(item.title, item.path, readOnly, item.neverSaved);
    window->Pool()->SetModified(true);
    // From its first safe state on, the window's own journal stands for what was left.
    _journals->Of(*window).Replace(_recovered->Take(item));
    return window;
}

void Session::DiscardRecovered(const RecoveredScore& score) {
    if (_recovered) _recovered->Take(score)();
}

std::vector<Backup> Session::FindBackups(const std::string& path) {
    if (!_backups) return {};
    return path.empty() ? _backups->All() : _backups->Of(path);
}

WindowTarn* Session::OpenBackup(const Backup& backup, Status& status, std::vector<std::string>* healed) {
    std::vector<uint8_t> bytes;
    status = _parts.files->Read(backup.path, bytes);
    if (!status) return nullptr;
    const auto load = [&](NewMemoryPool& pool, LoadReport& report) {
        return ReadScore(pool, bytes, &report);
    };
    WindowTarn* window = OpenBy(load, status, healed);
    if (window) window->SetIdentity(backup.title + " (" + backup.when + ")", backup.title, false, true);
    return window;
}

Status Session::StorePreferences() {
    _preferences.spacing = spacingTable.widths;
    KeepChoices(_preferences);
    _preferences.fonts = TheFontList().ToNames();
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
