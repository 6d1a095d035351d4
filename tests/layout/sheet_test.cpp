// The tiled plane: what is filed where, what is painted and hit in which order, what becomes dirty.
#include "layout/Sheet.h"

#include <gtest/gtest.h>

#include "draw_score.h"
#include "graphics/MemoryPort.h"
#include "layout/PageFiling.h"

namespace corvane::draw {
namespace {

// A transient object that tells when it is painted, and in which colour.
struct Box {
    std::string name;
    Rect rect;
    bool late = false;
};
std::vector<std::string> painted;

class BoxBehaviour : public PatchBehaviour {
public:
    explicit BoxBehaviour(bool late) : _late(late) {}
    void Draw(GraphicPort& port, void* object, const DrawContext&) const override {
        const Colour colour = port.CurrentColor();
        painted.push_back(static_cast<Box*>(object)->name + (colour ? "*" + std::to_string(colour) : ""));
    }
    Rect Bounds(const void* object) const override { return static_cast<const Box*>(object)->rect; }
    bool IsLate() const override { return _late; }
    int16_t ClassNumber() const override { return 0; }

private:
    bool _late;
};

DrawPatch PatchFor(Box& box) {
    static const BoxBehaviour inOrder(false), late(true);
    return {&box, box.late ? &late : &inOrder};
}

class SheetTest : public testing::Test {
protected:
    SheetTest() { sheet.MarkAllDirty(), Clean(); }
    void Clean() {
        for (int tile = 0; tile < sheet.TileCount(); ++tile) sheet.ClearDirty(tile);
    }
    std::vector<int> Dirty() const {
        std::vector<int> tiles;
        for (int tile = 0; tile < sheet.TileCount(); ++tile)
            if (sheet.IsDirty(tile)) tiles.push_back(tile);
        return tiles;
    }
    std::vector<std::string> Paint(const Rect& area) {
        painted.clear();
        MemoryPort port;
        sheet.Draw(port, area, {});
        return painted;
    }
    static std::string NameOf(const DrawPatch& patch) {
        return patch ? static_cast<Box*>(patch.Object())->name : "none";
    }

    // Four columns and three rows of 100 by 100.
    NewWindowSheet sheet{400, 300, 4, 3};
};
using Names = std::vector<std::string>;
using TileNumbers = std::vector<int>;
constexpr Rect kEverything{-100000, -100000, 100000, 100000};

TEST_F(SheetTest, AnObjectOverSeveralTilesIsListedAndPaintedOnce) {
    Box wide{"wide", {50, 50, 250, 150}};
    sheet.AddObject(PatchFor(wide), 0);
    EXPECT_EQ(Dirty(), (TileNumbers{0, 1, 2, 4, 5, 6}));
    EXPECT_EQ(Paint(kEverything), (Names{"wide"}));
    EXPECT_EQ(Paint({150, 0, 260, 300}), (Names{"wide"})) << "where the area begins within it";
    EXPECT_EQ(Paint({250, 0, 300, 100}), Names{}) << "its tile is met, the object is not";
    EXPECT_EQ(sheet.AllPatches().size(), 1u);
    MemoryPort port;
    WRegion region = port.NewRegion();
    port.AddRectToRegion(region, {90, 40, 110, 160});
    EXPECT_EQ(sheet.PatchesIn(port, region).size(), 1u);
    region.Clear();
    port.AddRectToRegion(region, {260, 50, 400, 150});
    EXPECT_TRUE(sheet.PatchesIn(port, region).empty());
    EXPECT_TRUE(sheet.PatchesIn(port, port.NewRegion()).empty());
}

TEST_F(SheetTest, ChangesMakeTheTilesDirtyThatShowThem) {
    Box box{"box", {150, 50, 250, 60}};
    sheet.AddObject(PatchFor(box), 1);
    Clean();
    box.rect = {50, 250, 60, 260};
    sheet.RedrawObject(PatchFor(box), 1);
    EXPECT_EQ(Dirty(), (TileNumbers{1, 2, 8})) << "where it was and where it is";
    EXPECT_EQ(sheet.StaleRect(2), (Rect{200, 50, 250, 60})) << "and of each tile no more than that";
    EXPECT_EQ(sheet.StaleRect(8), (Rect{50, 250, 60, 260}));
    EXPECT_EQ(sheet.AllPatches().size(), 1u);
    EXPECT_EQ(sheet.FiledRect(PatchFor(box)), box.rect);

    Clean();
    box.rect = {0, 0, 10, 10};
    sheet.RemoveObject(PatchFor(box));
    EXPECT_EQ(Dirty(), (TileNumbers{8})) << "where it was filed";
    EXPECT_FALSE(sheet.IsFiled(PatchFor(box)));
    EXPECT_EQ(Paint(kEverything), Names{});
    Clean();
    sheet.RemoveObject(PatchFor(box));
    EXPECT_EQ(Dirty(), TileNumbers{}) << "not filed: nothing happens";

    sheet.AddObject(PatchFor(box), 1);
    Clean();
    sheet.RemoveObject(PatchFor(box), false);
    EXPECT_EQ(Dirty(), TileNumbers{});
    sheet.MarkDirty({310, 110, 320, 120});
    sheet.MarkDirty({340, 150, 350, 160});
    EXPECT_EQ(sheet.StaleRect(7), (Rect{310, 110, 350, 160})) << "around all that has changed";
    Clean();
    EXPECT_TRUE(sheet.StaleRect(7).IsEmpty());
    sheet.MarkDirty({399, 199, 401, 201});
    EXPECT_EQ(Dirty(), (TileNumbers{7, 11}));
}

TEST_F(SheetTest, WhatLiesBeyondThePlaneBelongsToTheOutermostTiles) {
    Box below{"below", {150, 700, 160, 710}}, left{"left", {-900, 150, -800, 160}},
        far{"far", {5000, -5000, 5010, -4990}};
    for (Box* box : {&below, &left, &far}) {
        sheet.AddObject(PatchFor(*box), 0);
        EXPECT_EQ(Paint(box->rect), (Names{box->name}));
        EXPECT_EQ(NameOf(sheet.HitSymbol({box->rect.left + 5, box->rect.top + 5})), box->name);
    }
    EXPECT_EQ(Dirty(), (TileNumbers{3, 4, 9}));
    // Each point of any page lies in the rectangle of one tile: painting the dirty tiles paints everything.
    int holding = 0;
    for (int tile = 0; tile < sheet.TileCount(); ++tile)
        holding += sheet.TileRect(tile).Meets({5000, -5000, 5001, -4999});
    EXPECT_EQ(holding, 1);
    EXPECT_EQ(sheet.TileRect(5), (Rect{100, 100, 200, 200}));
}

TEST_F(SheetTest, AHitIsStrictlyInsideTheFirstInOrderAndLateOnesComeLast) {
    Box late{"late", {10, 10, 50, 50}, true}, first{"first", {20, 20, 60, 60}},
        second{"second", {20, 20, 90, 90}};
    for (Box* box : {&late, &first, &second}) sheet.AddObject(PatchFor(*box), 0);
    const auto hit = [&](Point p, const DrawPatch& exclude = {}) {
        return NameOf(sheet.HitSymbol(p, exclude));
    };
    EXPECT_EQ(hit({30, 30}), "first");
    EXPECT_EQ(hit({30, 30}, PatchFor(first)), "second");
    EXPECT_EQ(hit({20, 30}), "late") << "the edge of a rectangle misses";
    EXPECT_EQ(hit({60, 30}), "second");
    EXPECT_EQ(hit({90, 30}), "none");
    EXPECT_EQ(hit({89, 89}), "second");
    EXPECT_EQ(Paint(kEverything), (Names{"first", "second", "late"}));
    sheet.RedrawObject(PatchFor(first), 0);
    EXPECT_EQ(hit({30, 30}), "second") << "what is filed anew comes last";
}

TEST_F(SheetTest, AHitPassesOverOtherVoicesThanTheEditedOne) {
    Box one{"one", {0, 0, 90, 90}}, two{"two", {0, 0, 90, 90}}, none{"none of a voice", {0, 0, 90, 90}};
    sheet.AddObject(PatchFor(one), 1);
    sheet.AddObject(PatchFor(two), 2);
    sheet.AddObject(PatchFor(none), 0);
    EXPECT_EQ(NameOf(sheet.HitSymbol({5, 5})), "one");
    sheet.SetEditVoice(2);
    EXPECT_EQ(NameOf(sheet.HitSymbol({5, 5})), "two");
    sheet.SetEditVoice(3);
    EXPECT_EQ(NameOf(sheet.HitSymbol({5, 5})), "none of a voice");
}

TEST_F(SheetTest, VoicesAreGreyOrColoured) {
    Box one{"one", {0, 0, 90, 90}}, two{"two", {0, 0, 90, 90}}, none{"none", {0, 0, 90, 90}};
    sheet.AddObject(PatchFor(one), 1);
    sheet.AddObject(PatchFor(two), 2);
    sheet.AddObject(PatchFor(none), 0);
    EXPECT_EQ(Paint(kEverything), (Names{"one", "two", "none"}));
    sheet.SetEditVoice(2);
    EXPECT_EQ(Paint(kEverything), (Names{"one*" + std::to_string(0x706850), "two", "none"}));
    sheet.SetColouring({true, {7, 8}});
    EXPECT_EQ(Paint(kEverything), (Names{"one*7", "two*8", "none"}));
    MemoryPort port;
    port.SetColor(5);
    sheet.Draw(port, kEverything, {});
    EXPECT_EQ(port.CurrentColor(), 5u);
    DrawContext printing;
    printing.printing = true;
    painted.clear();
    sheet.Draw(port, kEverything, printing);
    EXPECT_EQ(painted, (Names{"one", "two", "none"}));
}

TEST_F(SheetTest, APictureIsPaintedInOneOrderHoweverItIsDivided) {
    std::vector<Box> boxes;
    for (int i = 0; i < 60; ++i) {
        const int32_t x = i * 37 % 380 - 20, y = i * 53 % 290 - 20;
        boxes.push_back({std::to_string(i), {x, y, x + 10 + i * 3 % 120, y + 10 + i * 7 % 90}, i % 7 == 0});
    }
    for (Box& box : boxes) sheet.AddObject(PatchFor(box), 0);
    for (size_t i = 0; i < boxes.size(); i += 9) sheet.RedrawObject(PatchFor(boxes[i]), 0);
    const Names whole = Paint(kEverything);
    ASSERT_EQ(whole.size(), boxes.size());
    for (int tile = 0; tile < sheet.TileCount(); ++tile) {
        const Names part = Paint(sheet.TileRect(tile));
        size_t at = 0;
        for (const std::string& name : whole)
            if (at < part.size() && part[at] == name) ++at;
        EXPECT_EQ(at, part.size()) << "tile " << tile << " paints in another order";
    }
}

// ---- A page

class PageSheetTest : public DrawTest {
protected:
    PageSheetTest() {
        New("D", 2, 1);
        chord = AddChord(VoiceOfStaff(0, 0), {8, {6, -2}, 300});
        accident = AddAccident(HeadOf(chord), "#d");
        AddDot(ChordOf(chord), 1);
        AddRest(VoiceOfStaff(0, 1), 1, 500);
        // One column over two staves.
        auto* lower = Make<Chords>();
        voiceSymbols.Add(VoiceOfStaff(0, 1), lower);
        chordSymbolChords.Add(chord, lower);
        AddHead(lower, StemOf(chord), 5, "Quarto");
        sheet.FilePage(FirstPage());
    }
    std::vector<int16_t> Classes() const {
        std::vector<int16_t> numbers;
        for (const DrawPatch& patch : sheet.AllPatches()) numbers.push_back(patch.ClassNumber());
        return numbers;
    }
    NewWindowSheet sheet;
    ChordSymbol* chord;
    Accident* accident;
};

TEST_F(PageSheetTest, APageIsFiledOnceInItsOrder) {
    EXPECT_EQ(Classes(),
              (std::vector<int16_t>{5, 5, 10, 10, 38,    // staves, barlines, brace
                                    17, 28, 27, 19, 30,  // the upper staff: header, column, dot
                                    17, 28, 27, 26,      // the lower one, whose chord shares the column
                                    31}));               // accidentals after all
    for (int tile = 0; tile < sheet.TileCount(); ++tile) EXPECT_TRUE(sheet.IsDirty(tile));
    sheet.FilePage(FirstPage());
    EXPECT_EQ(sheet.AllPatches().size(), 15u) << "filing anew begins empty";
    sheet.FilePage(nullptr);
    EXPECT_TRUE(sheet.AllPatches().empty());
}

TEST_F(PageSheetTest, SheetAndPaperShowTheSame) {
    MemoryPort screen(MemoryPort::Tracing::On), paper(MemoryPort::Tracing::On);
    sheet.Draw(screen, kEverything, {});
    DrawPage(paper, FirstPage(), {});
    EXPECT_EQ(screen.Lines(), paper.Lines());
    EXPECT_GT(paper.Lines().size(), 30u);
}

TEST_F(PageSheetTest, APressFindsNotesAndNotTheStavesUnderThem) {
    const Rect head = RectOf(HeadOf(chord)), sign = RectOf(accident);
    const auto middle = [](const Rect& r) { return Point{(r.left + r.right) / 2, (r.top + r.bottom) / 2}; };
    EXPECT_EQ(sheet.HitSymbol(middle(head)).Record<ChordSymbol>(), chord);
    EXPECT_EQ(sheet.HitSymbol(middle(sign)).Record<Accident>(), accident);
    const Rect staff = PatchOf(StaffsFromTop(SystemAt(0))[0]).Bounds();
    EXPECT_FALSE(sheet.HitSymbol({staff.right - 500, staff.top + 150}));
    MemoryPort port;
    WRegion region = port.NewRegion();
    port.AddRectToRegion(region, head.GrownBy(2));
    const std::vector<DrawPatch> found = sheet.PatchesIn(port, region);
    ASSERT_EQ(found.size(), 1u);
    EXPECT_EQ(found[0].Record<ChordSymbol>(), chord);
}

TEST_F(PageSheetTest, AnEventIsRemovedAndFiledWithAllThatHangsOnIt) {
    std::vector<int16_t> numbers;
    ForEachPatch(ChordOf(chord), [&](const DrawPatch& patch, int voice) {
        numbers.push_back(patch.ClassNumber());
        EXPECT_EQ(voice, 1);
        sheet.RemoveObject(patch);
    });
    EXPECT_EQ(numbers, (std::vector<int16_t>{19, 31, 30}));
    EXPECT_EQ(sheet.AllPatches().size(), 12u);
    const MeasureStaff* crossing = MeasureStaffPar(VoiceOfStaff(0, 1));
    ForEachPatch(crossing, [&](const DrawPatch& patch, int voice) { sheet.AddObject(patch, voice); });
    EXPECT_TRUE(sheet.IsFiled(PatchOf(chord))) << "the column hangs on the lower staff as well";
}

}  // namespace
}  // namespace corvane::draw
