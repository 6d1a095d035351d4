// Commands that add, remove and deal out pages, measures and staves.
#include "edit/CommandTable.h"
#include "edit/PageRange.h"
#include "edit/Structure.h"
#include "layout/MeasureFlow.h"
#include "model/Par.h"

namespace corvane {
namespace {

constexpr int kMost = 32767;

int ReadCount(ArgumentReader& reader) { return reader.Number("count", -kMost, kMost, 1); }

Status AddPagesCommand(WindowTarn& window, const CommandArguments& arguments) {
    ArgumentReader reader(arguments);
    const Document* document = window.GetDocument();
    const int count = ReadCount(reader);
    const int after = reader.Number("after", 0, document->_pageCount, document->_pageCount);
    if (const Status status = reader.Result(); !status) return status;
    return AddPages(window, count, PageOfNumber(document, after));
}

// At the end of the score where nothing is told.
Status AddMeasuresCommand(WindowTarn& window, const CommandArguments& arguments) {
    ArgumentReader reader(arguments);
    const int count = ReadCount(reader);
    Measure* behind = LastMeasure(window.GetDocument());
    if (reader.Text("after") == "0")
        behind = nullptr;
    else if (reader.Has("after"))
        behind = ReadMeasure(reader, window, "after");
    if (const Status status = reader.Result(); !status) return status;
    return AddMeasures(window, count, behind);
}

Status AddStaffsCommand(WindowTarn& window, const CommandArguments& arguments) {
    ArgumentReader reader(arguments);
    const Document* document = window.GetDocument();
    constexpr char kLetters[] = "SDBE";
    const int type = reader.Choice("type", {"S", "D", "B", "E"}, 0);
    const int count = ReadCount(reader), staves = documentDocStaffs.Count(document);
    const int after = reader.Number("after", 0, staves, staves);
    if (const Status status = reader.Result(); !status) return status;
    return AddStaffs(window, kLetters[type], count, StaffOfNumber(document, after));
}

Status RemovePagesCommand(WindowTarn& window, const CommandArguments& arguments) {
    ArgumentReader reader(arguments);
    const PageRange range = ReadPages(reader, window);
    if (const Status status = reader.Result(); !status) return status;
    return RemovePages(window, range.first, range.last);
}

Status RemoveMeasuresCommand(WindowTarn& window, const CommandArguments& arguments) {
    ArgumentReader reader(arguments);
    MeasureRange range = ReadRange(reader, window);
    if (const Status status = reader.Result(); !status) return status;
    if (!range.last) range.last = range.first;
    return RemoveMeasures(window, range);
}

Status RemoveStaffsCommand(WindowTarn& window, const CommandArguments& arguments) {
    ArgumentReader reader(arguments);
    if (!documentDocStaffs.First(window.GetDocument()))
        return {Fault::Refused, "There are no staves in the document!"};
    const StaffRange range = ReadStaffs(reader, window);
    if (const Status status = reader.Result(); !status) return status;
    return RemoveStaffs(window, range.first, range.last);
}

// The whole score where nothing is told or selected.
Status FlowMeasuresCommand(WindowTarn& window, const CommandArguments& arguments) {
    ArgumentReader reader(arguments);
    const Document* document = window.GetDocument();
    const int count = reader.Number("count", -kMost, kMost);
    MeasureRange range{FirstMeasure(document), LastMeasure(document)};
    if (reader.Has("from") || reader.Has("to")) range = ReadRange(reader, window);
    if (const Status status = reader.Result(); !status) return status;
    if (!range.first) return {Fault::Refused, "There is no measure to deal out"};
    if (!range.last) range.last = LastMeasure(document);
    return FlowMeasures(window, count, range);
}

Status FlowSystemsCommand(WindowTarn& window, const CommandArguments& arguments) {
    ArgumentReader reader(arguments);
    const Document* document = window.GetDocument();
    const int count = reader.Number("count", -kMost, kMost);
    const int from = reader.Number("from", 1, document->_pageCount, 1);
    const int to = reader.Has("to") ? reader.Number("to", from, document->_pageCount) : 0;
    const int measures = reader.Number("measures", -kMost, kMost, kNewSystemMeasures);
    if (const Status status = reader.Result(); !status) return status;
    return FlowSystems(window, count, PageOfNumber(document, from), PageOfNumber(document, to), measures);
}

template <Status (*Center)(WindowTarn&, Page*, Page*)>
Status CenterCommand(WindowTarn& window, const CommandArguments& arguments) {
    ArgumentReader reader(arguments);
    const PageRange range = ReadPages(reader, window);
    if (const Status status = reader.Result(); !status) return status;
    return Center(window, range.first, range.last);
}

constexpr Command kStructure[] = {
    {32790, "Add Pages", AddPagesCommand, NotPlaying},
    {32791, "Add Measures", AddMeasuresCommand, NotPlaying},
    {32792, "Add Staves", AddStaffsCommand, NotPlaying},
    {32793, "Remove Pages", RemovePagesCommand, NotPlaying},
    {32794, "Remove Measures", RemoveMeasuresCommand, NotPlaying},
    {32795, "Remove Staves", RemoveStaffsCommand, NotPlaying},
    {32788, "Measures per System", FlowMeasuresCommand, NotPlaying},
    {32789, "Systems per Page", FlowSystemsCommand, NotPlaying},
    {32800, "Autocenter Systems", CenterCommand<AutocenterSystems>, NotPlaying},
    {32801, "Autocenter Staves", CenterCommand<AutocenterStaves>, NotPlaying},
};

}  // namespace

CommandFamily StructureCommands() { return kStructure; }

}  // namespace corvane
