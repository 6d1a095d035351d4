// A MIDI file to a score and its pages to PDF. What one note costs must not grow with their number.
#include <benchmark/benchmark.h>
#include <sys/resource.h>

#include <filesystem>
#include <random>

#include "LargeScore.h"
#include "interchange/ImportMidi.h"
#include "layout/ScoreBuilder.h"
#include "layout/Sheet.h"
#include "platform/qt/HeadlessQt.h"
#include "platform/qt/Render.h"

namespace corvane {
namespace {

// Melodies with rests, each in a track of its own.
std::vector<uint8_t> Melody(std::mt19937& random, int notes, int channel) {
    constexpr int kLengths[] = {120, 240, 240, 240, 480, 480, 720, 960};
    MidiTrackWriter track;
    int32_t time = 0;
    for (int key = 64; notes > 0; --notes) {
        const int length = kLengths[random() % std::size(kLengths)];
        if (random() % 8 == 0) time += length;
        key = std::clamp(key + static_cast<int>(random() % 11) - 5, 48, 80);
        track.Message(time, 0x90 | channel, key, 80);
        track.Message(time += length, 0x80 | channel, key, 0);
    }
    return track.Finish();
}

std::vector<uint8_t> File(int tracks, int notes) {
    std::mt19937 random(1);
    std::vector<uint8_t> bytes = MidiHeader(tracks + 1, 480);
    const auto append = [&](const std::vector<uint8_t>& track) {
        bytes.insert(bytes.end(), track.begin(), track.end());
    };
    append(MidiTrackWriter().Finish());
    for (int i = 0; i < tracks; ++i) append(Melody(random, notes / tracks, i % 16));
    return bytes;
}

void Render(const Document* score) {
    std::vector<Page*> pages;
    for (Page* page : documentPages.Of(score)) pages.push_back(page);
    PagesToRender render;
    render.width = Document::pageWidth;
    render.height = Document::pageHeight;
    render.firstPage = 1;
    render.lastPage = static_cast<int>(pages.size());
    render.draw = [&](GraphicPort& port, int number) {
        DrawPage(port, pages[static_cast<size_t>(number - 1)], DrawContext());
    };
    const Status status =
        RenderPdf((std::filesystem::temp_directory_path() / "corvane_bench.pdf").string(), render);
    CORVANE_ASSERT_AS(status, "status");
}

// Tracks and notes; with the third argument the pages too.
void Import(benchmark::State& state) {
    StartUpForBench();
    StartHeadlessQt();
    const std::vector<uint8_t> bytes =
        File(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    for (auto _ : state) {
        NewMemoryPool* pool = MemoryManager::Instance().NewPool();
        Document* score = BuildNewScore({1, 1}, "");
        ImportProgress silent;
        const Status status = ImportMidi(score, bytes, ImportOptions(), silent);
        CORVANE_ASSERT_AS(status, "status");
        if (state.range(2)) Render(score);
        MemoryManager::Instance().DeletePool(pool);
    }
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    state.counters["us a note"] =
        benchmark::Counter(static_cast<double>(state.range(1)) * 1e-6,
                           benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
    state.counters["peak MiB"] = static_cast<double>(usage.ru_maxrss) / 1024;
}
BENCHMARK(Import)
    ->ArgsProduct({{2}, {200}, {0, 1}})
    ->ArgsProduct({{8}, {2000}, {0, 1}})
    ->ArgsProduct({{36}, {20000}, {0, 1}})
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace corvane
