// Hairpins, octave lines, trill lines and pedal lines.
#include <algorithm>
#include <cstdlib>
#include <utility>

#include "edit/DeletionSteps.h"
#include "edit/Signs.h"
#include "edit/SpannerSteps.h"
#include "edit/Spanners.h"
#include "edit/TarnClick.h"
#include "edit/TarnDestroy.h"
#include "layout/AboveStaff.h"
#include "layout/NoteGeometry.h"
#include "layout/SlurSigns.h"
#include "layout/SpannerLines.h"
#include "model/NoteOperations.h"
#include "model/Par.h"
#include "model/SymbolTable.h"

namespace corvane {
namespace {

constexpr int32_t kOpening = 1300;  // of a new hairpin, thousandths of the line distance
constexpr int32_t kLeastLength = 200, kUsualLength = 800;  // hundredths

bool IsRun(const LineRange& range) {
    if (!range.first || !range.last || DocStaffPar(range.first) != DocStaffPar(range.last)) return false;
    const int32_t first = MeasurePar(range.first)->_number, last = MeasurePar(range.last)->_number;
    return first < last || (first == last && range.from < range.to);
}

// Brackets of endings stand outside lines over the top staff.
void RaiseEndingsOver(WindowTarn& window, const StaffMeasureSymbol* mark) {
    for (StaffMeasureSymbol* each : MarksOf(mark)) {
        const SpannerPart part = PartOf(each);
        const std::vector<const MeasureStaff*> crossings =
            part ? part.Crossings() : std::vector<const MeasureStaff*>();
        if (crossings.empty() || TopStaffOf(MeasurePar(crossings.front())) != crossings.front()->_staff)
            continue;
        RaiseEndings(window, {MeasurePar(crossings.front()), MeasurePar(crossings.back())},
                     PatchOf(each).Bounds());
    }
}

// Makes a line of a class within a step of its own; `dress` gives it what its class alone has.
template <class Spanner, class Mark, class Rel, class Dress>
Status InsertLine(WindowTarn& window, const LineRange& range, const Rel& relation, LineKind kind,
                  Dress dress) {
    if (!IsRun(range)) return {Fault::Refused, "A line leads from a place of a staff to a later one"};
    const EditStep step(window);
    auto* spanner = Make<Spanner>();
    spanner->_from = range.from;
    spanner->_to = range.to;
    dress(spanner);
    MakeMarks<Mark>(relation, spanner, range.first, range.last);
    Mark* mark = relation.First(spanner);
    SettleMarks(mark);
    spanner->_y = range.y ? *range.y : ClearY(mark, range.from, range.to, kind);
    FileMarks(window, mark);
    if (kind == LineKind::OctaveAbove) RaiseEndingsOver(window, mark);
    return Status::Ok();
}

Rect InkOfEvent(const VoiceSymbol* symbol) {
    if (const auto* pause = As<Pause>(symbol)) return RectOf(pause);
    return RectOf(ChordSymbolPar(As<Chords>(symbol)));
}

int32_t PlaceIn(const MeasureStaff* crossing, int32_t x) {
    return FrameOf(MeasurePar(crossing)).PerMilleOfX(x);
}

// What a stroke of the pencil asks for, in either direction; a mere click asks for a line of usual length
// within its measure. The line stands at the height of the press.
LineRange RangeOfStroke(WindowTarn& window, Point from, Point to, bool& backward) {
    System *system = FindSystem(window.CurrentPage(), from.y),
           *lastSystem = FindSystem(window.CurrentPage(), to.y);
    LineRange range;
    range.first = system ? FindMeasureStaff(system, from) : nullptr;
    const Staff* staff = range.first ? range.first->_staff.Get() : nullptr;
    if (!staff || staff->_lineDistance <= 0) return {};
    const int32_t space = staff->_lineDistance;
    if (std::abs(to.x - from.x) * 100 < kLeastLength * space && system == lastSystem)
        to = {from.x + kUsualLength * space / 100, from.y};
    range.y = (from.y - FrameOf(staff).top) * 1000 / space;
    Measure* measure = lastSystem ? FindMeasure(lastSystem, to.x) : nullptr;
    range.last = measure ? MeasureStaffAt(measure, DocStaffPar(range.first)) : nullptr;
    range.from = std::clamp(PlaceIn(range.first, from.x), 0, 1000);
    range.to = range.last ? std::clamp(PlaceIn(range.last, to.x), 0, 1000) : 0;
    backward = range.last && !IsRun(range);
    if (backward) {
        std::swap(range.first, range.last);
        std::swap(range.from, range.to);
    }
    return range;
}

void Tell(WindowTarn& window, const Status& status) {
    if (!status) window.Shell().Tell(status.message());
}

std::vector<Corona*> FermatasUnder(const std::vector<StaffMeasureSymbol*>& marks) {
    std::vector<Corona*> fermatas;
    for (const StaffMeasureSymbol* mark : marks)
        for (Corona* fermata : FermatasUnder(mark)) fermatas.push_back(fermata);
    return fermatas;
}

// Of those that the sheet shows: they stand outside slurs.
void Refile(WindowTarn& window, const std::vector<Corona*>& fermatas) {
    for (Corona* fermata : fermatas)
        if (const DrawPatch patch = PatchOf(fermata); window.Sheet().IsFiled(patch))
            window.Sheet().AddObject(patch, VoicePar(noteAttributes.ParentOf(fermata))->_number);
}

}  // namespace

void FileMarks(WindowTarn& window, const StaffMeasureSymbol* mark) {
    for (StaffMeasureSymbol* each : MarksOf(mark))
        if (PagePar(MeasurePar(each)) == window.Sheet().CurrentPage())
            window.Sheet().AddObject(PatchOf(each), 0);
    Refile(window, FermatasUnder(MarksOf(mark)));
}

void DeleteSpanner(WindowTarn& window, StaffMeasureSymbol* mark) {
    const std::vector<StaffMeasureSymbol*> marks = MarksOf(mark);
    const std::vector<Corona*> fermatas = FermatasUnder(marks);
    for (StaffMeasureSymbol* each : marks) TakeOff(window, each);
    if (!marks.empty()) DestroyStaffMeasureSymbol(marks.front());
    Refile(window, fermatas);
}

Status InsertHairpin(WindowTarn& window, const LineRange& range, HairpinKind kind) {
    return InsertLine<Hairpin, MarkHairpin>(window, range, hairpinMarks, LineKind::Hairpin,
                                            [&](Hairpin* hairpin) {
                                                hairpin->_kind = kind;
                                                hairpin->_opening = kOpening;
                                            });
}

Status InsertOttava(WindowTarn& window, const LineRange& range, std::string_view symbol) {
    const LineKind kind = symbol.find("Giu") == symbol.npos ? LineKind::OctaveAbove : LineKind::OctaveBelow;
    return InsertLine<Ottava, MarkOttava>(window, range, ottavaMarks, kind, [&](Ottava* ottava) {
        ottava->_symbol = LookupSymbol(window.GetDocument(), symbol);
    });
}

Status InsertTrillo(WindowTarn& window, const LineRange& range) {
    return InsertLine<Trillo, MarkTrillo>(window, range, trilloMarks, LineKind::Trill, [&](Trillo* trill) {
        trill->_symbol = LookupSymbol(window.GetDocument(), "_Trillo_");
        trill->_bracket = LookupSymbol(window.GetDocument(), "_TrilloBracket_");
    });
}

Status InsertPedale(WindowTarn& window, const LineRange& range) {
    return InsertLine<Pedale, MarkPedale>(window, range, pedaleMarks, LineKind::Pedal, [](Pedale*) {});
}

std::vector<LineRange> RangesOf(const std::vector<VoiceSymbol*>& symbols) {
    std::vector<LineRange> ranges;
    for (const VoiceSymbol* symbol : symbols) {
        MeasureStaff* crossing = MeasureStaffPar(symbol);
        const Rect ink = InkOfEvent(symbol);
        auto range = std::find_if(ranges.begin(), ranges.end(), [&](const LineRange& each) {
            return DocStaffPar(each.first) == DocStaffPar(crossing);
        });
        const int32_t left = PlaceIn(crossing, ink.left), right = PlaceIn(crossing, ink.right);
        if (range == ranges.end()) {
            ranges.push_back({crossing, crossing, left, right, {}});
            continue;
        }
        range->to = range->last == crossing ? std::max(range->to, right) : right;
        if (range->first == crossing) range->from = std::min(range->from, left);
        range->last = crossing;
    }
    return ranges;
}

void HairpinStroke(WindowTarn& window, const PaletteItem&, Point from, Point to, int) {
    bool backward = false;
    const LineRange range = RangeOfStroke(window, from, to, backward);
    const HairpinKind kind = backward ? HairpinKind::Diminuendo : HairpinKind::Crescendo;
    Tell(window, InsertHairpin(window, range, kind));
}

void OttavaStroke(WindowTarn& window, const PaletteItem& item, Point from, Point to, int) {
    bool backward = false;
    Tell(window, InsertOttava(window, RangeOfStroke(window, from, to, backward), item.descriptor));
}

void TrilloStroke(WindowTarn& window, const PaletteItem&, Point from, Point to, int) {
    bool backward = false;
    Tell(window, InsertTrillo(window, RangeOfStroke(window, from, to, backward)));
}

void PedaleStroke(WindowTarn& window, const PaletteItem&, Point from, Point to, int) {
    bool backward = false;
    Tell(window, InsertPedale(window, RangeOfStroke(window, from, to, backward)));
}

}  // namespace corvane
