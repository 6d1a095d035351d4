// Programs that edit and save, killed at random: the file is a whole one that was saved, and of the unsaved
// work at most the last second is lost. CORVANE_KILLS in the environment asks for another number of kills.
#include <sys/mman.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <thread>

#include "recovery_fixture.h"

namespace corvane {
namespace {

constexpr int kMostSteps = 4000, kAtOnce = 8;
constexpr int64_t kMostLost = 1000;  // milliseconds

int64_t Milliseconds() {
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::milliseconds>(now).count();
}

uint64_t SumOf(const std::string& text) { return std::hash<std::string>()(text); }

// What a program tells of itself; outlives it.
struct Diary {
    struct Step {
        uint64_t score;  // after the step
        int64_t when;
    };
    std::atomic<int> steps, saves;
    Step step[kMostSteps];
    uint64_t saved[kMostSteps];  // a save is noted before it begins
};

Diary* NewDiary() {
    void* shared = mmap(nullptr, sizeof(Diary), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    return shared == MAP_FAILED ? nullptr : new (shared) Diary();
}

class RecoveryKill : public RecoveryTest {
protected:
    struct Program {
        pid_t id = 0;
        std::string name;
        Diary* diary = nullptr;
        int64_t killed = 0;
    };

    std::unique_ptr<Session> StartIn(const std::string& name) {
        _journals = std::make_unique<PosixJournals>(Path(name + "/journals"));
        SessionParts parts;
        parts.files = &files;
        parts.journals = _journals.get();
        parts.stateFolder = Path(name);
        return std::make_unique<Session>(parts);
    }

    // Edits, saves now and then, and keeps its work safe as an idle program does, until it is killed.
    [[noreturn]] void Live(const Program& program, unsigned seed) {
        RandomEditor person(seed);
        const std::unique_ptr<Session> own = StartIn(program.name);
        WindowTarn* window = own->NewScore();
        Diary& diary = *program.diary;
        while (diary.steps < kMostSteps) {
            person.Step(*window);
            const uint64_t sum = SumOf(TextOf(*window));
            diary.step[diary.steps] = {sum, Milliseconds()};
            ++diary.steps;
            if (person.Pick(0, 9) == 0) {
                diary.saved[diary.saves] = sum;
                ++diary.saves;
                (void)own->Save(*window, Path(program.name + ".cvm"));
            }
            for (int64_t until = Milliseconds() + person.Pick(0, 30); Milliseconds() < until;) {
                own->KeepSafe();
                std::this_thread::sleep_for(std::chrono::milliseconds(3));
            }
        }
        _exit(1);
    }

    void Begin(Program& program, unsigned seed) {
        program.name = "program" + std::to_string(seed);
        program.diary = NewDiary();
        ASSERT_TRUE(program.diary);
        program.id = fork();
        ASSERT_GE(program.id, 0);
        if (program.id == 0) Live(program, seed);
    }
    void Kill(Program& program) {
        kill(program.id, SIGKILL);
        int status = 0;
        ASSERT_EQ(waitpid(program.id, &status, 0), program.id);
        program.killed = Milliseconds();
        EXPECT_TRUE(WIFSIGNALED(status)) << "the program must live until it is killed";
    }

    // The file is one of those whose saving had begun.
    void CheckFile(Session& own, const Program& program) {
        const Diary& diary = *program.diary;
        const std::string path = Path(program.name + ".cvm");
        if (!std::filesystem::exists(path)) {
            EXPECT_LE(diary.saves, 1);
            return;
        }
        Status status;
        WindowTarn* window = own.Open(path, status);
        ASSERT_TRUE(window) << status.message();
        const uint64_t sum = SumOf(TextOf(*window));
        const int saves = diary.saves;
        EXPECT_TRUE(sum == diary.saved[saves - 1] || (saves > 1 && sum == diary.saved[saves - 2]));
        _inFile = sum;
        own.Close(window);
    }

    // Milliseconds of work that did not come back.
    int64_t Lost(const Program& program, uint64_t broughtBack) {
        const Diary& diary = *program.diary;
        for (int i = diary.steps; i-- > 0;)
            if (diary.step[i].score == broughtBack)
                return i + 1 == diary.steps ? 0 : program.killed - diary.step[i + 1].when;
        ADD_FAILURE() << "what came back was never the score";
        return -1;
    }

    int64_t Judge(const Program& program) {
        const std::unique_ptr<Session> own = StartIn(program.name);
        _inFile = 0;
        CheckFile(*own, program);
        const std::vector<RecoveredScore> found = own->FindRecovered();
        // Nothing is offered where the file is all there was.
        if (found.empty()) return Lost(program, _inFile);
        EXPECT_EQ(found.size(), 1u);
        Status status;
        WindowTarn* window = own->OpenRecovered(found[0], status);
        EXPECT_TRUE(window) << status.message();
        if (!window) return -1;
        ExpectSound(*window);
        const int64_t lost = Lost(program, SumOf(TextOf(*window)));
        own->Close(window);
        return lost;
    }

private:
    std::unique_ptr<PosixJournals> _journals;
    uint64_t _inFile = 0;
};

TEST_F(RecoveryKill, AtMostTheLastSecondIsLostAndTheFileIsWhole) {
    const char* asked = std::getenv("CORVANE_KILLS");
    const int kills = asked ? std::atoi(asked) : 24;
    std::vector<int64_t> lost;
    int steps = 0, saves = 0;
    for (int first = 0; first < kills; first += kAtOnce) {
        std::vector<Program> programs(static_cast<size_t>(std::min(kAtOnce, kills - first)));
        for (size_t i = 0; i < programs.size(); ++i)
            Begin(programs[i], static_cast<unsigned>(first) + static_cast<unsigned>(i));
        // All live longer than what may be lost.
        std::this_thread::sleep_for(std::chrono::milliseconds(1200));
        for (Program& program : programs) {
            std::this_thread::sleep_for(std::chrono::microseconds(editor.Pick(0, 150000)));
            Kill(program);
        }
        for (const Program& program : programs) {
            SCOPED_TRACE(program.name);
            lost.push_back(Judge(program));
            EXPECT_LE(lost.back(), kMostLost);
            steps += program.diary->steps;
            saves += program.diary->saves;
            munmap(program.diary, sizeof(Diary));
        }
        if (HasFailure()) break;
    }
    std::sort(lost.begin(), lost.end());
    std::printf("%zu kills, %d steps, %d saves; lost: median %lld ms, most %lld ms\n", lost.size(), steps,
                saves, static_cast<long long>(lost[lost.size() / 2]), static_cast<long long>(lost.back()));
    EXPECT_GT(steps, 5 * kills) << "too little was done to mean anything";
}

}  // namespace
}  // namespace corvane
