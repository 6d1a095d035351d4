// The tiled plane of a score window: knows every visible object of the current page by its rectangle, finds
// what lies under a point or in a region, and keeps which tiles must be painted anew. Objects beyond the
// plane belong to the outermost tiles. Main thread only.
#pragma once

#include <memory>
#include <vector>

#include "layout/DrawPatch.h"

namespace corvane {

class NewWindowSheet {
public:
    // Extents of the plane in page units, and the grid of its tiles.
    NewWindowSheet(int32_t width = 15000, int32_t height = 15000, int across = 10, int down = 10);
    ~NewWindowSheet();
    NewWindowSheet(const NewWindowSheet&) = delete;

    // Empties the sheet and files all objects of a page; all tiles become dirty. Null only empties it.
    void FilePage(Page* page);
    Page* CurrentPage() const { return _page; }

    // Files it last, where it stands now; its tiles become dirty. What is filed already is filed anew.
    void AddObject(const DrawPatch& patch, int voice);
    // Takes it off; its tiles become dirty with markDirty. Nothing happens if it is not filed.
    void RemoveObject(const DrawPatch& patch, bool markDirty = true);
    // Files it anew where it stands now: both its old and its new tiles become dirty.
    void RedrawObject(const DrawPatch& patch, int voice);
    bool IsFiled(const DrawPatch& patch) const;
    // As it was when filed; empty if it is not.
    Rect FiledRect(const DrawPatch& patch) const;
    void MarkAllDirty();
    void MarkDirty(const Rect& rect);

    int TileCount() const;
    Rect TileRect(int tile) const;  // the outermost tiles reach to the end of the page and beyond
    bool IsDirty(int tile) const;
    // What of a dirty tile has changed, as one rectangle; empty for a clean one.
    const Rect& StaleRect(int tile) const;
    void ClearDirty(int tile);

    // Draws the objects that meet `area`, each once, in the order of their filing, accidentals and handles
    // last. The picture is the same whether a page is drawn at once or area by area.
    void Draw(GraphicPort& port, const Rect& area, const DrawContext& context) const;

    // The first patch under the point that is not `exclude`, in list order, accidentals and handles last.
    // Symbols of another voice than the edited one are skipped where both are told.
    DrawPatch HitSymbol(Point p, const DrawPatch& exclude = {}) const;
    // Each patch that meets a region of the port, once, in the order of their filing.
    std::vector<DrawPatch> PatchesIn(const GraphicPort& port, const WRegion& region) const;
    std::vector<DrawPatch> AllPatches() const;

    // ---- What is being dragged: the picture is painted without it, and DrawLifted paints it where it would
    // come to stand. Nothing may be lifted yet; what is not filed is left out.
    void Lift(const std::vector<DrawPatch>& patches);
    // Back into the picture, where it stands.
    void PutDown();
    // What is taken off the sheet meanwhile, or filed anew, is no longer among it.
    const std::vector<DrawPatch>& Lifted() const { return _lifted; }
    void DrawLifted(GraphicPort& port, Point by, const DrawContext& context) const;

    // The caller marks dirty what changes its looks by these.
    void SetEditVoice(int voice) { _editVoice = voice; }
    int EditVoice() const { return _editVoice; }
    void SetColouring(const VoiceColouring& colouring) { _colouring = colouring; }

private:
    struct Tiles;
    void File(const DrawPatch& patch, int voice);
    bool IsLifted(const DrawPatch& patch) const;
    DrawContext OurContext(const DrawContext& context) const;

    std::unique_ptr<Tiles> _tiles;
    Page* _page = nullptr;
    int _editVoice = 0;  // 0 for all
    VoiceColouring _colouring;
    std::vector<DrawPatch> _lifted;
};

// Draws a whole page without a sheet, as printers and files want it.
void DrawPage(GraphicPort& port, const Page* page, const DrawContext& context);

}  // namespace corvane
