// A score with an object of every class: sound, saved and loaded to the same bytes, and drawn.
#include <set>

#include "graphics/MemoryPort.h"
#include "layout/Beaming.h"
#include "layout/Engraving.h"
#include "layout/MultiMeasures.h"
#include "layout/SpannerMarks.h"
#include "model/Texts.h"
#include "notes_fixture.h"
#include "store/ClassInfo.h"

namespace corvane {
namespace {

using Classes = std::set<int16_t>;

class EveryClass : public NotesTest {
protected:
    void SetUp() override {
        NotesTest::SetUp();
        window = Open("DC23S", 4, 3);
    }

    // What a person makes: notes, grace notes, rests, dots, accidentals, beams, clefs, keys, meters, marks.
    void EnterMusic() {
        Fill(1, 1, kEighth, 8, 2);
        Fill(2, 1, kQuarter, 3, 2);
        for (const int place : {5, 500}) Enter(kHalf, 3, 1, place, 3);
        Fill(4, 1, kHalf, 2, 4);
        Fill(2, 2, kEighth, 4, 3);
        Enter(kQuarterRest, 2, 1, 950, 5);
        Press(Head(1, 1, 3), kSharp);
        Press(Head(2, 1, 1), kDot);
        Tools().graceMode = true;
        Enter(kEighth, 2, 1, 180, 6);
        Tools().graceMode = false;
        PressClef(6, 4, 1, 400);
        Do(32781, {{"fifths", "2"}, {"from", "2"}});
        Do(32779, {{"num", "3"}, {"den", "4"}, {"from", "5"}});
        Do(32778, {{"measure", "1"}, {"bpm", "96"}});
        Do(32796, {{"from", "2"}, {"to", "3"}, {"text", "1."}});
        Do(32797, {{"measure", "3"}, {"text", "D.C."}});
        Tie(Head(3, 1, 1), Head(3, 1, 2));
        SetPaletteGroup(6);
        SetItem(12);
        EditTest::Press(6, 1, 500, -4);
    }

    template <class Sign>
    void HangOne(GenericNote* note, const char* symbol) {
        auto* sign = Make<Sign>();
        noteAttributes.Add(note, sign);
        sign->_symbol = LookupSymbol(Score(), symbol);
        sign->_dy = -2000;
    }
    template <class... Signs>
    void Hang(GenericNote* note, std::initializer_list<const char*> symbols) {
        auto symbol = symbols.begin();
        (HangOne<Signs>(note, *symbol++), ...);
    }
    void HangSigns() {
        Hang<Mordente, Gruppetto, ArcoGiu, ArcoSu, SuonoAperto, SuonoChiuso, Armonico, Circonflesso, Respiro>(
            Head(2, 1, 2), {"Mordente", "Gruppetto", "ArcoGiu", "ArcoSu", "SuonoAperto", "SuonoChiuso",
                            "Armonico", "Circonflesso", "Respiro"});
        Hang<Tilde, Pizzicato, BartokSup, BartokInf, Articolazione, Diteggiatura, Corona, Ornamenti>(
            Head(2, 1, 3),
            {"Tilde", "Pizzicato", "BartokSup", "BartokInf", "Staccato", "G3", "Corona", "Ornamenti"});
        auto* syllable = Make<Liriche>();
        noteAttributes.Add(Head(1, 1, 1), syllable);
        syllable->_text = NewText("la");
        auto* tremolo = Make<Tremolo>();
        voiceSymbolAttributes.Add(ChordNumber(3, 1, 2), tremolo);
        tremolo->_symbol = LookupSymbol(Score(), "Tremolo");
    }

    GenericText* NewText(const char* words) {
        auto* text = Make<GenericText>();
        SetText(text->_text, words);
        text->_font = LookupFont(Score(), "Times New Roman", 189, 0);
        return text;
    }
    void AddTexts() {
        SetTitle(Score(), "Sonata");
        auto* onPage = Make<PageText>();
        pageTexts.Add(window->CurrentPage(), onPage);
        onPage->_text = NewText("Sonata");
        onPage->_x = 5000, onPage->_y = 900;
        auto* atStaff = Make<MeasureStaffText>();
        staffSymbols.Add(Crossing(1, 1), atStaff);
        atStaff->_text = NewText("dolce");
        atStaff->_y = -3000;
        auto* shared = Make<MarkText>();
        textMarks.Add(atStaff, shared);
        allStaffTextMarks.Add(allStaffStaffs.ParentOf(systemStaffs.First(SystemPar(MeasureNumber(1)))),
                              shared);
    }

    // From one measure of the lowest staff to the next.
    template <class Spanner, class Mark, class Relation>
    Spanner* Span(const Relation& marks) {
        auto* spanner = Make<Spanner>();
        for (const int measure : {1, 2}) {
            auto* mark = Make<Mark>();
            staffSymbols.Add(Crossing(measure, 4), mark);
            marks.Add(spanner, mark);
        }
        return spanner;
    }
    void AddSpanners() {
        Span<Hairpin, MarkHairpin>(hairpinMarks);
        auto* slur = Make<Slur>();
        slur->_first = ChordNumber(1, 1, 1);
        slur->_last = ChordNumber(1, 1, 3);
        MakeMarks<MarkSlur>(slurMarks, slur, Crossing(1, 1), Crossing(1, 1));
        Span<Pedale, MarkPedale>(pedaleMarks);
        Span<Ottava, MarkOttava>(ottavaMarks)->_symbol = LookupSymbol(Score(), "8vaSu");
        auto* trill = Span<Trillo, MarkTrillo>(trilloMarks);
        trill->_symbol = LookupSymbol(Score(), "Trillo");
        trill->_bracket = LookupSymbol(Score(), "TrilloBracket");
        auto* tuplet = Make<Irregular>();
        tuplet->_count = int16_t{3}, tuplet->_inTimeOf = int16_t{2};
        for (int number = 1; number <= 3; ++number) {
            auto* mark = Make<MarkIrreg>();
            voiceSymbolAttributes.Add(ChordNumber(1, 1, number), mark);
            irregularMarks.Add(tuplet, mark);
        }
        RebuildVoiceEvents(VoicePar(ChordNumber(1, 1, 1)));
    }

    void AddRest() {
        auto* cross = Make<CrossBeam>();
        cross->_direction = 'U';
        measureSymbols.Add(MeasureNumber(2), cross);
        for (const int number : {1, 2}) {
            Stem* stem = StemOf(ChordNumber(2, 2, number));
            if (Beam* beam = BeamOf(stem)) DissolveBeam(beam, nullptr);
            RemoveFlag(stem);
            auto* marker = Make<BeamMarker>();
            marker->_leftValue = marker->_groupValue = 8;
            marker->_rightValue = 255;
            beamSymbolAttributes.Add(stem, marker);
            beamMarkers.Add(cross, marker);
        }
        RefitBeam(cross);
        SetMarkerStubs(cross);
        for (const auto& [symbol, place] : {std::pair{"Dmf", 200}, {"Dpp", 600}}) {
            auto* dynamic = Make<Dinamiche>();
            staffSymbols.Add(Crossing(1, 1), dynamic);
            dynamic->_symbol = LookupSymbol(Score(), symbol);
            dynamic->_x = place, dynamic->_y = 6000;
        }
        auto* arpeggio = Make<Arpeggio>();
        staffSymbols.Add(Crossing(2, 1), arpeggio);
        arpeggio->_symbol = LookupSymbol(Score(), "_Arpeggio_");
        // Free graphics, one behind the other.
        auto* composite = Make<CompositeObj>();
        First<Time>(1)->_any20 = composite;
        composite->_any4 = Make<Linea>();
        composite->_any8 = Make<Quadrato>();
        composite->_any20 = Make<Cerchio>();
    }

    template <class Symbol>
    Symbol* First(int measure) {
        for (MeasureSymbol* symbol : measureSymbols.Of(MeasureNumber(measure)))
            if (auto* found = As<Symbol>(symbol)) return found;
        return nullptr;
    }
    // The classes of objects that there are: all, or those that can be drawn.
    Classes ClassesOfPool(bool drawable = false) {
        Classes classes;
        for (void* object = window->Pool()->FirstObject(); object;
             object = window->Pool()->NextObject(object))
            if (const int16_t number = ClassNumberOf(object); number > 0 && (!drawable || PatchOf(object)))
                classes.insert(number);
        return classes;
    }
    // Those of which an object of some page paints something.
    Classes Drawn() {
        Classes classes;
        for (const Page* page : documentPages.Of(Score()))
            ForEachPatch(page, [&](const DrawPatch& patch, int) {
                MemoryPort port(MemoryPort::Tracing::On);
                patch.Draw(port, {});
                if (!port.Lines().empty()) classes.insert(patch.ClassNumber());
            });
        return classes;
    }
};

TEST_F(EveryClass, LivesInAScoreThatIsSoundSavedAndDrawn) {
    EnterMusic();
    {
        const EditStep step(*window);
        HangSigns();
        AddTexts();
        AddSpanners();
        AddRest();
        // A rest over several measures ends the score.
        Measure* last = LastMeasure(Score());
        MultiMeasure* rest = MakeMultiMeasure(SystemPar(last), last, 4);
        rest->_right = last->_right.Get();
        rest->_left = last->_right = (last->_left + last->_right) / 2;
    }
    const Classes there = ClassesOfPool();
    const Classes never{9, 11, 97, 98};
    for (int16_t number = 1; number <= 111; ++number) {
        EXPECT_EQ(there.count(number), 1 - never.count(number)) << number << ' ' << InfoOf(number)->name;
    }
    ExpectSound();
    ExpectSameAfterReload();
    const Classes drawn = Drawn();
    EXPECT_GE(drawn.size(), 20u);
    for (const int16_t number : ClassesOfPool(true))
        EXPECT_TRUE(drawn.count(number)) << number << ' ' << InfoOf(number)->name;
}

}  // namespace
}  // namespace corvane
