// The entries of the File menu: each asks the person what is needed and has the session do it.
#pragma once

#include <QString>
#include <string>
#include <vector>

#include "session/Session.h"

namespace corvane {

class MainFrame;

class FileActions {
public:
    explicit FileActions(MainFrame& frame) : _frame(frame) {}

    void New();
    // Without a question; goes again when another score is opened before anything is done with it.
    void NewDefault();
    void Open();
    // A score that is open already is shown. False, with a box, for a file that cannot be opened.
    bool OpenPath(const std::string& path);
    // Asks which of the scores that an earlier run left unsaved to open, discard or keep for later.
    void OfferRecovered(const std::vector<RecoveredScore>& scores);
    // Asks for one of the versions that saves have replaced.
    void OpenBackup();
    bool Save(WindowTarn& window);
    bool SaveAs(WindowTarn& window);
    void Export(WindowTarn& window);
    // A MIDI file as a new score, after asking for the file and how to read it.
    void ImportMidi();
    void ExportMidi(WindowTarn& window);
    void Print(WindowTarn& window);
    void Preview(WindowTarn& window);
    // Asks for unsaved changes first; false if the person wants to go on with the score.
    bool Close(WindowTarn& window);
    // All scores or none.
    bool CloseAll();

private:
    bool ShowOpened(WindowTarn* window, const Status& status, const std::vector<std::string>& healed,
                    const std::string& about);
    void ExportTo(WindowTarn& window, const std::string& path, int page);
    void DropBlank();
    bool AskToSave(WindowTarn& window);
    bool SaveTo(WindowTarn& window, const std::string& path);
    QString FolderOf(const WindowTarn* window) const;

    MainFrame& _frame;
    QString _lastFolder;
    const WindowTarn* _blank = nullptr;  // the score that the program began with, while it may be open
};

}  // namespace corvane
