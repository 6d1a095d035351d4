#include "play/ThruPlace.h"

#include "model/Relations.h"

namespace corvane {

ThruPlace ThruPlaceOf(const Document* document) {
    for (const DocStaff* staff : documentDocStaffs.Of(document))
        for (int voice = 0; voice < staff->_voiceCount && voice < DocStaff::kVoices; ++voice) {
            const VoiceRecord& record = staff->_voices[voice];
            if (!record._recordActive) continue;
            if (!staff->_active) return {};
            return {record._port, record._channel};
        }
    return {};
}

}  // namespace corvane
