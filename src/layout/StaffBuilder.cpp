// New staves: for each request the DocStaffs, in every system the staffs that draw them, in every measure
// their crossings.
#include <algorithm>
#include <string_view>
#include <vector>

#include "layout/PageLayout.h"
#include "layout/ScoreBuilder.h"
#include "layout/ScoreSkeleton.h"
#include "layout/SignRecords.h"
#include "model/Clefs.h"
#include "model/Par.h"
#include "model/SymbolTable.h"

namespace corvane {
namespace {


// Staves that one MultiStaff of each system draws.
struct Column {
    bool custom;
    int staves;
    AllStaff* allStaff;
};

// How a kind of request is built: what its columns are, whether a brace joins them, and its clefs from the
// top.
struct Form {
    StaffKind kind;
    bool custom[2];  // whether the first and the second column are StaffCustoms
    bool braced;     // always two columns of one staff; else all staves are alike
    int clefs[2];    // of the first staff, of the others
};
constexpr Form kForms[] = {
    {StaffKind::Simple, {false, false}, false, {kTreble, kTreble}},
    {StaffKind::Pair, {false, false}, true, {kTreble, kBass}},
    {StaffKind::Custom, {true, true}, false, {kTreble, kTreble}},
    {StaffKind::Custom3, {false, true}, true, {kTreble, kBass}},
    {StaffKind::Custom4, {true, false}, true, {kTreble, kBass}},
    {StaffKind::Bass, {false, false}, false, {kBass, kBass}},
    {StaffKind::Percussion, {false, false}, false, {kPercussion, kPercussion}},
};

const Form& FormOf(StaffKind kind) {
    for (const Form& form : kForms)
        if (form.kind == kind) return form;
    return kForms[0];
}

// What draws a staff in a system; null for a null staff.
MultiStaff* MultiStaffOf(const System* system, const DocStaff* docStaff) {
    for (Staff* staff : StaffsFromTop(system)) {
        if (docStaffStaffs.ParentOf(staff) != docStaff) continue;
        if (auto* simple = As<SimpleStaff>(staff)) return simple;
        return customStaffs.ParentOf(As<StaffBot>(staff));
    }
    return nullptr;
}

// The last staff of the group that a staff is drawn in: itself, unless that is a custom one.
DocStaff* LastOfGroup(DocStaff* docStaff) {
    const auto* bot = docStaff ? As<StaffBot>(docStaffStaffs.First(docStaff)) : nullptr;
    return bot ? docStaffStaffs.ParentOf(customStaffs.Last(customStaffs.ParentOf(bot))) : docStaff;
}

class StaffBuilder {
public:
    StaffBuilder(Document* document, const StaffRequest& request, DocStaff* behind)
        : _document(document), _request(request), _form(FormOf(request.kind)), _behind(LastOfGroup(behind)) {
        const int staves = _form.braced ? 2 : request.staffCount;
        if (_form.braced)
            _columns = {{_form.custom[0], 1, nullptr}, {_form.custom[1], 1, nullptr}};
        else if (_form.custom[0])
            _columns = {{true, staves, nullptr}};
        else
            _columns.assign(static_cast<size_t>(staves), {false, 1, nullptr});
        for (int i = 0; i < staves; ++i)
            _docStaffs.push_back(MakeDocStaff(document, _docStaffs.empty() ? _behind : _docStaffs.back()));
    }

    DocStaff* Last() const { return _docStaffs.back(); }

    void Build(System* system) {
        const std::vector<Staff*> staffs = MakeStaffs(system);
        if (_form.braced) Connect(system, staffs.front(), staffs.back(), LookupSymbol(_document, "Brace"));
        for (Measure* measure : systemMeasures.Of(system)) MakeCrossings(measure, staffs);
    }

private:
    std::vector<Staff*> MakeStaffs(System* system) {
        std::vector<Staff*> staffs;
        MultiStaff* behind = MultiStaffOf(system, _behind);
        for (Column& column : _columns) {
            if (!column.allStaff) column.allStaff = MakeAllStaff();
            if (column.custom) {
                StaffCustom* custom = MakeStaffCustom(system, behind, _request.kind);
                for (int i = 0; i < column.staves; ++i)
                    staffs.push_back(MakeStaffBot(custom, system, _request.kind, _request.lineCount));
                behind = custom;
            } else {
                SimpleStaff* simple = MakeSimpleStaff(system, behind, _request.kind, _request.lineCount);
                staffs.push_back(simple);
                behind = simple;
            }
            allStaffStaffs.Add(column.allStaff, behind);
        }
        for (size_t i = 0; i < staffs.size(); ++i) docStaffStaffs.Add(_docStaffs[i], staffs[i]);
        return staffs;
    }

    void MakeCrossings(Measure* measure, const std::vector<Staff*>& staffs) {
        const MeasureStaff* model = measureStaffs.First(measure);
        MeasureStaff* behind = _behind ? MeasureStaffAt(measure, _behind) : nullptr;
        for (size_t i = 0; i < staffs.size(); ++i) {
            MeasureStaff* before = docStaffMeasureStaffs.Last(_docStaffs[i]);
            behind = MakeMeasureStaff(measure, behind, _docStaffs[i], before, staffs[i]);
            MakeSigns(behind, model, _form.clefs[i ? 1 : 0]);
        }
    }

    // The header signs that a crossing needs: those of the first staff of its measure, with a clef of its
    // own.
    void MakeSigns(MeasureStaff* crossing, const MeasureStaff* model, int clef) {
        const Measure* measure = MeasurePar(crossing);
        const bool startsSystem = !systemMeasures.Prev(measure);
        const auto* time = model ? SignOf<TimeSignature>(model) : nullptr;
        if (startsSystem) AddClef(crossing, clef);
        if (startsSystem || (model && SignOf<ClafSignature>(model)))
            SetKey(crossing, model ? KeyInForce(model) : 0);
        if (time)
            SetTime(crossing, MeterOf(time));
        else if (!PrevMeasure(measure))
            AddTime(crossing);
    }

    Document* _document;
    const StaffRequest& _request;
    const Form& _form;
    DocStaff* const _behind;
    std::vector<Column> _columns;
    std::vector<DocStaff*> _docStaffs;
};

// What each letter of a staff string asks for; a custom staff's counts are the two digits behind it.
constexpr struct {
    char letter;
    StaffRequest request;
} kLetters[] = {
    {'S', {StaffKind::Simple, 5, 1, 1}},     {'D', {StaffKind::Pair, 5, 2, 1}},
    {'C', {StaffKind::Custom, 0, 0, 1}},     {'B', {StaffKind::Bass, 5, 1, 1}},
    {'E', {StaffKind::Percussion, 5, 1, 2}},
};

// 0 for what is no digit.
int16_t DigitAt(std::string_view text, size_t place) {
    const bool isDigit = place < text.size() && text[place] >= '0' && text[place] <= '9';
    return static_cast<int16_t>(isDigit ? text[place] - '0' : 0);
}

// A request without staves for what makes none.
StaffRequest RequestAt(std::string_view staffs, size_t place) {
    for (const auto& [letter, request] : kLetters) {
        if (letter != staffs[place]) continue;
        if (request.kind != StaffKind::Custom) return request;
        const int16_t lines = DigitAt(staffs, place + 1), count = DigitAt(staffs, place + 2);
        return {request.kind, lines, lines ? count : int16_t{0}, request.argument};
    }
    return {StaffKind::Simple, 0, 0, 0};
}

}  // namespace

DocStaff* MakeDocStaff(Document* document, DocStaff* behind) {
    auto* docStaff = Make<DocStaff>();
    documentDocStaffs.Insert(document, docStaff, behind);
    docStaff->_active = 1;
    for (VoiceRecord& voice : docStaff->_voices) {
        voice._recordActive = 1;
        voice._volume = 127;
        voice._channel = 1;
        voice._port = -1;
    }
    return docStaff;
}

AllStaff* MakeAllStaff(std::string_view name) {
    auto* allStaff = Make<AllStaff>();
    SetText(allStaff->_name, name);
    return allStaff;
}

DocStaff* AddStaffs(Document* document, const StaffRequest& request, DocStaff* behind) {
    CORVANE_ASSERT_AS(document, "doc_staff");
    if (request.staffCount < 1) return nullptr;
    StaffBuilder builder(document, request, behind);
    for (Page* page : documentPages.Of(document))
        for (System* system : pageSystems.Of(page)) builder.Build(system);
    return builder.Last();
}

int StaffCountOf(std::string_view staffs) {
    int count = 0, digits = 0;  // digits that may still follow a C
    for (size_t i = 0; i < staffs.size(); ++i) {
        const auto isThat = [&](const auto& row) { return row.letter == staffs[i]; };
        const bool known = std::any_of(std::begin(kLetters), std::end(kLetters), isThat);
        const bool digit = staffs[i] >= '0' && staffs[i] <= '9' && digits-- > 0;
        if (!known && !digit) return -1;
        if (!known) continue;
        const StaffRequest request = RequestAt(staffs, i);
        digits = request.kind == StaffKind::Custom ? 2 : 0;
        count += request.staffCount;
    }
    return count;
}

void BuildStaffs(Document* document, std::string_view staffs) {
    for (size_t i = 0; i < staffs.size() && staffs[i]; ++i)
        AddStaffs(document, RequestAt(staffs, i), documentDocStaffs.Last(document));
}

}  // namespace corvane
