// Texts at a staff and on a page.
#include "edit/DeletionSteps.h"
#include "edit/Texts.h"
#include "layout/Frames.h"
#include "layout/PageFiling.h"
#include "layout/PageLayout.h"
#include "layout/StaffNames.h"
#include "layout/TextPlaces.h"
#include "model/Par.h"
#include "model/Preferences.h"
#include "model/RecordRelease.h"

namespace corvane {
namespace {

void FileText(WindowTarn& window, void* text, const Page* page) {
    if (page == window.CurrentPage()) window.Sheet().AddObject(PatchOf(text), 0);
}

}  // namespace

TextLook StaffTextLook(const Document* document) {
    const auto* preferences = Preferences<TextPref>(document);
    TextLook look = LookOf(preferences ? preferences->_font.Get() : nullptr);
    if (look.style == kPlainStyle) look.style = kItalicStyle;
    return look;
}

TextLook PageTextLook(const Document* document) {
    const auto* preferences = Preferences<TextPref>(document);
    return LookOf(preferences ? preferences->_pageFont.Get() : nullptr);
}

MeasureStaffText* InsertMeasureStaffText(WindowTarn& window, MeasureStaff* crossing, Point at,
                                         std::string_view text, const TextLook& look) {
    const Staff* staff = crossing->_staff;
    if (!staff || staff->_lineDistance <= 0 || text.empty()) return nullptr;
    const EditStep step(window);
    auto* made = Make<MeasureStaffText>();
    staffSymbols.Add(crossing, made);
    made->_text = MakeGenericText(DocumentPar(crossing), CutText(text, kMostTextBytes), look);
    made->_x = FrameOf(MeasurePar(crossing)).PerMilleOfX(at.x);
    made->_y = (at.y - FrameOf(staff).top) * 1000 / staff->_lineDistance;
    FileText(window, made, PagePar(MeasurePar(crossing)));
    return made;
}

PageText* InsertPageText(WindowTarn& window, Page* page, Point at, std::string_view text,
                         const TextLook& look) {
    if (text.empty()) return nullptr;
    const EditStep step(window);
    auto* made = Make<PageText>();
    pageTexts.Add(page, made);
    made->_text = MakeGenericText(window.GetDocument(), CutText(text, kMostTextBytes), look);
    made->_x = at.x;
    made->_y = at.y;
    FileText(window, made, page);
    return made;
}

void ChangeMeasureStaffText(WindowTarn& window, MeasureStaffText* field, std::string_view text,
                            const TextLook& look) {
    const EditStep step(window);
    if (text.empty()) return DeleteMeasureStaffText(window, field);
    TakeOff(window, field);
    ChangeGenericText(window.GetDocument(), field->_text, CutText(text, kMostTextBytes), look);
    FileText(window, field, PagePar(MeasurePar(field)));
}

void ChangePageText(WindowTarn& window, PageText* field, std::string_view text, const TextLook& look) {
    const EditStep step(window);
    if (text.empty()) return DeletePageText(window, field);
    TakeOff(window, field);
    ChangeGenericText(window.GetDocument(), field->_text, CutText(text, kMostTextBytes), look);
    FileText(window, field, pageTexts.ParentOf(field));
}

void DropTextMarks(MeasureStaffText* text) {
    while (MarkText* mark = textMarks.First(text)) {
        textMarks.Remove(mark);
        if (allStaffTextMarks.ParentOf(mark)) allStaffTextMarks.Remove(mark);
        Release(mark);
    }
}

void DeleteMeasureStaffText(WindowTarn& window, MeasureStaffText* text) {
    TakeOff(window, text);
    DropTextMarks(text);
    staffSymbols.Remove(text);
    DropRecord(window.GetDocument(), text);
}

void DeletePageText(WindowTarn& window, PageText* text) {
    TakeOff(window, text);
    pageTexts.Remove(text);
    DropRecord(window.GetDocument(), text);
}

void ChangeTextStaves(WindowTarn& window, MeasureStaffText* text, bool allStaves) {
    const EditStep step(window);
    TakeOff(window, text);
    DropTextMarks(text);
    const Staff* own = MeasureStaffPar(text)->_staff;
    if (allStaves && own)
        for (Staff* staff : StaffsFromTop(SystemPar(own)))
            if (AllStaff* line = staff == own || IsShownAt(text, staff) ? nullptr : AllStaffOf(staff)) {
                auto* mark = Make<MarkText>();
                textMarks.Add(text, mark);
                allStaffTextMarks.Add(line, mark);
            }
    FileText(window, text, PagePar(MeasurePar(text)));
}

}  // namespace corvane
