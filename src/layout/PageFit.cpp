#include "layout/PageFit.h"

#include <algorithm>

#include "layout/MeasureFlow.h"
#include "layout/NoteAreas.h"
#include "layout/PageLayout.h"
#include "model/Par.h"
#include "model/Preferences.h"

namespace corvane {
void TakePageSize(const Document* document) {
    const auto* page = document ? Preferences<PagePref>(document) : nullptr;
    if (!page) return;
    Document::pageHeight = std::max<int32_t>(page->_pageHeight, kLeastPageHeight);
    Document::pageWidth = std::max<int32_t>(page->_pageWidth, kLeastPageWidth);
}

System* FirstSystem(const Document* document) {
    for (const Page* page : documentPages.Of(document))
        if (System* first = pageSystems.First(page)) return first;
    return nullptr;
}

int32_t IndentOf(const Document* document, const System* system) {
    const auto* preferences = Preferences<StaffPref>(document);
    if (!preferences) return 0;
    return system == FirstSystem(document) ? preferences->_nameWidth : preferences->_shortNameWidth;
}

int32_t FullRight(const System* system) {
    const Page* page = PagePar(system);
    return Document::pageWidth - page->_leftMargin - page->_rightMargin;
}

void FitWidth(System* system) {
    SetSides(system, IndentOf(DocumentPar(PagePar(system)), system), FullRight(system));
}

void SetSides(System* system, int32_t left, int32_t right) {
    if (system->_left == left && system->_right == right) return;
    const NoteAreas areas(system);
    system->_left = left;
    system->_right = right;
    for (Staff* staff : StaffsFromTop(system)) staff->_right = right - left;
    areas.Apply();
}

void FitPage(Document* document, Page* page) {
    for (System* system : pageSystems.Of(page)) FitWidth(system);
    RefitSystems(document, page);
}

}  // namespace corvane
