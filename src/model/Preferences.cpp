#include "model/Preferences.h"

#include <cstring>

namespace corvane {

ClassPreferences* FindPreferences(const Document* document, const char* className) {
    CORVANE_ASSERT(className);
    for (ClassPreferences* record : documentPreferences.Of(document)) {
        const char* name = record->_className;
        if (name && std::strcmp(name, className) == 0) return record;
    }
    return nullptr;
}

}  // namespace corvane
