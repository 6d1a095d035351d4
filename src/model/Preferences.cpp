#include "model/Preferences.h"

#include <algorithm>
#include <cstring>

namespace corvane {
namespace {

constexpr int32_t kLeastHeight = 5950, kLeastWidth = 4060;

// The program's page size is that of the score that was made, loaded or undone last.
class PageSizeReader : public Administrator {
public:
    void Refresh(void* record) override {
        const auto* setup = static_cast<const PagePref*>(record);
        Document::pageHeight = std::max(kLeastHeight, setup->_pageHeight.Get());
        Document::pageWidth = std::max(kLeastWidth, setup->_pageWidth.Get());
    }
};

}  // namespace

Administrator* PageCreator() {
    static PageSizeReader creator;
    return &creator;
}

void RefreshPreferences(const Document* document) {
    for (ClassPreferences* record : documentPreferences.Of(document))
        InfoOfObject(record)->creator->Refresh(record);
}

ClassPreferences* FindPreferences(const Document* document, const char* className) {
    CORVANE_ASSERT(className);
    for (ClassPreferences* record : documentPreferences.Of(document)) {
        const char* name = record->_className;
        if (name && std::strcmp(name, className) == 0) return record;
    }
    return nullptr;
}

}  // namespace corvane
