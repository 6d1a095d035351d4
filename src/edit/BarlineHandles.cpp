// Barlines: a handle on each edge between two measures, and on both ends of a system. The measures beside it
// grow and shrink; at an end the system does, with its staves.
#include <algorithm>

#include "edit/HandleFamily.h"
#include "edit/HandleTurns.h"
#include "edit/WindowTarn.h"
#include "graphics/GraphicPort.h"
#include "layout/Frames.h"
#include "layout/LineWeights.h"
#include "layout/PageLayout.h"
#include "model/Par.h"

namespace corvane {
namespace {

enum Part { kLeftEdge = 0, kRightEdge = 1 };  // the left one of a system's first measure only

Measure* MeasureAt(const Handle& handle) { return static_cast<Measure*>(handle.target); }
System* SystemOf(const Handle& handle) { return SystemPar(MeasureAt(handle)); }

// The edges of a system's measures, absolute: the first one's left, then the right ones.
class MeasureEdges {
public:
    explicit MeasureEdges(System* system) : _system(system) {
        for (Measure* measure : systemMeasures.Of(system)) _measures.push_back(measure);
        const int32_t origin = OriginOf(system).x;
        _edges.push_back(origin + _measures.front()->_left);
        for (const Measure* measure : _measures) _edges.push_back(origin + measure->_right);
    }

    const std::vector<Measure*>& Measures() const { return _measures; }
    int32_t X(size_t edge) const { return _edges[edge]; }

    // No measure becomes narrower than 1; a system stays right of the left margin and on the paper.
    Point Move(const Handle& handle, int32_t dx) {
        const size_t edge = EdgeOf(handle);
        int32_t& x = _edges[edge];
        const int32_t before = x;
        const bool isFirst = edge == 0, isLast = edge + 1 == _edges.size();
        const int32_t least = isFirst ? x - _system->_left : _edges[edge - 1] + 1;
        const int32_t right = PagePar(_system)->_leftMargin + _system->_right;
        const int32_t most = isLast ? x + Document::pageWidth - right : _edges[edge + 1] - 1;
        if (dx < 0) x = std::min(x, std::max(x + dx, least));
        if (dx > 0) x = std::max(x, std::min(x + dx, most));
        return handle.place + Point{x - before, 0};
    }
    void Put(const HandleMove& move) { _edges[EdgeOf(move.handle)] += move.By().x; }

    // Everything in a system counts from its left.
    void Apply() const {
        const int32_t origin = OriginOf(_system).x;
        const int32_t indent = _edges.front() - (origin + _measures.front()->_left);
        const int32_t growth = _edges.back() - (origin + _measures.back()->_right);
        _system->_left = _system->_left + indent;
        _system->_right = _system->_right + growth;
        for (Staff* staff : StaffsFromTop(_system)) staff->_right = staff->_right + growth - indent;
        int32_t left = _measures.front()->_left;
        for (size_t i = 0; i < _measures.size(); ++i) {
            _measures[i]->_left = left;
            _measures[i]->_right = left = _edges[i + 1] - origin - indent;
        }
    }

private:
    size_t EdgeOf(const Handle& handle) const {
        const auto at = std::find(_measures.begin(), _measures.end(), MeasureAt(handle));
        return static_cast<size_t>(at - _measures.begin()) + (handle.part == kRightEdge);
    }

    System* _system;
    std::vector<Measure*> _measures;
    std::vector<int32_t> _edges;
};

class Family : public HandleFamily {
public:
    // At the top of the barlines, in the middle of their lines.
    void Find(const Page* page, std::vector<Handle>& handles) const override {
        for (System* system : pageSystems.Of(page)) {
            const std::vector<Staff*> staffs = StaffsFromTop(system);
            if (staffs.empty() || systemMeasures.IsEmpty(system)) continue;
            const MeasureEdges edges(system);
            const StaffFrame staff = FrameOf(staffs.front());
            const int32_t half = BarlineWeight(staff.lineDistance) / 2;
            size_t edge = 0;
            const auto add = [&](Measure* measure, int part, int32_t x) {
                handles.push_back({HandleKind::Barline, measure, part, {x, staff.top}, {}});
            };
            add(edges.Measures().front(), kLeftEdge, edges.X(edge) + half);
            for (Measure* measure : edges.Measures()) add(measure, kRightEdge, edges.X(++edge) - half);
        }
    }
    std::vector<HandleMove> Moved(const std::vector<Handle>& handles, Point by) const override {
        return MovedInTurn<MeasureEdges>(handles, SystemOf, by, &Point::x);
    }
    void Draw(GraphicPort& port, const std::vector<HandleMove>& moves, const DrawContext&) const override {
        for (const HandleMove& move : moves) {
            const System* system = SystemOf(move.handle);
            const std::vector<Staff*> staffs = StaffsFromTop(system);
            const int32_t weight = BarlineWeight(staffs.front()->_lineDistance);
            const int32_t bottom = FrameOf(staffs.back()).Bottom();
            const int32_t left = move.to.x - weight / 2;
            port.FillRect({left, move.to.y, left + weight, std::max(bottom, move.to.y + 1)});
        }
    }
    void Apply(WindowTarn& window, const std::vector<HandleMove>& moves) const override {
        ApplyBySystems<MeasureEdges>(moves, SystemOf);
        window.RefilePage();
    }
};

}  // namespace

const HandleFamily& BarlineHandles() {
    static const Family family;
    return family;
}

}  // namespace corvane
