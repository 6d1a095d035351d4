// Signs, hairpins, slurs and texts of a paste.
#include <algorithm>

#include "edit/PasteSteps.h"
#include "layout/Frames.h"
#include "layout/SlurShape.h"
#include "layout/SpannerMarks.h"
#include "model/NoteOperations.h"
#include "model/Par.h"
#include "model/RecordClone.h"
#include "model/Texts.h"

namespace corvane {

// ---- places

PastePlaces::PastePlaces(const Caret& caret, const Clipboard& clips)
    : _clips(clips),
      _staff(caret.staff),
      _measures{caret.measure},
      _told(FrameOf(caret.measure).PerMilleOfX(caret.x)),
      _offset(std::clamp(_told, 0, 1000)) {}

Measure* PastePlaces::MeasureFromCaret(int32_t count) {
    while (static_cast<int32_t>(_measures.size()) <= count) {
        Measure* next = NextMeasure(_measures.back());
        if (!next) return nullptr;
        _measures.push_back(next);
    }
    return _measures[static_cast<size_t>(count)];
}

MeasureStaff* PastePlaces::Destination(const ClipPlace& place, int32_t further) {
    MeasureStaff* crossing = Find(place, further);
    _hasDropped |= !crossing;
    return crossing;
}

MeasureStaff* PastePlaces::Find(const ClipPlace& place, int32_t further) {
    const DocStaff* staff = _staff;
    for (int i = _clips.ClipFirstStaff; staff && i < place.staff; ++i) staff = documentDocStaffs.Next(staff);
    const Measure* measure = MeasureFromCaret(place.measure - _clips.ClipFirstMeasure + further);
    MeasureStaff* crossing = staff && measure ? MeasureStaffAt(measure, staff) : nullptr;
    return crossing && crossing->_staff ? crossing : nullptr;
}

int32_t PastePlaces::XOf(const ClipPlace& place) const {
    if (const auto events = _events.find({place.measure, place.staff}); events != _events.end()) {
        auto at = events->second.upper_bound(place.x);
        if (at != events->second.begin()) --at;
        return std::clamp(corvane::XOf(at->second) + place.x - at->first, 0, 1000);
    }
    if (place.measure != _clips.ClipFirstMeasure) return place.x;
    return std::clamp(place.x + _offset - _clips.ClipFirstX, 0, 1000);
}

int32_t PastePlaces::MeasuresBehind(const ClipPlace& place, int32_t count) {
    while (count && !Find(place, count)) --count;
    return count;
}

namespace {

// ---- signs

constexpr int32_t kLeastHairpin = 50;  // per mille, of one that the score's end cuts short

template <class R>
void PasteAtStaff(Document* document, const std::vector<Clip<R>>& list, PastePlaces& places) {
    for (const Clip<R>& clip : list)
        if (MeasureStaff* crossing = places.Destination(clip.place)) {
            R* clone = Clone(document, clip.object);
            staffSymbols.Add(crossing, clone);
            clone->_x = places.XOf(clip.place);
        }
}

// One that would lead beyond the score ends with it.
void PasteHairpin(Document* document, const ClipHairpin& clip, PastePlaces& places) {
    MeasureStaff* first = places.Destination(clip.place);
    if (!first) return;
    const int32_t further = places.MeasuresBehind(clip.place, clip.further);
    const int32_t from = places.XOf(clip.place);
    ClipPlace end = clip.place;
    end.measure += clip.further, end.x = clip.object->_to;
    const int32_t to = further < clip.further ? 1000 : places.XOf(end);
    Hairpin* hairpin = Clone(document, clip.object);
    hairpin->_to = to;
    hairpin->_from = further || from < to ? from : std::max(to - kLeastHairpin, 0);
    MakeMarks<MarkHairpin>(hairpinMarks, hairpin, first, places.Destination(clip.place, further));
    SettleMarks(hairpinMarks.First(hairpin));
}

// Between the clones of its events, where both were pasted.
void PasteSlur(Document* document, const Slur* original, const ClipClones& clones) {
    VoiceSymbol *first = clones.CloneOf(FirstEventOf(original)),
                *last = clones.CloneOf(LastEventOf(original));
    if (!first || !last) return;
    Slur* slur = Clone(document, original);
    slur->_first = first;
    slur->_last = last;
    MakeMarks<MarkSlur>(slurMarks, slur, MeasureStaffPar(first), MeasureStaffPar(last));
    SettleMarks(slurMarks.First(slur));
}

bool StandsOn(const Page* page, int32_t x, int32_t y) {
    for (const PageText* text : pageTexts.Of(page))
        if (text->_x == x && text->_y == y) return true;
    return false;
}

// At the same place of the page; a little lower and to the right where one stands there already.
void PastePageText(Document* document, const PageText* original, Page* page) {
    const int32_t aside = LookOf(original->_text).size;
    const Rect paper = PageRect(page);
    int32_t x = original->_x, y = original->_y;
    while (StandsOn(page, x, y) && x + aside < paper.right && y + aside < paper.bottom)
        x += aside, y += aside;
    PageText* text = Clone(document, original);
    pageTexts.Add(page, text);
    text->_x = std::clamp(x, paper.left, paper.right);
    text->_y = std::clamp(y, paper.top, paper.bottom);
}

}  // namespace

void PasteSigns(WindowTarn& window, const Clipboard& clips, PastePlaces& places, const ClipClones& clones) {
    Document* document = window.GetDocument();
    PasteAtStaff(document, clips.ClipDinamiche, places);
    for (const ClipHairpin& clip : clips.ClipHairpins) PasteHairpin(document, clip, places);
    for (const Clip<Slur>& clip : clips.ClipSlurs) PasteSlur(document, clip.object, clones);
    for (const Clip<PageText>& clip : clips.ClipPageText)
        PastePageText(document, clip.object, PagePar(places.First()));
    PasteAtStaff(document, clips.ClipMeasureStaffText, places);
}

}  // namespace corvane
