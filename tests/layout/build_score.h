// A new score in a pool of its own, and events to put into it.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "layout/PageLayout.h"
#include "layout/ScoreBuilder.h"
#include "model/ClassTable.h"
#include "model/NoteOperations.h"
#include "model/ScoreCheck.h"
#include "model/SymbolTable.h"
#include "platform/freetype/FreeTypeMeasures.h"

namespace corvane::build {

class ScoreTest : public testing::Test {
protected:
    ScoreTest() {
        RegisterClasses();
        InstallFreeTypeMeasures();
    }
    ~ScoreTest() override { Drop(); }

    Document* New(std::string_view staffs, int measures = 5, int systems = 3) {
        Drop();
        _pool = MemoryManager::Instance().NewPool();
        return document = BuildNewScore({measures, systems}, staffs);
    }
    Page* FirstPage() const { return documentPages.First(document); }
    System* SystemAt(int place) const {
        System* system = pageSystems.First(FirstPage());
        while (place-- > 0) system = pageSystems.Next(system);
        return system;
    }
    Measure* MeasureAt(System* system, int place) const {
        Measure* measure = systemMeasures.First(system);
        while (place-- > 0) measure = systemMeasures.Next(measure);
        return measure;
    }
    Voice* VoiceAt(int measure) const {
        return measureStaffVoices.First(measureStaffs.First(MeasureAt(SystemAt(0), measure)));
    }
    // What the score's proof finds, one line each; empty for a sound score.
    std::string Faults() const {
        std::string text;
        for (const Finding& finding : CheckScore(*_pool)) text += TextOf(finding) + "\n";
        return text;
    }

    Document* document = nullptr;
    NewMemoryPool* _pool = nullptr;

private:
    void Drop() {
        if (_pool) MemoryManager::Instance().DeletePool(_pool);
        _pool = nullptr;
    }
};

}  // namespace corvane::build
