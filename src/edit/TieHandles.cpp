// Ties: a handle over the top of the arch; of one over two systems on the piece that comes first on the page.
#include <algorithm>
#include <cstdlib>

#include "edit/HandleFamily.h"
#include "edit/MeasureRedraw.h"
#include "edit/SessionChoices.h"
#include "graphics/GraphicPort.h"
#include "layout/HiddenInk.h"
#include "layout/TieShape.h"
#include "model/NoteOperations.h"
#include "model/Par.h"
#include "model/Ties.h"

namespace corvane {
namespace {

// Let go so near to the height that its length gives it, a tie follows that again. Page units.
constexpr int32_t kSnap = 10;
constexpr int32_t kBesideArch = 60;  // hundredths of a line distance

TieValue* TieAt(const Handle& handle) { return static_cast<TieValue*>(handle.target); }

// Beside the top of the arch, so that a short tie is still seen.
Point PlaceOn(const TiePiece& piece) {
    const TaperedCurve& c = piece.curve;
    const int32_t out = kBesideArch * piece.lineDistance / 100;
    return {(c.from.x + 3 * (c.control1.x + c.control2.x) + c.to.x) / 8,
            (c.from.y + 3 * (c.control1.y + c.control2.y) + c.to.y) / 8 + (piece.up ? -out : out)};
}

// The piece that a handle stands on.
const MarkValue* MarkOf(const Handle& handle) {
    for (const MarkValue* mark : tieMarks.Of(TieAt(handle))) {
        const TiePiece piece = PieceOf(*mark);
        if (!piece.curve.IsEmpty() && PlaceOn(piece) == handle.place) return mark;
    }
    return nullptr;
}

int32_t HeightAt(const HandleMove& move, const TiePiece& piece) {
    const int32_t out = piece.up ? -move.By().y : move.By().y;
    const int32_t distance = std::max(piece.lineDistance, 1);
    return std::max(piece.height + out * 1000 / distance, std::min(piece.height, kFlattestTie));
}

// 0 for by the rule.
int32_t HeightToTell(const HandleMove& move, const MarkValue& mark) {
    const int32_t height = HeightAt(move, PieceOf(mark)), rule = PieceOf(mark, 0).height;
    if (std::abs(height - rule) * PieceOf(mark).lineDistance <= kSnap * 1000) return 0;
    return height ? height : 1;
}

class Family : public HandleFamily {
public:
    void Find(const Page* page, std::vector<Handle>& handles) const override {
        for (const System* system : pageSystems.Of(page))
            for (const Measure* measure : systemMeasures.Of(system))
                for (const MeasureSymbol* symbol : measureSymbols.Of(measure))
                    if (const auto* column = As<ChordSymbol>(symbol))
                        for (const Chords* chord : chordSymbolChords.Of(column))
                            for (const GenericNote* note : chordNotes.Of(chord)) FindAt(note, page, handles);
    }
    std::vector<HandleMove> Moved(const std::vector<Handle>& handles, Point by) const override {
        std::vector<HandleMove> moves;
        for (const Handle& handle : handles) {
            HandleMove move{handle, handle.place + Point{0, by.y}};
            const MarkValue* mark = MarkOf(handle);
            if (!mark) continue;
            const TiePiece piece = PieceOf(*mark);
            const int32_t out = (HeightAt(move, piece) - piece.height) * piece.lineDistance / 1000;
            move.to.y = handle.place.y + (piece.up ? -out : out);
            moves.push_back(move);
        }
        return moves;
    }
    std::vector<DrawPatch> Lifted(const Handle& handle) const override {
        std::vector<DrawPatch> patches;
        for (MarkValue* mark : tieMarks.Of(TieAt(handle))) patches.push_back(PatchOf(mark));
        return patches;
    }
    void Draw(GraphicPort& port, const std::vector<HandleMove>& moves,
              const DrawContext& context) const override {
        port.SetColor(context.ColourOf(0));
        for (const HandleMove& move : moves)
            if (const MarkValue* own = MarkOf(move.handle))
                for (const MarkValue* mark : tieMarks.Of(TieAt(move.handle)))
                    Paint(port, PieceOf(*mark, HeightToTell(move, *own)).curve);
    }
    void Apply(WindowTarn& window, const std::vector<HandleMove>& moves) const override {
        for (const HandleMove& move : moves) {
            const MarkValue* mark = MarkOf(move.handle);
            if (!mark) continue;
            const MeasureRedraw own(window, MeasureStaffPar(noteAttributes.ParentOf(mark)));
            const MeasureRedraw other(window, MeasureStaffPar(TiePartnerOf(mark)));
            TieAt(move.handle)->_height = HeightToTell(move, *mark);
        }
    }

private:
    static void FindAt(const GenericNote* note, const Page* page, std::vector<Handle>& handles) {
        for (const NoteAttribute* attribute : noteAttributes.Of(note)) {
            const auto* mark = As<MarkValue>(attribute);
            if (!mark || (IsHidden(mark) && !Choices().hiddenNotes.show)) continue;
            const TiePiece piece = PieceOf(*mark);
            const GenericNote* partner = TiePartnerOf(mark);
            if (piece.curve.IsEmpty() ||
                (PagePar(MeasurePar(partner)) == page && !StandsBefore(note, partner)))
                continue;
            handles.push_back({HandleKind::Tie, tieMarks.ParentOf(mark), 0, PlaceOn(piece), {}});
        }
    }
};

}  // namespace

const HandleFamily& TieHandles() {
    static const Family family;
    return family;
}

}  // namespace corvane
