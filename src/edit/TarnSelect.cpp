#include "edit/TarnSelect.h"

#include <algorithm>
#include <unordered_set>

#include "base/Assert.h"
#include "edit/PickPlaces.h"
#include "edit/ToolState.h"
#include "layout/NoteGeometry.h"
#include "layout/PageFiling.h"
#include "model/NoteOperations.h"
#include "model/Par.h"

namespace corvane {
namespace {

SelectionAnchors& Anchors() {
    static SelectionAnchors anchors;
    return anchors;
}

// A list that takes each object once.
template <class R>
class Once {
public:
    void Add(R* object) {
        if (_known.insert(object).second) _list.push_back(object);
    }
    bool Has(R* object) const { return _known.count(object) != 0; }
    const std::vector<R*>& List() const { return _list; }

private:
    std::unordered_set<R*> _known;
    std::vector<R*> _list;
};

void AddPatchesOfScore(std::vector<DrawPatch>& patches, const Document* document) {
    for (const Page* page : documentPages.Of(document))
        ForEachPatch(page, [&](const DrawPatch& patch, int) { patches.push_back(patch); });
}

// The objects of a class among the patches, each once.
template <class R, class Visit>
void ForEachSelected(Visit visit) {
    for (const DrawPatch& patch : SelectedPatches())
        if (R* record = patch.Record<R>()) visit(record);
}

template <class R>
std::vector<R*> OfStaffSymbols(const MeasureStaff* msc) {
    std::vector<R*> found;
    ForEachSelected<R>([&](R* record) {
        if (!msc || staffSymbols.ParentOf(record) == msc) found.push_back(record);
    });
    return found;
}

template <class Spanner, class Mark, class Rel>
std::vector<Spanner*> OfSpanners(const Rel& relation, const MeasureStaff* msc) {
    Once<Spanner> found;
    for (Mark* mark : OfStaffSymbols<Mark>(msc))
        if (Spanner* spanner = relation.ParentOf(mark)) found.Add(spanner);
    return found.List();
}

// The systems that a command wants looked at; empty for all.
std::unordered_set<const System*> WantedSystems() {
    std::unordered_set<const System*> systems;
    if (Anchors().SelWholeScore) return systems;
    for (const System* system = Anchors().SelFirstSystem; system; system = pageSystems.Next(system)) {
        systems.insert(system);
        if (system == Anchors().SelLastSystem) break;
    }
    return systems;
}

std::vector<GenericNote*> PickedHeads() {
    std::vector<GenericNote*> heads;
    for (const Pick& pick : Anchors().SelPicks.List())
        if (auto* note = pick.As<GenericNote>(); note && !PatchesOf(*Anchors().SelWindow, pick).empty())
            heads.push_back(note);
    return heads;
}

void AddPatchesOfPicks(std::vector<DrawPatch>& patches) {
    if (Anchors().SelPicks.IsEmpty()) return;
    std::unordered_set<const void*> known;
    for (const DrawPatch& patch : patches) known.insert(patch.Object());
    for (const Pick& pick : Anchors().SelPicks.List()) {
        if (pick.As<GenericNote>()) continue;
        for (const DrawPatch& patch : PatchesOf(*Anchors().SelWindow, pick))
            if (known.insert(patch.Object()).second) patches.push_back(patch);
    }
}

using Symbols = std::unordered_set<const VoiceSymbol*>;
constexpr int kEveryVoice = 0;

Symbols SymbolsOf(int voice) {
    Symbols symbols;
    const auto systems = WantedSystems();
    const auto takeIfWanted = [&](const VoiceSymbol* symbol) {
        const Voice* own = VoicePar(symbol);
        if (!own) return;
        if (!systems.empty() && !systems.count(SystemPar(MeasurePar(own)))) return;
        if (voice == kEveryVoice)
            symbols.insert(symbol);
        else if (VoiceVisibleForSelection(symbol) && (Anchors().SelAllVoices || own->_number == voice))
            symbols.insert(symbol);
    };
    for (const GenericNote* note : PickedHeads()) takeIfWanted(ChordPar(note));
    for (const DrawPatch& patch : SelectedPatches()) {
        if (const auto* pause = patch.Record<Pause>()) takeIfWanted(pause);
        if (const auto* column = patch.Record<ChordSymbol>())
            for (const Chords* chord : chordSymbolChords.Of(column)) takeIfWanted(chord);
    }
    return symbols;
}

// The crossings of events in score order. Cost: the measures that hold them.
std::vector<MeasureStaff*> CrossingsOf(const Symbols& symbols) {
    std::unordered_set<const MeasureStaff*> wanted;
    std::vector<Measure*> measures;
    for (const VoiceSymbol* symbol : symbols)
        if (wanted.insert(MeasureStaffPar(symbol)).second) measures.push_back(MeasurePar(symbol));
    std::sort(measures.begin(), measures.end(),
              [](const Measure* a, const Measure* b) { return a->_number < b->_number; });
    measures.erase(std::unique(measures.begin(), measures.end()), measures.end());
    std::vector<MeasureStaff*> crossings;
    for (const Measure* measure : measures)
        for (MeasureStaff* crossing : measureStaffs.Of(measure))
            if (wanted.count(crossing)) crossings.push_back(crossing);
    return crossings;
}

template <class R>
std::vector<R*> Only(const std::vector<VoiceSymbol*>& symbols, const MeasureStaff* msc) {
    std::vector<R*> found;
    for (VoiceSymbol* symbol : symbols)
        if (R* event = As<R>(symbol); event && (!msc || MeasureStaffPar(symbol) == msc))
            found.push_back(event);
    return found;
}

// A head meets the selection by its middle: heads a second apart touch.
bool IsHeadSelected(const GenericNote* note) {
    if (Anchors().SelPicks.Has(note)) return true;
    const Rect head = RectOf(note);
    return Anchors().SelPort->RectMeetsRegion(Anchors().SelRegion, head.GrownBy(-head.Height() / 8));
}

BeamSymbol* BeamSymbolOf(VoiceSymbol* symbol) {
    if (auto* pause = As<Pause>(symbol)) return pause;
    return StemOf(As<Chords>(symbol));
}

bool BeamWhollySelected(const Beam* beam, const Once<const BeamSymbol>& symbols) {
    for (const BeamMarker* marker : beamMarkers.Of(beam))
        if (!symbols.Has(beamSymbolAttributes.ParentOf(marker))) return false;
    return true;
}

}  // namespace

const SelectionAnchors& TheSelectionAnchors() { return Anchors(); }

void SetSelectionAnchors(System* first, System* last, WindowTarn& window, bool flag) {
    SelectionAnchors& anchors = Anchors();
    anchors.SelFirstSystem = first;
    anchors.SelLastSystem = last;
    anchors.SelWindow = &window;
    anchors.SelPort = &window.Port();
    window.DropDeadPicks();
    anchors.SelPicks = window.TheSelection().ThePicks();
    anchors.SelRegion = window.TheSelection().GetSelectionRegion();
    anchors.SelWholeScore = window.TheSelection().IsWholeScore();
    anchors.SelAllVoices = Tools().AllVoices();
    anchors.SelFlag = flag;
    anchors.SelPatchesReady = false;
    anchors.SelPatches.clear();
}

void SetSelectionAnchors(WindowTarn& window) {
    const Page* page = window.CurrentPage();
    SetSelectionAnchors(page ? pageSystems.First(page) : nullptr, page ? pageSystems.Last(page) : nullptr,
                        window);
}

void ClearSelectionAnchors() { Anchors() = SelectionAnchors(); }

const std::vector<DrawPatch>& SelectedPatches() {
    SelectionAnchors& anchors = Anchors();
    if (anchors.SelPatchesReady || !anchors.SelWindow) return anchors.SelPatches;
    anchors.SelPatchesReady = true;
    if (anchors.SelWholeScore)
        AddPatchesOfScore(anchors.SelPatches, anchors.SelWindow->GetDocument());
    else
        anchors.SelPatches = anchors.SelWindow->Sheet().PatchesIn(*anchors.SelPort, anchors.SelRegion);
    AddPatchesOfPicks(anchors.SelPatches);
    return anchors.SelPatches;
}

bool VoiceVisibleForSelection(const VoiceSymbol* symbol) {
    const DocStaff* ds = DocStaffPar(symbol);
    CORVANE_ASSERT(ds);
    if (!MeasureStaffPar(symbol)->_staff.Get()) return false;
    const int shown = Anchors().SelWindow ? Anchors().SelWindow->Sheet().EditVoice() : 0;
    return shown == 0 || VoicePar(symbol)->_number == shown;
}

// ---- events

std::vector<MeasureStaff*> SelectedMeasureStaffs() { return CrossingsOf(SymbolsOf(kEveryVoice)); }

std::vector<VoiceSymbol*> SelectedVoiceSymbols(int voice) {
    const Symbols symbols = SymbolsOf(voice);
    std::vector<VoiceSymbol*> ordered;
    for (const MeasureStaff* crossing : CrossingsOf(symbols))
        for (const Voice* own : measureStaffVoices.Of(crossing))
            for (VoiceSymbol* symbol : voiceSymbols.Of(own))
                if (symbols.count(symbol)) ordered.push_back(symbol);
    return ordered;
}

std::vector<VoiceSymbol*> SelectedVoiceSymbols(const MeasureStaff* msc, int voice) {
    return Only<VoiceSymbol>(SelectedVoiceSymbols(voice), msc);
}

std::vector<Chords*> SelectedChords(int voice) { return Only<Chords>(SelectedVoiceSymbols(voice), nullptr); }

std::vector<Chords*> SelectedChords(const MeasureStaff* msc, int voice) {
    return Only<Chords>(SelectedVoiceSymbols(voice), msc);
}

std::vector<Pause*> SelectedPauses(const MeasureStaff* msc, int voice) {
    return Only<Pause>(SelectedVoiceSymbols(voice), msc);
}

std::vector<GenericNote*> SelectedNotes(int voice) {
    std::vector<GenericNote*> notes;
    for (const Chords* chord : SelectedChords(voice)) {
        const size_t before = notes.size();
        for (GenericNote* note : chordNotes.Of(chord))
            if (!Anchors().SelWholeScore && IsHeadSelected(note)) notes.push_back(note);
        if (notes.size() == before)
            for (GenericNote* note : chordNotes.Of(chord)) notes.push_back(note);
    }
    return notes;
}

std::vector<GenericNote*> HeadsPickedAlone(int voice) {
    if (PickedHeads().empty()) return {};
    std::unordered_set<const ChordSymbol*> whole;
    for (const DrawPatch& patch : SelectedPatches())
        if (const auto* column = patch.Record<ChordSymbol>()) whole.insert(column);
    std::vector<GenericNote*> heads;
    for (const Chords* chord : SelectedChords(voice)) {
        if (whole.count(ChordSymbolPar(chord))) continue;
        std::vector<GenericNote*> own;
        for (GenericNote* note : chordNotes.Of(chord))
            if (Anchors().SelPicks.Has(note)) own.push_back(note);
        if (static_cast<int>(own.size()) < chordNotes.Count(chord))
            heads.insert(heads.end(), own.begin(), own.end());
    }
    return heads;
}

void ForEachSelectedChord(int voice, const std::function<void(Chords*)>& action) {
    for (Chords* chord : SelectedChords(voice)) action(chord);
}

std::vector<Irregular*> SelectedIrregulars(int voice) {
    Once<Irregular> found;
    for (const VoiceSymbol* symbol : SelectedVoiceSymbols(voice))
        for (VoiceSymbolAttribute* attribute : voiceSymbolAttributes.Of(symbol))
            if (auto* mark = As<MarkIrreg>(attribute)) {
                Irregular* irreg = irregularMarks.ParentOf(mark);
                CORVANE_ASSERT(irreg);
                found.Add(irreg);
            }
    return found.List();
}

std::vector<Beam*> SelectedBeams(int voice, std::vector<Beam*>* partial) {
    Once<const BeamSymbol> symbols;
    Once<Beam> beams;
    for (VoiceSymbol* symbol : SelectedVoiceSymbols(voice)) {
        symbols.Add(BeamSymbolOf(symbol));
        if (Beam* beam = BeamOf(BeamSymbolOf(symbol))) beams.Add(beam);
    }
    for (Beam* beam : PickedOf<Beam>()) beams.Add(beam);
    std::vector<Beam*> whole;
    for (Beam* beam : beams.List()) {
        if (Anchors().SelPicks.Has(beam) || BeamWhollySelected(beam, symbols))
            whole.push_back(beam);
        else if (partial)
            partial->push_back(beam);
    }
    return whole;
}

// ---- other objects

std::vector<Dinamiche*> SelectedDinamiche(const MeasureStaff* msc) { return OfStaffSymbols<Dinamiche>(msc); }
std::vector<MeasureStaffText*> SelectedMeasureStaffText(const MeasureStaff* msc) {
    return OfStaffSymbols<MeasureStaffText>(msc);
}
std::vector<MovingClaf*> SelectedMovingClaf(const MeasureStaff* msc) {
    return OfStaffSymbols<MovingClaf>(msc);
}
std::vector<Hairpin*> SelectedHairpins(const MeasureStaff* msc) {
    return OfSpanners<Hairpin, MarkHairpin>(hairpinMarks, msc);
}
std::vector<Slur*> SelectedSlurs(const MeasureStaff* msc) {
    return OfSpanners<Slur, MarkSlur>(slurMarks, msc);
}

std::vector<Ottava*> SelectedOttave(const MeasureStaff* msc) {
    return OfSpanners<Ottava, MarkOttava>(ottavaMarks, msc);
}
std::vector<Trillo*> SelectedTrilli(const MeasureStaff* msc) {
    return OfSpanners<Trillo, MarkTrillo>(trilloMarks, msc);
}
std::vector<Pedale*> SelectedPedali(const MeasureStaff* msc) {
    return OfSpanners<Pedale, MarkPedale>(pedaleMarks, msc);
}
std::vector<SimboliVari*> SelectedSimboliVari(const MeasureStaff* msc) {
    return OfStaffSymbols<SimboliVari>(msc);
}

std::vector<Arpeggio*> SelectedArpeggi(const MeasureStaff* msc) { return OfStaffSymbols<Arpeggio>(msc); }

std::vector<PageText*> SelectedPageText() {
    std::vector<PageText*> found;
    ForEachSelected<PageText>([&](PageText* text) { found.push_back(text); });
    return found;
}

std::vector<GraphicObj*> SelectedGraphicObjs() {
    std::vector<GraphicObj*> found;
    ForEachSelected<GraphicObj>([&](GraphicObj* object) { found.push_back(object); });
    return found;
}

}  // namespace corvane
