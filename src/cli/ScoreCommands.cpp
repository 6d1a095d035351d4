// new, convert, check, info: what works on score files.
#include <cstdio>

#include "cli/Program.h"
#include "model/Par.h"
#include "model/ScoreCheck.h"
#include "play/NoteDump.h"
#include "session/NewScoreRules.h"
#include "shell/ScoreExport.h"
#include "store/NewMemoryPool.h"

namespace corvane {
namespace {

struct ScoreFacts {
    int pages = 0, systems = 0, measures = 0, staves = 0;
    long notes = 0, objects = 0;
    size_t bytes = 0;
};

ScoreFacts FactsOf(WindowTarn& window) {
    ScoreFacts facts;
    const Document* document = window.GetDocument();
    facts.staves = documentDocStaffs.Count(document);
    for (const Page* page : documentPages.Of(document)) {
        ++facts.pages;
        for (const System* system : pageSystems.Of(page)) {
            ++facts.systems;
            facts.measures += systemMeasures.Count(system);
        }
    }
    const NewMemoryPool& pool = *window.Pool();
    for (void* object = pool.FirstObject(); object; object = pool.NextObject(object)) {
        ++facts.objects;
        const int16_t number = ClassNumberOf(object);
        facts.notes += number == Note::kClass || number == Grace::kClass;
    }
    facts.bytes = pool.Total() - pool.Free();
    return facts;
}

bool SavesAs(const std::string& path) { return SavedExtension(path) == ExtensionOf(path); }

}  // namespace

int RunNew(const NewOptions& options) {
    HeadlessProgram program;
    const PageLayout layout{options.measures, options.systems};
    if (const Status status = CheckNewScore(layout, options.staves); !status) return Outcome(status);
    if (!SavesAs(options.out)) return Refuse("\"" + options.out + "\": a score ends in .cvm");
    WindowTarn* window = program.TheSession().NewScore(layout, options.staves);
    return Outcome(program.TheSession().Save(*window, options.out), options.out);
}

int RunConvert(const ConvertOptions& options) {
    if (!options.outDir.empty() || !options.to.empty()) return RunBatch(options);
    if (options.files.size() != 2) return Misuse("convert wants a file to read and a file to write");
    const std::string &in = options.files[0], &out = options.files[1];
    const bool isMidi = IsMidiExtension(ExtensionOf(in));
    if (!isMidi && !IsScoreExtension(ExtensionOf(in)))
        return Refuse("\"" + in + "\": only " + Listed(ReadExtensions()) + " can be read");
    HeadlessProgram program;
    WindowTarn* window = isMidi ? program.ImportOrTell(in, options.import) : program.OpenOrTell(in);
    if (!window) return kRefused;
    if (SavesAs(out)) return Outcome(program.TheSession().Save(*window, out), out);
    return Outcome(ExportScore(*window, {out, options.page, options.zoom}));
}

int RunInfo(const std::string& file, bool json) {
    HeadlessProgram program;
    WindowTarn* window = program.OpenOrTell(file);
    if (!window) return kRefused;
    const ScoreFacts facts = FactsOf(*window);
    const char* format =
        json ? "{\"pages\": %d, \"systems\": %d, \"measures\": %d, \"staves\": %d, \"notes\": %ld, "
               "\"objects\": %ld, \"bytes\": %zu}\n"
             : "pages     %d\nsystems   %d\nmeasures  %d\nstaves    %d\nnotes     %ld\n"
               "objects   %ld\nbytes     %zu\n";
    std::printf(format, facts.pages, facts.systems, facts.measures, facts.staves, facts.notes, facts.objects,
                facts.bytes);
    return kDone;
}

int RunCheck(const std::string& file) {
    HeadlessProgram program;
    PosixFiles files;
    std::vector<uint8_t> bytes;
    if (const Status status = files.Read(file, bytes); !status) return Outcome(status, file);
    NewMemoryPool* pool = MemoryManager::Instance().NewPool();
    LoadReport report;
    const Status status = ReadScore(*pool, bytes, &report);
    for (const std::string& line : report.healed) std::printf("%s: mended: %s\n", file.c_str(), line.c_str());
    for (const Finding& fault : report.faults) std::printf("%s: %s\n", file.c_str(), TextOf(fault).c_str());
    if (!status) return Refuse(file + ": " + status.message());
    if (report.healed.empty()) std::printf("%s: sound\n", file.c_str());
    return report.healed.empty() ? kDone : kRefused;
}

}  // namespace corvane
