#include "layout/ScoreSkeleton.h"

#include "layout/PageFit.h"
#include "layout/PageLayout.h"
#include "layout/ScoreBuilder.h"
#include "model/Clefs.h"
#include "model/Par.h"

namespace corvane {
namespace {

void NumberPages(Document* document) {
    int16_t number = 0;
    for (Page* page : documentPages.Of(document))
        if (page->_pageNumber != ++number) page->_pageNumber = number;
}

System* PrevSystem(const System* system) {
    if (System* before = pageSystems.Prev(system)) return before;
    for (const Page* page = documentPages.Prev(PagePar(system)); page; page = documentPages.Prev(page))
        if (System* last = pageSystems.Last(page)) return last;
    return nullptr;
}

System* NextSystem(const System* system) {
    if (System* behind = pageSystems.Next(system)) return behind;
    for (const Page* page = documentPages.Next(PagePar(system)); page; page = documentPages.Next(page))
        if (System* first = pageSystems.First(page)) return first;
    return nullptr;
}

// The staffs of the system before, or where there is none of the one behind.
void AddStaffsOfNeighbour(System* system) {
    if (const System* before = PrevSystem(system))
        CopyStaffs(before, system, true);
    else if (const System* behind = NextSystem(system))
        CopyStaffs(behind, system, false);
}

// The crossings of a new measure, one a staff of its system, in the score's order behind those of the measure
// before.
void AddCrossings(Measure* measure, const Measure* before, System* system) {
    for (Staff* staff : StaffsFromTop(system)) {
        DocStaff* docStaff = docStaffStaffs.ParentOf(staff);
        MakeMeasureStaff(measure, measureStaffs.Last(measure), docStaff,
                         before ? MeasureStaffAt(before, docStaff) : nullptr, staff);
    }
}

template <class Sign>
void MoveSigns(MeasureStaff* from, MeasureStaff* to) {
    for (StaffMeasureSymbol* symbol : staffSymbols.Of(from))
        if (As<Sign>(symbol)) {
            staffSymbols.Remove(symbol);
            staffSymbols.Add(to, symbol);
        }
}

// The head of a system moves from the measure that was its first to the one that is now.
void MoveHeader(const Measure* from, const Measure* to, bool startsScore) {
    for (MeasureStaff* crossing : measureStaffs.Of(to)) {
        MeasureStaff* old = MeasureStaffAt(from, DocStaffPar(crossing));
        if (!old) continue;
        MoveSigns<StaticClaf>(old, crossing);
        MoveSigns<ClafSignature>(old, crossing);
        if (startsScore) MoveSigns<TimeSignature>(old, crossing);
    }
}

// What holds before the measure is said again; at the start of the score what holds behind it.
void MakeHeader(const Measure* measure, bool startsScore) {
    for (MeasureStaff* crossing : measureStaffs.Of(measure)) {
        const MeasureStaff* behind = startsScore ? NextOnStaff(crossing) : nullptr;
        const MeasureStaff* model = behind ? behind : crossing;
        const int key = KeyInForce(model);
        AddClef(crossing, ClefInForce(model, 0));
        AddKey(crossing, key);
        if (startsScore) AddTime(crossing);
    }
}

}  // namespace

Page* MakePage(Document* document, Page* behind, const Page* model) {
    CORVANE_ASSERT_AS(document, "_doc");
    auto* page = Make<Page>();
    documentPages.Insert(document, page, behind);
    document->_pageCount += 1;
    NumberPages(document);
    if (!model) return page;
    page->_leftMargin = model->_leftMargin;
    page->_rightMargin = model->_rightMargin;
    page->_topMargin = model->_topMargin;
    page->_bottomMargin = model->_bottomMargin;
    System* last = nullptr;
    for (const System* system : pageSystems.Of(model)) last = MakeSystem(page, last, system->_measureCount);
    return page;
}

System* MakeSystem(Page* page, System* behind, int measures) {
    auto* system = Make<System>();
    pageSystems.Insert(page, system, behind);
    page->_systemCount += 1;
    if (const Document* document = documentPages.ParentOf(page)) system->_left = IndentOf(document, system);
    system->_right = Document::pageWidth - page->_leftMargin - page->_rightMargin;
    system->_top = page->_topMargin;
    system->_bottom = Document::pageHeight - page->_bottomMargin;

    AddStaffsOfNeighbour(system);
    Measure* last = nullptr;
    for (int i = 0; i < measures; ++i) last = MakeMeasure(system, last);
    return system;
}

Measure* MakeMeasure(System* system, Measure* behind) {
    auto* measure = Make<Measure>();
    JoinMeasure(system, measure, behind);
    return measure;
}

void JoinMeasure(System* system, Measure* measure, Measure* behind) {
    const Measure* wasFirst = systemMeasures.First(system);
    systemMeasures.Insert(system, measure, behind);
    system->_measureCount += 1;

    const Measure *before = PrevMeasure(measure), *model = before ? before : NextMeasure(measure);
    measure->_num = model ? model->_num.Get() : int16_t{4};
    measure->_den = model ? model->_den.Get() : int16_t{4};
    measure->_number = before ? before->_number + 1 : 1;
    AddCrossings(measure, before, system);
    if (!behind) wasFirst ? MoveHeader(wasFirst, measure, !before) : MakeHeader(measure, !before);
}

MeasureStaff* MakeMeasureStaff(Measure* measure, MeasureStaff* behindInMeasure, DocStaff* docStaff,
                               MeasureStaff* behindOnStaff, Staff* staff) {
    auto* crossing = Make<MeasureStaff>();
    measureStaffs.Insert(measure, crossing, behindInMeasure);
    docStaffMeasureStaffs.Insert(docStaff, crossing, behindOnStaff);
    crossing->_staff = staff;
    MakeVoice(crossing, 1);
    return crossing;
}

Voice* MakeVoice(MeasureStaff* measureStaff, int number) {
    Voice* behind = nullptr;
    for (Voice* other : measureStaffVoices.Of(measureStaff))
        if (other->_number < number) behind = other;
    auto* voice = Make<Voice>();
    voice->_number = static_cast<int16_t>(number);
    measureStaffVoices.Insert(measureStaff, voice, behind);
    DocStaff* docStaff = DocStaffPar(measureStaff);
    if (docStaff && docStaff->_voiceCount < number) docStaff->_voiceCount = static_cast<int16_t>(number);
    return voice;
}

}  // namespace corvane
