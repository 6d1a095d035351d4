// New scores and what is added to them: every object in its place, and the whole sound.
#include "build_score.h"

#include "model/Clefs.h"
#include "model/Par.h"

namespace corvane::build {
namespace {

class BuildScore : public ScoreTest {
protected:
    // What stands before the notes of a crossing: c and a clef's code, k, t.
    static std::string SignsOf(const MeasureStaff* crossing) {
        std::string signs;
        for (const StaffMeasureSymbol* symbol : staffSymbols.Of(crossing)) {
            if (const auto* clef = As<StaticClaf>(symbol)) signs += "c" + std::to_string(int{clef->_code});
            if (As<ClafSignature>(symbol)) signs += "k";
            if (As<TimeSignature>(symbol)) signs += "t";
        }
        return signs;
    }
    // Those of all crossings of a measure, from the top.
    static std::string SignsOf(const Measure* measure) {
        std::string signs;
        for (const MeasureStaff* crossing : measureStaffs.Of(measure)) signs += SignsOf(crossing) + " ";
        return signs;
    }
    std::vector<Measure*> AllMeasures() const {
        std::vector<Measure*> measures;
        for (Page* page : documentPages.Of(document))
            for (System* system : pageSystems.Of(page))
                for (Measure* measure : systemMeasures.Of(system)) measures.push_back(measure);
        return measures;
    }
    // A staff of the score is drawn once in every system, in the order of the systems, and so is its part.
    void ExpectStaffsInSystemOrder() const {
        std::vector<System*> systems;
        for (Page* page : documentPages.Of(document))
            for (System* system : pageSystems.Of(page)) systems.push_back(system);
        for (const DocStaff* docStaff : documentDocStaffs.Of(document)) {
            std::vector<System*> drawnIn;
            for (const Staff* staff : docStaffStaffs.Of(docStaff)) drawnIn.push_back(SystemPar(staff));
            EXPECT_EQ(drawnIn, systems);
        }
        for (const MultiStaff* multi : systemStaffs.Of(systems.front())) {
            std::vector<System*> drawnIn;
            for (const MultiStaff* other : allStaffStaffs.Of(allStaffStaffs.ParentOf(multi)))
                drawnIn.push_back(systemStaffs.ParentOf(other));
            EXPECT_EQ(drawnIn, systems);
        }
    }
    // Each crossing is in its staff's ring in score order, is drawn by the staff of its own system and has a
    // voice 1.
    void ExpectEveryCrossing() const {
        const std::vector<Measure*> measures = AllMeasures();
        for (DocStaff* docStaff : documentDocStaffs.Of(document)) {
            size_t place = 0;
            for (MeasureStaff* crossing : docStaffMeasureStaffs.Of(docStaff)) {
                ASSERT_LT(place, measures.size());
                EXPECT_EQ(MeasurePar(crossing), measures[place++]);
                ASSERT_TRUE(crossing->_staff);
                EXPECT_EQ(docStaffStaffs.ParentOf(crossing->_staff.Get()), docStaff);
                EXPECT_EQ(SystemPar(crossing->_staff), SystemPar(MeasurePar(crossing)));
                EXPECT_EQ(measureStaffVoices.Count(crossing), 1);
                EXPECT_TRUE(FindVoice(crossing, 1));
            }
            EXPECT_EQ(place, measures.size());
        }
        for (const Measure* measure : measures)
            EXPECT_EQ(measureStaffs.Count(measure), documentDocStaffs.Count(document));
        ExpectStaffsInSystemOrder();
    }
};

TEST_F(BuildScore, TheDefaultScoreIsABracedPairOnAPageOfThreeSystems) {
    New("D");
    EXPECT_EQ(_pool->FirstObject(), document);
    EXPECT_EQ(document->_pageCount, 1);
    EXPECT_EQ(documentPages.Count(document), 1);
    EXPECT_EQ(FirstPage()->_pageNumber, 1);
    EXPECT_EQ(FirstPage()->_systemCount, 3);
    EXPECT_EQ(documentDocStaffs.Count(document), 2);
    EXPECT_EQ(documentPreferences.Count(document), 19);
    ExpectEveryCrossing();

    int32_t number = 0;
    for (System* system : pageSystems.Of(FirstPage())) {
        EXPECT_EQ(system->_measureCount, 5);
        EXPECT_EQ(systemMeasures.Count(system), 5);
        ASSERT_EQ(systemConnections.Count(system), 1);
        const Connection* brace = systemConnections.First(system);
        EXPECT_EQ(SymbolName(brace->_symbol), "Brace");
        const std::vector<Staff*> staffs = StaffsFromTop(system);
        ASSERT_EQ(staffs.size(), 2u);
        EXPECT_EQ(staffConnections.ParentOf(connectionStaffs.First(brace)), staffs[0]);
        EXPECT_EQ(staffConnections.ParentOf(connectionStaffs.Last(brace)), staffs[1]);
        for (const Measure* measure : systemMeasures.Of(system)) {
            EXPECT_EQ(measure->_number, ++number);
            EXPECT_EQ(measure->_num, 4);
            EXPECT_EQ(measure->_den, 4);
        }
    }
    EXPECT_EQ(number, 15);
    EXPECT_EQ(Faults(), "");
}

TEST_F(BuildScore, ClefsAndKeysHeadEverySystemAndTheMeterOnlyTheScore) {
    New("D", 2, 2);
    EXPECT_EQ(SignsOf(MeasureAt(SystemAt(0), 0)), "c1kt c2kt ") << "treble above bass";
    EXPECT_EQ(SignsOf(MeasureAt(SystemAt(0), 1)), "  ");
    EXPECT_EQ(SignsOf(MeasureAt(SystemAt(1), 0)), "c1k c2k ");
    EXPECT_EQ(SignsOf(MeasureAt(SystemAt(1), 1)), "  ");
    EXPECT_EQ(KeyInForce(measureStaffs.First(MeasureAt(SystemAt(1), 1))), 0);
}

TEST_F(BuildScore, EachStaffIsOnePartOverAllSystemsAndSoundsOnTheBuiltInInstrument) {
    New("DC12", 1, 3);
    std::vector<AllStaff*> parts;
    for (MultiStaff* multi : systemStaffs.Of(SystemAt(0))) {
        AllStaff* part = allStaffStaffs.ParentOf(multi);
        ASSERT_TRUE(part);
        EXPECT_EQ(TextOf(part->_name), "Untitled");
        EXPECT_EQ(allStaffStaffs.Count(part), 3);
        for (AllStaff* other : parts) EXPECT_NE(part, other);
        parts.push_back(part);
    }
    EXPECT_EQ(parts.size(), 3u) << "the two groups of lines of the custom staff are one part";
    for (const DocStaff* docStaff : documentDocStaffs.Of(document)) {
        EXPECT_TRUE(docStaff->_active);
        EXPECT_FALSE(docStaff->_solo);
        for (const VoiceRecord& voice : docStaff->_voices) {
            EXPECT_EQ(voice._recordActive, 1);
            EXPECT_EQ(voice._volume, 127);
            EXPECT_EQ(voice._program, 0);
            EXPECT_EQ(voice._channel, 1);
            EXPECT_EQ(voice._port, -1);
            EXPECT_EQ(voice._transposition, 0);
            EXPECT_EQ(voice._name[0], 0);
        }
    }
}

TEST_F(BuildScore, EachLetterOfAStaffStringMakesItsStaves) {
    const struct {
        const char *why, *staffs, *lines, *signs;
    } cases[] = {
        {"no staff at all is a score too", "", "", ""},
        {"single staves of each kind", "SBE", "5 5 5 ", "c1kt c2kt c11kt "},
        {"digits behind C are read again, and make nothing", "C13S", "1 1 1 5 ", "c1kt c1kt c1kt c1kt "},
        {"C without its two digits makes no staff", "C5CC03S", "5 ", "c1kt "},
        {"unknown letters make none", "sxD9?", "5 5 ", "c1kt c2kt "},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        New(c.staffs, 2, 2);
        std::string lines;
        for (const Staff* staff : StaffsFromTop(SystemAt(1)))
            lines += std::to_string(staff->_lineCount) + " ";
        EXPECT_EQ(lines, c.lines);
        EXPECT_EQ(SignsOf(MeasureAt(SystemAt(0), 0)), c.signs);
        ExpectEveryCrossing();
        EXPECT_EQ(Faults(), "");
    }
}

TEST_F(BuildScore, PairsOfASimpleAndACustomStaffAreBracedToo) {
    for (const StaffKind kind : {StaffKind::Custom3, StaffKind::Custom4}) {
        New("S", 1, 1);
        AddStaffs(document, {kind, 5, 7, 1}, documentDocStaffs.Last(document));
        EXPECT_EQ(documentDocStaffs.Count(document), 3) << "a pair has two staves whatever is asked for";
        const std::vector<Staff*> staffs = StaffsFromTop(SystemAt(0));
        ASSERT_EQ(staffs.size(), 3u);
        EXPECT_EQ(As<StaffBot>(staffs[1]) != nullptr, kind == StaffKind::Custom4);
        EXPECT_EQ(As<StaffBot>(staffs[2]) != nullptr, kind == StaffKind::Custom3);
        const BracedPair pair = PairOf(SystemAt(0), systemConnections.First(SystemAt(0)));
        EXPECT_EQ(pair.first, staffs[1]);
        EXPECT_EQ(pair.second, staffs[2]);
        EXPECT_EQ(Faults(), "");
    }
}

TEST_F(BuildScore, StavesAddedLaterTakeOverKeyAndMeter) {
    New("S", 3, 2);
    MeasureStaff* second = measureStaffs.First(MeasureAt(SystemAt(0), 1));
    auto* key = Make<ClafSignature>();
    key->_key = 7 + 2;
    staffSymbols.Add(second, key);
    key->_symbol = LookupSymbol(document, "cs1$++-----");
    AddStaffs(document, {StaffKind::Bass, 5, 1, 1}, documentDocStaffs.Last(document));
    NumberMeasures(document);
    EXPECT_EQ(SignsOf(MeasureAt(SystemAt(0), 0)), "c1kt c2kt ");
    EXPECT_EQ(SignsOf(MeasureAt(SystemAt(0), 1)), "k k ");
    EXPECT_EQ(KeyInForce(measureStaffs.Last(MeasureAt(SystemAt(0), 0))), 0);
    EXPECT_EQ(KeyInForce(measureStaffs.Last(MeasureAt(SystemAt(0), 2))), 2);
    ExpectEveryCrossing();
    EXPECT_EQ(Faults(), "");
}

TEST_F(BuildScore, PagesSystemsAndMeasuresMadeLaterJoinTheScoreWhereTheyStand) {
    New("DC12", 2, 2);
    Page* added = MakePage(document, nullptr, FirstPage());
    EXPECT_EQ(documentPages.First(document), added);
    EXPECT_EQ(added->_systemCount, 2);
    EXPECT_EQ(document->_pageCount, 2);
    EXPECT_EQ(documentPages.Next(added)->_pageNumber, 2);
    MakeSystem(added, pageSystems.First(added), 3);
    Measure* first = MakeMeasure(pageSystems.First(added), nullptr);
    MakeMeasure(pageSystems.First(added), first);
    NumberMeasures(document);
    LayOutPages(document);

    EXPECT_EQ(AllMeasures().size(), 4u + 4u + 3u + 2u);
    EXPECT_EQ(AllMeasures().back()->_number, 13);
    ExpectEveryCrossing();
    for (Page* page : documentPages.Of(document))
        for (System* system : pageSystems.Of(page)) {
            ASSERT_EQ(systemConnections.Count(system), 1);
            EXPECT_EQ(systemConnections.First(system)->_symbol->_useCount, 5) << "one use a system";
            for (const Measure* measure : systemMeasures.Of(system))
                EXPECT_EQ(SignsOf(measure).substr(0, 3) == "c1k", measure == systemMeasures.First(system))
                    << "clefs and keys at the head of a system, and nowhere else";
        }
    EXPECT_EQ(Faults(), "");
}

}  // namespace
}  // namespace corvane::build
