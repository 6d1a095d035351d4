// Tells how far an import has come.
#pragma once

#include "base/Status.h"

namespace corvane {

class ImportProgress {
public:
    virtual ~ImportProgress() = default;
    // `stage` is what the person reads; `part` of `parts` are done. False to give up.
    virtual bool At(const char* /*stage*/, int /*part*/, int /*parts*/) { return true; }
};

inline Status ImportCancelled() { return {Fault::Refused, "The import was cancelled"}; }

}  // namespace corvane
