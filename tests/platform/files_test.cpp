// Files and settings of a real file system.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "base/BigEndian.h"
#include "model/SessionPreferences.h"
#include "platform/files/FileSettings.h"
#include "platform/files/PosixFiles.h"

namespace corvane {
namespace {

namespace fs = std::filesystem;
using Bytes = std::vector<uint8_t>;

class Files : public ::testing::Test {
protected:
    Files() {
        std::string pattern = (fs::temp_directory_path() / "corvane-files-XXXXXX").string();
        folder = mkdtemp(pattern.data());
    }
    ~Files() override {
        for (const auto& entry : fs::recursive_directory_iterator(folder))
            if (fs::is_directory(entry.symlink_status())) chmod(entry.path().c_str(), 0700);
        fs::remove_all(folder);
    }
    std::string Path(const std::string& name) const { return folder + "/" + name; }
    void Put(const std::string& name, const std::string& text) const { std::ofstream(Path(name)) << text; }
    std::string Text(const std::string& name) const {
        std::ifstream in(Path(name));
        return {std::istreambuf_iterator<char>(in), {}};
    }
    mode_t Mode(const std::string& name) const {
        struct stat about {};
        stat(Path(name).c_str(), &about);
        return about.st_mode & 07777;
    }
    std::vector<std::string> Names() {
        std::vector<std::string> names;
        EXPECT_TRUE(files.List(folder, names));
        return names;
    }

    PosixFiles files;
    std::string folder;
    const Bytes contents = {'n', 'e', 'w'};
};

TEST_F(Files, OnlyRegularFilesAreRead) {
    Put("score", "text");
    fs::create_directory(Path("folder"));
    ASSERT_EQ(mkfifo(Path("pipe").c_str(), 0600), 0);
    Bytes bytes;
    ASSERT_TRUE(files.Read(Path("score"), bytes));
    EXPECT_EQ(std::string(bytes.begin(), bytes.end()), "text");
    for (const char* name : {"nothing", "folder", "pipe", "score/below"}) {
        const Status status = files.Read(Path(name), bytes);
        EXPECT_EQ(status.fault(), Fault::NotFound) << name;
        EXPECT_EQ(status.message(), "File not found");
    }
}

TEST_F(Files, AReplacedFileKeepsItsPermissionsAndANewOneGetsThePersons) {
    Put("score", "old");
    chmod(Path("score").c_str(), 0640);
    const mode_t before = umask(027);
    EXPECT_TRUE(ReplaceFile(files, Path("score"), contents));
    EXPECT_TRUE(ReplaceFile(files, Path("fresh"), contents));
    umask(before);
    EXPECT_EQ(Text("score"), "new");
    EXPECT_EQ(Mode("score"), 0640u);
    EXPECT_EQ(Text("fresh"), "new");
    EXPECT_EQ(Mode("fresh"), 0640u);
    EXPECT_EQ(Names(), (std::vector<std::string>{"fresh", "score"})) << "no temporary file stays";
}

TEST_F(Files, LinksAreFollowedToTheirTarget) {
    fs::create_directory(Path("far"));
    Put("far/score", "old");
    fs::create_symlink("far/score", Path("near"));
    fs::create_symlink(Path("near"), Path("chain"));
    fs::create_symlink("loop", Path("loop"));
    fs::create_symlink("far/later", Path("dangling"));
    EXPECT_TRUE(ReplaceFile(files, Path("chain"), contents));
    EXPECT_EQ(Text("far/score"), "new");
    EXPECT_TRUE(fs::is_symlink(Path("near")) && fs::is_symlink(Path("chain")));
    EXPECT_TRUE(ReplaceFile(files, Path("dangling"), contents));
    EXPECT_EQ(Text("far/later"), "new");
    EXPECT_EQ(ReplaceFile(files, Path("loop"), contents).fault(), Fault::ReadOnly);
}

TEST_F(Files, WhatIsReadOnlyIsRefusedAndLeftAlone) {
    Put("score", "old");
    chmod(Path("score").c_str(), 0444);
    fs::create_directory(Path("shut"));
    Put("shut/score", "old");
    chmod(Path("shut").c_str(), 0555);
    for (const char* name : {"score", "shut/score", "shut/fresh", "nowhere/score", "shut"}) {
        const Status status = ReplaceFile(files, Path(name), contents);
        EXPECT_EQ(status.fault(), Fault::ReadOnly) << name;
        EXPECT_EQ(status.message(), "Can't save, the file is read-only");
        EXPECT_FALSE(files.CheckWritable(Path(name))) << name;
    }
    EXPECT_EQ(Text("score") + Text("shut/score"), "oldold");
}

TEST_F(Files, AFullDiskIsNamed) {
    if (access("/dev/full", W_OK) != 0) GTEST_SKIP() << "no full device here";
    const Status status = files.Write("/dev/full", contents);
    EXPECT_EQ(status.fault(), Fault::NoSpace);
    EXPECT_EQ(status.message(), "Not enough space on disk to save");
}

TEST_F(Files, FoldersAreMadeWithAllAboveThem) {
    EXPECT_TRUE(files.MakeFolder(Path("a/b/c")));
    EXPECT_TRUE(files.MakeFolder(Path("a/b/c")));
    EXPECT_TRUE(fs::is_directory(Path("a/b/c")));
    Put("file", "");
    EXPECT_FALSE(files.MakeFolder(Path("file/below")));
}

// ---- settings

TEST_F(Files, SettingsComeBackAsTheyWereWritten) {
    const Bytes odd = {0, 1, 255, '"', '\n'};
    {
        FileSettings settings(files, Path("config"));
        EXPECT_FALSE(settings.Open("Settings"));
        settings.Create("Settings");
        settings.WriteText("Recent File List", "File1", "/home/\"quoted\" \\ and = [brackets] \xC3\xA4.cvm");
        settings.Write("UserPref", "Odd", odd);
        settings.Write("UserPref", "Empty", {});
        settings.WriteText("UserPref", "Gone", "x");
        settings.Remove("UserPref", "Gone");
        EXPECT_FALSE(fs::exists(Path("config"))) << "nothing is written before Commit";
        ASSERT_TRUE(settings.Commit());
    }
    FileSettings settings(files, Path("config"));
    EXPECT_EQ(settings.TakeMessage(), "");
    EXPECT_TRUE(settings.Open("Settings"));
    EXPECT_EQ(settings.ReadText("Recent File List", "File1"),
              "/home/\"quoted\" \\ and = [brackets] \xC3\xA4.cvm");
    EXPECT_EQ(settings.ReadText("UserPref", "Gone", "fallback"), "fallback");
    Bytes value;
    ASSERT_TRUE(settings.Read("UserPref", "Odd", value));
    EXPECT_EQ(value, odd);
    ASSERT_TRUE(settings.Read("UserPref", "Empty", value));
    EXPECT_TRUE(value.empty());
}

TEST_F(Files, TwoProgramsKeepEachOthersSettings) {
    FileSettings one(files, folder), two(files, folder);
    one.WriteText("Settings", "a", "1");
    one.WriteText("Settings", "both", "one");
    two.WriteText("Settings", "b", "2");
    two.WriteText("Settings", "both", "two");
    ASSERT_TRUE(one.Commit());
    ASSERT_TRUE(two.Commit());
    EXPECT_EQ(two.ReadText("Settings", "a"), "1");
    FileSettings later(files, folder);
    EXPECT_EQ(later.ReadText("Settings", "a") + later.ReadText("Settings", "b"), "12");
    EXPECT_EQ(later.ReadText("Settings", "both"), "two");
}

TEST_F(Files, DamagedSettingsAreKeptAsideAndToldOnce) {
    std::string aside = "settings.damaged";
    int kept = 1;
    for (const std::string text :
         {"", "nonsense", "# Corvane settings 2\n", "# Corvane settings 1\n[Settings]\na = \"1",
          "# Corvane settings 1\na = \"1\"\n", "# Corvane settings 1\n[S]\na = <abc>\n"}) {
        SCOPED_TRACE(text);
        Put("settings", text);
        FileSettings settings(files, folder);
        EXPECT_NE(settings.TakeMessage(), "");
        EXPECT_EQ(settings.TakeMessage(), "");
        EXPECT_EQ(Text(aside), text) << "beside those kept before";
        EXPECT_FALSE(settings.Open("Settings"));
        aside = "settings.damaged" + std::to_string(++kept);
    }
    Put("settings", std::string(4096, '\0'));  // what a power cut can leave of a file
    EXPECT_NE(FileSettings(files, folder).TakeMessage(), "");
}

TEST_F(Files, TheFirstRunWritesAllPreferencesAndTheSecondReadsThem) {
    SessionPreferences preferences;
    FileSettings settings(files, folder);
    ASSERT_TRUE(ReadSessionPreferences(settings, preferences));
    EXPECT_EQ(preferences.staffString, "D");
    EXPECT_EQ(GetWord(preferences, SessionWord::MeasuresPerSystem), 5);
    EXPECT_EQ(preferences.words[49], -10);
    EXPECT_EQ(preferences.spacing[4], 2.81f);
    EXPECT_EQ(preferences.soundNames[2][127], "128");
    const struct {
        const char* name;
        size_t size;
    } blobs[] = {{"Preferenze", 192}, {"Spaziature", 32}, {"StaffL", 30},
                 {"VoiceCol", 32},    {"Timbri", 7680},   {"FontSize", 4}};
    Bytes value;
    for (const auto& blob : blobs) {
        ASSERT_TRUE(settings.Read("Settings/TarnPref", blob.name, value)) << blob.name;
        EXPECT_EQ(value.size(), blob.size) << blob.name;
    }
    ASSERT_TRUE(settings.Read("Settings/TarnPref", "Preferenze", value));
    EXPECT_EQ(ReadBig16(&value[2 * 37]), 6001);
    ASSERT_TRUE(settings.Read("Settings/TarnPref", "Spaziature", value));
    EXPECT_EQ(ReadBig32(value.data()), 0x41380000u) << "11.5";

    preferences.staffString = "SSB";
    preferences.words[0] = -7;
    preferences.voiceColours[1] = 0x123456;
    preferences.soundNames[0][0] = "a name that is longer than its field";
    preferences.fonts = {"One", "Two"};
    ASSERT_TRUE(WriteSessionPreferences(settings, preferences));
    FileSettings again(files, folder);
    SessionPreferences read;
    ASSERT_TRUE(ReadSessionPreferences(again, read));
    EXPECT_EQ(read.staffString, "SSB");
    EXPECT_EQ(read.words[0], -7);
    EXPECT_EQ(read.voiceColours[1], 0x123456u);
    EXPECT_EQ(read.soundNames[0][0], "a name that is long");
    EXPECT_EQ(read.fonts, preferences.fonts);

    again.Write("Settings/TarnPref", "VoiceCol", Bytes(31));  // one of another size: all start again
    ASSERT_TRUE(ReadSessionPreferences(again, read));
    EXPECT_EQ(read.staffString, "D");
}

TEST_F(Files, OnlyAStoreThatCannotBeWrittenIsReported) {
    chmod(folder.c_str(), 0555);
    FileSettings settings(files, folder);
    SessionPreferences preferences;
    EXPECT_EQ(ReadSessionPreferences(settings, preferences).fault(), Fault::ReadOnly);
    EXPECT_EQ(preferences.staffString, "D") << "the preferences are good all the same";
    chmod(folder.c_str(), 0700);
    EXPECT_TRUE(settings.Commit()) << "what could not be written is still to be";
    EXPECT_EQ(FileSettings(files, folder).ReadText("Settings/TarnPref", "StaffL")[0], 'D');
}

TEST_F(Files, TheConfigurationFolderFollowsTheEnvironment) {
    setenv("HOME", "/home/somebody", 1);
    setenv("XDG_CONFIG_HOME", "relative", 1);
    unsetenv("CORVANE_CONFIG_DIR");
    EXPECT_EQ(ConfigFolder(), "/home/somebody/.config/corvane");
    setenv("XDG_CONFIG_HOME", "/xdg", 1);
    EXPECT_EQ(ConfigFolder(), "/xdg/corvane");
    setenv("CORVANE_CONFIG_DIR", "/own", 1);
    EXPECT_EQ(ConfigFolder(), "/own");
}

}  // namespace
}  // namespace corvane
