// The settings file: damaged ones, those of other versions, and programs that write at the same time.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "base/Notify.h"
#include "platform/files/FileSettings.h"
#include "platform/files/PosixFiles.h"
#include "platform/files/StateFolder.h"
#include "session/Session.h"

namespace corvane {
namespace {

class SettingsTest : public ::testing::Test {
protected:
    void SetUp() override {
        _folder = std::filesystem::temp_directory_path() / ("corvane-settings-" + std::to_string(::getpid()));
        std::filesystem::remove_all(_folder);
        std::filesystem::create_directories(_folder);
    }
    void TearDown() override { std::filesystem::remove_all(_folder); }

    std::string Folder() const { return _folder.string(); }
    void Put(const std::string& name, const std::string& text) {
        std::ofstream(_folder / name, std::ios::binary) << text;
    }
    std::string Get(const std::string& name) {
        std::vector<uint8_t> bytes;
        return files.Read(Folder() + "/" + name, bytes) ? std::string(bytes.begin(), bytes.end()) : "none";
    }
    // A session's start with the file as it is; the message that the person sees, if any.
    std::string StartSession() {
        FileSettings settings(files, Folder());
        SessionParts parts;
        parts.files = &files;
        parts.settings = &settings;
        const Session session(parts);
        return settings.TakeMessage();
    }

    PosixFiles files;

private:
    std::filesystem::path _folder;
};

TEST_F(SettingsTest, ADamagedOrOlderFileIsKeptAsideAndDefaultsAreWritten) {
    EXPECT_EQ(StartSession(), "");
    const std::string defaults = Get("settings");
    ASSERT_NE(defaults.find("[Settings/TarnPref]"), std::string::npos);
    EXPECT_EQ(StartSession(), "");
    std::string zeros = defaults;
    std::fill(zeros.begin() + static_cast<std::ptrdiff_t>(zeros.size()) / 2, zeros.end(), '\0');
    const struct {
        const char* why;
        std::string text;
    } cases[] = {
        {"cut in the middle of a line", defaults.substr(0, defaults.size() - 3)},
        {"zeros, as a power cut leaves them", zeros},
        {"empty", ""},
        {"another version", "# Corvane settings 0" + defaults.substr(defaults.find('\n'))},
        {"something else", "hello\n"},
        {"a value without a key", defaults.substr(0, defaults.find('\n')) + "\nname = \"value\"\n"},
        {"half a byte", defaults + "\n[x]\ny = <123>\n"},
    };
    int aside = 0;
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        Put("settings", c.text);
        const std::string name =
            ++aside == 1 ? "settings.damaged" : "settings.damaged" + std::to_string(aside);
        EXPECT_NE(StartSession().find(name), std::string::npos);
        EXPECT_EQ(Get(name), c.text) << "nothing is thrown away";
        EXPECT_EQ(Get("settings"), defaults);
        EXPECT_EQ(StartSession(), "") << "one message";
    }
}

TEST_F(SettingsTest, AValueOfTheWrongSizeBringsTheDefaultsBack) {
    StartSession();
    const std::string defaults = Get("settings");
    {
        FileSettings settings(files, Folder());
        settings.WriteText(kTarnPrefKey, "Preferenze", "short");
        ASSERT_TRUE(settings.Commit());
    }
    ASSERT_NE(Get("settings"), defaults);
    EXPECT_EQ(StartSession(), "");
    EXPECT_EQ(Get("settings"), defaults);
}

TEST_F(SettingsTest, AFileThatVanishesOrIsSpoiltMeanwhileIsWrittenWhole) {
    FileSettings settings(files, Folder());
    settings.WriteText("Some key", "first", "1");
    ASSERT_TRUE(settings.Commit());
    for (const char* spoilt : {"", "\0\0\0\0"}) {
        std::filesystem::remove(Folder() + "/settings");
        if (*spoilt) Put("settings", spoilt);
        settings.WriteText("Some key", "second", "2");
        ASSERT_TRUE(settings.Commit());
        const FileSettings read(files, Folder());
        EXPECT_EQ(read.ReadText("Some key", "first"), "1");
        EXPECT_EQ(read.ReadText("Some key", "second"), "2");
    }
}

// Programs of their own, each writing values of its own and one that all share.
TEST_F(SettingsTest, ProgramsThatWriteAtOnceLoseNothingAndNeverSeeATornFile) {
    constexpr int kPrograms = 4, kValues = 25;
    std::vector<pid_t> programs;
    for (int p = 0; p < kPrograms; ++p) {
        programs.push_back(fork());
        ASSERT_GE(programs.back(), 0);
        if (programs.back() > 0) continue;
        bool good = true;
        for (int v = 0; v < kValues; ++v) {
            FileSettings settings(files, Folder());
            good = good && settings.TakeMessage().empty();
            settings.WriteText("Program " + std::to_string(p), std::to_string(v), std::string(200, 'x'));
            settings.WriteText("All", "last", std::to_string(p));
            good = settings.Commit().ok() && good;
        }
        _exit(good ? 0 : 1);
    }
    for (const pid_t program : programs) {
        int status = 0;
        waitpid(program, &status, 0);
        EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
    }
    FileSettings settings(files, Folder());
    EXPECT_EQ(settings.TakeMessage(), "");
    for (int p = 0; p < kPrograms; ++p)
        for (int v = 0; v < kValues; ++v)
            EXPECT_EQ(settings.ReadText("Program " + std::to_string(p), std::to_string(v)),
                      std::string(200, 'x'));
    std::vector<std::string> names;
    ASSERT_TRUE(files.List(Folder(), names));
    EXPECT_EQ(names, std::vector<std::string>{"settings"}) << "nothing is left lying about";
}

TEST_F(SettingsTest, FoldersFollowTheEnvironmentAndStateIsForItsOwnerAlone) {
    const std::string home = Folder() + "/home", xdg = Folder() + "/xdg", own = Folder() + "/own";
    const struct {
        std::string own, xdg, config, state;
    } cases[] = {
        {"", "", home + "/.config/corvane", home + "/.local/state/corvane"},
        {"", xdg, xdg + "/corvane", xdg + "/corvane"},
        {"", "relative", home + "/.config/corvane", home + "/.local/state/corvane"},
        {own, xdg, own, own},
    };
    const char* names[] = {"HOME", "XDG_CONFIG_HOME", "XDG_STATE_HOME", "CORVANE_CONFIG_DIR",
                           "CORVANE_STATE_DIR"};
    std::vector<std::pair<const char*, std::string>> before;
    for (const char* name : names)
        if (const char* value = std::getenv(name)) before.emplace_back(name, value);
    setenv("HOME", home.c_str(), 1);
    for (const auto& c : cases) {
        for (const char* name : {"XDG_CONFIG_HOME", "XDG_STATE_HOME"}) setenv(name, c.xdg.c_str(), 1);
        for (const char* name : {"CORVANE_CONFIG_DIR", "CORVANE_STATE_DIR"}) setenv(name, c.own.c_str(), 1);
        EXPECT_EQ(ConfigFolder(), c.config);
        EXPECT_EQ(StateFolder(), c.state);
        EXPECT_EQ(std::filesystem::status(c.state).permissions(), std::filesystem::perms::owner_all);
    }
    for (const char* name : names) unsetenv(name);
    for (const auto& [name, value] : before) setenv(name, value.c_str(), 1);
}

}  // namespace
}  // namespace corvane
