#include <map>

#include "model/Preferences.h"
#include "model/SessionPreferences.h"
#include "symbol_pool.h"

namespace corvane {
namespace {

class PreferenceRecords : public DocumentTest {
protected:
    PreferenceRecords() { MakeDefaultPreferences(document); }
    // The field at an offset; a field of more than a byte must be one that files turn round.
    int32_t Field(int16_t number, uint16_t offset) const {
        const ClassInfo* info = InfoOf(number);
        const auto* bytes = reinterpret_cast<const uint8_t*>(FindPreferences(document, info->name)) + offset;
        for (const SwapField& field : info->plan) {
            if (field.offset != offset) continue;
            if (field.width == 2) return reinterpret_cast<const Packed2<int16_t>*>(bytes)->Get();
            return reinterpret_cast<const Packed2<int32_t>*>(bytes)->Get();
        }
        return *bytes;
    }
};

TEST_F(PreferenceRecords, ANewScoreHasOneOfEachClass) {
    std::map<std::string, int> counts;
    for (const ClassPreferences* record : documentPreferences.Of(document)) {
        counts[std::string(TextOf(record->_className))] += 1;
        EXPECT_EQ(InfoOf(record->ClassNumber())->name, TextOf(record->_className));
        EXPECT_EQ(FindPreferences(document, InfoOf(record->ClassNumber())->name), record);
    }
    EXPECT_EQ(counts.size(), 19u);
    for (const auto& [name, count] : counts) EXPECT_EQ(count, 1) << name;
    EXPECT_EQ(FindPreferences(document, "Notepref"), nullptr);
    EXPECT_EQ(FindPreferences(document, ""), nullptr);
}

TEST_F(PreferenceRecords, ConstantsFillTheFieldsInOrder) {
    const struct {
        int16_t number;
        uint16_t offset;
        int32_t value;
        const char* why;
    } cases[] = {
        {13, 29, 35, "second of two bytes"},
        {13, 38, 42, "fifth of seven words"},
        {13, 44, 300, "first long"},
        {13, 62, 7, "the last"},
        {37, 40, 3, "tuplet of three"},
        {37, 42, 2, "in the time of two"},
        {40, 32, 60, "the last"},
        {43, 34, 1, "the last"},
        {66, 28, 15785, "page height"},
        {66, 32, 12197, "page width"},
        {66, 60, 100, "ninth long"},
        {66, 65, 1, "bytes behind the longs"},
        {66, 66, 0, "the last"},
        {67, 34, 5, "binary"},
        {67, 38, 16, "7/8"},
        {67, 46, 0, "nineteenth byte"},
        {67, 60, 101, "the long by itself"},
        {67, 76, 110, "third of five"},
        {67, 88, 1, "the last"},
        {73, 28, 1, "first long"},
        {73, 32, 1, "second long"},
        {73, 38, 115, "second of four words"},
        {73, 52, 15, "word behind longs"},
        {73, 86, 105, "the last"},
        {74, 33, 1, "tenth switch"},
        {74, 34, 0, "not an eleventh"},
        {68, 30, 1, "the last"},
        {94, 32, 17, "the only one"},
        {70, 32, 300, "the last"},
        {71, 28, 0, "between the heights"},
        {72, 24, 20, "slashed"},
        {72, 32, 80, "first long"},
        {72, 42, 17, "the last"},
        {69, 38, 5, "stacked"},
        {69, 40, 34, "byte behind the word"},
        {69, 46, 106, "second long"},
        {69, 54, 0, "nothing is left over"},
        {100, 38, 9007, "eighth tool"},
        {102, 24, 1, "the only one"},
        {103, 24, 287, "first place"},
        {103, 62, 48, "last place"},
        {104, 26, 0, "the last"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(Field(c.number, c.offset), c.value)
            << InfoOf(c.number)->name << " " << c.offset << ": " << c.why;
}

TEST_F(PreferenceRecords, EngravingReadsThemByName) {
    const auto* notes = Preferences<NotePref>(document);
    EXPECT_EQ(notes->_subGroups, SubGroups::NotConnected);
    EXPECT_EQ(notes->_singleNote, SingleNote::Flag);
    EXPECT_EQ(notes->_accidentalGap, 110);
    EXPECT_EQ(notes->_dotGap, 100);
    EXPECT_EQ(notes->BeamMinDistance(), 400);
    EXPECT_EQ(reinterpret_cast<const uint8_t*>(notes)[52], 400 >> 8)
        << "the higher byte first, as files have it";
    EXPECT_EQ(Preferences<StangPref>(document)->_stemLength, 300);
    EXPECT_EQ(Preferences<PagePref>(document)->_lastNoteGap, 50);
    EXPECT_EQ(Preferences<GracePref>(document)->_percentCut, 50);
    EXPECT_EQ(Preferences<AuxNotePref>(document)->_dynamics[0], 10);

    auto* writable = Preferences<NotePref>(document);
    writable->_beamMinDistance.Put(0);
    EXPECT_EQ(writable->BeamMinDistance(), 400) << "a file without the value";
    writable->_beamMinDistance.Put(275);
    EXPECT_EQ(writable->BeamMinDistance(), 275);
}

TEST_F(PreferenceRecords, VoicesAreForcedByNumberUnlessTold) {
    auto* voices = Preferences<VoicePref>(document);
    EXPECT_TRUE(voices->_automaticStems);
    EXPECT_TRUE(voices->ForcedUp(1));
    EXPECT_FALSE(voices->ForcedUp(2));
    EXPECT_TRUE(voices->ForcedUp(7));
    voices->_forced[1] = ForcedStems::Up;
    voices->_forced[0] = ForcedStems::Down;
    EXPECT_TRUE(voices->ForcedUp(2));
    EXPECT_FALSE(voices->ForcedUp(1));
}

TEST_F(PreferenceRecords, TheStandardFontsComeFirstAndEveryFontFieldIsCounted) {
    std::map<const TarnFont*, int> uses;
    std::string names;
    for (const TarnFont* font : documentFonts.Of(document)) {
        names += std::string(TextOf(font->_name)) + ";";
        EXPECT_EQ(font->_size, 189);
        uses[font] = 0;
    }
    EXPECT_EQ(names, "Times New Roman;Marcelane;Courier New;");
    for (ClassPreferences* record : documentPreferences.Of(document))
        for (const LinkField& link : InfoOf(record->ClassNumber())->links)
            if (link.aim == Aim::Font) {
                const auto* field = reinterpret_cast<const uint8_t*>(record) + link.offset;
                const TarnFont* font = *reinterpret_cast<const Ptr<TarnFont>*>(field);
                ASSERT_NE(font, nullptr) << InfoOf(record->ClassNumber())->name << " " << link.offset;
                uses[font] += 1;
            }
    for (const auto& [font, count] : uses) EXPECT_EQ(font->_useCount, count) << TextOf(font->_name);
}

TEST(SessionWords, StandWhereTheirDefaultsSay) {
    const SessionPreferences defaults = DefaultSessionPreferences();
    EXPECT_EQ(GetWord(defaults, SessionWord::PairDistance), 600);
    EXPECT_EQ(GetWord(defaults, SessionWord::ClickPort), -10);
    EXPECT_EQ(GetWord(defaults, SessionWord::BeatClickPitch), 61);
    EXPECT_EQ(GetWord(defaults, SessionWord::ClickChannel), 10);
    EXPECT_EQ(GetWord(defaults, SessionWord::CountOffMeasures), 1);
    EXPECT_TRUE(IsOn(defaults, SessionWord::PlaybackNotes));
    EXPECT_TRUE(IsOn(defaults, SessionWord::DeleteNotesToRests));
    EXPECT_FALSE(IsOn(defaults, SessionWord::VoiceColouring));
    EXPECT_FALSE(IsOn(defaults, SessionWord::ShowHiddenNotes));
    EXPECT_TRUE(IsOn(defaults, SessionWord::HideNotesInPrint));
}

}  // namespace
}  // namespace corvane
