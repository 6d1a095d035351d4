// The class table against the records themselves, over all its rows.
#include <set>

#include "model/Relations.h"
#include "store/FileForm.h"
#include "store/NewMemoryPool.h"
#include "store_graph.h"

namespace corvane::test {
namespace {

using ClassTable = StoreTest;

TEST_F(ClassTable, NumbersFollowNamesAndTheLowerOfTwoCounts) {
    EXPECT_EQ(ClassCount(), 111);
    EXPECT_EQ(NumberOf("Document"), 1);
    EXPECT_EQ(NumberOf("Chord"), 20);
    EXPECT_EQ(NumberOf("Tempo"), 99);
    EXPECT_EQ(NumberOf("GenericText"), 92);
    EXPECT_EQ(NumberOf("MeasureStaffText"), 93);
    EXPECT_EQ(NumberOf("Cerchio"), 111);
    EXPECT_EQ(NumberOf("document"), 0);
    EXPECT_EQ(InfoOf(112), nullptr);
    EXPECT_DEATH(InfoOf(151), "i < size");
}

TEST_F(ClassTable, EachRowAgreesWithItself) {
    for (int16_t n = 1; n <= ClassCount(); ++n) {
        const ClassInfo& info = *InfoOf(n);
        SCOPED_TRACE(info.name);
        EXPECT_LE(std::string(info.name).size(), 39u);
        std::multiset<uint16_t> pointers(info.pointers.begin(), info.pointers.end()), links;
        for (const LinkField& link : info.links) links.insert(link.offset);
        EXPECT_EQ(pointers, links);
        std::set<int> swapped;
        for (const SwapField& field : info.plan) {
            EXPECT_LE(field.offset + field.width, info.size);
            for (int i = 0; i < field.width; ++i)
                EXPECT_TRUE(swapped.insert(field.offset + i).second) << field.offset;
        }
        for (const uint16_t offset : info.pointers) {
            EXPECT_EQ(offset % 2, 0);
            // But for one pointer each of two classes, which is half inside another field.
            if ((n == 108 || n == 109) && offset == 30) continue;
            EXPECT_TRUE(swapped.contains(offset)) << offset;
        }
    }
}

TEST_F(ClassTable, FieldsTurnedTwiceAreAsBefore) {
    for (int16_t n = 1; n <= ClassCount(); ++n) {
        const ClassInfo& info = *InfoOf(n);
        Bytes record(info.size);
        for (size_t i = 0; i < record.size(); ++i) record[i] = static_cast<uint8_t>(i * 7 + 1);
        Bytes turned = record;
        info.creator->SwapBytes(turned.data(), info);
        EXPECT_EQ(turned == record, info.plan.empty()) << info.name;
        info.creator->SwapBytes(turned.data(), info);
        EXPECT_EQ(turned, record) << info.name;
    }
}

TEST_F(ClassTable, RebindWritesBehaviourWordsAndNothingElse) {
    for (int16_t n = 1; n <= ClassCount(); ++n) {
        const ClassInfo& info = *InfoOf(n);
        Bytes record(info.size, 0xAA), bound = record;
        info.creator->Rebind(bound.data(), info);
        for (size_t i = 0; i < record.size(); ++i) {
            const bool word =
                n != 11 && (i < 4 || (info.secondWord && i >= info.secondWord && i < info.secondWord + 4u));
            EXPECT_EQ(bound[i] != 0xAA, word) << info.name << " " << i;
        }
    }
}

// Ends looked at so far: whether the parent's, and the relation.
std::set<std::pair<bool, int>> looked;

// Where the compiler puts an end of a record against where the table says it is.
template <class End, class R>
void ExpectEnd(const char* what) {
    auto* record = static_cast<R*>(MemoryManager::Instance().Allocate(R::kClass));
    const auto place =
        reinterpret_cast<const uint8_t*>(static_cast<End*>(record)) - reinterpret_cast<uint8_t*>(record);
    const LinkField* link = InfoOf(R::kClass)->LinkAt(static_cast<uint16_t>(place));
    ASSERT_TRUE(link) << what << " of " << InfoOf(R::kClass)->name << " stands at " << place;
    const bool top = sizeof(End) == 4 && !requires(End end) { end.next; };
    EXPECT_EQ(link->role, top ? LinkRole::Last : LinkRole::Next) << what;
    looked.insert({top, End::kNumber});
    EXPECT_TRUE(link->relation == End::kNumber || link->other == End::kNumber) << what;
}
template <class End, class... R>
void Each(const char* what) {
    (ExpectEnd<End, R>(what), ...);
}

TEST_F(ClassTable, EndsOfTheRecordsStandWhereTheTableSays) {
    Each<Top2T<Document, 1, 3>, Document>("T1");
    Each<TopT<Document, 3, 3>, Document>("T3f");
    Each<TopT<Document, 4, 3>, Document>("T4p");
    Each<Top2T<Document, 13, 3>, Document>("T13");
    Each<Top3T<Document, 30, 3>, Document>("T30");
    Each<Bot2T<Page, 1, 3>, Page>("N1");
    Each<Top2T<Page, 2, 3>, Page>("T2");
    Each<Top2T<Page, 50, 3>, Page>("T50");
    Each<Bot2T<System, 2, 3>, System>("N2");
    Each<TopT<System, 3, 3>, System>("T3s");
    Each<TopT<System, 10, 3>, System>("T10");
    Each<Top3T<System, 43, 3>, System>("T43");
    Each<BotT<Measure, 10, 3>, Measure, MultiMeasure>("N10");
    Each<Top2T<Measure, 11, 3>, Measure, MultiMeasure>("T11");
    Each<Top2T<Measure, 31, 3>, Measure, MultiMeasure>("T31");
    Each<Top2T<Measure, 100, 3>, Measure, MultiMeasure>("T100");
    Each<Bot2T<MeasureStaff, 11, 3>, MeasureStaff>("N11");
    Each<BotT<MeasureStaff, 16, 3>, MeasureStaff>("N16");
    Each<Top2T<MeasureStaff, 17, 3>, MeasureStaff>("T17");
    Each<Top2T<MeasureStaff, 20, 3>, MeasureStaff>("T20");
    Each<Bot2T<Voice, 20, 3>, Voice>("N20");
    Each<Top2T<Voice, 21, 3>, Voice>("T21");
    Each<TopT<DocStaff, 16, 3>, DocStaff>("T16");
    Each<Top2T<DocStaff, 18, 3>, DocStaff>("T18");
    Each<Bot2T<DocStaff, 13, 3>, DocStaff>("N13");
    Each<Bot2T<Staff, 18, 3>, SimpleStaff, StaffBot>("N18");
    Each<Top2T<Staff, 41, 3>, SimpleStaff, StaffBot>("T41");
    Each<BotT<MultiStaff, 3, 3>, SimpleStaff, StaffCustom>("N3s");
    Each<BotT<MultiStaff, 4, 3>, SimpleStaff, StaffCustom>("N4s");
    Each<BotT<StaffBot, 5, 3>, StaffBot>("N5");
    Each<TopT<StaffCustom, 5, 3>, StaffCustom>("T5");
    Each<TopT<AllStaff, 4, 3>, AllStaff>("T4s");
    Each<Top2T<AllStaff, 49, 3>, AllStaff>("T49");
    Each<Bot3T<Connection, 43, 3>, Connection>("N43");
    Each<Top3T<Connection, 42, 3>, Connection>("T42");
    Each<Bot2T<ConnStaff, 41, 3>, ConnStaff>("N41");
    Each<Bot3T<ConnStaff, 42, 3>, ConnStaff>("N42");
    Each<BotT<TarnFont, 3, 3>, TarnFont>("N3f");
    Each<Bot3T<FontSymbol, 30, 3>, SimpleFont, CompositeSymbol>("N30");
    Each<Bot3T<FontSymbol, 34, 3>, SimpleFont, CompositeSymbol>("N34");
    Each<Top3T<CompositeSymbol, 34, 3>, CompositeSymbol>("T34");
    Each<Bot2T<GenericNote, 40, 3>, Note, Grace>("N40");
    Each<Bot2T<GenericNote, 60, 3>, Note, Grace>("N60");
    Each<Top2T<GenericNote, 35, 3>, Note, Grace>("T35");
    Each<Top2T<GenericNote, 1002, 3>, Note, Grace>("T1002");
    Each<Bot2T<VoiceSymbol, 21, 3>, Chords, GraceChord, Pause>("N21");
    Each<Top2T<VoiceSymbol, 39, 3>, Chords, GraceChord, Pause>("T39");
    Each<Bot2T<Chords, 32, 3>, Chords, GraceChord>("N32");
    Each<Top2T<Chords, 40, 3>, Chords, GraceChord>("T40");
    Each<Top2T<BeamSymbol, 70, 3>, Stem, Pause>("T70");
    Each<Bot2T<Stem, 33, 3>, Stem>("N33");
    Each<Top2T<Stem, 60, 3>, Stem>("T60");
    Each<Bot2T<BeamSymbolAttribute, 70, 3>, Flag, BeamMarker>("N70");
    Each<Bot2T<BeamMarker, 900, 3>, BeamMarker>("N900");
    Each<Top2T<Beam, 900, 3>, Beam, CrossBeam>("T900");
    Each<Bot2T<MeasureSymbol, 31, 3>, ChordSymbol, Time, Coda, MarkEndings, CrossBeam>("N31");
    Each<Top2T<ChordSymbol, 32, 3>, ChordSymbol>("T32");
    Each<Top2T<ChordSymbol, 33, 3>, ChordSymbol>("T33");
    Each<Bot2T<NoteAttribute, 35, 3>, Accident, MarkValue, Mordente, Liriche, Corona>("N35");
    Each<Bot2T<VoiceSymbolAttribute, 39, 3>, Dot, MarkIrreg, Tremolo>("N39");
    Each<Bot2T<MarkValue, 36, 3>, MarkValue>("N36");
    Each<Top2T<TieValue, 36, 3>, TieValue>("T36");
    Each<Bot2T<MarkIrreg, 38, 3>, MarkIrreg>("N38");
    Each<Top2T<Irregular, 38, 3>, Irregular>("T38");
    Each<Bot2T<TimeElement, 100, 3>, TimeOn, TimeOff, Tempo>("N100");
    Each<Top2T<MarkUp, 1001, 3>, TimeOn, TimeOff>("T1001");
    Each<Bot2T<SoundEvent, 1001, 3>, NoteOn, NoteOff>("N1001");
    Each<Bot2T<SoundEvent, 1002, 3>, NoteOn, NoteOff>("N1002");
    Each<Bot2T<StaffMeasureSymbol, 17, 3>, StaticClaf, MovingClaf, TimeSignature, ClafSignature, MarkSlur,
         MultiPause, MeasureStaffText>("N17");
    Each<Top2T<Endings, 44, 3>, Endings>("T44");
    Each<Bot2T<MarkEndings, 44, 3>, MarkEndings>("N44");
    Each<Top2T<Hairpin, 45, 3>, Hairpin>("T45");
    Each<Bot2T<MarkHairpin, 45, 3>, MarkHairpin>("N45");
    Each<Top2T<Slur, 47, 3>, Slur>("T47");
    Each<Bot2T<MarkSlur, 47, 3>, MarkSlur>("N47");
    Each<Top2T<Pedale, 52, 3>, Pedale>("T52");
    Each<Top2T<MeasureStaffText, 48, 3>, MeasureStaffText>("T48");
    Each<Bot2T<MarkText, 48, 3>, MarkText>("N48");
    Each<Bot2T<MarkText, 49, 3>, MarkText>("N49");
    Each<Bot2T<PageText, 50, 3>, PageText>("N50");
    Each<Top2T<Ottava, 46, 3>, Ottava>("T46");
    Each<Bot2T<MarkOttava, 46, 3>, MarkOttava>("N46");
    Each<Top2T<Trillo, 51, 3>, Trillo>("T51");
    Each<Bot2T<MarkTrillo, 51, 3>, MarkTrillo>("N51");
    Each<Bot2T<MarkPedale, 52, 3>, MarkPedale>("N52");
    Each<BotT<ClassPreferences, 4, 3>, MeasurePreferences, StaffPref>("N4p");
    for (const auto& [relation, classes] : AllRelations())
        for (const bool top : {false, true})
            EXPECT_TRUE(looked.contains({top, std::stoi(relation)})) << relation;
}

// Pointers to whole objects by their fields' names.
template <class R, class Owner, class Field>
void ExpectAim(Field Owner::*field, Aim aim) {
    auto* record = Make<R>();
    const auto place = reinterpret_cast<uint8_t*>(&(record->*field)) - reinterpret_cast<uint8_t*>(record);
    const LinkField* link = InfoOf(R::kClass)->LinkAt(static_cast<uint16_t>(place));
    ASSERT_TRUE(link) << InfoOf(R::kClass)->name << " " << place;
    EXPECT_EQ(link->role, LinkRole::Whole);
    EXPECT_EQ(link->aim, aim) << InfoOf(R::kClass)->name << " " << place;
}

TEST_F(ClassTable, WholeObjectsAreNamedByFieldsOfTheirClass) {
    ExpectAim<MeasureStaff>(&MeasureStaff::_staff, Aim::Staff);
    ExpectAim<AllStaff>(&AllStaff::_name, Aim::Text);
    ExpectAim<Connection>(&Connection::_symbol, Aim::Symbol);
    ExpectAim<Note>(&Note::_symbol, Aim::Symbol);
    ExpectAim<Pause>(&Pause::_symbol, Aim::Symbol);
    ExpectAim<Flag>(&Flag::_symbol, Aim::Symbol);
    ExpectAim<Dot>(&Dot::_symbol, Aim::Symbol);
    ExpectAim<Accident>(&Accident::_symbol, Aim::Symbol);
    ExpectAim<StaticClaf>(&StaticClaf::_symbol, Aim::Symbol);
    ExpectAim<Arpeggio>(&Arpeggio::_symbol, Aim::Symbol);
    ExpectAim<Ottava>(&Ottava::_symbol, Aim::Symbol);
    ExpectAim<Trillo>(&Trillo::_symbol, Aim::Symbol);
    ExpectAim<Trillo>(&Trillo::_bracket, Aim::Symbol);
    ExpectAim<Liriche>(&Liriche::_text, Aim::GenericText);
    ExpectAim<MeasureStaffText>(&MeasureStaffText::_text, Aim::GenericText);
    ExpectAim<PageText>(&PageText::_text, Aim::GenericText);
    ExpectAim<GenericText>(&GenericText::_text, Aim::Text);
    ExpectAim<GenericText>(&GenericText::_font, Aim::Font);
    ExpectAim<TarnFont>(&TarnFont::_name, Aim::Text);
    ExpectAim<SimpleFont>(&SimpleFont::_name, Aim::Text);
    ExpectAim<SimpleFont>(&SimpleFont::_fontName, Aim::Text);
    ExpectAim<Endings>(&Endings::_text, Aim::Text);
    ExpectAim<NoteOn>(&NoteOn::_voiceRecord, Aim::Record);
    ExpectAim<NoteOff>(&NoteOff::_docStaff, Aim::DocStaff);
    ExpectAim<Tempo>(&Tempo::_mark, Aim::Time);
}

}  // namespace
}  // namespace corvane::test
