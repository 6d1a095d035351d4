// Commands for the texts of a score as a whole.
#include <algorithm>
#include <iterator>

#include "edit/CommandTable.h"
#include "edit/ScoreTexts.h"

namespace corvane {
namespace {

constexpr int kMostStep = 100, kMostNumber = 9999;
constexpr NumberStaves kPlaces[] = {NumberStaves::Top, NumberStaves::All, NumberStaves::TopOfEach};

Status TitleCommand(WindowTarn& window, const CommandArguments& arguments) {
    ArgumentReader reader(arguments);
    const std::string text = reader.Text("text");
    if (!reader.Has("text")) reader.Refuse("text is missing");
    if (const Status status = reader.Result(); !status) return status;
    ChangeTitle(window, text);
    return Status::Ok();
}

Status StaffNameCommand(WindowTarn& window, const CommandArguments& arguments) {
    ArgumentReader reader(arguments);
    const Document* document = window.GetDocument();
    const int number = reader.Number("staff", 1, documentDocStaffs.Count(document), 1);
    const std::string name = reader.Text("name"), shortName = reader.Text("short");
    if (!reader.Has("name")) reader.Refuse("name is missing");
    if (const Status status = reader.Result(); !status) return status;
    DocStaff* staff = documentDocStaffs.First(document);
    for (int i = 1; i < number; ++i) staff = documentDocStaffs.Next(staff);
    return ChangeStaffName(window, staff, name, shortName);
}

Status MeasureNumbersCommand(WindowTarn& window, const CommandArguments& arguments) {
    ArgumentReader reader(arguments);
    MeasureNumbering numbering = MeasureNumberingOf(window.GetDocument());
    numbering.shown = reader.Number("show", 0, 1, numbering.shown) != 0;
    numbering.numbering = static_cast<Numbering>(
        reader.Choice("at", {"every", "systems"}, static_cast<int>(numbering.numbering) - 1) + 1);
    numbering.step = reader.Number("step", 1, kMostStep, numbering.step);
    const auto place =
        std::find(std::begin(kPlaces), std::end(kPlaces), numbering.staves) - std::begin(kPlaces);
    numbering.staves = kPlaces[reader.Choice("staves", {"top", "all", "connections"},
                                             place < 3 ? static_cast<int>(place) : 0)];
    numbering.first = reader.Number("first", -kMostNumber, kMostNumber, numbering.first);
    if (const Status status = reader.Result(); !status) return status;
    ChangeMeasureNumbers(window, numbering);
    return Status::Ok();
}

constexpr Command kTexts[] = {
    {32782, "Measure Numbers", MeasureNumbersCommand, NotPlaying},
    {40012, "Staff Name", StaffNameCommand, NotPlaying},
    {40011, "Title", TitleCommand, NotPlaying},
};

}  // namespace

CommandFamily TextCommands() { return kTexts; }

}  // namespace corvane
