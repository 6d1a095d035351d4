// convert with a folder to write into: a process for each file, as a score session is one to a process. The
// outputs are the only state, so a run that was cut short goes on where it stopped.
#include <spawn.h>
#include <sys/wait.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <map>
#include <set>
#include <thread>

#include "base/Assert.h"
#include "cli/ImportArguments.h"
#include "cli/Program.h"
#include "shell/ScoreExport.h"

extern char** environ;

namespace corvane {
namespace {

namespace fs = std::filesystem;

struct Job {
    std::string in, out;
};

// Not older than what it was made of. Writing puts a file in its place as a whole, so one that is there is
// done.
bool IsDone(const Job& job) {
    std::error_code noOut, noIn;
    if (!fs::is_regular_file(job.out, noOut)) return false;
    const auto out = fs::last_write_time(job.out, noOut), in = fs::last_write_time(job.in, noIn);
    return !noOut && !noIn && out >= in;
}

class Batch {
public:
    explicit Batch(const ConvertOptions& options)
        : _options(options),
          _most(options.jobs > 0 ? static_cast<size_t>(options.jobs)
                                 : std::max(1u, std::thread::hardware_concurrency())) {}

    int Run() {
        for (const std::string& in : _options.files) Take(in);
        while (!_running.empty()) WaitForOne();
        std::printf("%d converted, %d skipped, %d refused\n", _converted, _skipped, _refused);
        return _refused ? kRefused : kDone;
    }

private:
    void Take(const std::string& in) {
        const fs::path name = fs::path(in).stem().string() + "." + _options.to;
        const Job job{in, (fs::path(_options.outDir) / name).string()};
        if (!_taken.insert(job.out).second)
            return RefuseJob(job, "another file of this run becomes " + job.out);
        if (IsDone(job)) {
            ++_skipped;
            return;
        }
        while (_running.size() >= _most) WaitForOne();
        Start(job);
    }

    void Start(const Job& job) {
        std::vector<std::string> words{"corvane", "convert", "--zoom", std::to_string(_options.zoom)};
        if (_options.page) words.insert(words.end(), {"--page", std::to_string(_options.page)});
        for (std::string& word : ArgumentsOf(_options.import)) words.push_back(std::move(word));
        words.insert(words.end(), {"--", job.in, job.out});
        std::vector<char*> arguments;
        for (std::string& word : words) arguments.push_back(word.data());
        arguments.push_back(nullptr);
        pid_t child = 0;
        if (posix_spawn(&child, "/proc/self/exe", nullptr, nullptr, arguments.data(), environ) != 0)
            return RefuseJob(job, "no process could be started");
        _running[child] = job;
    }

    void WaitForOne() {
        int status = 0;
        pid_t child = 0;
        while ((child = waitpid(-1, &status, 0)) < 0 && errno == EINTR) {
        }
        CORVANE_ASSERT_AS(child > 0, "child");
        const auto job = _running.find(child);
        if (job == _running.end()) return;  // of the process that this one was before
        if (WIFSIGNALED(status))
            RefuseJob(job->second, "ended by signal " + std::to_string(WTERMSIG(status)));
        else
            ++(WEXITSTATUS(status) == kDone ? _converted : _refused);  // it has told why
        _running.erase(job);
    }

    void RefuseJob(const Job& job, const std::string& why) {
        Refuse(job.in + ": " + why);
        ++_refused;
    }

    const ConvertOptions& _options;
    const size_t _most;
    std::map<pid_t, Job> _running;
    std::set<std::string> _taken;  // outputs
    int _converted = 0, _skipped = 0, _refused = 0;
};

}  // namespace

int RunBatch(const ConvertOptions& options) {
    if (options.outDir.empty() || options.to.empty()) return Misuse("--out-dir and --to go together");
    const std::string sample = "a." + options.to;
    if (!ExportKindOf(sample) && SavedExtension(sample) != ExtensionOf(sample))
        return Misuse("\"" + options.to + "\": only " + Listed(WrittenExtensions()) + " can be written");
    // A parent that ignores the ends of its children hands that on, and nobody would learn how ours ended.
    std::signal(SIGCHLD, SIG_DFL);
    std::error_code failed;
    fs::create_directories(options.outDir, failed);
    if (failed) return Refuse(options.outDir + ": " + failed.message());
    return Batch(options).Run();
}

}  // namespace corvane
