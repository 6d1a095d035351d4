// The last system of a score. With at most half as many measures as the system above it keeps that one's
// measure width and ends early, its staves too: torn to the margin, one or two measures would look like
// another tempo.
#pragma once

#include "model/Relations.h"

namespace corvane {

// Fits the last system of a score that is laid out.
void FitLastSystem(const Document* document);

// Made before measures, systems or pages come, go or are dealt out, settled after it. A last system that
// none of it concerns keeps the width that it has, whoever gave it that; one that no longer ends the score,
// or got fuller, fills its line again.
class LastSystem {
public:
    explicit LastSystem(const Document* document);
    // Linear in the systems behind the former last one, and in all where that is gone.
    void Settle() const;

private:
    // What the rule asks for.
    struct End {
        System* last = nullptr;  // with measures; null where no system has any
        const System* above = nullptr;
        int count = 0, aboveCount = 0;
        int32_t aboveWidth = 0;

        explicit End(const Document* document);
        bool operator==(const End&) const = default;
        bool IsSparse() const { return above && 2 * count <= aboveCount; }
        void Fit() const;
    };
    friend void FitLastSystem(const Document* document);

    void FillFormer() const;

    const Document* _document;
    const End _before;
    const bool _wasShort;
};

}  // namespace corvane
