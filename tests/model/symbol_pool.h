// A document in a pool of its own, with the real fonts for measures.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "model/ClassTable.h"
#include "model/Relations.h"
#include "model/SymbolTable.h"
#include "platform/freetype/FreeTypeMeasures.h"

namespace corvane {

class DocumentTest : public testing::Test {
protected:
    DocumentTest() {
        RegisterClasses();
        InstallFreeTypeMeasures();
        pool = MemoryManager::Instance().NewPool();
        document = Make<Document>();
    }
    ~DocumentTest() override { MemoryManager::Instance().DeletePool(pool); }

    static std::vector<SimpleFont*> PartsOf(const FontSymbol* symbol) {
        std::vector<SimpleFont*> parts;
        if (const auto* composite = As<CompositeSymbol>(symbol))
            for (FontSymbol* part : compositeParts.Of(composite)) parts.push_back(As<SimpleFont>(part));
        else if (const auto* simple = As<SimpleFont>(symbol))
            parts.push_back(const_cast<SimpleFont*>(simple));
        return parts;
    }
    // "code@size dx dy" of each part, then "/style" and "B" for the second font where they differ from the
    // usual.
    static std::string Glyphs(const FontSymbol* symbol) {
        std::string text;
        for (const SimpleFont* part : PartsOf(symbol)) {
            if (!text.empty()) text += "; ";
            text += std::to_string(part->_code) + "@" + std::to_string(part->_fontSize) + " " +
                    std::to_string(part->_dx) + " " + std::to_string(part->_dy);
            if (part->_style) text += "/" + std::to_string(part->_style);
            if (TextOf(part->_fontName) == "Bellarine") text += "B";
        }
        return text;
    }
    std::string GlyphsOfName(std::string_view name) { return Glyphs(LookupSymbol(document, name)); }

    NewMemoryPool* pool;
    Document* document;
};

}  // namespace corvane
