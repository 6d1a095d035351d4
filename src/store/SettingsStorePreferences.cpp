#include "store/SettingsStorePreferences.h"

#include <algorithm>
#include <bit>

#include "base/BigEndian.h"
#include "store/SettingsStore.h"

namespace corvane {
namespace {

constexpr size_t kStaffStringSize = 30, kSoundNameSize = 20;
constexpr size_t kBanks = 3, kSoundsPerBank = 128;

// "Preferenze" in order, by word number from 0.
constexpr std::array<int16_t, SessionPreferences::kWordCount> kDefaultWords = {
    1,    1,    600,  1,    3,    1,    1,    100,  500, 650, 1,   40,  0,   50,                       // 0
    100,  100,  299,  100,  246,  100,  140,  100,  564, 100, 193, 100, 352, 100, 300, 474, 405, 100,  // 14
    458,  100,  511,  100,  300,                                                                       // 32
    6001, 6003, 6004, 6005, 7024, 8002, 8004, 9007,                                                    // 37
    1,    1,    250,  400,  -10,  5,    1,    3,    0,   0,   10,  60,  127, 2,   61,  127, 2,   1,
    -10,  1,                                                                                    // 45
    100,  100,  0,    0,    1,    1,    0,    1,    0,   1,   0,   1,   617, 100, 0,   0,   0,  // 65
    60,   5,    3,                                                                              // 82
    1,    1,    0,    1,    1,    1,    1,    1,    1,   1,   1};                               // 85
static_assert(kDefaultWords[83] == 5 && kDefaultWords[82] == 60);
static_assert(kDefaultWords[37] == 6001 && kDefaultWords[45] == 1 && kDefaultWords[77] == 617);

constexpr std::array<float, 8> kDefaultSpacing = {11.5f, 9.0f, 6.6f, 4.0f, 2.81f, 1.41f, 1.41f, 1.41f};
constexpr std::array<uint32_t, 8> kDefaultColours = {0,        0x4040D0, 0x7F203F, 0x6820,
                                                     0x4F085F, 0x8F90E0, 0xE0903F, 0x20F040};

using Bytes = std::vector<uint8_t>;

void Append32(Bytes& bytes, uint32_t value) {
    bytes.resize(bytes.size() + 4);
    WriteBig32(bytes.data() + bytes.size() - 4, value);
}
// A text in a field of fixed size, a zero at its end whatever the text.
void AppendField(Bytes& bytes, const std::string& text, size_t size) {
    const size_t length = std::min(text.size(), size - 1);
    bytes.insert(bytes.end(), text.begin(), text.begin() + static_cast<ptrdiff_t>(length));
    bytes.resize(bytes.size() + size - length);
}
std::string TakeField(const uint8_t* field, size_t size) {
    return {field, std::find(field, field + size, uint8_t{0})};
}

// Each blob by name: its size, and the two ways between it and the preferences.
struct Blob {
    const char* name;
    size_t size;
    Bytes (*pack)(const SessionPreferences&);
    void (*unpack)(const Bytes&, SessionPreferences&);
};

const Blob kBlobs[] = {
    {"Preferenze", 2 * SessionPreferences::kWordCount,
     [](const SessionPreferences& p) {
         Bytes bytes(2 * p.words.size());
         for (size_t i = 0; i < p.words.size(); ++i)
             WriteBig16(&bytes[2 * i], static_cast<uint16_t>(p.words[i]));
         return bytes;
     },
     [](const Bytes& b, SessionPreferences& p) {
         for (size_t i = 0; i < p.words.size(); ++i) p.words[i] = static_cast<int16_t>(ReadBig16(&b[2 * i]));
     }},
    {"Spaziature", 32,
     [](const SessionPreferences& p) {
         Bytes bytes;
         for (const float f : p.spacing) Append32(bytes, std::bit_cast<uint32_t>(f));
         return bytes;
     },
     [](const Bytes& b, SessionPreferences& p) {
         for (size_t i = 0; i < p.spacing.size(); ++i)
             p.spacing[i] = std::bit_cast<float>(ReadBig32(&b[4 * i]));
     }},
    {"StaffL", kStaffStringSize,
     [](const SessionPreferences& p) {
         Bytes bytes;
         AppendField(bytes, p.staffString, kStaffStringSize);
         return bytes;
     },
     [](const Bytes& b, SessionPreferences& p) { p.staffString = TakeField(b.data(), b.size()); }},
    {"VoiceCol", 32,
     [](const SessionPreferences& p) {
         Bytes bytes;
         for (const uint32_t colour : p.voiceColours) Append32(bytes, colour);
         return bytes;
     },
     [](const Bytes& b, SessionPreferences& p) {
         for (size_t i = 0; i < p.voiceColours.size(); ++i) p.voiceColours[i] = ReadBig32(&b[4 * i]);
     }},
    {"Timbri", kBanks* kSoundsPerBank* kSoundNameSize,
     [](const SessionPreferences& p) {
         Bytes bytes;
         for (const auto& bank : p.soundNames)
             for (const std::string& name : bank) AppendField(bytes, name, kSoundNameSize);
         return bytes;
     },
     [](const Bytes& b, SessionPreferences& p) {
         const uint8_t* field = b.data();
         for (auto& bank : p.soundNames)
             for (std::string& name : bank) {
                 name = TakeField(field, kSoundNameSize);
                 field += kSoundNameSize;
             }
     }},
};

// The font list: names each ended by a zero, one more zero at the end; "FontSize" tells its bytes, 0 for no
// list.
constexpr const char *kFontSize = "FontSize", *kFont = "Font";

void WriteFonts(SettingsStore& store, const std::vector<std::string>& fonts) {
    Bytes list, size;
    for (const std::string& name : fonts) {
        list.insert(list.end(), name.begin(), name.end());
        list.push_back(0);
    }
    Append32(size, fonts.empty() ? 0 : static_cast<uint32_t>(list.size() + 1));
    list.push_back(0);
    store.Write(kTarnPrefKey, kFontSize, size);
    store.Write(kTarnPrefKey, kFont, list);
}

// False for a missing or damaged "FontSize".
bool ReadFonts(const SettingsStore& store, std::vector<std::string>& fonts) {
    Bytes size, list;
    if (!store.Read(kTarnPrefKey, kFontSize, size) || size.size() != 4) return false;
    fonts.clear();
    if (ReadBig32(size.data()) == 0 || !store.Read(kTarnPrefKey, kFont, list)) return true;
    for (auto at = list.begin(); at != list.end() && *at;) {
        const auto end = std::find(at, list.end(), uint8_t{0});
        fonts.emplace_back(at, end);
        at = end == list.end() ? end : end + 1;
    }
    return true;
}

bool ReadBlobs(const SettingsStore& store, SessionPreferences& preferences) {
    for (const Blob& blob : kBlobs) {
        Bytes bytes;
        if (!store.Read(kTarnPrefKey, blob.name, bytes) || bytes.size() != blob.size) return false;
        blob.unpack(bytes, preferences);
    }
    return true;
}

}  // namespace

SessionPreferences DefaultSessionPreferences() {
    SessionPreferences p{kDefaultWords, kDefaultSpacing, "D", kDefaultColours, {}, {}};
    for (auto& bank : p.soundNames)
        for (size_t i = 0; i < bank.size(); ++i) bank[i] = std::to_string(i + 1);
    return p;
}

Status ReadSessionPreferences(SettingsStore& store, SessionPreferences& preferences) {
    if (ReadBlobs(store, preferences) && ReadFonts(store, preferences.fonts)) return Status::Ok();
    preferences = DefaultSessionPreferences();
    return WriteSessionPreferences(store, preferences);
}

Status WriteSessionPreferences(SettingsStore& store, const SessionPreferences& preferences) {
    for (const Blob& blob : kBlobs) store.Write(kTarnPrefKey, blob.name, blob.pack(preferences));
    WriteFonts(store, preferences.fonts);
    return store.Commit();
}

}  // namespace corvane
