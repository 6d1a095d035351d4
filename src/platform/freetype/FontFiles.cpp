#include "platform/freetype/FontFiles.h"

#include <fontconfig/fontconfig.h>

#include <cstdlib>
#include <filesystem>
#include <map>
#include <memory>
#include <utility>
#include <vector>

#include "graphics/FontName.h"

namespace corvane {
namespace {

namespace fs = std::filesystem;

struct DestroyPattern {
    void operator()(FcPattern* pattern) const { FcPatternDestroy(pattern); }
};
using Pattern = std::unique_ptr<FcPattern, DestroyPattern>;

std::string FileNameOf(std::string_view musicFont) { return std::string(musicFont) + ".ttf"; }

// Where the music fonts may lie, the likeliest first.
std::vector<fs::path> FontFolders() {
    std::vector<fs::path> folders;
    if (const char* data = std::getenv("CORVANE_DATA_DIR")) folders.push_back(fs::path(data) / "fonts");
    std::error_code error;
    const fs::path program = fs::read_symlink("/proc/self/exe", error).parent_path();
    if (!error)
        for (const char* place : {"../share/corvane/fonts", "fonts", "../../../fonts"})
            folders.push_back(program / place);
#ifdef CORVANE_FONTS_OF_SOURCE
    folders.emplace_back(CORVANE_FONTS_OF_SOURCE);
#endif
    return folders;
}

std::string FindMusicFontFolder() {
    std::error_code error;
    for (const fs::path& folder : FontFolders())
        if (fs::exists(folder / FileNameOf(kMusicFont), error)) return folder.lexically_normal().string();
    return {};
}

Pattern Wanted(std::string_view family, uint8_t style) {
    Pattern wanted(FcPatternCreate());
    const std::string name(family);
    FcPatternAddString(wanted.get(), FC_FAMILY, reinterpret_cast<const FcChar8*>(name.c_str()));
    FcPatternAddInteger(wanted.get(), FC_WEIGHT, style & kBoldStyle ? FC_WEIGHT_BOLD : FC_WEIGHT_REGULAR);
    FcPatternAddInteger(wanted.get(), FC_SLANT, style & kItalicStyle ? FC_SLANT_ITALIC : FC_SLANT_ROMAN);
    FcPatternAddBool(wanted.get(), FC_SCALABLE, FcTrue);
    FcPatternAddBool(wanted.get(), FC_VARIABLE, FcFalse);
    return wanted;
}

// Null where the system has no font at all.
Pattern BestMatch(Pattern wanted) {
    FcConfigSubstitute(nullptr, wanted.get(), FcMatchPattern);
    FcDefaultSubstitute(wanted.get());
    FcResult result = FcResultNoMatch;
    return Pattern(FcFontMatch(nullptr, wanted.get(), &result));
}

FontFile FileOf(const Pattern& match, uint8_t style) {
    FcChar8* path = nullptr;
    if (!match || FcPatternGetString(match.get(), FC_FILE, 0, &path) != FcResultMatch) return {};
    int index = 0, slant = FC_SLANT_ROMAN;
    FcPatternGetInteger(match.get(), FC_INDEX, 0, &index);
    FcPatternGetInteger(match.get(), FC_SLANT, 0, &slant);
    return {reinterpret_cast<const char*>(path), index & 0xffff,
            (style & kItalicStyle) && slant == FC_SLANT_ROMAN};
}

bool SystemHas(std::string_view family) {
    const Pattern match = BestMatch(Wanted(family, kPlainStyle));
    FcChar8* found = nullptr;
    return match && FcPatternGetString(match.get(), FC_FAMILY, 0, &found) == FcResultMatch &&
           family == reinterpret_cast<const char*>(found);
}

FontFile FindMusicFont(std::string_view family, uint8_t style) {
    std::error_code error;
    const fs::path beside = fs::path(MusicFontFolder()) / FileNameOf(family);
    if (!MusicFontFolder().empty() && fs::exists(beside, error))
        return {beside.string(), 0, (style & kItalicStyle) != 0};
    if (SystemHas(family)) return FileOf(BestMatch(Wanted(family, style)), style);
    return {};
}

}  // namespace

const std::string& MusicFontFolder() {
    static const std::string folder = FindMusicFontFolder();
    return folder;
}

const FontFile& FontFileOf(std::string_view family, uint8_t style) {
    static std::map<std::pair<std::string, uint8_t>, FontFile> known;
    const auto [entry, isNew] = known.try_emplace({std::string(family), style});
    if (isNew)
        entry->second = IsMusicFont(family) ? FindMusicFont(family, style)
                                            : FileOf(BestMatch(Wanted(family, style)), style);
    return entry->second;
}

const FontFile& FontFileFor(char32_t character, std::string_view family, uint8_t style) {
    static std::map<std::pair<char32_t, uint8_t>, FontFile> known;
    const auto [entry, isNew] = known.try_emplace({character, style});
    if (isNew) {
        Pattern wanted = Wanted(family, style);
        FcCharSet* needed = FcCharSetCreate();
        FcCharSetAddChar(needed, character);
        FcPatternAddCharSet(wanted.get(), FC_CHARSET, needed);
        FcCharSetDestroy(needed);
        entry->second = FileOf(BestMatch(std::move(wanted)), style);
    }
    return entry->second;
}

std::string MissingMusicFont() {
    for (std::string_view family : {kMusicFont, kSecondMusicFont})
        if (FontFileOf(family, kPlainStyle).path.empty())
            return "The Font " + std::string(family) + " is not installed! Please reinstall the software";
    return {};
}

}  // namespace corvane
