#include "layout/Sheet.h"

#include <algorithm>
#include <list>
#include <unordered_map>

#include "base/Assert.h"
#include "graphics/GraphicPort.h"
#include "layout/PageFiling.h"
#include "layout/SpacingHeader.h"

namespace corvane {
namespace {

// Beyond every page.
constexpr int32_t kFar = 1 << 28;

// No class answers to presses farther than this from its rectangle.
constexpr int32_t kHitReach = 150;

struct Entry;
using EntryList = std::list<const Entry*>;

struct Tile {
    EntryList inOrder, late;
    Rect stale;

    EntryList& ListFor(bool isLate) { return isLate ? late : inOrder; }
};

struct Entry {
    DrawPatch patch;
    int voice = 0;
    Rect rect;
    uint64_t order = 0;  // of filing
    bool late = false;
    struct Place {
        int tile;
        EntryList::iterator at;
    };
    std::vector<Place> places;

    bool Before(const Entry& other) const { return late != other.late ? other.late : order < other.order; }
};

}  // namespace

struct NewWindowSheet::Tiles {
    // Columns and rows of the grid from..to, both included.
    struct Span {
        int left, top, right, bottom;
    };

    int32_t cellWidth, cellHeight;
    int across, down;
    std::vector<Tile> tiles;
    std::unordered_map<const void*, Entry> entries;
    uint64_t filed = 0;

    static int Cell(int32_t place, int32_t size, int count) {
        return std::clamp(place < 0 ? 0 : place / size, 0, count - 1);
    }

    // The tiles that a rectangle meets; an empty one meets none, given as right < left.
    Span SpanOf(const Rect& rect) const {
        if (rect.IsEmpty()) return {0, 0, -1, -1};
        return {Cell(rect.left, cellWidth, across), Cell(rect.top, cellHeight, down),
                Cell(rect.right - 1, cellWidth, across), Cell(rect.bottom - 1, cellHeight, down)};
    }

    template <class Visit>
    void ForEachTile(const Rect& rect, Visit visit) const {
        const Span span = SpanOf(rect);
        for (int j = span.top; j <= span.bottom; ++j)
            for (int i = span.left; i <= span.right; ++i) visit(j * across + i);
    }

    Entry* Find(const DrawPatch& patch) {
        const auto it = entries.find(patch.Object());
        return it == entries.end() ? nullptr : &it->second;
    }

    // The outermost tiles reach to the end of the page and beyond.
    Rect RectOf(int tile) const {
        const int i = tile % across, j = tile / across;
        return {i == 0 ? -kFar : i * cellWidth, j == 0 ? -kFar : j * cellHeight,
                i + 1 == across ? kFar : (i + 1) * cellWidth, j + 1 == down ? kFar : (j + 1) * cellHeight};
    }

    void MarkDirty(const Rect& rect) {
        ForEachTile(rect, [&](int tile) {
            Rect& stale = tiles[static_cast<size_t>(tile)].stale;
            stale = Union(stale, Intersection(rect, RectOf(tile)));
        });
    }

    void File(const DrawPatch& patch, int voice) {
        Entry& entry = entries[patch.Object()];
        entry.patch = patch;
        entry.voice = voice;
        entry.rect = patch.Bounds();
        entry.order = filed++;
        entry.late = patch.Behaviour().IsLate();
        ForEachTile(entry.rect, [&](int tile) {
            EntryList& list = tiles[static_cast<size_t>(tile)].ListFor(entry.late);
            entry.places.push_back({tile, list.insert(list.end(), &entry)});
        });
    }

    void TakeOff(Entry& entry) {
        for (const Entry::Place& place : entry.places)
            tiles[static_cast<size_t>(place.tile)].ListFor(entry.late).erase(place.at);
        entries.erase(entry.patch.Object());
    }

    // The entries of the tiles that meet a rectangle, each once, in the order of painting.
    template <class Wanted>
    std::vector<const Entry*> Gather(const Rect& rect, Wanted wanted) const {
        std::vector<const Entry*> found;
        ForEachTile(rect, [&](int tile) {
            const Tile& t = tiles[static_cast<size_t>(tile)];
            for (const EntryList* list : {&t.inOrder, &t.late})
                for (const Entry* entry : *list)
                    // The first of its tiles within the rectangle gives it.
                    if (IsFirstIn(*entry, rect, tile) && wanted(*entry)) found.push_back(entry);
        });
        std::sort(found.begin(), found.end(), [](const Entry* a, const Entry* b) { return a->Before(*b); });
        return found;
    }

    bool IsFirstIn(const Entry& entry, const Rect& rect, int tile) const {
        const Span area = SpanOf(rect), own = SpanOf(entry.rect);
        return std::max(area.top, own.top) * across + std::max(area.left, own.left) == tile;
    }
};

NewWindowSheet::NewWindowSheet(int32_t width, int32_t height, int across, int down)
    : _tiles(std::make_unique<Tiles>()) {
    CORVANE_ASSERT(across > 0 && down > 0 && width >= across && height >= down);
    *_tiles = {width / across,
               height / down,
               across,
               down,
               std::vector<Tile>(static_cast<size_t>(across * down)),
               {},
               0};
}

NewWindowSheet::~NewWindowSheet() = default;

void NewWindowSheet::FilePage(Page* page) {
    const HeadersAtRest headers;
    _lifted.clear();
    for (Tile& tile : _tiles->tiles) tile = Tile();
    _tiles->entries.clear();
    _page = page;
    if (page) ForEachPatch(page, [&](const DrawPatch& patch, int voice) { File(patch, voice); });
    MarkAllDirty();
}

void NewWindowSheet::File(const DrawPatch& patch, int voice) {
    std::erase(_lifted, patch);
    if (Entry* entry = _tiles->Find(patch)) _tiles->TakeOff(*entry);
    _tiles->File(patch, voice);
}

void NewWindowSheet::AddObject(const DrawPatch& patch, int voice) {
    CORVANE_ASSERT(patch);
    if (IsFiled(patch)) RemoveObject(patch);
    File(patch, voice);
    _tiles->MarkDirty(_tiles->Find(patch)->rect);
}

void NewWindowSheet::RemoveObject(const DrawPatch& patch, bool markDirty) {
    Entry* entry = _tiles->Find(patch);
    if (!entry) return;
    if (markDirty) _tiles->MarkDirty(entry->rect);
    std::erase(_lifted, patch);
    _tiles->TakeOff(*entry);
}

void NewWindowSheet::RedrawObject(const DrawPatch& patch, int voice) { AddObject(patch, voice); }

bool NewWindowSheet::IsFiled(const DrawPatch& patch) const { return _tiles->Find(patch) != nullptr; }

Rect NewWindowSheet::FiledRect(const DrawPatch& patch) const {
    const Entry* entry = _tiles->Find(patch);
    return entry ? entry->rect : Rect{};
}

void NewWindowSheet::MarkAllDirty() {
    for (int tile = 0; tile < TileCount(); ++tile)
        _tiles->tiles[static_cast<size_t>(tile)].stale = TileRect(tile);
}

void NewWindowSheet::MarkDirty(const Rect& rect) { _tiles->MarkDirty(rect); }

int NewWindowSheet::TileCount() const { return _tiles->across * _tiles->down; }

Rect NewWindowSheet::TileRect(int tile) const { return _tiles->RectOf(tile); }

const Rect& NewWindowSheet::StaleRect(int tile) const {
    return _tiles->tiles[static_cast<size_t>(tile)].stale;
}

bool NewWindowSheet::IsDirty(int tile) const { return !StaleRect(tile).IsEmpty(); }

void NewWindowSheet::ClearDirty(int tile) { _tiles->tiles[static_cast<size_t>(tile)].stale = {}; }

DrawContext NewWindowSheet::OurContext(const DrawContext& context) const {
    DrawContext ours = context;
    ours.colouring = _colouring;
    ours.editVoice = _editVoice;
    return ours;
}

bool NewWindowSheet::IsLifted(const DrawPatch& patch) const {
    return std::find(_lifted.begin(), _lifted.end(), patch) != _lifted.end();
}

void NewWindowSheet::Lift(const std::vector<DrawPatch>& patches) {
    CORVANE_ASSERT_AS(_lifted.empty(), "!_objVector");
    for (const DrawPatch& patch : patches)
        if (const Entry* entry = _tiles->Find(patch)) {
            _lifted.push_back(patch);
            MarkDirty(entry->rect);
        }
}

void NewWindowSheet::PutDown() {
    for (const DrawPatch& patch : _lifted) MarkDirty(FiledRect(patch));
    _lifted.clear();
}

void NewWindowSheet::DrawLifted(GraphicPort& port, Point by, const DrawContext& context) const {
    const DrawContext ours = OurContext(context);
    const Colour before = port.CurrentColor();
    const Point origin = port.Origin();
    port.SetOrigin(origin.x - by.x, origin.y - by.y);
    for (const DrawPatch& patch : _lifted) {
        port.SetColor(ours.ColourOf(_tiles->Find(patch)->voice));
        patch.Draw(port, ours);
    }
    port.SetOrigin(origin.x, origin.y);
    port.SetColor(before);
}

void NewWindowSheet::Draw(GraphicPort& port, const Rect& area, const DrawContext& context) const {
    const HeadersAtRest headers;
    const DrawContext ours = OurContext(context);
    const Colour before = port.CurrentColor();
    const auto isSeen = [&](const Entry& e) { return e.rect.Meets(area) && !IsLifted(e.patch); };
    for (const Entry* entry : _tiles->Gather(area, isSeen)) {
        port.SetColor(ours.ColourOf(entry->voice));
        entry->patch.Draw(port, ours);
    }
    port.SetColor(before);
}

DrawPatch NewWindowSheet::HitSymbol(Point p, const DrawPatch& exclude) const {
    const Tiles::Span under = _tiles->SpanOf({p.x, p.y, p.x + 1, p.y + 1});
    const Tile& tile = _tiles->tiles[static_cast<size_t>(under.top * _tiles->across + under.left)];
    for (const EntryList* list : {&tile.inOrder, &tile.late})
        for (const Entry* entry : *list) {
            const bool ours = entry->voice == 0 || _editVoice == 0 || entry->voice == _editVoice;
            if (!ours || entry->patch == exclude || !entry->rect.GrownBy(kHitReach).EnclosesStrictly(p))
                continue;
            if (entry->patch.Behaviour().Hit(entry->patch.Object(), p)) return entry->patch;
        }
    return {};
}

std::vector<DrawPatch> NewWindowSheet::PatchesIn(const GraphicPort& port, const WRegion& region) const {
    const Rect box = region.BoundingBox();
    // A unit more on each side: the way back from pixels rounds.
    const Rect area =
        Rect{port.Unscale(box.left), port.Unscale(box.top), port.Unscale(box.right), port.Unscale(box.bottom)}
            .GrownBy(port.Unscale(1) + 1);
    std::vector<DrawPatch> patches;
    if (region.IsEmpty()) return patches;
    for (const Entry* entry : _tiles->Gather(area, [&](const Entry& e) {
             return e.patch.Behaviour().HitRegion(port, e.patch.Object(), region);
         }))
        patches.push_back(entry->patch);
    return patches;
}

std::vector<DrawPatch> NewWindowSheet::AllPatches() const {
    std::vector<const Entry*> all;
    for (const auto& [object, entry] : _tiles->entries) all.push_back(&entry);
    std::sort(all.begin(), all.end(), [](const Entry* a, const Entry* b) { return a->Before(*b); });
    std::vector<DrawPatch> patches;
    for (const Entry* entry : all) patches.push_back(entry->patch);
    return patches;
}

void DrawPage(GraphicPort& port, const Page* page, const DrawContext& context) {
    const HeadersAtRest headers;
    std::vector<std::pair<DrawPatch, int>> late;
    const Colour before = port.CurrentColor();
    const auto draw = [&](const DrawPatch& patch, int voice) {
        port.SetColor(context.ColourOf(voice));
        patch.Draw(port, context);
    };
    ForEachPatch(page, [&](const DrawPatch& patch, int voice) {
        if (patch.Behaviour().IsLate())
            late.emplace_back(patch, voice);
        else
            draw(patch, voice);
    });
    for (const auto& [patch, voice] : late) draw(patch, voice);
    port.SetColor(before);
}

}  // namespace corvane
