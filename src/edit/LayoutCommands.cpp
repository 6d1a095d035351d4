// Commands that space measures and set up pages, staves and gaps.
#include <utility>

#include "edit/CommandTable.h"
#include "edit/LayoutSteps.h"
#include "edit/PageRange.h"
#include "edit/Selection.h"
#include "model/Par.h"
#include "model/Preferences.h"

namespace corvane {
namespace {

constexpr int kMost = 100000, kMostGap = 32767, kMostLines = 15;
constexpr double kMostTableWidth = 1000.0;

// The whole score where nothing is told or selected.
MeasureRange ReadRangeOrAll(ArgumentReader& reader, WindowTarn& window) {
    const Document* document = window.GetDocument();
    const bool told = reader.Has("from") || reader.Has("to"), selected = !window.TheSelection().IsEmpty();
    if (!told && !selected) return {FirstMeasure(document), LastMeasure(document)};
    MeasureRange range = ReadRange(reader, window);
    if (!range.last) range.last = range.first;
    return range;
}

Status SpacingCommand(WindowTarn& window, const CommandArguments& arguments) {
    ArgumentReader reader(arguments);
    const MeasureRange range = ReadRangeOrAll(reader, window);
    const SpacingRoom usual = PreferredRoom(window.GetDocument());
    SpacingChoice choice;
    choice.mode = static_cast<SpacingMode>(reader.Choice("mode", {"mathematical", "engraver"}, 1));
    choice.allStaves = reader.Number("all", 0, 1, 1) != 0;
    choice.room.dots = reader.Number("dots", 0, 1, usual.dots) != 0;
    choice.room.clefs = reader.Number("clefs", 0, 1, usual.clefs) != 0;
    choice.room.accidents = reader.Number("accidentals", 0, 1, usual.accidents) != 0;
    choice.room.lyrics = reader.Number("lyrics", 0, 1, usual.lyrics) != 0;
    if (const Status status = reader.Result(); !status) return status;
    if (!range.first) return {Fault::Refused, "There is no measure to space"};
    return SpaceMeasures(window, range, choice);
}

// Rows by their names; what is not told stays. It holds for all scores and what is spaced from now on.
Status SpacingTableCommand(WindowTarn&, const CommandArguments& arguments) {
    ArgumentReader reader(arguments);
    SpacingTable table = spacingTable;
    size_t row = 0;
    for (const char* name : kSpacingRows) {
        float& width = table.widths[row++];
        width = static_cast<float>(reader.Decimal(name, 0.0, kMostTableWidth, static_cast<double>(width)));
    }
    if (const Status status = reader.Result(); !status) return status;
    spacingTable = table;
    return Status::Ok();
}

Status SpacingOptionsCommand(WindowTarn& window, const CommandArguments& arguments) {
    ArgumentReader reader(arguments);
    SpacingGaps gaps = GapsOf(window.GetDocument());
    gaps.firstNote = reader.Number("first", 0, kMostGap, gaps.firstNote);
    gaps.lastNote = reader.Number("last", 0, 999, gaps.lastNote);
    gaps.barlineClef = reader.Number("clef", 0, kMostGap, gaps.barlineClef);
    gaps.clefKey = reader.Number("key", 0, kMostGap, gaps.clefKey);
    gaps.keyTime = reader.Number("time", 0, kMostGap, gaps.keyTime);
    if (const Status status = reader.Result(); !status) return status;
    return SetSpacingGaps(window, gaps);
}

Status PageSetupCommand(WindowTarn& window, const CommandArguments& arguments) {
    ArgumentReader reader(arguments);
    const int height = reader.Number("height", 0, kMost, Document::pageHeight);
    const int width = reader.Number("width", 0, kMost, Document::pageWidth);
    if (const Status status = reader.Result(); !status) return status;
    return SetPageSize(window, height, width);
}

std::optional<int> ReadIf(ArgumentReader& reader, const char* name, int least, int most) {
    return reader.Has(name) ? std::optional(reader.Number(name, least, most)) : std::nullopt;
}

Status ModifyPageCommand(WindowTarn& window, const CommandArguments& arguments) {
    ArgumentReader reader(arguments);
    const PageRange range = ReadPages(reader, window);
    const auto read = [&](const char* name) { return ReadIf(reader, name, 0, kMost); };
    const Margins margins{read("left"), read("right"), read("top"), read("bottom")};
    if (const Status status = reader.Result(); !status) return status;
    return SetMargins(window, range.first, range.last, margins);
}

// The line distance of a new staff is 100.
Status StaffSettingsCommand(WindowTarn& window, const CommandArguments& arguments) {
    ArgumentReader reader(arguments);
    if (!documentDocStaffs.First(window.GetDocument()))
        return {Fault::Refused, "There are no staves in the document!"};
    const StaffRange range = ReadStaffs(reader, window);
    const StaffForm form{ReadIf(reader, "size", -kMost, kMost), ReadIf(reader, "lines", 1, kMostLines),
                         ReadIf(reader, "distance", -kMost, kMost)};
    if (const Status status = reader.Result(); !status) return status;
    return SetStaffs(window, range.first, range.last, form);
}

Status InstrumentNamesCommand(WindowTarn& window, const CommandArguments& arguments) {
    ArgumentReader reader(arguments);
    const int indent = reader.Number("indent", 0, kMostGap);
    if (const Status status = reader.Result(); !status) return status;
    return SetFirstIndent(window, indent);
}

Status TimeSignatureOptionsCommand(WindowTarn& window, const CommandArguments& arguments) {
    ArgumentReader reader(arguments);
    const bool show = reader.Number("show", 0, 1) != 0;
    if (const Status status = reader.Result(); !status) return status;
    return ShowTimeSignatures(window, show);
}

constexpr Command kLayout[] = {
    {57606, "Page Setup", PageSetupCommand, NotPlaying},
    {32776, "Modify Page", ModifyPageCommand, NotPlaying},
    {32777, "Staff Settings", StaffSettingsCommand, NotPlaying},
    {32786, "Spacing Options", SpacingOptionsCommand, NotPlaying},
    {32787, "Instrument Name Options", InstrumentNamesCommand, NotPlaying},
    {32798, "Time Signature Options", TimeSignatureOptionsCommand, NotPlaying},
    {32807, "Spacing", SpacingCommand, NotPlaying},
    {33177, "Spacing Table", SpacingTableCommand, NotPlaying},
};

}  // namespace

CommandFamily LayoutCommands() { return kLayout; }

}  // namespace corvane
