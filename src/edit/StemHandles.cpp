// Stems: a handle at the free end. Under a beam it takes the whole beam along.
#include <algorithm>
#include <cstdlib>

#include "edit/HandleFamily.h"
#include "edit/MeasureRedraw.h"
#include "edit/SessionChoices.h"
#include "graphics/GraphicPort.h"
#include "layout/BeamMoves.h"
#include "layout/Beaming.h"
#include "layout/Engraving.h"
#include "layout/HiddenInk.h"
#include "layout/NoteGeometry.h"
#include "model/NoteOperations.h"
#include "model/Par.h"
#include "model/SymbolTable.h"

namespace corvane {
namespace {

// Let go so near to where the rules would end it, a stem follows them again. Page units.
constexpr int32_t kSnap = 10;

Stem* StemAt(const Handle& handle) { return static_cast<Stem*>(handle.target); }

bool HasHandle(const Stem* stem) {
    return HasStemInk(stem) && (!IsHidden(stem) || Choices().hiddenStems.show);
}

// Never across the heads. One that ends among them already stays until it is made longer.
int32_t EndTowards(const Stem* stem, int32_t y) {
    const int32_t end = LineOf(stem).end;
    if (const Beam* beam = BeamOf(stem)) return end + WithinReach(beam, {y - end, y - end}).first;
    const int32_t heads = PlaceOf(NoteOuter(stem)).stem.y;
    return IsUp(stem->_direction) ? std::min(y, std::max(end, heads - 1))
                                  : std::max(y, std::min(end, heads + 1));
}

// Under a beam all of it goes along.
void TellLength(Stem* stem, int32_t y) {
    const int32_t by = y - LineOf(stem).told;
    if (Beam* beam = BeamOf(stem)) return TellBeam(beam, {by, by});
    Say(stem, kSaidLength, false);
    SetDefaultStemLength(stem);
    if (std::abs(LineOf(stem).told - y) <= kSnap) return;
    SetEnd(stem, y);
    Say(stem, kSaidLength, true);
}

// The stem with what moves along with its end: its beam or its flags.
void DrawOutline(GraphicPort& port, const Stem* stem, int32_t dy) {
    const Column column(stem);
    const StemLine line = LineOf(column);
    const Rect ink = StemInk(column);
    port.FillRect(Rect{ink.left, line.from, ink.right, line.end + dy}.Normalised());
    const int32_t distance = FrameOf(StaffPar(NoteOuter(stem))).lineDistance;
    for (const BeamSymbolAttribute* attribute : beamSymbolAttributes.Of(stem))
        if (const auto* flag = As<Flag>(attribute)) {
            const Point place = PlaceOf(flag, column);
            DrawSymbol(port, flag->_symbol, place.x, place.y + dy, distance, 100);
        }
    const Beam* beam = BeamOf(stem);
    for (const BeamStroke& stroke : beam ? StrokesOf(beam) : std::vector<BeamStroke>{}) {
        port.SetPenSize(1, stroke.thickness);
        port.DrawLine(stroke.from.x, stroke.from.y + dy, stroke.to.x, stroke.to.y + dy);
    }
}

class Family : public HandleFamily {
public:
    void Find(const Page* page, std::vector<Handle>& handles) const override {
        for (const System* system : pageSystems.Of(page))
            for (const Measure* measure : systemMeasures.Of(system))
                for (const MeasureSymbol* symbol : measureSymbols.Of(measure))
                    if (const auto* column = As<ChordSymbol>(symbol)) FindIn(column, handles);
    }
    std::vector<HandleMove> Moved(const std::vector<Handle>& handles, Point by) const override {
        std::vector<HandleMove> moves;
        for (const Handle& handle : handles) {
            const Stem* stem = StemAt(handle);
            moves.push_back({handle, {handle.place.x, EndTowards(stem, handle.place.y + by.y)}});
        }
        return moves;
    }
    void Draw(GraphicPort& port, const std::vector<HandleMove>& moves, const DrawContext&) const override {
        for (const HandleMove& move : moves) DrawOutline(port, StemAt(move.handle), move.By().y);
    }
    void Apply(WindowTarn& window, const std::vector<HandleMove>& moves) const override {
        for (const HandleMove& move : moves) {
            Stem* stem = StemAt(move.handle);
            const MeasureRedraw redraw(window, MeasureStaffPar(stemNotes.First(stem)));
            TellLength(stem, move.to.y);
        }
    }

private:
    static void FindIn(const ChordSymbol* column, std::vector<Handle>& handles) {
        for (Stem* stem : chordSymbolStems.Of(column)) {
            if (!HasHandle(stem) || !StaffPar(stemNotes.First(stem))) continue;
            const Rect ink = StemInk(Column(stem));
            handles.push_back(
                {HandleKind::Stem, stem, 0, {(ink.left + ink.right) / 2, LineOf(stem).end}, {}});
        }
    }
};

}  // namespace

const HandleFamily& StemHandles() {
    static const Family family;
    return family;
}

}  // namespace corvane
