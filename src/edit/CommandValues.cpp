#include "edit/CommandValues.h"

#include <algorithm>
#include <cstdio>

#include "edit/LayoutSteps.h"
#include "edit/MeasureRange.h"
#include "edit/NoteChoice.h"
#include "edit/ScoreTexts.h"
#include "edit/SessionChoices.h"
#include "edit/Spanners.h"
#include "edit/ToolState.h"
#include "layout/Engraving.h"
#include "layout/PageLayout.h"
#include "layout/SignRecords.h"
#include "layout/StaffNames.h"
#include "model/Clefs.h"
#include "model/FontTable.h"
#include "model/Meters.h"
#include "model/NoteOperations.h"
#include "model/Par.h"
#include "model/PreferenceRecords.h"
#include "model/Preferences.h"
#include "play/MIDIUtility.h"

namespace corvane {
namespace {

// Those at hand, or the first of the page.
MeasureRange MeasuresToShow(WindowTarn& window) {
    MeasureRange range = MeasuresAtHand(window);
    if (!range.first && window.CurrentPage()) range.first = range.last = FirstMeasure(window.CurrentPage());
    return range;
}

class Values {
public:
    explicit Values(WindowTarn& window) : _window(window), _range(MeasuresToShow(window)) {}

    void Put(const char* name, int value) { _arguments[name] = std::to_string(value); }
    void Put(const char* name, std::string value) { _arguments[name] = std::move(value); }
    void PutMeasure(const char* name, const Measure* measure) {
        if (measure) Put(name, measure->_number);
    }
    const Measure* First() const { return _range.first; }
    const Measure* Last() const { return _range.last; }
    WindowTarn& Window() const { return _window; }
    const Document* Score() const { return _window.GetDocument(); }
    CommandArguments Take() { return std::move(_arguments); }

private:
    WindowTarn& _window;
    const MeasureRange _range;
    CommandArguments _arguments;
};

void PutMeasure(Values& values) { values.PutMeasure("measure", values.First()); }
void PutRange(Values& values) {
    values.PutMeasure("from", values.First());
    values.PutMeasure("to", values.Last());
}

// Of the measure's first tempo mark; else what a new one begins with.
void PutTempo(Values& values) {
    PutMeasure(values);
    if (const auto* preferences = Preferences<TimeMeasurePref>(values.Score()))
        values.Put("bpm", preferences->_bpm);
    if (!values.First()) return;
    for (const MeasureSymbol* symbol : measureSymbols.Of(values.First()))
        if (const auto* mark = As<Time>(symbol)) {
            values.Put("beat", mark->_beat);
            values.Put("bpm", mark->_bpm);
            values.Put("dots", mark->_dots);
            const auto figure = static_cast<size_t>(mark->_figure);
            if (figure < std::size(kFigureValues)) values.Put("figure", kFigureValues[figure]);
            return;
        }
}

void PutMeter(Values& values) {
    values.PutMeasure("from", values.First());
    if (!values.First()) return;
    values.Put("num", values.First()->_num);
    values.Put("den", values.First()->_den);
    const MeasureStaff* crossing = measureStaffs.First(values.First());
    const auto* sign = crossing ? SignOf<TimeSignature>(crossing) : nullptr;
    values.Put("pickup", sign && sign->_pickup ? 1 : 0);
}

void PutGrace(Values& values) {
    const auto* preferences = Preferences<GracePref>(values.Score());
    if (!preferences) return;
    values.Put("time", preferences->_mode == GracePref::kPrecedingNote ? "preceding" : "following");
    values.Put("assigned", preferences->_percentAssigned);
    values.Put("cut", preferences->_percentCut);
    values.Put("slash", preferences->_type == GracePref::kSlashed);
}

void PutKey(Values& values) {
    values.PutMeasure("from", values.First());
    const MeasureStaff* crossing = values.First() ? measureStaffs.First(values.First()) : nullptr;
    values.Put("fifths", crossing ? KeyInForce(crossing) : 0);
}

void PutBarline(Values& values) {
    PutMeasure(values);
    const Measure* measure = values.First();
    if (!measure) return;
    constexpr const char* kKinds[] = {"single", "double", "final", "dashed"};
    const char* kind = kKinds[std::min<size_t>(static_cast<size_t>(measure->_barline.Get()), 3)];
    values.Put("type", measure->_hiddenBarline ? "none" : measure->_endRepeat ? "repeatend" : kind);
}

void PutPages(Values& values) {
    const Page* page = values.Window().CurrentPage();
    if (!page) return;
    for (const char* name : {"after", "from", "to"}) values.Put(name, page->_pageNumber);
}

// New measures come behind what is selected, else at the end.
void PutNewMeasures(Values& values) {
    const bool selected = !values.Window().TheSelection().IsEmpty();
    values.PutMeasure("after", selected ? values.Last() : LastMeasure(values.Score()));
}

void PutNewStaves(Values& values) { values.Put("after", ExtentOf(values.Window()).staves); }
void PutStaves(Values& values) {
    for (const char* name : {"from", "to"}) values.Put(name, ExtentOf(values.Window()).staves);
}

void PutMeasuresOfSystem(Values& values) {
    if (values.First()) values.Put("count", systemMeasures.Count(SystemPar(values.First())));
}

void PutSystemsOfPage(Values& values) {
    const Page* page = values.Window().CurrentPage();
    if (!page) return;
    values.Put("count", pageSystems.Count(page));
    values.Put("from", page->_pageNumber);
}

// Of the first selected event.
void PutDuration(Values& values) {
    const CommandArguments none;
    ArgumentReader reader(none);
    const std::vector<VoiceSymbol*> events = ReadEvents(reader, values.Window());
    if (events.empty()) return;
    values.Put("value", ValueOf(events.front()));
    values.Put("dots", DotCount(events.front()));
}

// Of the first and the last selected note that sound.
void PutVelocities(Values& values) {
    const CommandArguments none;
    ArgumentReader reader(none);
    int start = kEnteredVelocity, end = start;
    bool any = false;
    for (const GenericNote* note : ReadNotes(reader, values.Window()))
        if (const NoteOn* on = NoteOnOf(note)) {
            end = on->_velocity;
            if (!any) start = end;
            any = true;
        }
    values.Put("start", start);
    values.Put("end", end);
}

void PutTitle(Values& values) { values.Put("text", std::string(TitleOf(values.Score()))); }

// Of the first staff.
void PutStaffName(Values& values) {
    const DocStaff* docStaff = documentDocStaffs.First(values.Score());
    const Staff* staff = docStaff ? docStaffStaffs.First(docStaff) : nullptr;
    const std::string_view name = staff ? NameOf(AllStaffOf(staff)) : std::string_view();
    values.Put("name", std::string(LongName(name)));
    if (ShortName(name) != name) values.Put("short", std::string(ShortName(name)));
}

void PutNumbering(Values& values) {
    const MeasureNumbering numbering = MeasureNumberingOf(values.Score());
    values.Put("show", numbering.shown);
    values.Put("at", numbering.numbering == Numbering::EachSystem ? "systems" : "every");
    values.Put("step", numbering.step);
    values.Put("staves", numbering.staves == NumberStaves::All   ? "all"
                         : numbering.staves == NumberStaves::Top ? "top"
                                                                 : "connections");
    values.Put("first", numbering.first);
}

// The selected measures, else the whole score.
void PutSpacing(Values& values) {
    if (!values.Window().TheSelection().IsEmpty()) {
        PutRange(values);
    } else {
        values.Put("from", 1);
        values.PutMeasure("to", LastMeasure(values.Score()));
    }
    const SpacingRoom room = PreferredRoom(values.Score());
    values.Put("dots", room.dots);
    values.Put("clefs", room.clefs);
    values.Put("accidentals", room.accidents);
    values.Put("lyrics", room.lyrics);
}

void PutSpacingTable(Values& values) {
    for (size_t row = 0; row < std::size(kSpacingRows); ++row) {
        char text[16];
        std::snprintf(text, sizeof text, "%.3f", static_cast<double>(spacingTable.widths[row]));
        values.Put(kSpacingRows[row], std::string(text));
    }
}

void PutGaps(Values& values) {
    const SpacingGaps gaps = GapsOf(values.Score());
    values.Put("first", gaps.firstNote);
    values.Put("last", gaps.lastNote);
    values.Put("clef", gaps.barlineClef);
    values.Put("key", gaps.clefKey);
    values.Put("time", gaps.keyTime);
}

void PutPaper(Values& values) {
    values.Put("height", Document::pageHeight);
    values.Put("width", Document::pageWidth);
}

void PutMargins(Values& values) {
    const Page* page = values.Window().CurrentPage();
    if (!page) return;
    for (const char* name : {"from", "to"}) values.Put(name, page->_pageNumber);
    values.Put("left", page->_leftMargin);
    values.Put("right", page->_rightMargin);
    values.Put("top", page->_topMargin);
    values.Put("bottom", page->_bottomMargin);
}

// Of the first staff, in the page's first system.
void PutStaffForm(Values& values) {
    const Page* page = values.Window().CurrentPage();
    const System* system = page ? pageSystems.First(page) : nullptr;
    const std::vector<Staff*> staffs = system ? StaffsFromTop(system) : std::vector<Staff*>();
    if (staffs.empty()) return;
    for (const char* name : {"from", "to"}) values.Put(name, 1);
    values.Put("size", staffs.front()->_lineDistance);
    values.Put("lines", staffs.front()->_lineCount);
    values.Put("distance", staffs.size() > 1 ? staffs[1]->_top - staffs[0]->_bottom : 0);
}

void PutIndent(Values& values) {
    if (const auto* staff = Preferences<StaffPref>(values.Score())) values.Put("indent", staff->_nameWidth);
}

// The word for a code of a row of them.
template <class Code>
void PutCode(Values& values, const char* name, std::initializer_list<const char*> words, Code first,
             Code now) {
    const int at = static_cast<int>(now) - static_cast<int>(first);
    if (at >= 0 && at < static_cast<int>(words.size())) values.Put(name, std::string(words.begin()[at]));
}

void PutGrouping(Values& values) {
    const auto& pref = *Preferences<NotePref>(values.Score());
    PutCode(values, "binary", {"beat", "two", "all"}, BinaryGroups::EachBeat, pref._binary.Get());
    PutCode(values, "ternary", {"beat", "all"}, TernaryGroups::EachBeat, pref._ternary.Get());
    PutCode(values, "composite", {"two", "three", "all"}, CompositeGroups::TwoBeats, pref._composite.Get());
    PutCode(values, "five", {"2+3", "3+2", "all"}, FiveGroups::TwoThree, pref._five.Get());
    PutCode(values, "seven", {"4+3", "3+4", "all"}, SevenGroups::FourThree, pref._seven.Get());
    PutCode(values, "single", {"beam", "flag"}, SingleNote::Beam, pref._singleNote.Get());
}

void PutSubGroups(Values& values) {
    const auto& pref = *Preferences<NotePref>(values.Score());
    PutCode(values, "connect", {"none", "eighth", "larger"}, SubGroups::NotConnected, pref._subGroups.Get());
    PutCode(values, "complete", {"yes", "no"}, Completion::Complete, pref._completion.Get());
    PutCode(values, "by", {"beam", "stems"}, CompletedBy::LongerBeam, pref._completedBy.Get());
}

void PutDistances(Values& values) {
    const auto& pref = *Preferences<NotePref>(values.Score());
    values.Put("thickness", pref.BeamThickness());
    values.Put("gap", pref.BeamGap());
    values.Put("distance", pref.BeamMinDistance());
    values.Put("stem", Preferences<StangPref>(values.Score())->_stemLength);
    values.Put("accidental", pref._accidentalGap);
    values.Put("columns", pref._accidentalSpacing);
    values.Put("dot", pref._dotGap);
    values.Put("holds", std::string(AccidentalsLast(values.Score()) ? "measure" : "note"));
}

void PutTupletChoices(Values& values) {
    const auto& pref = *Preferences<IrregPref>(values.Score());
    const TupletValue usual = UsualTuplet(values.Score());
    values.Put("count", usual.count);
    values.Put("in", usual.inTimeOf);
    PutCode(values, "figure", {"usual", "number", "ratio", "none"}, TupletFigure::AsUsual, usual.figure);
    PutCode(values, "bracket", {"unbeamed", "always", "none"}, TupletBracket::UnlessBeamed, usual.bracket);
    values.Put("dx", pref._dx);
    values.Put("dy", pref._dy);
}

void PutTies(Values& values) {
    const auto& pref = *Preferences<TiePref>(values.Score());
    values.Put("above", pref._heightAbove);
    values.Put("below", pref._heightBelow);
    values.Put("distance", pref._distance);
}

void PutVoices(Values& values) {
    const auto& pref = *Preferences<VoicePref>(values.Score());
    values.Put("automatic", pref._automaticStems != 0);
    for (size_t i = 0; i < DocStaff::kVoices; ++i)
        PutCode(values, ("voice" + std::to_string(i + 1)).c_str(), {"number", "up", "down"},
                ForcedStems::ByNumber, pref._forced[i].Get());
}

void PutTimesShown(Values& values) { values.Put("show", ShowsTimeSignatures(values.Score())); }

// The first font that another one stands in for, else the first.
void PutFont(Values& values) {
    const FontList fonts = FontsOf(values.Score());
    const FontList::Pair* shown = nullptr;
    for (const FontList::Pair& pair : fonts.Pairs()) {
        const bool replaced = TheFontList().SystemFont(pair.docFont) != pair.docFont;
        if (!shown || replaced) shown = &pair;
        if (replaced) break;
    }
    if (!shown) return;
    values.Put("doc", shown->docFont);
    values.Put("sys", std::string(TheFontList().SystemFont(shown->docFont)));
}

void PutHidden(Values& values) {
    const SessionChoices& now = Choices();
    const auto put = [&](const char* show, const char* print, const HiddenRule& rule) {
        values.Put(show, rule.show);
        values.Put(print, !rule.hideInPrint);
    };
    put("notes", "printnotes", now.hiddenNotes);
    put("stems", "printstems", now.hiddenStems);
    put("rests", "printrests", now.hiddenRests);
}

void PutUndoLevels(Values& values) { values.Put("levels", Switches().undoLevels); }

constexpr struct {
    int id;
    void (*put)(Values&);
} kValues[] = {
    {32778, PutTempo},         {32779, PutMeter},         {32780, PutVelocities},
    {32781, PutKey},           {32783, PutBarline},       {32788, PutMeasuresOfSystem},
    {32789, PutSystemsOfPage}, {32790, PutPages},         {32791, PutNewMeasures},
    {32792, PutNewStaves},     {32793, PutPages},         {32794, PutRange},
    {32795, PutStaves},        {32796, PutRange},         {32797, PutMeasure},
    {32817, PutDuration},      {32807, PutSpacing},       {33177, PutSpacingTable},
    {32786, PutGaps},          {57606, PutPaper},         {32776, PutMargins},
    {32777, PutStaffForm},     {32787, PutIndent},        {32798, PutTimesShown},
    {33088, PutGrace},         {33090, PutFont},          {32782, PutNumbering},
    {40011, PutTitle},         {40012, PutStaffName},     {32810, PutGrouping},
    {32811, PutSubGroups},     {32820, PutDistances},     {32784, PutVoices},
    {32821, PutTies},          {32822, PutTupletChoices}, {40050, PutUndoLevels},
    {33082, PutHidden},
};

}  // namespace

CommandArguments ValuesAtHand(WindowTarn& window, int id) {
    for (const auto& row : kValues)
        if (row.id == id) {
            Values values(window);
            row.put(values);
            return values.Take();
        }
    return {};
}

ScoreExtent ExtentOf(const WindowTarn& window) {
    const Document* document = window.GetDocument();
    const Measure* last = LastMeasure(document);
    return {last ? last->_number.Get() : 0, documentPages.Count(document), documentDocStaffs.Count(document)};
}

}  // namespace corvane
