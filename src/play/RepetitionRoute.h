// Where D.C., D.S., Coda and Fine lead, for a play that follows them.
//
// A D.C. or D.S. is obeyed once, behind the repeat of its own measure. From then on repeats are not taken and
// first endings are left out; "al fine" and a plain D.C. or D.S. end with a measure marked Fine, "al coda"
// leaves a measure marked Al Coda for the next Coda, from where all is played as it stands. What has no goal
// says nothing.
#pragma once

#include <vector>

#include "model/Relations.h"

namespace corvane {

class RepetitionRoute {
public:
    // Follows nothing.
    RepetitionRoute() = default;
    // Reads the score's texts once. Main thread.
    explicit RepetitionRoute(const Document* document);

    enum class Way { On, Jump, End };
    struct Turn {
        Way way = Way::On;
        const Measure* to = nullptr;  // of a jump
    };
    // What the texts say behind a measure. Allocates nothing.
    Turn Behind(const Measure* measure);
    // On the way that a D.C. or D.S. has sent the play, where repeats are not taken.
    bool IsReturning() const { return _returning; }

private:
    struct Text {
        const Measure* measure;
        unsigned kinds;  // of all texts of the measure
        bool taken = false;
    };
    Text* At(const Measure* measure);
    const Measure* GoalOf(const Text& text) const;
    const Measure* CodaBehind(const Measure* measure) const;

    const Measure* _first = nullptr;
    std::vector<Text> _texts;  // in score order
    bool _returning = false, _toCoda = false;
};

}  // namespace corvane
