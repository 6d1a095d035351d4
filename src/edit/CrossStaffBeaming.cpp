// Beams and stems over several staves.
#include <algorithm>
#include <cmath>
#include <set>

#include "edit/BeamChanges.h"
#include "edit/MeasureRange.h"
#include "edit/SystemRedraw.h"
#include "layout/CrossBeams.h"
#include "layout/HandBeams.h"
#include "layout/SharedColumns.h"
#include "model/NoteOperations.h"
#include "model/Par.h"

namespace corvane {
namespace {

constexpr double kSameTime = 0.001;  // thousandths of a whole note

Status Refused(const char* why) { return {Fault::Refused, why}; }

// Chords of the chosen voices that begin together.
struct Moment {
    double time;
    std::vector<Chords*> chosen, others;

    uint8_t Value() const { return ValueOf(chosen.front()); }
    bool HasOneValue() const {
        return std::all_of(chosen.begin(), chosen.end(),
                           [&](const Chords* c) { return ValueOf(c) == Value(); });
    }
    bool HasOneStaff() const {
        std::set<const DocStaff*> staffs;
        for (const Chords* chord : chosen) staffs.insert(DocStaffPar(chord));
        return staffs.size() == 1;
    }
    bool HasOneVoiceOfEach() const {
        std::set<const DocStaff*> staffs;
        for (const Chords* chord : chosen) staffs.insert(DocStaffPar(chord));
        return staffs.size() == chosen.size();
    }
};

// The moments of one measure, in order.
class Moments {
public:
    explicit Moments(const ChosenSymbols& events) : _chosen(events.begin(), events.end()) {
        for (const VoiceSymbol* event : events) {
            const Voice* voice = VoicePar(event);
            if (!As<Chords>(event) || std::find(_voices.begin(), _voices.end(), voice) != _voices.end())
                continue;
            _voices.push_back(voice);
            Take(voice);
        }
        std::stable_sort(_moments.begin(), _moments.end(),
                         [](const Moment& a, const Moment& b) { return a.time < b.time; });
    }

    const std::vector<Moment>& All() const { return _moments; }
    const std::vector<const Voice*>& Voices() const { return _voices; }
    int StaffCount() const {
        std::set<const DocStaff*> staffs;
        for (const Moment& moment : _moments)
            for (const Chords* chord : moment.chosen) staffs.insert(DocStaffPar(chord));
        return static_cast<int>(staffs.size());
    }

private:
    void Take(const Voice* voice) {
        double time = 0.0;
        for (VoiceSymbol* symbol : voiceSymbols.Of(voice)) {
            if (IsGrace(symbol)) continue;
            if (auto* chord = As<Chords>(symbol)) {
                Moment& moment = At(time);
                (_chosen.count(chord) ? moment.chosen : moment.others).push_back(chord);
            }
            time += Duration(symbol);
        }
    }
    Moment& At(double time) {
        for (Moment& moment : _moments)
            if (std::abs(moment.time - time) < kSameTime) return moment;
        return _moments.emplace_back(Moment{time, {}, {}});
    }

    const ChosenEvents _chosen;
    std::vector<const Voice*> _voices;
    std::vector<Moment> _moments;
};

// Moments that one beam can hold: chosen, next to each other, of eighths and shorter.
using Run = std::vector<const Moment*>;
std::vector<Run> RunsOf(const Moments& moments) {
    std::vector<Run> runs(1);
    for (const Moment& moment : moments.All()) {
        const bool holds = !moment.chosen.empty() && moment.Value() >= 8 && moment.Value() != kDoubleWhole;
        if (holds)
            runs.back().push_back(&moment);
        else if (!runs.back().empty())
            runs.emplace_back();
    }
    std::erase_if(runs, [](const Run& run) { return run.size() < 2; });
    return runs;
}

bool SpansStaffs(const Run& run) {
    std::set<const DocStaff*> staffs;
    for (const Moment* moment : run)
        for (const Chords* chord : moment->chosen) staffs.insert(DocStaffPar(chord));
    return staffs.size() > 1;
}

bool JoinsAny(const Moments& moments) {
    if (std::any_of(moments.All().begin(), moments.All().end(),
                    [](const Moment& moment) { return moment.chosen.size() > 1; }))
        return true;
    const std::vector<Run> runs = RunsOf(moments);
    return std::any_of(runs.begin(), runs.end(), SpansStaffs);
}

Status Check(const Moments& moments) {
    if (moments.StaffCount() < 2) return Refused("Select notes of two staves in one measure");
    for (const Moment& moment : moments.All()) {
        if (moment.chosen.empty()) continue;
        if (!moment.HasOneVoiceOfEach()) return Refused("Select notes of one voice on each staff");
        if (moment.chosen.size() < 2) continue;
        if (!moment.HasOneValue()) return Refused("Notes that share a stem need one value");
        if (moment.Value() == 1 || moment.Value() == kDoubleWhole) return Refused("Whole notes have no stem");
    }
    return JoinsAny(moments) ? Status::Ok()
                             : Refused("Select notes that are eighths or shorter, or sound together");
}

// What joins others leaves the beams that it stands under.
void FreeFromBeams(const Moments& moments, const std::vector<Run>& runs) {
    ChosenEvents joined;
    const auto add = [&](const Moment& moment) { joined.insert(moment.chosen.begin(), moment.chosen.end()); };
    for (const Moment& moment : moments.All())
        if (moment.chosen.size() > 1) add(moment);
    for (const Run& run : runs)
        for (const Moment* moment : run) add(*moment);
    for (const Voice* voice : moments.Voices()) kTakeFromBeams.act(voice, joined);
}

void Join(const Moments& moments) {
    std::vector<Run> runs = RunsOf(moments);
    std::erase_if(runs, [](const Run& run) { return !SpansStaffs(run); });
    FreeFromBeams(moments, runs);
    for (const Moment& moment : moments.All())
        if (moment.chosen.size() > 1) JoinColumns(moment.chosen);
    FollowSharedColumns(MeasurePar(moments.Voices().front()));
    for (const Run& run : runs) {
        std::vector<Stem*> stems;
        for (const Moment* moment : run) stems.push_back(StemOf(moment->chosen.front()));
        BuildCrossBeam(stems);
    }
}

}  // namespace

Status BeamOverStaves(WindowTarn& window, const ChosenSymbols& events) {
    std::vector<ChosenSymbols> measures;
    for (VoiceSymbol* event : events) {
        if (measures.empty() || MeasurePar(measures.back().front()) != MeasurePar(event))
            measures.emplace_back();
        measures.back().push_back(event);
    }
    std::vector<Moments> all;
    for (const ChosenSymbols& measure : measures) {
        all.emplace_back(measure);
        if (const Status status = Check(all.back()); !status) return status;
    }
    const EditStep step(window);
    const MeasureRange range = SpanOf(events);
    const SystemRedraw redraw(window, range.first, range.last);
    for (const Moments& moments : all) Join(moments);
    return Status::Ok();
}

}  // namespace corvane
