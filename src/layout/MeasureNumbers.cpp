#include "layout/MeasureNumbers.h"

#include <algorithm>

#include "layout/Frames.h"
#include "layout/PageLayout.h"
#include "model/Par.h"
#include "model/Preferences.h"

namespace corvane {
namespace {

std::vector<const Staff*> StavesFor(const System* system, NumberStaves where) {
    std::vector<const Staff*> staves;
    const std::vector<Staff*> all = StaffsFromTop(system);
    if (where == NumberStaves::All) staves.assign(all.begin(), all.end());
    if (where == NumberStaves::TopOfEach)
        for (const Connection* connection : systemConnections.Of(system))
            if (const ConnStaff* first = connectionStaffs.First(connection))
                staves.push_back(staffConnections.ParentOf(first));
    if (staves.empty() && !all.empty()) staves.push_back(all.front());
    return staves;
}

// The first measure of a piece needs no number.
bool HasNumber(const Measure* measure, const MeasurePreferences& preferences, int32_t number) {
    if (!preferences._showNumbers || number == 1) return false;
    if (preferences._numbering == static_cast<int16_t>(Numbering::EachSystem))
        return systemMeasures.First(SystemPar(measure)) == measure;
    return number % std::max<int32_t>(1, preferences._numberStep) == 0;
}

}  // namespace

NumberPicture NumberPictureOf(const Measure* measure) {
    const System* system = SystemPar(measure);
    const Document* document = system ? DocumentPar(measure) : nullptr;
    const auto* preferences = document ? Preferences<MeasurePreferences>(document) : nullptr;
    if (!preferences) return {};
    const int32_t number = measure->_number + preferences->_firstNumber - 1;
    if (!HasNumber(measure, *preferences, number)) return {};
    NumberPicture picture{std::to_string(number), LookOf(preferences->_numberFont.Get()), {}};
    const int32_t left = OriginOf(system).x + measure->_left;
    for (const Staff* staff :
         StavesFor(system, static_cast<NumberStaves>(preferences->_numberPlacement.Get()))) {
        const StaffFrame frame = FrameOf(staff);
        picture.places.push_back({{left + preferences->_numberDx * frame.lineDistance / 100,
                                   frame.top - preferences->_numberDy * frame.lineDistance / 100}});
    }
    return picture;
}

}  // namespace corvane
