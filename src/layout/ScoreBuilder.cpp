#include "layout/ScoreBuilder.h"

#include "layout/PageLayout.h"
#include "model/Preferences.h"

namespace corvane {
namespace {

constexpr int8_t kPageByte = 9;

}  // namespace

Document* BuildNewScore(const PageLayout& layout, std::string_view staffs) {
    auto* document = Make<Document>();
    document->_word148 = 1;
    MakeDefaultPreferences(document);
    RefreshPreferences(document);
    Document::pageByte = kPageByte;

    Page* page = MakePage(document, nullptr, nullptr);
    page->_rightMargin = 550;
    page->_bottomMargin = 750;
    page->_topMargin = 1800;
    page->_leftMargin = 1600;
    System* last = nullptr;
    for (int i = 0; i < layout.systemsPerPage; ++i) last = MakeSystem(page, last, layout.measuresPerSystem);
    BuildStaffs(document, staffs);
    NumberMeasures(document);
    LayOutPages(document);
    return document;
}

}  // namespace corvane
