#include "LargeScore.h"

#include "edit/Insertion.h"
#include "layout/Beaming.h"
#include "layout/PageLayout.h"
#include "layout/ScoreBuilder.h"
#include "layout/Spacing.h"
#include "model/ClassTable.h"
#include "model/Par.h"
#include "model/ScoreCheck.h"
#include "platform/freetype/FreeTypeMeasures.h"
#include "play/MIDIUtility.h"
#include "store/MemoryManager.h"
#include "store/ObjectFile.h"

namespace corvane {
namespace {

constexpr int kPerSystem = 5, kSystems = 4;

void FillVoice(Voice* voice, int notes, bool spaced) {
    const NoteKind eighth{8, "Quarto", false};
    for (int i = 0; i < notes; ++i) {
        GenericNote* note = InsertNewChord(voice, 120 * i, 2 + i % 8, eighth);
        AddChordEvents(ChordPar(note));
    }
    if (!spaced) return;
    SpaceVoice(voice);
    BeamVoice(voice);
}

}  // namespace

void StartUpForBench() {
    RegisterClasses();
    InstallFreeTypeMeasures();
    WatchCommands();
}

std::unique_ptr<WindowTarn> LargeScore(int measures, const char* staffs, int notes, bool spaced) {
    static EditorShell silent;
    auto window = std::make_unique<WindowTarn>(silent);
    window->Activate();
    Document* document = BuildNewScore({kPerSystem, kSystems}, staffs);
    Page* first = documentPages.First(document);
    Page* last = first;
    for (int made = kPerSystem * kSystems; made < measures; made += kPerSystem * kSystems) {
        last = MakePage(document, last, first);
    }
    NumberMeasures(document);
    LayOutPages(document);
    for (Page* page : documentPages.Of(document))
        for (System* system : pageSystems.Of(page))
            for (Measure* measure : systemMeasures.Of(system))
                for (MeasureStaff* crossing : measureStaffs.Of(measure))
                    FillVoice(measureStaffVoices.First(crossing), notes, spaced);
    window->Bind(document);
    return window;
}

std::unique_ptr<WindowTarn> Reopened(const WindowTarn& score) {
    std::vector<uint8_t> bytes;
    if (!EncodeScore(*score.Pool(), bytes)) return nullptr;
    static EditorShell silent;
    auto window = std::make_unique<WindowTarn>(silent);
    window->Activate();
    if (!ReadScore(*window->Pool(), bytes)) return nullptr;
    window->Bind(static_cast<Document*>(window->Pool()->DocumentObject()));
    return window;
}

long ObjectCount(const NewMemoryPool& pool) {
    long count = 0;
    for (void* object = pool.FirstObject(); object; object = pool.NextObject(object)) ++count;
    return count;
}

}  // namespace corvane
