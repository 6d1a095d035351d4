// Scores of many pages, and commands on them that are undone, redone, saved and read again.
#pragma once

#include "edit/CommandTable.h"
#include "edit/Insertion.h"
#include "edit/Structure.h"
#include "edit_fixture.h"
#include "layout/CourtesySigns.h"
#include "layout/PageLayout.h"
#include "layout/Spacing.h"
#include "play/MIDIUtility.h"
#include "state_keeper.h"
#include "store/ObjectFile.h"

namespace corvane {

class StructureTest : public EditTest {
protected:
    void OpenPages(int pages, const char* staffs = "D", int measures = 5, int systems = 3) {
        window.reset();
        static EditorShell silent;
        window = std::make_unique<WindowTarn>(silent);
        window->Activate();
        Document* document = BuildNewScore({measures, systems}, staffs);
        Page* first = documentPages.First(document);
        for (Page* last = first; pages > 1; --pages) last = MakePage(document, last, first);
        NumberMeasures(document);
        LayOutPages(document);
        window->Bind(document);
    }

    Status Run(int id, const CommandArguments& arguments = {}) { return RunCommand(*window, id, arguments); }

    // Undo gives every byte back, redo makes the same again, a file brings the same score; each time it is
    // sound.
    void RunAndBack(int id, const CommandArguments& arguments) {
        const std::string notes = Notes();
        StateKeeper keeper(*window);
        const Status status = Run(id, arguments);
        ASSERT_TRUE(status) << status.message();
        ASSERT_EQ(keeper.commands, 1) << "one step";
        ExpectSound();
        const PoolState after = PoolState::Of(*window->Pool());
        window->Undo();
        EXPECT_TRUE(PoolState::Of(*window->Pool()) == keeper.before);
        EXPECT_EQ(Notes(), notes);
        ExpectSound();
        window->Redo();
        EXPECT_TRUE(PoolState::Of(*window->Pool()) == after);
        ExpectReloads();
        ExpectFiled();
        ExpectFitted();
    }

    void ExpectReloads() {
        std::vector<uint8_t> bytes, again;
        ASSERT_TRUE(EncodeScore(*window->Pool(), bytes));
        NewMemoryPool* pool = MemoryManager::Instance().NewPool();
        LoadReport report;
        const Status status = ReadScore(*pool, bytes, &report);
        EXPECT_TRUE(status) << status.message();
        EXPECT_TRUE(report.healed.empty());
        EXPECT_TRUE(EncodeScore(*pool, again));
        EXPECT_TRUE(bytes == again);
        MemoryManager::Instance().DeletePool(pool);
        window->Activate();
    }

    // The sheet shows the current page, which is one of the score's.
    void ExpectFiled() {
        bool found = false;
        for (const Page* page : documentPages.Of(Score())) found = found || page == window->CurrentPage();
        EXPECT_TRUE(found);
        EXPECT_EQ(window->Sheet().CurrentPage(), window->CurrentPage());
    }

    // Each system is as wide as its page but for its indent, its staves too, and its measures use that up but
    // for what is told of the next system at its end. A last system with at most half the measures of the
    // one above ends early.
    void ExpectFitted() {
        const System *last = SystemPar(LastMeasure(Score())), *above = nullptr;
        if (const Measure* before = PrevMeasure(systemMeasures.First(last))) above = SystemPar(before);
        const bool sparse = above && 2 * last->_measureCount <= above->_measureCount;
        for (const Page* page : documentPages.Of(Score()))
            for (const System* system : pageSystems.Of(page)) {
                int32_t width = Document::pageWidth - page->_leftMargin - page->_rightMargin;
                if (sparse && system == last) {
                    ASSERT_NEAR(NoteAreaOf(last), NoteAreaOf(above), 2);
                    ASSERT_LT(system->_right, width);
                    width = system->_right;
                }
                ASSERT_EQ(system->_right, width);
                for (const Staff* staff : StaffsFromTop(system))
                    ASSERT_EQ(staff->_right, width - system->_left);
                int32_t right = 0;
                for (const Measure* measure : systemMeasures.Of(system)) {
                    ASSERT_EQ(measure->_left, right);
                    right = measure->_right;
                }
                ASSERT_EQ(right, width - system->_left - CourtesyWidth(system))
                    << "measure " << systemMeasures.Last(system)->_number;
            }
    }

    // Of a measure, on the average.
    static int32_t NoteAreaOf(const System* system) {
        int32_t areas = 0;
        for (const Measure* measure : systemMeasures.Of(system))
            areas += measure->Width() - NoteAreaLeft(measure);
        return areas / system->_measureCount;
    }

    Page* PageNumber(int number) {
        for (Page* page : documentPages.Of(Score()))
            if (page->_pageNumber == number) return page;
        return nullptr;
    }
    System* SystemNumber(int page, int number) {
        System* system = pageSystems.First(PageNumber(page));
        while (--number > 0) system = pageSystems.Next(system);
        return system;
    }

    // Measures of each system: "5 5 5/4 4".
    std::string Shape() {
        std::string shape;
        for (const Page* page : documentPages.Of(Score())) {
            if (!shape.empty()) shape += "/";
            for (const System* system : pageSystems.Of(page))
                shape +=
                    (shape.empty() || shape.back() == '/' ? "" : " ") + std::to_string(system->_measureCount);
        }
        return shape;
    }

    // Where everything of a page's skeleton stands.
    static std::string LayoutOf(const Page* page) {
        std::string text;
        const auto tell = [&](auto... numbers) { ((text += std::to_string(numbers) + " "), ...); };
        for (const System* system : pageSystems.Of(page)) {
            tell(system->_left.Get(), system->_top.Get(), system->_right.Get(), system->_bottom.Get());
            for (const Measure* m : systemMeasures.Of(system)) tell(m->_left.Get(), m->_right.Get());
            for (const Staff* staff : StaffsFromTop(system)) tell(staff->_top.Get(), staff->_bottom.Get());
        }
        return text;
    }
    std::vector<std::string> Layouts() {
        std::vector<std::string> layouts;
        for (const Page* page : documentPages.Of(Score())) layouts.push_back(LayoutOf(page));
        return layouts;
    }

    // Notes of a value at the end of a voice, each a step above the one before; they sound.
    std::vector<Chords*> Fill(int measure, int staff, int count, uint8_t value, int line = 3) {
        std::vector<Chords*> chords;
        Voice* voice = measureStaffVoices.First(Crossing(measure, staff));
        for (int i = 0; i < count; ++i) {
            GenericNote* note =
                InsertNewChord(voice, 100 * i, line + i, {value, value < 4 ? "Meta" : "Quarto", false});
            AddChordEvents(ChordPar(note));
            chords.push_back(ChordPar(note));
        }
        SpaceVoice(voice);
        return chords;
    }

    // Clef, key and meter as told by a crossing's own signs: "1 0 4/4", "-" for what it does not tell.
    std::string Signs(int measure, int staff) {
        std::string clef = "-", key = "-", time = "-";
        for (const StaffMeasureSymbol* symbol : staffSymbols.Of(Crossing(measure, staff))) {
            if (const auto* c = As<StaticClaf>(symbol)) clef = std::to_string(c->_code);
            if (const auto* k = As<ClafSignature>(symbol)) key = std::to_string(k->_key - 7);
            if (As<TimeSignature>(symbol)) {
                const Measure* m = MeasureNumber(measure);
                time = std::to_string(m->_num) + "/" + std::to_string(m->_den);
            }
        }
        return clef + " " + key + " " + time;
    }
};

}  // namespace corvane
