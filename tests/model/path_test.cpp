// Paths and walks of the score.
#include <gtest/gtest.h>

#include "layout/ScoreBuilder.h"
#include "model/ClassTable.h"
#include "model/Iterators.h"
#include "model/NoteOperations.h"
#include "model/Par.h"
#include "platform/freetype/FreeTypeMeasures.h"

namespace corvane {
namespace {

class Paths : public ::testing::Test {
protected:
    void SetUp() override {
        RegisterClasses();
        InstallFreeTypeMeasures();
        pool = MemoryManager::Instance().NewPool();
        document = BuildNewScore({2, 2}, "D");
        page = documentPages.First(document);
        system = pageSystems.First(page);
        measure = systemMeasures.First(system);
    }
    void TearDown() override { MemoryManager::Instance().DeletePool(pool); }

    Note* AddNote(MeasureStaff* crossing, int line) {
        auto* chordSymbol = Make<ChordSymbol>();
        chordSymbol->_value = 4;
        auto* chord = Make<Chords>();
        auto* stem = Make<Stem>();
        auto* note = Make<Note>();
        note->_line = static_cast<int16_t>(line);
        measureSymbols.Add(MeasurePar(crossing), chordSymbol);
        voiceSymbols.Add(measureStaffVoices.First(crossing), chord);
        chordSymbolChords.Add(chordSymbol, chord);
        chordSymbolStems.Add(chordSymbol, stem);
        chordNotes.Add(chord, note);
        stemNotes.Add(stem, note);
        return note;
    }

    template <class Iterator, class Above>
    static int Count(const Above& above) {
        Iterator walk;
        walk.Start(above);
        int count = 0;
        while (walk.Next()) ++count;
        EXPECT_EQ(walk.Next(), nullptr) << "a walk that has ended stays ended";
        return count;
    }

    NewMemoryPool* pool = nullptr;
    Document* document = nullptr;
    Page* page = nullptr;
    System* system = nullptr;
    Measure* measure = nullptr;
};

TEST_F(Paths, CastsGiveTheirLevelOrNull) {
    const PageCrd pageCrd(DocCrd(document), page);
    EXPECT_EQ((Measure*)pageCrd, nullptr);
    EXPECT_EQ((Document*)pageCrd, document);
    const MeasureCrd measureCrd(SystemCrd(pageCrd, system), measure);
    EXPECT_EQ((Page*)measureCrd, page);
    const MeasureStaffCrd crossing(measureCrd, measureStaffs.First(measure));
    EXPECT_EQ((DocStaff*)crossing, nullptr);
    EXPECT_EQ((DocStaff*)crossing.Complete(), documentDocStaffs.First(document));
    EXPECT_EQ((Staff*)static_cast<StaffCrd>(crossing), measureStaffs.First(measure)->_staff.Get());
}

TEST_F(Paths, APathIsFoundFromTheNoteAlone) {
    MeasureStaff* crossing = measureStaffs.Last(measure);
    Note* note = AddNote(crossing, 5);
    const GenericNoteCrd path(note);
    EXPECT_EQ((Measure*)path, measure);
    EXPECT_EQ((Page*)path, page);
    EXPECT_EQ((Document*)path, document);
    EXPECT_EQ((Stem*)path, StemPar(note));
    EXPECT_EQ((MeasureStaff*)path, crossing);
    EXPECT_EQ((DocStaff*)path, documentDocStaffs.Last(document));
}

TEST_F(Paths, WholeScoreWalksGoPageSystemMeasure) {
    Page* empty = Make<Page>();
    documentPages.Insert(document, empty, nullptr);
    DocumentMeasureIterator walk;
    walk.Start(DocCrd(document));
    std::vector<Measure*> measures;
    while (Measure* each = walk.Next()) {
        measures.push_back(each);
        EXPECT_EQ((System*)walk.Crd(), SystemPar(each));
        EXPECT_EQ((Page*)walk.Crd(), page) << "a page without systems is passed over";
    }
    ASSERT_EQ(measures.size(), 4u);
    for (size_t i = 0; i < measures.size(); ++i) EXPECT_EQ(measures[i]->_number, static_cast<int>(i) + 1);
    EXPECT_EQ(NextMeasure(measures[1]), measures[2]) << "over the system's end";
    EXPECT_EQ(PrevMeasure(measures[2]), measures[1]);
    EXPECT_EQ(NextMeasure(measures[3]), nullptr);
    EXPECT_EQ(PrevMeasure(measures[0]), nullptr);
}

TEST_F(Paths, AWalkAroundAnElementGoesBothWays) {
    const PageCrd pageCrd(DocCrd(document), page);
    SystemMeasureIterator walk;
    walk.StartAt(MeasureCrd(SystemCrd(pageCrd, system), measure));
    EXPECT_EQ(walk.Prev(), nullptr);
    walk.StartAt(MeasureCrd(SystemCrd(pageCrd, system), measure));
    EXPECT_EQ(walk.Next(), systemMeasures.Last(system));
    PageMeasureIterator two;
    System* second = pageSystems.Last(page);
    two.StartAt(MeasureCrd(SystemCrd(pageCrd, second), systemMeasures.First(second)));
    EXPECT_EQ(two.Prev(), systemMeasures.Last(system)) << "back into the middle level before";
}

TEST_F(Paths, WalksDownToNotesFillEveryLevel) {
    for (MeasureStaff* crossing : measureStaffs.Of(measure))
        for (int line : {1, 3, 5}) AddNote(crossing, line);
    const PageCrd pageCrd(DocCrd(document), page);
    const SystemCrd systemCrd(pageCrd, system);
    EXPECT_EQ(Count<SystemGenericNoteIterator>(systemCrd), 6);
    EXPECT_EQ(Count<SystemStemIterator>(systemCrd), 6);
    EXPECT_EQ(Count<MeasureStemIterator>(MeasureCrd(systemCrd, measure)), 6);
    EXPECT_EQ(Count<DocMeasureStaffIterator>(DocCrd(document)), 8);
    EXPECT_EQ(Count<SystemVoiceIterator>(systemCrd), 4);
    EXPECT_EQ(
        Count<DocStaffVoiceSymbolIterator>(DocStaffCrd(DocCrd(document), documentDocStaffs.First(document))),
        3);
    SystemGenericNoteIterator walk;
    walk.Start(systemCrd);
    while (GenericNote* note = walk.Next()) {
        EXPECT_EQ((MeasureStaff*)walk.Crd(), MeasureStaffPar(note));
        EXPECT_EQ((Staff*)walk.Crd(), StaffPar(note));
        EXPECT_EQ((Chords*)walk.Crd(), ChordPar(note));
    }
}

TEST_F(Paths, TheReturnedElementMayBeRemoved) {
    for (int line : {1, 3, 5, 7}) AddNote(measureStaffs.First(measure), line);
    Voice* voice = measureStaffVoices.First(measureStaffs.First(measure));
    int seen = 0;
    for (VoiceSymbol* symbol : voiceSymbols.Of(voice)) {
        voiceSymbols.Remove(symbol);
        ++seen;
    }
    EXPECT_EQ(seen, 4);
    EXPECT_TRUE(voiceSymbols.IsEmpty(voice));
}

}  // namespace
}  // namespace corvane
