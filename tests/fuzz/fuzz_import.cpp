// Any bytes at all: refused in words, or a score that is sound, saves, and can be exported and imported again.
#include <cstdlib>

#include "interchange/ExportMidi.h"
#include "interchange/ImportMidi.h"
#include "layout/ScoreBuilder.h"
#include "model/ClassTable.h"
#include "model/ScoreCheck.h"
#include "platform/freetype/FreeTypeMeasures.h"
#include "store/MemoryManager.h"

namespace corvane {
namespace {

void Require(bool good) {
    if (!good) std::abort();
}

// The first byte tells the options.
ImportOptions OptionsOf(uint8_t byte) {
    ImportOptions options;
    options.level = byte & 7;
    options.tuplets = byte & 8;
    options.tupletKind = 1 + (byte >> 4) % 5;
    options.splitVoice = byte & 128 ? 2 : 0;
    return options;
}

void Try(MidiBytes bytes, const ImportOptions& options, bool again) {
    NewMemoryPool* pool = MemoryManager::Instance().NewPool();
    Document* score = BuildNewScore({1, 1}, "");
    ImportProgress silent;
    const Status status = ImportMidi(score, bytes, options, silent);
    if (!status) {
        Require(!status.message().empty());
    } else {
        std::vector<uint8_t> saved;
        Require(CheckPool(*pool).empty() && EncodeScore(*pool, saved).ok());
        if (again) Try(ExportMidi(score), options, false);
    }
    MemoryManager::Instance().DeletePool(pool);
}

}  // namespace
}  // namespace corvane

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    using namespace corvane;
    if (size == 0) return 0;
    RegisterClasses();
    InstallFreeTypeMeasures();
    Try({data + 1, size - 1}, OptionsOf(data[0]), true);
    return 0;
}
