// The tiled plane of a score window: knows every visible object of the current page by its rectangle, finds what lies
// under a point or in a region, and keeps which tiles must be painted anew. Objects beyond the plane belong to the
// outermost tiles. Main thread only.
#pragma once

#include <array>
#include <memory>
#include <unordered_map>
#include <vector>

#include "layout/DrawPatch.h"

namespace corvane {

// How voices are coloured on screen.
struct VoiceColouring {
    bool coloured = false;                 // each voice in its own colour
    std::array<uint32_t, 8> colours{};     // of voices 1 to 8, red in the low byte
};

// Told of every patch that is filed or taken off, for undo's local repaints.
class SheetRecorder {
public:
    virtual ~SheetRecorder() = default;
    virtual void Inserted(const DrawPatch& patch, int voice) = 0;
    virtual void Removed(const DrawPatch& patch, int voice) = 0;
};

class NewWindowSheet {
public:
    NewWindowSheet(int32_t width = 15000, int32_t height = 15000, int across = 10, int down = 10);
    ~NewWindowSheet();

    // Empties the sheet and files all objects of a page; all tiles become dirty.
    void FilePage(Page* page);
    Page* CurrentPage() const { return _page; }

    void AddObject(const DrawPatch& patch, int voice);
    // Takes it off; its tiles become dirty with markDirty. Nothing happens if it is not filed.
    void RemoveObject(const DrawPatch& patch, bool markDirty = true);
    // Files it anew where it stands now: both its old and its new tiles become dirty.
    void RedrawObject(const DrawPatch& patch, int voice);
    bool IsFiled(const DrawPatch& patch) const;
    void MarkAllDirty();
    void MarkDirty(const Rect& rect);

    int TileCount() const;
    Rect TileRect(int tile) const;      // the outermost tiles reach to the end of the page and beyond
    bool IsDirty(int tile) const;
    void ClearDirty(int tile);

    // Draws the objects of the tiles that meet `area`, each once, accidentals and handles last.
    void Draw(GraphicPort& port, const Rect& area, const DrawContext& context) const;

    // The first patch under the point that is not `exclude`, in list order, accidentals and handles last. Symbols of
    // another voice than the edited one are skipped where both are told.
    DrawPatch HitSymbol(Point p, const DrawPatch& exclude = {}) const;
    // Each patch that meets the region, once.
    std::vector<DrawPatch> PatchesIn(const WRegion& region) const;
    std::vector<DrawPatch> AllPatches() const;

    void SetEditVoice(int voice) { _editVoice = voice; }
    int EditVoice() const { return _editVoice; }
    void SetColouring(const VoiceColouring& colouring) { _colouring = colouring; }
    void SetRecorder(SheetRecorder* recorder) { _recorder = recorder; }

private:
    struct Tiles;
    std::unique_ptr<Tiles> _tiles;
    Page* _page = nullptr;
    int _editVoice = 0;  // 0 for all
    VoiceColouring _colouring;
    SheetRecorder* _recorder = nullptr;
};

// Draws a whole page without a sheet, as printers and files want it.
void DrawPage(GraphicPort& port, Page* page, const DrawContext& context);

}  // namespace corvane
