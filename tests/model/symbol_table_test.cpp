// How a document keeps, measures and draws its symbols and fonts.
#include "graphics/GlyphMeasures.h"
#include "graphics/MemoryPort.h"
#include "model/FontTable.h"
#include "model/SymbolNames.h"
#include "symbol_pool.h"

namespace corvane {
namespace {

using SymbolTable = DocumentTest;

TEST_F(SymbolTable, TwoUsesShareOneSymbolAndTwoReleasesGiveEverythingBack) {
    const uint64_t free = pool->Free(), total = pool->Total();
    for (const std::string& name :
         {std::string("Quarto"), FlagName(128, true, false), KeySignatureName(7, -7),
          TimeSignatureName(TimeForm::Stacked, 12, 8), std::string("#d("), std::string("Dsffz"),
          std::string("CustomA\nCourier_New"), std::string("D")}) {
        FontSymbol* first = LookupSymbol(document, name);
        EXPECT_EQ(first, LookupSymbol(document, name));
        EXPECT_EQ(first->_useCount, 2) << name;
        EXPECT_LT(pool->Free(), free);
        ReleaseSymbol(document, first);
        EXPECT_EQ(documentFontSymbols.First(document), first) << "one use is left";
        ReleaseSymbol(document, first);
        EXPECT_TRUE(documentFontSymbols.IsEmpty(document));
        EXPECT_EQ(pool->Free(), free) << name;
    }
    EXPECT_EQ(pool->Total(), total);
}

TEST_F(SymbolTable, ACountThatIsFullStaysAndKeepsTheSymbol) {
    FontSymbol* head = LookupSymbol(document, "Quarto");
    for (int uses = 1; uses < kCountlessUses + 5; ++uses) LookupSymbol(document, "Quarto");
    EXPECT_EQ(head->_useCount, kCountlessUses);
    for (int uses = 0; uses < kCountlessUses; ++uses) ReleaseSymbol(document, head);
    EXPECT_EQ(documentFontSymbols.First(document), head) << "some uses may still stand";
}

TEST_F(SymbolTable, AFieldTakesReleasesAndDropsItsSymbol) {
    auto* note = Make<Note>();
    ChangeSymbol(document, note->_symbol, "Meta");
    FontSymbol* half = note->_symbol;
    ChangeSymbol(document, note->_symbol, "Meta");
    EXPECT_EQ(note->_symbol.Get(), half) << "never released in between";
    EXPECT_EQ(half->_useCount, 1);
    ChangeSymbol(document, note->_symbol, "GraceIntero");
    EXPECT_EQ(documentFontSymbols.Count(document), 1);
    EXPECT_TRUE(NameHolds(note->_symbol, "Intero"));
    EXPECT_FALSE(NameHolds(note->_symbol, "Meta"));
    EXPECT_FALSE(NameHolds(nullptr, ""));
    DropSymbol(document, note->_symbol);
    EXPECT_EQ(note->_symbol.Get(), nullptr);
    EXPECT_TRUE(documentFontSymbols.IsEmpty(document));
}

TEST_F(SymbolTable, UndoTakesASymbolBack) {
    auto* note = Make<Note>();
    pool->EnableUndo();
    {
        CommandScope command;
        ChangeSymbol(document, note->_symbol,
                     "8\xA1"
                     "down");
    }
    MemoryManager::Instance().Undo();
    EXPECT_TRUE(documentFontSymbols.IsEmpty(document));
    MemoryManager::Instance().Redo();
    EXPECT_EQ(SymbolName(note->_symbol),
              "8\xA1"
              "down");
    EXPECT_EQ(note->_symbol->_useCount, 1);
}

TEST_F(SymbolTable, CopiesGoIntoAnotherDocumentWhole) {
    FontSymbol* source = LookupSymbol(document, "#b(");
    const Rect ink = SymbolRect(source, 100, 100);
    const std::string glyphs = Glyphs(source);
    NewMemoryPool* other = MemoryManager::Instance().NewPool();
    auto* target = Make<Document>();
    FontSymbol* copy = CopySymbol(target, source);
    EXPECT_NE(copy, source);
    EXPECT_EQ(SymbolName(copy), "#b(");
    EXPECT_EQ(Glyphs(copy), glyphs);
    EXPECT_EQ(SymbolRect(copy, 100, 100), ink);
    EXPECT_EQ(CopySymbol(target, source), copy) << "once in each document";
    EXPECT_EQ(copy->_useCount, 2);
    EXPECT_EQ(source->_useCount, 1);
    EXPECT_TRUE(other->BlockOf(copy) && !pool->BlockOf(copy));
    MemoryManager::Instance().DeletePool(other);
    MemoryManager::Instance().SetCurrentPool(pool);
}

TEST_F(SymbolTable, MetricsAreTheInkAtLineDistance100) {
    const FontSymbol* head = LookupSymbol(document, "Quarto");
    const Rect ink = SymbolRect(head, 100, 100);
    EXPECT_EQ(ink.Width(), 114) << "1.18 line distances at size 400, of which 385";
    EXPECT_EQ(ink.Height(), 96);
    EXPECT_EQ(ink.top, -ink.bottom) << "centred on the baseline";
    EXPECT_EQ(SymbolRect(head, 50, 100).Width(), 57);
    EXPECT_EQ(SymbolWidth(head, 100, 200), 228);
    EXPECT_NEAR(SymbolRect(LookupSymbol(document, FlagName(8, true, false)), 100, 100).top, 0, 4)
        << "a flag hangs from its offset";
    EXPECT_TRUE(SymbolRect(LookupSymbol(document, "G"), 100, 100).IsEmpty()) << "no parts";

    const FontSymbol* pair = LookupSymbol(document, "doppioaccento");
    EXPECT_EQ(SymbolRect(pair, 100, 100).Width(), SymbolRect(PartsOf(pair)[0], 100, 100).Width() + 100);
}

TEST_F(SymbolTable, ASymbolMadeBlindIsMeasuredLater) {
    SetGlyphMeasures(nullptr);
    FontSymbol* blind = LookupSymbol(document, "ChiaveFaGiu");
    EXPECT_TRUE(SymbolRect(blind, 100, 100).IsEmpty());
    EXPECT_FALSE(MeasureDirtySymbols(document)) << "nothing to measure with";
    InstallFreeTypeMeasures();
    EXPECT_TRUE(MeasureDirtySymbols(document));
    EXPECT_FALSE(MeasureDirtySymbols(document)) << "once";
    const Rect ink = SymbolRect(blind, 100, 100);
    ReleaseSymbol(document, blind);
    EXPECT_EQ(ink, SymbolRect(LookupSymbol(document, "ChiaveFaGiu"), 100, 100));
    EXPECT_FALSE(ink.IsEmpty());
}

TEST_F(SymbolTable, DrawingScalesSizeAndOffsetsAndKeepsTheOrderOfParts) {
    MemoryPort port(MemoryPort::Tracing::On);
    DrawSymbol(port,
               LookupSymbol(document,
                            "32\xA1"
                            "up"),
               1000, 2000, 50, 90, 'r');
    ASSERT_EQ(port.Lines().size(), 2u);
    // 10 and 340 hundredths at 90 percent are 9 and 306; of a line distance of 50, cut, 4 and 153. 385 gives
    // 173.25.
    EXPECT_EQ(port.Lines()[0].substr(0, 35), "char 251 1000 2004 r Marcelane 173 ");
    EXPECT_EQ(port.Lines()[1].substr(0, 35), "char 107 1000 2153 r Marcelane 173 ");
    port.ClearLines();
    DrawSymbol(port, LookupSymbol(document, "ChiaveFaGiu"), 0, 0, 75, 100);
    EXPECT_EQ(port.Lines()[1].substr(0, 32), "char 56 -75 225 l Marcelane 188 ") << "the cut is towards zero";
    EXPECT_EQ(port.Lines()[1][32], '2') << "its style";
}

TEST_F(SymbolTable, DamagedNumbersDoNotOverflow) {
    auto* font = As<SimpleFont>(LookupSymbol(document, "Quarto"));
    font->_metrics[2] = 2147483647;
    font->_metrics[0] = -2147483647;
    font->_dx = 2147483647;
    font->_fontSize = 2147483647;
    font->_dirty = 1;
    EXPECT_EQ(SymbolRect(font, 32767, 2147483647).right, 2147483647);
    EXPECT_TRUE(MeasureDirtySymbols(document));
}

TEST_F(SymbolTable, FontsAreSharedBySizeAndStyle) {
    const uint64_t free = pool->Free();
    TarnFont* plain = LookupFont(document, "Times New Roman", 189, 0);
    EXPECT_EQ(LookupFont(document, "Times New Roman", 189, 0), plain);
    TarnFont* others[] = {LookupFont(document, "Times New Roman", 189, 1),
                          LookupFont(document, "Times New Roman", 210, 0),
                          LookupFont(document, "Times", 189, 0)};
    for (TarnFont* other : others) {
        EXPECT_NE(other, plain);
        ReleaseFont(document, other);
    }
    EXPECT_EQ(documentFonts.Count(document), 1);
    ReleaseFont(document, plain);
    EXPECT_EQ(plain->_useCount, 1);
    ReleaseFont(document, plain);
    EXPECT_EQ(pool->Free(), free);
}

TEST_F(SymbolTable, TheFontListStandsInForMissingFonts) {
    LookupFont(document, "Verdigris", 189, 0);
    LookupSymbol(document, "pizzicato");
    LookupSymbol(document, "#d(");
    FontList list = FontsOf(document);
    ASSERT_EQ(list.Pairs().size(), 3u);
    EXPECT_EQ(list.Pairs()[0].docFont, "Bellarine");
    EXPECT_EQ(list.Pairs()[1].docFont, "Marcelane") << "parts of composites count too";
    EXPECT_EQ(list.Pairs()[2].docFont, "Verdigris");

    list.Set("Verdigris", "Courier New");
    EXPECT_EQ(list.SystemFont("Verdigris"), "Courier New");
    EXPECT_EQ(list.SystemFont("verdigris"), "verdigris") << "case counts";
    EXPECT_EQ(FontList::FromNames(list.ToNames()).Pairs(), list.Pairs());
    EXPECT_EQ(FontList::FromNames({"Alone"}).Pairs().size(), 0u);

    UseFontList(list);
    EXPECT_EQ(FontName(DrawnFont("Verdigris")), "Courier New");
    UseFontList({});
    EXPECT_EQ(FontName(DrawnFont("Verdigris")), "Verdigris");
}

}  // namespace
}  // namespace corvane
