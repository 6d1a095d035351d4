// Staves: a handle at the left end. A staff goes between its neighbours; the first one takes the system's top
// along while the others stay where they are on the page.
#include <algorithm>

#include "edit/HandleFamily.h"
#include "edit/HandleTurns.h"
#include "edit/WindowTarn.h"
#include "graphics/GraphicPort.h"
#include "layout/CrossBeams.h"
#include "layout/Frames.h"
#include "layout/LineWeights.h"
#include "layout/PageLayout.h"
#include "model/Par.h"

namespace corvane {
namespace {

Staff* StaffAt(const Handle& handle) { return static_cast<Staff*>(handle.target); }
System* SystemOf(const Handle& handle) { return SystemPar(StaffAt(handle)); }

// The tops of a system's staves on the page, from the first one down, while some of them move.
class StaffTops {
public:
    explicit StaffTops(System* system) : _system(system), _staffs(StaffsFromTop(system)) {
        for (const Staff* staff : _staffs) _tops.push_back(FrameOf(staff).top);
    }

    // Strictly between what stands above and below.
    Point Move(const Handle& handle, int32_t dy) {
        const size_t i = PlaceOf(handle);
        const int32_t before = _tops[i], least = Above(i) + 1, most = Below(i) - 1 - HeightOf(i);
        if (dy < 0) _tops[i] = std::min(before, std::max(before + dy, least));
        if (dy > 0) _tops[i] = std::max(before, std::min(before + dy, most));
        return handle.place + Point{0, _tops[i] - before};
    }
    void Put(const HandleMove& move) { _tops[PlaceOf(move.handle)] += move.By().y; }

    void Apply() const {
        _system->_top = _system->_top + _tops.front() - FrameOf(_staffs.front()).top;
        for (size_t i = 0; i < _staffs.size(); ++i) {
            _staffs[i]->_top = _tops[i] - _system->_top;
            _staffs[i]->_bottom = _staffs[i]->_top + HeightOf(i);
        }
        _system->_bottom = _system->_top + _staffs.back()->_bottom;
        RefitCrossBeams(_system);
    }

private:
    size_t PlaceOf(const Handle& handle) const {
        return static_cast<size_t>(std::find(_staffs.begin(), _staffs.end(), StaffAt(handle)) -
                                   _staffs.begin());
    }
    int32_t HeightOf(size_t i) const { return std::max(_staffs[i]->LinesHeight(), 0); }
    int32_t Above(size_t i) const {
        if (i > 0) return _tops[i - 1] + HeightOf(i - 1);
        const System* before = pageSystems.Prev(_system);
        return before ? before->_bottom.Get() : 0;
    }
    int32_t Below(size_t i) const {
        if (i + 1 < _tops.size()) return _tops[i + 1];
        const System* next = pageSystems.Next(_system);
        const std::vector<Staff*> staffs = next ? StaffsFromTop(next) : std::vector<Staff*>{};
        return staffs.empty() ? Document::pageHeight : FrameOf(staffs.front()).top;
    }

    System* _system;
    std::vector<Staff*> _staffs;
    std::vector<int32_t> _tops;
};

class Family : public HandleFamily {
public:
    void Find(const Page* page, std::vector<Handle>& handles) const override {
        for (const System* system : pageSystems.Of(page))
            for (Staff* staff : StaffsFromTop(system)) {
                const StaffFrame frame = FrameOf(staff);
                handles.push_back(
                    {HandleKind::Staff, staff, 0, {frame.left, (frame.top + frame.Bottom()) / 2}, {}});
            }
    }
    std::vector<HandleMove> Moved(const std::vector<Handle>& handles, Point by) const override {
        return MovedInTurn<StaffTops>(handles, SystemOf, by, &Point::y);
    }
    void Draw(GraphicPort& port, const std::vector<HandleMove>& moves, const DrawContext&) const override {
        for (const HandleMove& move : moves) {
            const StaffFrame frame = FrameOf(StaffAt(move.handle));
            const int32_t weight = StaffLineWeight(frame.lineDistance), dy = move.By().y;
            port.SetPenSize(weight, weight);
            for (int32_t line = 0; line < frame.lineCount; ++line) {
                const int32_t y = frame.top + line * frame.lineDistance + dy;
                port.DrawLine(frame.left, y, frame.right, y);
            }
        }
    }
    void Apply(WindowTarn& window, const std::vector<HandleMove>& moves) const override {
        ApplyBySystems<StaffTops>(moves, SystemOf);
        window.RefilePage();
    }
};

}  // namespace

const HandleFamily& StaffHandles() {
    static const Family family;
    return family;
}

}  // namespace corvane
