#include "session/NewScoreRules.h"

namespace corvane {
namespace {

constexpr int kMostStaffs = 16;

}  // namespace

Status CheckNewScore(const PageLayout& layout, std::string_view staffs) {
    const auto refused = [](const char* why) { return Status{Fault::Refused, why}; };
    if (layout.measuresPerSystem < 1) return refused("The number of measures must be higher than 0!");
    if (layout.systemsPerPage < 1) return refused("The number of systems must be higher than 0!");
    if (layout.measuresPerSystem > kMostInNewScore || layout.systemsPerPage > kMostInNewScore)
        return refused("A new score takes at most 99 measures to a system and 99 systems to a page");
    const int count = StaffCountOf(staffs);
    if (count < 0) return refused("Staves are the letters S, D, B and E, and C with two digits");
    return count > kMostStaffs ? refused("It is impossible to insert more than 16 staves!") : Status::Ok();
}

}  // namespace corvane
