#include <algorithm>
#include <vector>

#include "layout/PageLayout.h"
#include "layout/ScoreSkeleton.h"
#include "model/Par.h"
#include "model/SymbolTable.h"

namespace corvane {
namespace {

constexpr int16_t kLineDistance = 100;

void Fill(Staff* staff, const System* system, StaffKind kind, int lineCount) {
    staff->_right = system->_right - system->_left;
    staff->_lineDistance = kLineDistance;
    staff->_lineCount = static_cast<int16_t>(lineCount);
    staff->_kind = kind;
    staff->_bottom = std::max(staff->LinesHeight(), 0);
}

// Copies into the system of `target`, behind or before the models in what joins staffs over the systems.
struct Copier {
    System* target;
    bool behindModel;

    template <class Relation, class Child>
    void Join(const Relation& relation, Child* child, Child* model) const {
        if (auto* parent = relation.ParentOf(model))
            relation.Insert(parent, child, behindModel ? model : nullptr);
    }

    void Lines(Staff* model, Staff* staff) const {
        staff->_lineDistance = model->_lineDistance;
        staff->_top = model->_top;
        staff->_bottom = model->_bottom;
        Join(docStaffStaffs, staff, model);
    }

    void Simple(SimpleStaff* model) const {
        SimpleStaff* staff = MakeSimpleStaff(target, systemStaffs.Last(target), model->_kind, model->_lineCount);
        Lines(model, staff);
        Join(allStaffStaffs, static_cast<MultiStaff*>(staff), static_cast<MultiStaff*>(model));
    }

    void Custom(StaffCustom* model) const {
        StaffCustom* custom = MakeStaffCustom(target, systemStaffs.Last(target), static_cast<StaffKind>(model->_kind.Get()));
        for (StaffBot* bot : customStaffs.Of(model))
            Lines(bot, MakeStaffBot(custom, target, bot->_kind, bot->_lineCount));
        Join(allStaffStaffs, static_cast<MultiStaff*>(custom), static_cast<MultiStaff*>(model));
    }
};

}  // namespace

SimpleStaff* MakeSimpleStaff(System* system, MultiStaff* behind, StaffKind kind, int lineCount) {
    auto* staff = Make<SimpleStaff>();
    Fill(staff, system, kind, lineCount);
    systemStaffs.Insert(system, staff, behind);
    return staff;
}

StaffCustom* MakeStaffCustom(System* system, MultiStaff* behind, StaffKind kind) {
    auto* custom = Make<StaffCustom>();
    custom->_kind = static_cast<int16_t>(kind);
    systemStaffs.Insert(system, custom, behind);
    return custom;
}

StaffBot* MakeStaffBot(StaffCustom* custom, System* system, StaffKind kind, int lineCount) {
    auto* staff = Make<StaffBot>();
    Fill(staff, system, kind, lineCount);
    customStaffs.Add(custom, staff);
    return staff;
}

Connection* Connect(System* system, Staff* first, Staff* last, FontSymbol* symbol) {
    auto* connection = Make<Connection>();
    connection->_symbol = symbol;
    systemConnections.Add(system, connection);
    for (Staff* staff : {first, last}) {
        auto* end = Make<ConnStaff>();
        staffConnections.Add(staff, end);
        connectionStaffs.Add(connection, end);
    }
    return connection;
}

void CopyStaffs(const System* model, System* system, bool modelStandsBefore) {
    const Copier copy{system, modelStandsBefore};
    for (MultiStaff* multi : systemStaffs.Of(model)) {
        if (auto* simple = As<SimpleStaff>(multi)) copy.Simple(simple);
        if (auto* custom = As<StaffCustom>(multi)) copy.Custom(custom);
    }
    const std::vector<Staff*> from = StaffsFromTop(model), to = StaffsFromTop(system);
    const auto twin = [&](const ConnStaff* end) {
        const auto place = std::find(from.begin(), from.end(), staffConnections.ParentOf(end)) - from.begin();
        return to[static_cast<size_t>(place)];
    };
    for (const Connection* connection : systemConnections.Of(model))
        Connect(system, twin(connectionStaffs.First(connection)), twin(connectionStaffs.Last(connection)),
                ShareSymbol(connection->_symbol));
}

}  // namespace corvane
