#include "shell/MenuTable.h"

#include <QDockWidget>
#include <QFileInfo>
#include <QInputDialog>
#include <QMenu>
#include <QToolBar>

#include "edit/ControlPoints.h"
#include "edit/ToolState.h"
#include "edit/WindowTarn.h"
#include "layout/Beaming.h"
#include "shell/AboutBox.h"
#include "shell/MainFrame.h"
#include "shell/MixerDock.h"
#include "shell/PaletteDock.h"
#include "shell/PlayDock.h"
#include "shell/RecordSetup.h"
#include "shell/ScoreView.h"
#include "shell/SignDock.h"
#include "shell/ToolStrip.h"

namespace corvane {
namespace {

// ---- when an entry can act

bool HasScore(MainFrame& frame) { return frame.CurrentScore() != nullptr; }
bool IsQuiet(MainFrame&) { return !IsPlaying(); }
bool IsQuietWithScore(MainFrame& frame) { return !IsPlaying() && HasScore(frame); }
bool Plays(MainFrame&) { return IsPlaying(); }

// ---- what it does

template <bool (FileActions::*Act)(WindowTarn&)>
void OnScore(MainFrame& frame) {
    (void)(frame.Files().*Act)(*frame.CurrentScore());
}
template <void (FileActions::*Act)(WindowTarn&)>
void WithScore(MainFrame& frame) {
    (frame.Files().*Act)(*frame.CurrentScore());
}

template <int Percent>
void ZoomTo(MainFrame& frame) {
    frame.CurrentView()->SetZoom(Zoom::Percent, Percent);
}
template <int Percent>
bool IsZoom(MainFrame& frame) {
    const ScoreView* view = frame.CurrentView();
    return view && view->CurrentZoom().kind == Zoom::Percent && view->CurrentZoom().percent == Percent;
}
template <Zoom::Kind Kind>
void ZoomToFit(MainFrame& frame) {
    frame.CurrentView()->SetZoom(Kind);
}
template <Zoom::Kind Kind>
bool Fits(MainFrame& frame) {
    return frame.CurrentView() && frame.CurrentView()->CurrentZoom().kind == Kind;
}

void AskZoom(MainFrame& frame) {
    ScoreView* view = frame.CurrentView();
    bool chosen = false;
    const int percent =
        QInputDialog::getInt(&frame, "Zoom", "Percent of the score's size:", view->CurrentZoom().percent,
                             Zoom::kLeast, Zoom::kMost, 1, &chosen);
    if (chosen) view->SetZoom(Zoom::Percent, percent);
}

void AskPage(MainFrame& frame) {
    const WindowTarn* window = frame.CurrentScore();
    bool chosen = false;
    const int count = documentPages.Count(window->GetDocument());
    const int page = QInputDialog::getInt(&frame, "Go to Page", "Page:", window->CurrentPage()->_pageNumber,
                                          1, count, 1, &chosen);
    if (chosen) frame.GoToPage(page);
}

void FillRecent(MainFrame& frame, QMenu& menu) {
    int number = 0;
    for (const std::string& path : frame.TheSession().RecentFiles()) {
        const QString name = QFileInfo(QString::fromStdString(path)).fileName().replace('&', "&&");
        QAction* action = menu.addAction(QString("&%1  %2").arg(++number).arg(name), &frame,
                                         [&frame, path] { frame.Files().OpenPath(path); });
        action->setToolTip(QString::fromStdString(path));
    }
    if (menu.isEmpty()) menu.addAction("None")->setEnabled(false);
    menu.setToolTipsVisible(true);
}

template <class Part, Part& (MainFrame::*Get)()>
void TogglePart(MainFrame& frame) {
    QWidget& part = (frame.*Get)();
    part.setVisible(part.isHidden());
}
template <class Part, Part& (MainFrame::*Get)()>
bool IsPartShown(MainFrame& frame) {
    return !(frame.*Get)().isHidden();
}

template <size_t Place>
void ToggleSigns(MainFrame& frame) {
    QWidget* dock = frame.SignPalettes()[Place];
    dock->setVisible(dock->isHidden());
    dock->raise();
}
template <size_t Place>
bool AreSignsShown(MainFrame& frame) {
    return !frame.SignPalettes()[Place]->isHidden();
}

bool IsColouring(MainFrame& frame) { return frame.ColoursVoices(); }
void ToggleColours(MainFrame& frame) { frame.ColourVoices(!frame.ColoursVoices()); }
bool IsThruOn(MainFrame& frame) { return IsOn(frame.TheSession().Preferences(), SessionWord::MidiThru); }
void ToggleThru(MainFrame& frame) {
    SessionPreferences& preferences = frame.TheSession().Preferences();
    SetWord(preferences, SessionWord::MidiThru, !IsThruOn(frame));
    frame.KeepSwitches();
    if (IsThruOn(frame) && GetWord(preferences, SessionWord::RecordPort) < 0)
        frame.Tell("Select a port for the keyboard using the Record Setup dialog in the MIDI menu");
}
void Play(MainFrame& frame) { frame.Player().Start(*frame.CurrentScore()); }

template <bool EditSwitches::*Switch>
bool IsSwitchOn(MainFrame&) {
    return Switches().*Switch;
}
template <bool ToolState::*Switch>
bool IsToolSwitchOn(MainFrame&) {
    return Tools().*Switch;
}

template <HandleKind Kind>
bool AreHandlesShown(MainFrame& frame) {
    const WindowTarn* window = frame.CurrentScore();
    return window && window->Handles().IsOn(Kind);
}

using S = EditSwitches;
using H = HandleKind;
using T = ToolState;
// Entries of our own stand apart from the numbers that toolbars and scripts have always known.
constexpr int kOpenBackupId = 40001, kPreviewId = 40030;
constexpr const char *kFile = "&File", *kEdit = "&Edit", *kEditGo = "&Edit/&Go", *kView = "&View",
                     *kViewHide = "&View/Show-&Hide", *kScore = "&Score", *kScoreAdd = "&Score/&Add",
                     *kScoreRemove = "&Score/&Remove", *kScoreLayout = "&Score/&Layout", *kNotes = "&Notes",
                     *kNotesBeams = "&Notes/&Beams", *kNotesOptions = "&Notes/Options",
                     *kNotesMove = "&Notes/Mo&ve and Alter", *kTools = "&Tools", *kToolsPoints = "&Tools/Control &Points", *kMidi = "&MIDI",
                     *kHelp = "&Help";

// clang-format off
const MenuRow kRows[] = {
    {kFile, kNewId, "&New...", "Ctrl+N", [](MainFrame& f) { f.Files().New(); }, IsQuiet, {}, {}, ToolPicture::New},
    {kFile, kOpenId, "&Open...", "Ctrl+O", [](MainFrame& f) { f.Files().Open(); }, IsQuiet, {}, {}, ToolPicture::Open},
    {kFile, 57616, "&Recent Files", "", nullptr, IsQuiet, {}, FillRecent},
    {kFile, kOpenBackupId, "Open &Backup...", "", [](MainFrame& f) { f.Files().OpenBackup(); }, IsQuiet},
    {kFile, 57602, "&Close", "Ctrl+W", OnScore<&FileActions::Close>, HasScore},
    {kFile, 0},
    {kFile, kSaveId, "&Save", "Ctrl+S", OnScore<&FileActions::Save>, IsQuietWithScore, {}, {}, ToolPicture::Save},
    {kFile, 57604, "Sa&ve as...", "Ctrl+Shift+S", OnScore<&FileActions::SaveAs>, IsQuietWithScore},
    {kFile, 33180, "&Export...", "Ctrl+Shift+E", WithScore<&FileActions::Export>, IsQuietWithScore},
    {kFile, 32772, "&Import MIDI...", "", [](MainFrame& f) { f.Files().ImportMidi(); }, IsQuiet},
    {kFile, 32771, "Export &MIDI...", "", WithScore<&FileActions::ExportMidi>, IsQuietWithScore},
    {kFile, 57606, "Page Set&up..."},
    {kFile, kPreviewId, "Print Previe&w...", "Ctrl+Alt+P", WithScore<&FileActions::Preview>, IsQuietWithScore},
    {kFile, 57607, "&Print...", "Ctrl+P", WithScore<&FileActions::Print>, IsQuietWithScore},
    {kFile, 0},
    {kFile, 57665, "E&xit", "Ctrl+Q", [](MainFrame& f) { f.close(); }},

    {kEdit, kUndoId, "&Undo", "Ctrl+Z", {}, {}, {}, {}, ToolPicture::Undo},
    {kEdit, kRedoId, "&Redo", "Ctrl+Shift+Z", {}, {}, {}, {}, ToolPicture::Redo},
    {kEdit, 0},
    {kEdit, kCutId, "Cu&t", "Ctrl+X", {}, {}, {}, {}, ToolPicture::Cut},
    {kEdit, kCopyId, "&Copy", "Ctrl+C", {}, {}, {}, {}, ToolPicture::Copy},
    {kEdit, kPasteId, "&Paste", "Ctrl+V", {}, {}, {}, {}, ToolPicture::Paste},
    {kEdit, kClearId, "C&lear", "Del", {}, {}, {}, {}, ToolPicture::Clear},
    {kEdit, 0},
    {kEdit, 40050, "Un&do Levels..."},
    {kEdit, 0},
    {kEdit, kSelectAllId, "Select &All", "Ctrl+Shift+A"},
    {kEdit, kSelectNothingId, "Select &Nothing", "Esc"},
    {kEditGo, 40060, "&Next\tRight"},
    {kEditGo, 40061, "&Previous\tLeft"},
    {kEditGo, 40062, "&Add Next\tShift+Right"},
    {kEditGo, 40063, "A&dd Previous\tShift+Left"},
    {kEditGo, 40064, "Next &Measure\tCtrl+Right"},
    {kEditGo, 40065, "Pre&vious Measure\tCtrl+Left"},
    {kEditGo, 40066, "&Staff Above\tAlt+Up"},
    {kEditGo, 40067, "Staff &Below\tAlt+Down"},

    {kView, 32865, "&Notes Palette", "", TogglePart<PaletteDock, &MainFrame::NotePalette>, {}, IsPartShown<PaletteDock, &MainFrame::NotePalette>},
    {kView, 32868, "C&lefs Palette", "", ToggleSigns<0>, {}, AreSignsShown<0>},
    {kView, 32866, "&Dynamics Palette", "", ToggleSigns<1>, {}, AreSignsShown<1>},
    {kView, 32867, "&Articulations Palette", "", ToggleSigns<2>, {}, AreSignsShown<2>},
    {kView, 32870, "Symbols &1 Palette", "", ToggleSigns<3>, {}, AreSignsShown<3>},
    {kView, 32871, "Symbols &2 Palette", "", ToggleSigns<4>, {}, AreSignsShown<4>},
    {kView, 32872, "Symbols &3 Palette", "", ToggleSigns<5>, {}, AreSignsShown<5>},
    {kView, 32869, "Te&xt Palette", "", ToggleSigns<6>, {}, AreSignsShown<6>},
    {kView, 32859, "Accompan&y", "", TogglePart<PlayDock, &MainFrame::PlayPalette>, {}, IsPartShown<PlayDock, &MainFrame::PlayPalette>},
    {kView, 33050, "&Mixer", "", TogglePart<MixerDock, &MainFrame::Mixer>, HasScore, IsPartShown<MixerDock, &MainFrame::Mixer>},
    {kView, 59392, "&Toolbar", "", TogglePart<ToolStrip, &MainFrame::Toolbar>, {}, IsPartShown<ToolStrip, &MainFrame::Toolbar>},
    {kView, 33065, "Mar&gins", "", [](MainFrame& f) { f.ShowMargins(!f.ShowsMargins()); }, {}, [](MainFrame& f) { return f.ShowsMargins(); }},
    {kView, 33129, "Voice &Coloring", "", ToggleColours, {}, IsColouring},
    {kViewHide, 33083, "&Rests", "Ctrl+R"},
    {kViewHide, 33084, "&Stems", "Alt+U"},
    {kViewHide, 33085, "&Notes", "Ctrl+H"},
    {kViewHide, 33086, "&Tuplets", "Alt+I"},
    {kViewHide, 0},
    {kViewHide, 33082, "Show-Hide &Options..."},
    {kView, 0},
    {kView, 33071, "50%", "", ZoomTo<50>, HasScore, IsZoom<50>},
    {kView, 33072, "75%", "", ZoomTo<75>, HasScore, IsZoom<75>},
    {kView, 33073, "100%", "", ZoomTo<100>, HasScore, IsZoom<100>},
    {kView, 33074, "150%", "", ZoomTo<150>, HasScore, IsZoom<150>},
    {kView, 33075, "200%", "", ZoomTo<200>, HasScore, IsZoom<200>},
    {kView, 33076, "400%", "", ZoomTo<400>, HasScore, IsZoom<400>},
    {kView, 33077, "&Other...", "", AskZoom, HasScore},
    {kView, 0},
    {kView, 33078, "Fit &Page", "", ZoomToFit<Zoom::FitPage>, HasScore, Fits<Zoom::FitPage>},
    {kView, 33079, "Fit &Width", "Ctrl+*", ZoomToFit<Zoom::FitWidth>, HasScore, Fits<Zoom::FitWidth>},
    {kView, kZoomInId, "Zoom &in", "Ctrl++; Ctrl+=", [](MainFrame& f) { f.CurrentView()->StepZoom(1); }, HasScore, {}, {}, ToolPicture::ZoomIn},
    {kView, kZoomOutId, "Zoom o&ut", "Ctrl+-", [](MainFrame& f) { f.CurrentView()->StepZoom(-1); }, HasScore, {}, {}, ToolPicture::ZoomOut},

    {kScoreAdd, 32790, "&Pages..."},
    {kScoreAdd, 32791, "&Measures..."},
    {kScoreAdd, 32792, "&Staves..."},
    {kScoreRemove, 32793, "&Pages..."},
    {kScoreRemove, 32794, "&Measures..."},
    {kScoreRemove, 32795, "&Staves..."},
    {kScore, 0},
    {kScore, 32779, "&Time Signature..."},
    {kScore, 32781, "&Key Signature..."},
    {kScore, 32778, "T&empo..."},
    {kScore, 32783, "&Barlines..."},
    {kScore, 32796, "E&ndings..."},
    {kScore, 32797, "&Coda Phrases..."},
    {kScore, 0},
    {kScore, 40011, "T&itle..."},
    {kScore, 40012, "Sta&ff Names..."},
    {kScore, 32782, "Measure N&umbers..."},
    {kScore, 0},
    {kScore, 32780, "Set &Velocity..."},
    {kScore, 0},
    {kScore, 32788, "&Measures per System...", "Q"},
    {kScore, 32789, "Systems per &Page...", "W"},
    {kScore, 32800, "Autocenter &Systems"},
    {kScore, 32801, "Aut&ocenter Staves"},
    {kScore, 0},
    {kScoreLayout, 32776, "Modi&fy Page..."},
    {kScoreLayout, 32777, "Staff Settin&gs..."},
    {kScoreLayout, 32786, "Spac&ing Options..."},
    {kScoreLayout, 32787, "Instr&ument Name Options..."},
    {kScoreLayout, 32798, "&Time Signature Options..."},
    {kScoreLayout, 32784, "Voice &Options...", "Ctrl+L"},

    {kNotes, 32804, "&Tie Notes", "Ctrl+T"},
    {kNotes, 32805, "Tupl&ets...", "Ctrl+I"},
    {kNotes, 40020, "&Slur", "Ctrl+Shift+L"},
    {kNotes, 40021, "&Crescendo", ""},
    {kNotes, 40022, "Di&minuendo", ""},
    {kNotes, 40023, "&Octave Line...", ""},
    {kNotes, 40024, "Tr&ill Line", ""},
    {kNotes, 40025, "Pedal Li&ne", ""},
    {kNotes, 0},
    {kNotes, 33088, "Grace Notes Options...", "Ctrl+G"},
    {kNotes, 32819, "Trans&pose..."},
    {kNotes, 32817, "Change &Durations..."},
    {kNotes, 32818, "Appl&y Articulations..."},
    {kNotes, 32814, "Accidentals Options...", "Ctrl+A"},
    {kNotes, 33036, "En&harmonic", "Ctrl+E"},
    {kNotesMove, 40040, "Step &Up\tUp"},
    {kNotesMove, 40041, "Step &Down\tDown"},
    {kNotesMove, 40042, "&Octave Up\tCtrl+Up"},
    {kNotesMove, 40043, "O&ctave Down\tCtrl+Down"},
    {kNotesMove, 0},
    {kNotesMove, 32900, "&Sharp"},
    {kNotesMove, 32901, "&Flat"},
    {kNotesMove, 33035, "&Natural"},
    {kNotes, 0},
    {kNotes, 32815, "&Up", "Ctrl+U"},
    {kNotes, 32816, "Do&wn", "Ctrl+D"},
    {kNotes, 0},
    {kNotesBeams, 33027, "Beam on &Beat", "Ctrl+Y"},
    {kNotesBeams, 33028, "Beam &Selection", "Ctrl+B"},
    {kNotesBeams, 33030, "&Add Beam"},
    {kNotesBeams, 33031, "&Remove Beam"},
    {kNotesBeams, 33032, "&Flip Flag"},
    {kNotesBeams, 33029, "&Cross-Staff Beaming", "C"},
    {kNotesBeams, 40026, "&Inner Beams..."},
    {kNotesBeams, 40027, "&Turn Stems"},
    {kNotesBeams, 0},
    {kNotesBeams, 32808, "A&uto Beaming", "", {}, {}, IsSwitchOn<&S::autoBeam>},
    {kNotesBeams, 33087, "An&gled Beam", "", {}, {}, [](MainFrame&) { return AngledBeams(); }},
    {kNotesBeams, 0},
    {kNotesBeams, 32810, "Auto Beaming &Options..."},
    {kNotesBeams, 32811, "Sub-Grou&ps Options..."},
    {kNotesBeams, 32820, "&Note-Beam-Accidental Options..."},
    {kNotesOptions, 32821, "&Note-Tie Options..."},
    {kNotesOptions, 32822, "&Tuplet Options..."},
    {kNotes, 0},
    {kNotes, 32807, "Spacin&g...", "Ctrl+J"},
    {kNotes, 33177, "Spacing Tab&le..."},
    {kNotes, 0},
    {kNotes, 40070, "Accidentals in Brac&kets", "", {}, {}, IsToolSwitchOn<&T::accidentParenthesis>},
    {kNotes, 40071, "O&rnament Accidentals in Brackets", "", {}, {}, IsToolSwitchOn<&T::ornamentParenthesis>},
    {kNotes, 0},
    {kNotes, 32809, "&Auto Spacing", "", {}, {}, IsSwitchOn<&S::autoSpace>},
    {kNotes, 33153, "Delete Notes To &Rests", "", {}, {}, IsSwitchOn<&S::deleteNotesToRests>},

    {kToolsPoints, 33045, "&Stems", "U", {}, {}, AreHandlesShown<H::Stem>},
    {kToolsPoints, 33046, "&Ties", "T", {}, {}, AreHandlesShown<H::Tie>},
    {kToolsPoints, 33047, "St&aves", "Y", {}, {}, AreHandlesShown<H::Staff>},
    {kToolsPoints, 33055, "T&uplets", "I", {}, {}, AreHandlesShown<H::Tuplet>},
    {kToolsPoints, 33048, "&Barlines", "B", {}, {}, AreHandlesShown<H::Barline>},
    {kToolsPoints, 33049, "S&lurs", "L", {}, {}, AreHandlesShown<H::Slur>},
    {kTools, 33041, "&Hide Control Points", "H"},
    {kTools, 0},
    {kTools, 33044, "&Go to Page...", "Ctrl+Shift+G", AskPage, HasScore},
    {kTools, 33090, "&Font Table..."},

    {kMidi, 33050, "&Mixer", "", TogglePart<MixerDock, &MainFrame::Mixer>, HasScore, IsPartShown<MixerDock, &MainFrame::Mixer>},
    {kMidi, kPlayId, "&Play\tSpace", "", Play, IsQuietWithScore, {}, {}, ToolPicture::Play},
    {kMidi, kStopId, "&Stop\tSpace", "", [](MainFrame& f) { f.Player().Stop(); }, Plays, {}, {}, ToolPicture::Stop},
    {kMidi, 33118, "P&anic", "Ctrl+F", [](MainFrame& f) { f.Player().Panic(); }},
    {kMidi, 33053, "Accompany - &Record Setup", "", [](MainFrame& f) { RecordSetup(f).exec(); }, IsQuiet},
    {kMidi, 0},
    {kMidi, 33130, "Playback &notes", "", {}, {}, IsSwitchOn<&S::playbackNotes>},
    {kMidi, 33179, "MIDI &Thru", "", ToggleThru, {}, IsThruOn},

    {kHelp, 33115, "&About Corvane", "", [](MainFrame& f) { ShowAboutBox(&f); }},
};
// clang-format on

}  // namespace

std::span<const MenuRow> MenuRows() { return kRows; }

}  // namespace corvane
