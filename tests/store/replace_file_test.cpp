// Replacing a file over a layer of files that fails at every step, once or for good.
#include <gtest/gtest.h>

#include <map>

#include "store/FileLayer.h"

namespace corvane::test {
namespace {

using Bytes = std::vector<uint8_t>;

// Files in memory. The step numbered `failAt` fails, and with `forGood` all behind it; a write that fails
// leaves the first half of its bytes.
class FailingFiles : public FileLayer {
public:
    std::map<std::string, Bytes> files;
    std::map<std::string, std::string> links;
    int failAt = 0, steps = 0;
    bool forGood = false, forgets = false;
    std::vector<std::string> calls;

    Status Read(const std::string& path, Bytes& bytes) override {
        if (Fails("read")) return Broken();
        if (!files.contains(path)) return {Fault::NotFound, kFileNotFound};
        bytes = files[path];
        return Status::Ok();
    }
    Status Resolve(const std::string& path, std::string& target) override {
        if (Fails("resolve")) return Broken();
        target = links.contains(path) ? links[path] : path;
        return Status::Ok();
    }
    Status CheckWritable(const std::string&) override { return Fails("check") ? Broken() : Status::Ok(); }
    Status CreateBeside(const std::string& target, std::string& temporary) override {
        if (Fails("create")) return Broken();
        files[temporary = target + "~"] = {};
        return Status::Ok();
    }
    Status Write(const std::string& path, std::span<const uint8_t> bytes) override {
        const bool fails = Fails("write");
        const size_t kept = fails || forgets ? bytes.size() / 2 : bytes.size();
        files[path].assign(bytes.begin(), bytes.begin() + static_cast<ptrdiff_t>(kept));
        return fails ? Broken() : Status::Ok();
    }
    Status Flush(const std::string&) override { return Fails("flush") ? Broken() : Status::Ok(); }
    Status Rename(const std::string& from, const std::string& to) override {
        if (Fails("rename")) return Broken();
        files[to] = files[from];
        files.erase(from);
        return Status::Ok();
    }
    Status FlushFolder(const std::string&) override { return Fails("folder") ? Broken() : Status::Ok(); }
    Status Remove(const std::string& path) override {
        if (Fails("remove")) return Broken();
        files.erase(path);
        return Status::Ok();
    }
    Status List(const std::string&, std::vector<std::string>&) override { return Status::Ok(); }
    Status MakeFolder(const std::string&) override { return Status::Ok(); }

private:
    bool Fails(const char* what) {
        calls.emplace_back(what);
        ++steps;
        return failAt && (steps == failAt || (forGood && steps > failAt));
    }
    static Status Broken() { return {Fault::NoSpace, kNoSpaceToSave}; }
};

const Bytes kOld = {1, 2, 3}, kNew = {4, 5, 6, 7};

TEST(ReplaceFile, FlushesAndComparesBeforeItReplacesAndFlushesTheFolderAfter) {
    FailingFiles files;
    files.files["score"] = kOld;
    ASSERT_TRUE(ReplaceFile(files, "score", kNew));
    EXPECT_EQ(files.files, (std::map<std::string, Bytes>{{"score", kNew}}));
    EXPECT_EQ(files.calls, (std::vector<std::string>{"resolve", "check", "create", "write", "flush", "read",
                                                     "rename", "folder"}));
}

TEST(ReplaceFile, AFailureAtAnyStepLeavesTheOldFileOrTheNewOneWhole) {
    for (const bool forGood : {false, true})
        for (int failAt = 1; failAt <= 8; ++failAt) {
            SCOPED_TRACE(std::to_string(failAt) + (forGood ? " and ever after" : ""));
            FailingFiles files;
            files.files["score"] = kOld;
            files.failAt = failAt;
            files.forGood = forGood;
            const Status status = ReplaceFile(files, "score", kNew);
            EXPECT_EQ(status.fault(), Fault::NoSpace);
            EXPECT_EQ(status.message(), kNoSpaceToSave);
            EXPECT_EQ(files.files["score"], failAt < 8 ? kOld : kNew);
            // Only what cannot be removed is left behind.
            EXPECT_EQ(files.files.size(), forGood && failAt > 3 && failAt < 8 ? 2u : 1u);
        }
}

TEST(ReplaceFile, ADiskThatDoesNotKeepWhatItWasGivenIsFoundOut) {
    FailingFiles files;
    files.files["score"] = kOld;
    files.forgets = true;
    EXPECT_FALSE(ReplaceFile(files, "score", kNew));
    EXPECT_EQ(files.files, (std::map<std::string, Bytes>{{"score", kOld}}));
}

TEST(ReplaceFile, TheTargetOfALinkIsReplaced) {
    FailingFiles files;
    files.links["link"] = "score";
    ASSERT_TRUE(ReplaceFile(files, "link", kNew));
    EXPECT_EQ(files.files, (std::map<std::string, Bytes>{{"score", kNew}}));
}

}  // namespace
}  // namespace corvane::test
