#include <set>

#include "edit/MeasureRange.h"
#include "edit/NoteChanges.h"
#include "edit/SystemRedraw.h"
#include "layout/Beaming.h"
#include "layout/Engraving.h"
#include "model/NoteOperations.h"

namespace corvane {

Status PointStems(WindowTarn& window, const std::vector<Chords*>& chords, bool up) {
    const EditStep step(window);
    const MeasureRange range = SpanOf(chords);
    const SystemRedraw redraw(window, range.first, range.last);
    std::set<const Beam*> done;
    for (Chords* chord : chords) {
        Beam* beam = BeamOf(StemOf(chord));
        if (!beam)
            PointChord(chord, up);
        else if (done.insert(beam).second)
            PointBeam(beam, up);
    }
    return Status::Ok();
}

}  // namespace corvane
