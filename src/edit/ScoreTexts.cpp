#include "edit/ScoreTexts.h"

#include <string>

#include "edit/DeletionSteps.h"
#include "edit/StructureStep.h"
#include "layout/PageFit.h"
#include "layout/StaffNames.h"
#include "model/Preferences.h"
#include "model/Texts.h"

namespace corvane {
namespace {

template <class Field, class Value>
void Put(Field& field, Value value) {
    if (field.Get() != value) field = value;
}

void MakeRoom(Document* document, bool shortNames) {
    auto* preferences = Preferences<StaffPref>(document);
    Put(preferences->_nameWidth, static_cast<int16_t>(WidthOfNames(document, LongName)));
    Put(preferences->_shortNameWidth,
        static_cast<int16_t>(shortNames ? WidthOfNames(document, ShortName) : 0));
    for (const Page* page : documentPages.Of(document))
        for (System* system : pageSystems.Of(page)) FitWidth(system);
}

// Whether any staff has a short name of its own: then later systems show names too.
bool HasShortNames(const Document* document) {
    for (const DocStaff* docStaff : documentDocStaffs.Of(document))
        if (const Staff* staff = docStaffStaffs.First(docStaff))
            if (NameOf(AllStaffOf(staff)).find('\n') != std::string_view::npos) return true;
    return false;
}

}  // namespace

void ChangeTitle(WindowTarn& window, std::string_view title) {
    Document* document = window.GetDocument();
    if (TitleOf(document) == CutText(title, kMostTitleBytes)) return;
    const EditStep step(window);
    TakeOff(window, document);
    SetTitle(document, title);
    if (!TitleOf(document).empty() && window.CurrentPage() == documentPages.First(document))
        window.Sheet().AddObject(PatchOf(document), 0);
}

Status ChangeStaffName(WindowTarn& window, DocStaff* staff, std::string_view name,
                       std::string_view shortName) {
    Staff* shown = docStaffStaffs.First(staff);
    AllStaff* line = shown ? AllStaffOf(shown) : nullptr;
    if (!line) return {Fault::Refused, "This staff has no line in the part list"};
    std::string both(CutText(name, kMostNameBytes));
    if (!shortName.empty()) both += '\n' + std::string(CutText(shortName, kMostNameBytes));
    if (TextOf(line->_name) == both) return Status::Ok();
    StructureStep step(window);
    SetText(line->_name, both);
    MakeRoom(window.GetDocument(), HasShortNames(window.GetDocument()));
    return Status::Ok();
}

MeasureNumbering MeasureNumberingOf(const Document* document) {
    const auto* preferences = Preferences<MeasurePreferences>(document);
    return {preferences->_showNumbers != 0, static_cast<Numbering>(preferences->_numbering.Get()),
            preferences->_numberStep, static_cast<NumberStaves>(preferences->_numberPlacement.Get()),
            preferences->_firstNumber};
}

void ChangeMeasureNumbers(WindowTarn& window, const MeasureNumbering& numbering) {
    const StructureStep step(window);
    auto* preferences = Preferences<MeasurePreferences>(window.GetDocument());
    Put(preferences->_showNumbers, static_cast<uint8_t>(numbering.shown));
    Put(preferences->_numbering, static_cast<int16_t>(numbering.numbering));
    Put(preferences->_numberStep, static_cast<int16_t>(numbering.step));
    Put(preferences->_numberPlacement, static_cast<uint8_t>(numbering.staves));
    Put(preferences->_firstNumber, static_cast<int32_t>(numbering.first));
}

}  // namespace corvane
