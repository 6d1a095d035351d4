// Saves on disks of every kind of badness, and the versions that are kept of what they replace.
#include <sys/stat.h>

#include <cstdio>

#include "backup_FaultyFiles.h"
#include "base/Notify.h"
#include "recovery_fixture.h"

namespace corvane {
namespace {

std::vector<uint8_t> Bytes(const std::string& text) { return {text.begin(), text.end()}; }

class BackupTest : public RecoveryTest {
protected:
    std::string Read(const std::string& path) {
        std::vector<uint8_t> bytes;
        EXPECT_TRUE(files.Read(path, bytes)) << path;
        return {bytes.begin(), bytes.end()};
    }
    void Put(const std::string& name, const std::string& text) {
        ASSERT_TRUE(ReplaceFile(files, Path(name), Bytes(text)));
    }
    std::vector<std::string> Versions(Backups& backups, const std::string& name) {
        std::vector<std::string> texts;
        for (const Backup& backup : backups.Of(Path(name))) texts.push_back(Read(backup.path));
        std::sort(texts.begin(), texts.end());
        return texts;
    }
};

TEST_F(BackupTest, TheLastFiveVersionsOfEachFileAreKept) {
    ASSERT_TRUE(files.MakeFolder(Path("a")));
    ASSERT_TRUE(files.MakeFolder(Path("b")));
    const char* names[] = {"a/Sonata.cvm", "b/Sonata.cvm", "a/ohne Endung"};
    for (int round = 1; round <= 8; ++round) {
        Backups backups(files, Path("state/backups"));
        for (const char* name : names) {
            EXPECT_TRUE(backups.Keep(Path(name)));
            Put(name, std::string(name) + std::to_string(round));
            backups.Wrote(Path(name), Bytes(std::string(name) + std::to_string(round)));
            // Further saves of the session replace what it wrote itself.
            EXPECT_TRUE(backups.Keep(Path(name)));
        }
    }
    Backups backups(files, Path("state/backups"));
    EXPECT_EQ(backups.All().size(), 15u);
    for (const std::string name : names) {
        SCOPED_TRACE(name);
        EXPECT_EQ(Versions(backups, name),
                  (std::vector<std::string>{name + "3", name + "4", name + "5", name + "6", name + "7"}));
        const Backup backup = backups.Of(Path(name)).front();
        EXPECT_EQ(backup.original, Path(name));
        EXPECT_EQ(backup.title, name.substr(2));
        EXPECT_NE(backup.path.find(name.substr(2, 5)), std::string::npos) << "the name tells the file";
        EXPECT_NE(backup.path.find(backup.when.substr(0, 10)), std::string::npos) << "and the day";
        EXPECT_TRUE(backups.Holds(backup.path));
        EXPECT_FALSE(backups.Holds(Path(name)));
    }
}

TEST_F(BackupTest, WhatSomebodyElseWroteMeanwhileIsKeptAndTheSameIsNotKeptTwice) {
    Backups backups(files, Path("state/backups"));
    Put("x.cvm", "first");
    EXPECT_TRUE(backups.Keep(Path("x.cvm")));
    EXPECT_TRUE(backups.Keep(Path("x.cvm")));
    EXPECT_EQ(Versions(backups, "x.cvm"), std::vector<std::string>{"first"});
    Put("x.cvm", "ours");
    backups.Wrote(Path("x.cvm"), Bytes("ours"));
    Put("x.cvm", "theirs");
    std::filesystem::create_symlink(Path("x.cvm"), Path("link.cvm"));
    EXPECT_TRUE(backups.Keep(Path("link.cvm")));
    EXPECT_EQ(Versions(backups, "x.cvm"), (std::vector<std::string>{"first", "theirs"}));
    EXPECT_EQ(Versions(backups, "link.cvm").size(), 2u) << "a link is the file that it leads to";
    EXPECT_TRUE(backups.Keep(Path("new.cvm"))) << "nothing stands there";
    EXPECT_EQ(backups.All().size(), 2u);
    ASSERT_EQ(mkfifo(Path("pipe").c_str(), 0600), 0);
    EXPECT_FALSE(backups.Keep(Path("pipe"))) << "what cannot be read cannot be kept";
}

TEST_F(BackupTest, APersonIsToldWhenASaveReplacesWhatAnotherProgramWrote) {
    static std::string told;
    SetNotifySink([](Severity, std::string_view text) { told = text; });
    session = Start();
    WindowTarn* window = session->NewScore();
    const auto save = [&] {
        told.clear();
        EXPECT_TRUE(session->Save(*window, Path("s.cvm")));
        return told;
    };
    EXPECT_EQ(save(), "");
    EXPECT_EQ(save(), "");
    Status status;
    session->Close(window);
    ASSERT_TRUE(window = session->Open(Path("s.cvm"), status));
    EXPECT_EQ(save(), "") << "it is as it was opened";
    Put("s.cvm", "theirs");
    EXPECT_EQ(save(),
              "Another program had changed s.cvm in the meantime. What it had written is kept as a backup.");
    EXPECT_EQ(Read(session->FindBackups().at(0).path), "theirs");
    EXPECT_EQ(save(), "");
    SetNotifySink(nullptr);
}

TEST_F(BackupTest, ABackupOpensAsAScoreOfItsOwn) {
    session = Start();
    WindowTarn* window = session->NewScore();
    Edit(*window);
    const std::string text = TextOf(*window);
    ASSERT_TRUE(session->Save(*window, Path("s.cvm")));
    session = Start();
    Status status;
    window = session->Open(Path("s.cvm"), status);
    ASSERT_TRUE(window);
    Edit(*window, 60);
    ASSERT_TRUE(session->Save(*window, Path("s.cvm")));
    Edit(*window, 60);
    ASSERT_TRUE(session->Save(*window, Path("s.cvm")));
    ASSERT_EQ(session->FindBackups().size(), 1u);
    const Backup backup = session->FindBackups(Path("s.cvm")).at(0);
    const std::string bytes = Read(backup.path);
    WindowTarn* former = session->OpenBackup(backup, status);
    ASSERT_TRUE(former) << status.message();
    EXPECT_EQ(TextOf(*former), text);
    EXPECT_TRUE(former->NeverSaved());
    EXPECT_FALSE(former->Modified());
    EXPECT_EQ(former->Title(), "s.cvm (" + backup.when + ")");
    Edit(*former);
    EXPECT_EQ(session->Save(*former, backup.path).fault(), Fault::ReadOnly);
    WindowTarn* asFile = session->Open(backup.path, status);
    ASSERT_TRUE(asFile);
    EXPECT_TRUE(asFile->ReadOnly());
    EXPECT_EQ(Read(backup.path), bytes);
}

TEST_F(BackupTest, ASaveGoesOnWithoutItsBackupAndThePersonIsTold) {
    static std::string told;
    told.clear();
    SetNotifySink([](Severity severity, std::string_view text) {
        if (severity == Severity::Message) told += text;
    });
    Put("state", "a file where the folder should be");
    Put("s.cvm", "an older version");
    SessionParts parts;
    parts.files = &files;
    parts.stateFolder = Path("state");
    session = std::make_unique<Session>(parts);
    WindowTarn* window = session->NewScore();
    Edit(*window);
    EXPECT_TRUE(session->Save(*window, Path("s.cvm")));
    EXPECT_FALSE(window->Modified());
    SetNotifySink(nullptr);
    EXPECT_NE(told.find("s.cvm could not be kept as a backup"), std::string::npos) << told;
    Status status;
    EXPECT_TRUE(session->Open(Path("s.cvm"), status));
}

// A score in a session whose disk fails, to be saved over a version that another session wrote, with a backup
// due.
class FailingSaveTest : public BackupTest {
protected:
    using How = FaultyFiles::How;

    void SetUp() override {
        BackupTest::SetUp();
        SetNotifySink([](Severity, std::string_view) {});
        SessionParts parts;
        parts.files = &disk;
        parts.stateFolder = "/state";
        session = std::make_unique<Session>(parts);
        window = session->NewScore();
        Edit(*window);
        ASSERT_TRUE(EncodeScore(*window->Pool(), former));
        Edit(*window);
        ASSERT_TRUE(EncodeScore(*window->Pool(), present));
        ASSERT_NE(former, present);
    }
    void TearDown() override {
        SetNotifySink(nullptr);
        BackupTest::TearDown();
    }
    void ExpectWhole(const FaultyFiles::Disk& left) {
        ASSERT_TRUE(left.contains(kPath));
        EXPECT_TRUE(left.at(kPath) == former || left.at(kPath) == present);
        for (const auto& [name, bytes] : left) {
            const bool isBackup = name.starts_with("/state/backups/s ") && name.ends_with(".cvm");
            EXPECT_TRUE(!isBackup || bytes == former);
        }
    }
    // A save whose disk fails after `calls` calls. False where it needs no more than these.
    bool Save(int calls, How how, bool always) {
        disk.Contents() = {{kPath, former}};
        disk.Settle();
        window->Pool()->SetModified(true);
        const int before = disk.Calls();
        disk.FailAfter(calls, how, always);
        try {
            const Status status = session->Save(*window, kPath);
            ++(status ? saved : failed);
            EXPECT_EQ(window->Modified(), !status);
            EXPECT_TRUE(!status || disk.AfterKill().at(kPath) == present);
        } catch (const FaultyFiles::Killed&) {
            ++killed;
            EXPECT_TRUE(window->Modified());
        }
        disk.FailNever();
        ExpectWhole(disk.AfterKill());
        for (int cut = 0; cut < 4; ++cut) ExpectWhole(disk.AfterCut(random));
        return disk.Calls() - before > calls;
    }

    static constexpr const char* kPath = "/s.cvm";
    FaultyFiles disk;
    WindowTarn* window = nullptr;
    std::vector<uint8_t> former, present;
    std::mt19937 random{1};
    int saved = 0, failed = 0, killed = 0;
};

TEST_F(FailingSaveTest, AtEachCallInEachWayLeavesTheOldOrTheNewFileAndTheScore) {
    const std::string text = TextOf(*window);
    for (const How how : {How::NoSpace, How::Error, How::ShortWrite, How::Killed})
        for (const bool always : {false, true})
            for (int calls = 0; !HasFailure(); ++calls) {
                SCOPED_TRACE("way " + std::to_string(static_cast<int>(how)) + " call " +
                             std::to_string(calls));
                if (!Save(calls, how, always)) break;
            }
    std::printf("%d saves: %d went well all the same, %d failed and told so, %d were killed\n",
                saved + failed + killed, saved, failed, killed);
    EXPECT_GT(saved, 20);
    EXPECT_GT(failed, 20);
    EXPECT_GT(killed, 20);
    EXPECT_EQ(TextOf(*window), text) << "the program still holds the score";
    EXPECT_TRUE(session->Save(*window, kPath));
}

}  // namespace
}  // namespace corvane
