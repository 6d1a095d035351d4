// Keeps what is played in sight: moves the play cursor over the score's view, scrolls and turns pages.
#pragma once

#include "play/PlayCursor.h"

namespace corvane {

class ScoreView;
class WindowTarn;

class PlayFollower {
public:
    explicit PlayFollower(PlayCursor& cursor) : _cursor(cursor) {}

    // From a measure on. The view may go before the follower's end; then nothing is shown.
    void Begin(WindowTarn& window, ScoreView& view, const Measure* start, PlayCursor::Step step);
    void End();
    // Idle tick.
    void Update();

private:
    void ReadAhead(const System* system);
    bool TurnBehind(const Measure* measure);
    void ScrollToCursor(const CursorMark& mark);

    PlayCursor& _cursor;
    WindowTarn* _window = nullptr;  // null for none
    ScoreView* _view = nullptr;
    const Measure* _turnedIn = nullptr;  // the page behind this measure is shown already
};

}  // namespace corvane
