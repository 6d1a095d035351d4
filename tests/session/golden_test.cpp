// Whole pictures as text. Each script in tests/layout/golden makes a small score and dumps its geometry,
// which stands beside it; its first line says in a sentence what the picture holds. `corvane script
// NAME.script` prints the same. With CORVANE_UPDATE_GOLDENS set the pictures are written anew: look at the
// difference before they are kept.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>

#include "edit/ToolState.h"
#include "layout/Beaming.h"
#include "layout/ListaEventi.h"
#include "platform/freetype/FreeTypeMeasures.h"
#include "session/ScriptRunner.h"
#include "session/Session.h"

namespace corvane {
namespace {

namespace fs = std::filesystem;

const fs::path kFolder = fs::path(CORVANE_SOURCE_DIR) / "tests/layout/golden";
constexpr size_t kLeastScores = 40;

std::string ReadAll(const fs::path& path) {
    std::ostringstream text;
    text << std::ifstream(path, std::ios::binary).rdbuf();
    return text.str();
}

// The picture that a script makes in a session of its own.
std::string PictureOf(const std::string& script) {
    InstallFreeTypeMeasures();
    Tools() = ToolState();
    Switches() = EditSwitches();
    SetAngledBeams(true);
    spacingTable = SpacingTable();
    Session session({});
    std::string out;
    ScriptRunner runner(
        session, [](WindowTarn&, const std::string&, int, int) { return Status::Ok(); }, out);
    const Status status = runner.Run(script);
    EXPECT_TRUE(status) << status.message();
    return out;
}

std::vector<std::string> LinesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) lines.push_back(line);
    return lines;
}

// The first lines that differ, as a person wants to read them.
std::string Difference(const std::string& kept, const std::string& now) {
    constexpr int kMost = 8;
    const std::vector<std::string> a = LinesOf(kept), b = LinesOf(now);
    std::string text = std::to_string(a.size()) + " lines kept, " + std::to_string(b.size()) + " now\n";
    int told = 0;
    for (size_t i = 0; i < std::max(a.size(), b.size()) && told < kMost; ++i) {
        const std::string left = i < a.size() ? a[i] : "(none)", right = i < b.size() ? b[i] : "(none)";
        if (left == right) continue;
        text += "line " + std::to_string(i + 1) + ": kept " + left + ", now " + right + "\n";
        ++told;
    }
    return text;
}

TEST(Golden, EveryPictureIsAsItWasLookedAt) {
    const bool update = std::getenv("CORVANE_UPDATE_GOLDENS") != nullptr;
    std::set<std::string> scripts, pictures, sentences;
    for (const auto& file : fs::directory_iterator(kFolder))
        (file.path().extension() == ".script" ? scripts : pictures).insert(file.path().stem().string());
    EXPECT_GE(scripts.size(), kLeastScores);
    if (!update) {
        EXPECT_EQ(scripts, pictures) << "each script has its picture, each picture its script";
    }
    for (const std::string& name : scripts) {
        SCOPED_TRACE(name);
        const std::string script = ReadAll(kFolder / (name + ".script"));
        const std::string sentence = LinesOf(script).at(0);
        EXPECT_TRUE(sentence.starts_with("# ") && sentence.ends_with(".")) << "what does it hold?";
        EXPECT_TRUE(sentences.insert(sentence).second) << "another one holds the same";
        const std::string now = PictureOf(script);
        EXPECT_NE(now, "") << "nothing is drawn";
        if (update) std::ofstream(kFolder / (name + ".txt"), std::ios::binary) << now;
        const std::string kept = ReadAll(kFolder / (name + ".txt"));
        EXPECT_TRUE(kept == now) << sentence << "\n" << Difference(kept, now);
    }
}

}  // namespace
}  // namespace corvane
