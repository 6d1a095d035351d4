#include "edit/StaffLayouts.h"

#include "layout/ScoreBuilder.h"

namespace corvane {

StaffLayouts::StaffLayouts(Document* document) : _document(document) {
    for (const Page* page : documentPages.Of(document))
        for (System* system : pageSystems.Of(page)) _areas.emplace_back(system);
}

void StaffLayouts::Apply() const {
    for (const NoteAreas& areas : _areas) areas.Apply();
    for (Page* page : documentPages.Of(_document))
        if (!pageSystems.IsEmpty(page)) CenterSystems(_document, page);
}

}  // namespace corvane
