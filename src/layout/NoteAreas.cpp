#include "layout/NoteAreas.h"

#include <algorithm>
#include <numeric>

#include "layout/CourtesySigns.h"
#include "layout/ScoreBuilder.h"
#include "layout/Spacing.h"

namespace corvane {
namespace {

std::vector<int32_t> HeadersOf(const System* system) {
    std::vector<int32_t> headers;
    for (const Measure* measure : systemMeasures.Of(system)) headers.push_back(NoteAreaLeft(measure));
    return headers;
}

int32_t WidthOf(const System* system) { return system->_right - system->_left - CourtesyWidth(system); }

// But for what rounding makes of them.
bool AreEqual(const std::vector<int32_t>& areas) {
    const auto [least, most] = std::minmax_element(areas.begin(), areas.end());
    return areas.empty() || *most - *least <= 2;
}

}  // namespace

NoteAreas::NoteAreas(System* system) : _system(system), _headers(HeadersOf(system)), _width(WidthOf(system)) {
    size_t i = 0;
    for (const Measure* measure : systemMeasures.Of(system))
        _areas.push_back(std::max(measure->Width() - _headers[i++], 0));
}

void NoteAreas::Apply() const {
    const std::vector<int32_t> headers = HeadersOf(_system);
    const int64_t width = WidthOf(_system);
    if (headers == _headers && width == _width) return;
    const int64_t before = std::accumulate(_areas.begin(), _areas.end(), int64_t{0});
    const int64_t now = width - std::accumulate(headers.begin(), headers.end(), int64_t{0});
    if (headers.size() != _areas.size() || AreEqual(_areas) || before <= 0 || now <= 0)
        return FitMeasures(_system);
    int64_t areasSoFar = 0, headersSoFar = 0;
    int32_t left = 0;
    size_t i = 0;
    for (Measure* measure : systemMeasures.Of(_system)) {
        headersSoFar += headers[i];
        areasSoFar += _areas[i++];
        measure->_left = left;
        left = static_cast<int32_t>(headersSoFar + areasSoFar * now / before);
        measure->_right = left;
    }
}

}  // namespace corvane
