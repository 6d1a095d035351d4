// A score's own preferences: one record of each class, found by class name.
#pragma once

#include "model/FontRecords.h"

namespace corvane {

struct ClassPreferences : BehaviourWord, BotT<ClassPreferences, 4, 3> {
    static constexpr bool IsHeir(int16_t n) {
        constexpr int16_t heirs[] = {13, 37, 40, 43, 66, 67, 68, 69, 70, 71, 72, 73, 74, 94, 95, 100, 102, 103, 104};
        for (const int16_t heir : heirs)
            if (heir == n) return true;
        return false;
    }
    TextBlock _className;
    Stored<int32_t> _long20;  // kept 0
};

}  // namespace corvane
