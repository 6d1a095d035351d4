// Pages, systems, measures, staves and their crossings.
#include "model/ScoreCheckRules.h"

namespace corvane {
namespace {

System* SystemOfStaff(const Staff* staff) {
    if (staff->ClassNumber() == SimpleStaff::kClass)
        return systemStaffs.ParentOf(static_cast<const SimpleStaff*>(staff));
    const StaffCustom* group = customStaffs.ParentOf(static_cast<const StaffBot*>(staff));
    return systemStaffs.ParentOf(group);
}

void CheckMeasure(ScoreProof& proof, Measure* measure) {
    int crossings = 0;
    bool inOrder = true;
    const DocStaff* expected = documentDocStaffs.First(proof.document);
    for (const MeasureStaff* crossing : measureStaffs.Of(measure)) {
        ++crossings;
        inOrder = inOrder && docStaffMeasureStaffs.ParentOf(crossing) == expected;
        expected = expected ? documentDocStaffs.Next(expected) : nullptr;
    }
    proof.Expect(crossings == proof.docStaffCount, measure,
                 "the measure has not one crossing for each staff");
    proof.Expect(inOrder, measure, "the crossings are not in the order of the staves");
}

void CheckCrossing(ScoreProof& proof, MeasureStaff* crossing) {
    proof.Expect(!measureStaffVoices.IsEmpty(crossing), crossing, "the crossing has no voice");
    int before = 0;
    for (const Voice* voice : measureStaffVoices.Of(crossing)) {
        proof.Expect(voice->_number > before && voice->_number <= DocStaff::kVoices, voice,
                     "the voices are not numbered upwards from 1 to 8");
        before = voice->_number;
    }
    DocStaff* docStaff = docStaffMeasureStaffs.ParentOf(crossing);
    if (docStaff->_voiceCount < before) proof.ExpectNumber(docStaff->_voiceCount, before, "count of voices");
    const Staff* staff = crossing->_staff;
    if (!staff) return;
    proof.Expect(docStaffStaffs.ParentOf(staff) == docStaff, crossing,
                 "a staff of another part draws the crossing");
    proof.Expect(SystemOfStaff(staff) == systemMeasures.ParentOf(measureStaffs.ParentOf(crossing)), crossing,
                 "a staff of another system draws the crossing");
}

// Crossings of a part stand in the order of the measures; numbers are set before this is asked.
void CheckPart(ScoreProof& proof, const DocStaff* docStaff) {
    int32_t before = 0;
    for (const MeasureStaff* crossing : docStaffMeasureStaffs.Of(docStaff)) {
        const int32_t number = measureStaffs.ParentOf(crossing)->_number;
        proof.Expect(number > before, crossing,
                     "the crossings of the part are not in the order of the measures");
        before = number;
    }
}

constexpr ScoreRule kRules[] = {
    RuleFor<Measure, CheckMeasure>(10),
    RuleFor<Measure, CheckMeasure>(105),
    RuleFor<MeasureStaff, CheckCrossing>(),
};

}  // namespace

std::span<const ScoreRule> SkeletonRules() { return kRules; }

void CheckSkeleton(ScoreProof& proof) {
    int pages = 0;
    int32_t measures = 0;
    for (Page* page : documentPages.Of(proof.document)) {
        int systems = 0;
        proof.ExpectNumber(page->_pageNumber, ++pages, "page number");
        for (System* system : pageSystems.Of(page)) {
            ++systems;
            int inSystem = 0;
            for (Measure* measure : systemMeasures.Of(system)) {
                ++inSystem;
                proof.ExpectNumber(measure->_number, ++measures, "measure number");
            }
            proof.ExpectNumber(system->_measureCount, inSystem, "count of measures in a system");
        }
        proof.ExpectNumber(page->_systemCount, systems, "count of systems on a page");
    }
    proof.ExpectNumber(proof.document->_pageCount, pages, "count of pages");
    proof.Expect(pages > 0, proof.document, "the score has no page");
    bool soloed = false;
    for (const DocStaff* docStaff : documentDocStaffs.Of(proof.document)) {
        CheckPart(proof, docStaff);
        soloed = soloed || docStaff->_solo;
    }
    proof.ExpectNumber(proof.document->_hasSolo, soloed ? 1 : 0, "solo of the score");
}

}  // namespace corvane
