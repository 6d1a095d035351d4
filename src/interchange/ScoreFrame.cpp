#include "interchange/ScoreFrame.h"

#include <algorithm>
#include <cstring>

#include "edit/Signs.h"
#include "layout/LastSystem.h"
#include "layout/PageFit.h"
#include "layout/PageLayout.h"
#include "layout/ScoreBuilder.h"
#include "layout/ScoreSkeleton.h"
#include "layout/SignRecords.h"
#include "layout/SkeletonRemoval.h"
#include "layout/StaffNames.h"
#include "model/Clefs.h"
#include "model/Preferences.h"
#include "model/SymbolTable.h"
#include "model/Texts.h"
#include "play/InstrumentNames.h"
#include "play/MIDIUtility.h"

namespace corvane {
namespace {

constexpr int32_t kLeftMargin = 1600, kRightMargin = 450, kTopMargin = 1800, kBottomMargin = 750;
// From one staff to the next at a line distance of 100: what a system of some staves likes and what it needs.
constexpr int32_t kEasyPitch = 1050, kLeastPitch = 900;
constexpr int16_t kFullLineDistance = 100;
constexpr int32_t kMostNameRoom = 2500;

constexpr int16_t kLeastLineDistance = 4;
constexpr int kStaffLines = 5;

// What a channel says of the sound of its voice.
void SetSound(DocStaff* staff, int number, int channel, const ChannelSound& sound) {
    VoiceRecord& voice = staff->_voices[number - 1];
    voice._channel = static_cast<int16_t>(channel + 1);
    if (sound.volume >= 0) voice._volume = static_cast<int16_t>(sound.volume);
    if (sound.program < 0) return;
    voice._program = static_cast<int16_t>(sound.program + 1);
    const std::string_view name = GeneralMidiName(sound.program + 1);
    Touch(voice._name, sizeof voice._name);
    std::memset(voice._name, 0, sizeof voice._name);
    std::memcpy(voice._name, name.data(), std::min(name.size(), sizeof voice._name - 1));
}

// Codes count doublings, from 1 for a whole note.
int16_t FigureCodeOf(int den) {
    int16_t code = 1;
    while (den > 1) {
        den /= 2;
        ++code;
    }
    return code;
}

int32_t FreeHeight(const Page* page) {
    return Document::pageHeight - page->_topMargin - page->_bottomMargin - kSystemReserve;
}

}  // namespace

std::vector<int> ScoreFrame::KeysOf(const StaffColumn& column, const ScorePlan& plan) {
    // The tempo map's hold until the track tells its own.
    std::vector<KeyAt> changes = plan.bars.Keys();
    if (column.track && !column.track->keys.empty()) {
        const std::vector<KeyAt>& own = column.track->keys;
        std::erase_if(changes, [&](const KeyAt& change) { return change.time >= own[0].time; });
        changes.insert(changes.end(), own.begin(), own.end());
    }
    std::vector<int> keys(plan.bars.Size());
    size_t next = 0;
    int key = 0;
    for (size_t bar = 0; bar < keys.size(); ++bar) {
        // A key told within a measure holds from the next one.
        while (next < changes.size() && plan.bars.Fine(changes[next].time) <= plan.bars[bar].start)
            key = changes[next++].key;
        keys[bar] = key;
    }
    return keys;
}

void ScoreFrame::Build() {
    MakeColumns();
    Page* page = documentPages.First(_document);
    ClearPage();
    _lineDistance = LineDistance();
    const int perSystem = MeasuresPerSystem(static_cast<int>(_columns.size())), perPage = SystemsPerPage();
    System* system = nullptr;
    for (size_t bar = 0; bar < _plan.bars.Size(); ++bar) {
        if (!system || system->_measureCount == perSystem) {
            if (page->_systemCount == perPage) page = MakePage();
            system = MakeSystem(page);
        }
        MakeMeasure(system, bar);
    }
    LayOutPages(_document);
    ShowNames();
    FitLastSystem(_document);
}

void ScoreFrame::MakeColumns() {
    for (const TrackPlan& track : _plan.tracks) {
        _columns.push_back({&track, 0, nullptr, nullptr, {}});
        if (track.channels.UsesLower()) _columns.push_back({&track, 1, nullptr, nullptr, {}});
    }
    // A score without tracks is an empty pair of staves.
    while (_plan.tracks.empty() && _columns.size() < 2)
        _columns.push_back({nullptr, static_cast<int>(_columns.size()), nullptr, nullptr, {}});
    for (StaffColumn& column : _columns) {
        column.docStaff = MakeDocStaff(_document, documentDocStaffs.Last(_document));
        const bool named = column.track && !column.track->name.empty();
        column.allStaff = named ? MakeAllStaff(column.track->name) : MakeAllStaff();
        SetSounds(column);
        _keys.push_back(KeysOf(column, _plan));
    }
}

void ScoreFrame::SetSounds(StaffColumn& column) {
    for (int channel = 0; column.track && channel < 16; ++channel) {
        const ChannelTable::Place place = column.track->channels.PlaceOf(channel);
        if (place.voice == 0 || place.staff != column.staff) continue;
        std::vector<int> voices{place.voice};
        if (column.track->hasSplit) voices.push_back(_plan.splitVoice);
        for (const int voice : voices)
            SetSound(column.docStaff, voice, channel, column.track->sounds[static_cast<size_t>(channel)]);
    }
}

void ScoreFrame::ClearPage() {
    Page* page = documentPages.First(_document);
    while (System* system = pageSystems.First(page)) {
        while (Measure* measure = systemMeasures.First(system)) {
            systemMeasures.Remove(measure);
            Release(measure);
        }
        page->_systemCount -= 1;
        pageSystems.Remove(system);
        Release(system);
    }
    page->_leftMargin = kLeftMargin;
    page->_rightMargin = kRightMargin;
    page->_topMargin = kTopMargin;
    page->_bottomMargin = kBottomMargin;
}

Page* ScoreFrame::MakePage() {
    const Page* before = documentPages.Last(_document);
    auto* page = Make<Page>();
    documentPages.Add(_document, page);
    _document->_pageCount += 1;
    page->_pageNumber = static_cast<int16_t>(before->_pageNumber + 1);
    page->_leftMargin = kLeftMargin;
    page->_rightMargin = kRightMargin;
    page->_topMargin = kTopMargin;
    page->_bottomMargin = kBottomMargin;
    return page;
}

System* ScoreFrame::MakeSystem(Page* page) {
    auto* system = Make<System>();
    pageSystems.Add(page, system);
    page->_systemCount += 1;
    system->_right = Document::pageWidth - page->_leftMargin - page->_rightMargin;
    system->_top = page->_topMargin;
    system->_bottom = Document::pageHeight - page->_bottomMargin;
    MakeStaffs(system);
    return system;
}

void ScoreFrame::MakeStaffs(System* system) {
    _staffs.clear();
    for (StaffColumn& column : _columns) {
        SimpleStaff* staff =
            MakeSimpleStaff(system, systemStaffs.Last(system), StaffKind::Simple, kStaffLines);
        staff->_lineDistance = _lineDistance;
        docStaffStaffs.Add(column.docStaff, staff);
        allStaffStaffs.Add(column.allStaff, staff);
        const bool closesPair = column.staff == 1;
        if (closesPair) {
            staff->_kind = _staffs.back()->_kind = StaffKind::Pair;
            Connect(system, _staffs.back(), staff, LookupSymbol(_document, "Brace"));
        }
        _staffs.push_back(staff);
    }
}

void ScoreFrame::MakeMeasure(System* system, size_t bar) {
    const Bar& planned = _plan.bars[bar];
    auto* measure = Make<Measure>();
    const bool startsSystem = systemMeasures.IsEmpty(system);
    systemMeasures.Add(system, measure);
    system->_measureCount += 1;
    measure->_num = planned.num;
    measure->_den = planned.den;
    measure->_number = static_cast<int32_t>(bar) + 1;
    for (size_t i = 0; i < _columns.size(); ++i) {
        StaffColumn& column = _columns[i];
        MeasureStaff* crossing = MakeMeasureStaff(measure, measureStaffs.Last(measure), column.docStaff,
                                                  docStaffMeasureStaffs.Last(column.docStaff), _staffs[i]);
        column.crossings.push_back(crossing);
        const int key = _keys[i][bar];
        const bool isLow = column.track ? column.track->isLow : column.staff == 1;
        if (startsSystem) AddClef(crossing, isLow ? kBass : kTreble);
        if (startsSystem || key != _keys[i][bar - 1]) SetKey(crossing, key);
        if (planned.showsMeter) AddTime(crossing);
    }
    if (bar + 1 == _plan.bars.Size()) measure->_barline = BarlineKind::Final;
    MakeTempos(measure, planned);
}

// A beat of the meter is what the metronome counts.
void ScoreFrame::MakeTempos(Measure* measure, const Bar& bar) {
    for (const TempoAt& tempo : bar.tempos) {
        Time* mark = MakeTempoMark(measure, tempo.beat);
        mark->_figure = FigureCodeOf(bar.den);
        mark->_bpm = static_cast<int16_t>(tempo.metronome);
        InsertTempoAtBeat(measure, mark);
    }
}

// The title of the score, and the room for the names of its staves, unless they would take too much of it.
void ScoreFrame::ShowNames() {
    SetTitle(_document, _plan.title);
    const int32_t room = WidthOfNames(_document, LongName);
    const bool fits = room <= kMostNameRoom &&
                      _lineDistance * kLeastPitch / kFullLineDistance >= StaffNameLook(_document).size;
    if (room == 0 || !fits) return;
    Preferences<StaffPref>(_document)->_nameWidth = static_cast<int16_t>(room);
    FitWidth(FirstSystem(_document));
}

int16_t ScoreFrame::LineDistance() const {
    const int32_t free = FreeHeight(documentPages.First(_document));
    const auto needed = static_cast<int64_t>(_columns.size()) * kLeastPitch;
    if (needed <= free) return kFullLineDistance;
    return static_cast<int16_t>(std::max<int64_t>(kLeastLineDistance, free * kFullLineDistance / needed));
}

int ScoreFrame::SystemsPerPage() const {
    const int32_t free = FreeHeight(documentPages.First(_document));
    const auto easy = static_cast<int32_t>(_columns.size() + 1) * kEasyPitch;
    return std::max(1, free / easy);
}

}  // namespace corvane
