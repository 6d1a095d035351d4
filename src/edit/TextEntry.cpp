#include "edit/TextEntry.h"

#include <utility>

#include "edit/LyricEntry.h"
#include "edit/ScoreTexts.h"
#include "edit/TarnClick.h"
#include "edit/Texts.h"
#include "layout/Frames.h"
#include "layout/TextPlaces.h"
#include "model/Par.h"

namespace corvane {
namespace {

enum TextItem { kStaffTextItem = 1, kLyricItem = 2, kPageTextItem = 3 };

class NewStaffText : public TextEntry {
public:
    NewStaffText(MeasureStaff* crossing, Point at) : _crossing(crossing), _at(at) {}
    std::string Text() const override { return {}; }
    TextLook Look() const override { return StaffTextLook(DocumentPar(_crossing)); }
    Point Place() const override { return _at; }
    void Take(WindowTarn& window, std::string_view text, const TextLook& look) override {
        if (!text.empty()) InsertMeasureStaffText(window, _crossing, _at, text, look);
    }

private:
    MeasureStaff* _crossing;
    Point _at;
};

class NewPageText : public TextEntry {
public:
    NewPageText(Page* page, const Document* document, Point at) : _page(page), _document(document), _at(at) {}
    std::string Text() const override { return {}; }
    TextLook Look() const override { return PageTextLook(_document); }
    Point Place() const override { return _at; }
    void Take(WindowTarn& window, std::string_view text, const TextLook& look) override {
        if (!text.empty()) InsertPageText(window, _page, _at, text, look);
    }

private:
    Page* _page;
    const Document* _document;
    Point _at;
};

// A text that stands there; Change stores another one.
template <class Record, void (*Change)(WindowTarn&, Record*, std::string_view, const TextLook&)>
class OldText : public TextEntry {
public:
    OldText(Record* record, Point at) : _record(record), _at(at) {}
    std::string Text() const override { return std::string(TextOf(_record->_text.Get())); }
    TextLook Look() const override { return LookOf(_record->_text.Get()); }
    Point Place() const override { return _at; }
    void Take(WindowTarn& window, std::string_view text, const TextLook& look) override {
        if (text != Text() || look != Look()) Change(window, _record, text, look);
    }

private:
    Record* _record;
    Point _at;
};

class TitleEntry : public TextEntry {
public:
    explicit TitleEntry(const Document* document) : _document(document) {}
    std::string Text() const override { return std::string(TitleOf(_document)); }
    TextLook Look() const override { return TitlePictureOf(_document).look; }
    Point Place() const override {
        const TitlePicture picture = TitlePictureOf(_document);
        return {picture.place.at.x - WidthOfText(picture.text, picture.look) / 2, picture.place.at.y};
    }
    size_t MostBytes() const override { return kMostTitleBytes; }
    bool HasLines() const override { return false; }
    void Take(WindowTarn& window, std::string_view text, const TextLook&) override {
        ChangeTitle(window, text);
    }

private:
    const Document* _document;
};

std::unique_ptr<TextEntry> EntryOf(const DrawPatch& patch) {
    if (auto* text = patch.Record<MeasureStaffText>())
        return std::make_unique<OldText<MeasureStaffText, ChangeMeasureStaffText>>(text, BaselineOf(text));
    if (auto* text = patch.Record<PageText>())
        return std::make_unique<OldText<PageText, ChangePageText>>(text, Point{text->_x, text->_y});
    if (const auto* document = patch.Record<Document>()) return std::make_unique<TitleEntry>(document);
    if (auto* syllable = patch.Record<Liriche>()) return EntryOfSyllable(syllable);
    return nullptr;
}

}  // namespace

void BeginText(WindowTarn& window, std::unique_ptr<TextEntry> entry) {
    window.textEntry = std::move(entry);
    window.Shell().TextEntryChanged(window);
}

bool BeginTextUnder(WindowTarn& window, Point p) {
    DrawPatch patch = window.Sheet().HitSymbol(p);
    std::unique_ptr<TextEntry> entry = patch ? EntryOf(patch) : nullptr;
    if (!entry && patch && (patch = window.Sheet().HitSymbol(p, patch))) entry = EntryOf(patch);
    if (!entry) return false;
    BeginText(window, std::move(entry));
    return true;
}

void BeginTextAt(WindowTarn& window, System* system, Point p, int item) {
    if (BeginTextUnder(window, p)) return;
    MeasureStaff* crossing = FindMeasureStaff(system, p);
    std::unique_ptr<TextEntry> entry;
    if (item == kPageTextItem)
        entry = std::make_unique<NewPageText>(window.CurrentPage(), window.GetDocument(), p);
    else if (item == kStaffTextItem && crossing && crossing->_staff)
        entry = std::make_unique<NewStaffText>(crossing, p);
    else if (item == kLyricItem && crossing && crossing->_staff)
        entry = EntryAtNote(crossing, p);
    if (entry) return BeginText(window, std::move(entry));
    if (item == kLyricItem) window.Shell().Tell("A syllable stands under a note.");
}

void EndText(WindowTarn& window, std::string_view text, const std::optional<TextLook>& look) {
    const std::unique_ptr<TextEntry> entry = std::move(window.textEntry);
    if (!entry) return;
    window.Activate();
    entry->Take(window, CutText(text, entry->MostBytes()), look ? *look : entry->Look());
    if (!window.textEntry) window.Shell().TextEntryChanged(window);
}

void CancelText(WindowTarn& window) {
    if (window.textEntry) BeginText(window, nullptr);
}

bool TypeTextKey(WindowTarn& window, std::string_view text, TextKey key) {
    if (!window.textEntry || !window.textEntry->EndsWith(key)) return false;
    const std::unique_ptr<TextEntry> entry = std::move(window.textEntry);
    window.Activate();
    BeginText(window, entry->TakeAndGoOn(window, CutText(text, entry->MostBytes()), key));
    return true;
}

Status TypeText(WindowTarn& window, std::string_view text) {
    if (!window.textEntry) return {Fault::Refused, "Nothing is being typed"};
    constexpr struct {
        char letter;
        TextKey key;
    } kKeys[] = {{' ', TextKey::Space}, {'-', TextKey::Hyphen}, {'_', TextKey::Underscore}};
    std::string typed;
    for (const char letter : text) {
        if (!window.textEntry) return {Fault::Refused, "There are fewer notes than syllables"};
        bool ended = false;
        for (const auto& each : kKeys)
            if (each.letter == letter) ended = TypeTextKey(window, typed, each.key);
        if (ended)
            typed.clear();
        else
            typed.push_back(letter);
    }
    if (!window.textEntry && !typed.empty()) return {Fault::Refused, "There are fewer notes than syllables"};
    EndText(window, typed);
    return Status::Ok();
}

}  // namespace corvane
