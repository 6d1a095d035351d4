#include "store/Verifier.h"

#include "store/ClassInfo.h"
#include "store/NewMemoryPool.h"
#include "store/VerifierBlocks.h"
#include "store/VerifierGraph.h"

namespace corvane {

std::string TextOf(const Finding& finding) {
    if (!finding.object) return finding.text;
    std::string text = "object " + std::to_string(finding.object);
    if (finding.classNumber < 0)
        text += " (raw block)";
    else if (finding.classNumber > 0)
        text += std::string(" (") + InfoOf(finding.classNumber)->name + ")";
    if (finding.offset >= 0) text += " at " + std::to_string(finding.offset);
    return text + ": " + finding.text;
}

std::vector<Finding> CheckPool(const NewMemoryPool& pool, std::span<const void* const> kept, size_t limit) {
    std::vector<Finding> findings;
    CheckBlocks(pool, findings);
    if (!findings.empty()) return findings;
    const ObjectIndexBitmap index(pool);
    VerifierGraph graph(pool, index, findings, limit);
    graph.CheckObjects();
    if (!findings.empty()) return findings;
    graph.CheckRings();
    if (!findings.empty()) return findings;
    for (const void* object : graph.Unreached(kept)) {
        if (findings.size() == limit) break;
        findings.push_back(
            {index.NumberOf(index.Find(object)), ClassNumberOf(object), -1, "nothing leads to the object"});
    }
    return findings;
}

}  // namespace corvane
