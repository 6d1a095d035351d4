#include "layout/MovedPictures.h"

#include "layout/DrawFamilies.h"
#include "layout/HeadShapes.h"
#include "layout/HiddenInk.h"
#include "layout/NoteGeometry.h"
#include "model/NoteOperations.h"
#include "model/Par.h"
#include "model/SymbolTable.h"

namespace corvane {
namespace {

template <class Mark>
void PaintPart(GraphicPort& port, const StaffMeasureSymbol* mark, const SpannerPart& part,
               const LineRun& run) {
    Paint(port, *static_cast<const Mark*>(mark), part, run);
}

constexpr struct {
    bool (*is)(int16_t number);
    void (*paint)(GraphicPort& port, const StaffMeasureSymbol* mark, const SpannerPart& part,
                  const LineRun& run);
} kLines[] = {
    {IsClass<MarkHairpin>, PaintPart<MarkHairpin>},
    {IsClass<MarkOttava>, PaintPart<MarkOttava>},
    {IsClass<MarkTrillo>, PaintPart<MarkTrillo>},
    {IsClass<MarkPedale>, PaintPart<MarkPedale>},
};

}  // namespace

void PaintHeadOn(GraphicPort& port, const GenericNote* note, int line) {
    const StaffFrame staff = FrameOf(StaffPar(note));
    const Column column(StemPar(note));
    const Point place = DrawnPlaceOf(note, column);
    const int32_t up = (line - note->_line) * staff.lineDistance / 2;
    DrawSymbol(port, note->_symbol, place.x, place.y - up, staff.lineDistance, note->_size,
               SideLetterOf(note));
    Paint(port, LedgerLinesOf(note, column, line));
}

void PaintRun(GraphicPort& port, const StaffMeasureSymbol* mark, const LineRun& run, const Page* page) {
    for (const auto& line : kLines)
        if (line.is(mark->ClassNumber()))
            for (const System* system : pageSystems.Of(page))
                if (const SpannerPart part = PartOn(system, run.first, run.last))
                    line.paint(port, mark, part, run);
}

void PaintBeamMoved(GraphicPort& port, const Beam* beam, const BeamMove& move, const DrawContext& context) {
    const PenKept kept(port);
    const auto endMovedBy = [&](const Stem* stem) {
        return BeamOf(stem) == beam ? MoveAt(beam, move, BeamXOf(stem)) : 0;
    };
    for (const BeamPost& post : PostsOf(beam)) {
        const ChordSymbol* column = ChordSymbolPar(post.stem);
        port.SetColor(context.ColourOf(VoiceNumberOf(*column)));
        Paint(port, *column, context, endMovedBy);
    }
    if (IsHidden(beam) && !UseHiddenColour(port, context.hiddenStems, context.printing)) return;
    for (const BeamStroke& stroke : StrokesOf(beam)) {
        port.SetPenSize(1, stroke.thickness);
        port.DrawLine(stroke.from.x, stroke.from.y + MoveAt(beam, move, stroke.from.x), stroke.to.x,
                      stroke.to.y + MoveAt(beam, move, stroke.to.x));
    }
}

}  // namespace corvane
