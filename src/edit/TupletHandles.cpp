// Tuplets: a handle at either end of the bracket; without a bracket one beside the figure, which both ends
// follow.
#include <algorithm>

#include "base/Rounding.h"
#include "edit/HandleFamily.h"
#include "edit/MeasureRedraw.h"
#include "edit/SessionChoices.h"
#include "edit/Spanners.h"
#include "graphics/GraphicPort.h"
#include "layout/HiddenInk.h"
#include "layout/TupletShape.h"
#include "model/NoteOperations.h"
#include "model/Par.h"

namespace corvane {
namespace {

enum Part { kLeft = 0, kRight = 1, kWhole = 2 };

constexpr int32_t kBesideFigure = 45;  // hundredths of a line distance

Irregular* TupletAt(const Handle& handle) { return static_cast<Irregular*>(handle.target); }
TupletPicture PictureNow(const Handle& handle) {
    return PictureOf(TupletAt(handle), EndsOf(TupletAt(handle)));
}

bool IsWithin(const std::vector<Handle>& handles, const Irregular* tuplet, int part) {
    return std::any_of(handles.begin(), handles.end(),
                       [&](const Handle& each) { return each.target == tuplet && each.part == part; });
}

// A bracket stays a line distance wide at least.
int32_t EndTowards(const Handle& handle, const TupletPicture& picture, int32_t x) {
    const int32_t distance = picture.lineDistance;
    if (handle.part == kLeft) return std::min(x, std::max(handle.place.x, picture.right.x - distance));
    return std::max(x, std::min(handle.place.x, picture.left.x + distance));
}

// With all moves of its handles.
TupletEnds EndsBehind(const Irregular* tuplet, const std::vector<HandleMove>& moves) {
    TupletEnds ends = EndsOf(tuplet);
    for (const HandleMove& move : moves) {
        if (move.handle.target != tuplet) continue;
        const double distance = std::max(PictureNow(move.handle).lineDistance, 1);
        const Point by{Round(move.By().x * 100 / distance), Round(move.By().y * 100 / distance)};
        if (move.handle.part != kRight) ends.left = ends.left + by;
        if (move.handle.part != kLeft) ends.right = ends.right + by;
    }
    return ends;
}

class Family : public HandleFamily {
public:
    void Find(const Page* page, std::vector<Handle>& handles) const override {
        for (const System* system : pageSystems.Of(page))
            for (const Measure* measure : systemMeasures.Of(system))
                for (const MeasureStaff* crossing : measureStaffs.Of(measure))
                    for (const Voice* voice : measureStaffVoices.Of(crossing))
                        for (const VoiceSymbol* event : voiceSymbols.Of(voice)) FindAt(event, handles);
    }
    std::vector<HandleMove> Moved(const std::vector<Handle>& handles, Point by) const override {
        std::vector<HandleMove> moves;
        for (const Handle& handle : handles) {
            Point to = handle.place + by;
            const bool alone = handle.part != kWhole && !IsWithin(handles, TupletAt(handle), 1 - handle.part);
            if (alone) to.x = EndTowards(handle, PictureNow(handle), to.x);
            moves.push_back({handle, to});
        }
        return moves;
    }
    std::vector<DrawPatch> Lifted(const Handle& handle) const override {
        return {PatchOf(irregularMarks.First(TupletAt(handle)))};
    }
    void Draw(GraphicPort& port, const std::vector<HandleMove>& moves,
              const DrawContext& context) const override {
        port.SetColor(context.ColourOf(0));
        for (const HandleMove& move : moves) {
            const Irregular* tuplet = TupletAt(move.handle);
            Paint(port, *irregularMarks.First(tuplet), PictureOf(tuplet, EndsBehind(tuplet, moves)), context);
        }
    }
    // Both handles of one lead to the same ends.
    void Apply(WindowTarn& window, const std::vector<HandleMove>& moves) const override {
        std::vector<std::pair<Irregular*, TupletEnds>> all;
        for (const HandleMove& move : moves)
            all.emplace_back(TupletAt(move.handle), EndsBehind(TupletAt(move.handle), moves));
        for (const auto& [tuplet, ends] : all) {
            const VoiceSymbol* event = voiceSymbolAttributes.ParentOf(irregularMarks.First(tuplet));
            const MeasureRedraw redraw(window, MeasureStaffPar(event));
            MoveEnds(tuplet, ends);
        }
    }
    void Delete(WindowTarn& window, const Handle& handle) const override {
        DeleteIrregular(window, TupletAt(handle));
    }
    bool CanDelete() const override { return true; }

private:
    static void FindAt(const VoiceSymbol* event, std::vector<Handle>& handles) {
        for (const VoiceSymbolAttribute* attribute : voiceSymbolAttributes.Of(event)) {
            const auto* mark = As<MarkIrreg>(attribute);
            Irregular* tuplet = mark ? irregularMarks.ParentOf(mark) : nullptr;
            if (!tuplet || irregularMarks.First(tuplet) != mark) continue;
            if (IsHidden(tuplet) && !Choices().hiddenNotes.show) continue;
            const TupletPicture picture = PictureOf(tuplet, EndsOf(tuplet));
            const auto add = [&](int part, Point place) {
                handles.push_back({HandleKind::Tuplet, tuplet, part, place, {}});
            };
            if (picture.bracketed) add(kLeft, picture.left), add(kRight, picture.right);
            if (picture.bracketed || picture.IsEmpty()) continue;
            const Rect& ink = picture.figureInk;
            const int32_t out = kBesideFigure * picture.lineDistance / 100;
            add(kWhole, {(ink.left + ink.right) / 2, picture.hook > 0 ? ink.top - out : ink.bottom + out});
        }
    }
};

}  // namespace

const HandleFamily& TupletHandles() {
    static const Family family;
    return family;
}

}  // namespace corvane
