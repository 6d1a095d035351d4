// Notes with spanners on them, chosen by the rubber band or by the pencil.
#pragma once

#include <cctype>
#include <sstream>

#include "edit/Spanners.h"
#include "layout/NoteGeometry.h"
#include "sign_fixture.h"
#include "store/ObjectIndexBitmap.h"

namespace corvane {

class SpannerTest : public SignTest {
protected:
    // Events one behind the other: "4:5" a quarter on line 5, "r8" a rest; voice 1.
    void Fill(int measure, int staff, const std::string& words) {
        std::istringstream in(words);
        for (std::string word; in >> word;) {
            const bool rest = word[0] == 'r';
            int value = 0, line = 5, item = 3;
            char colon = 0;
            std::istringstream(rest ? word.substr(1) : word) >> value >> colon >> line;
            for (int v = 1; v < value; v *= 2) item += 2;
            Enter(rest ? item + 1 : item, measure, staff, 990, line);
        }
    }
    template <class R = Chords>
    R* Event(int measure, int staff, int place) {
        return As<R>(Events(measure, staff)[static_cast<size_t>(place)]);
    }
    GenericNote* Head(int measure, int staff, int place) {
        return chordNotes.First(Event(measure, staff, place));
    }
    // From measure to measure of one staff, places in per mille.
    void Lasso(int from, int fromPlace, int to, int toPlace, int staff = 1) {
        SetToolMode(ModeArrow);
        const Point a = At(from, staff, fromPlace, 20), b = At(to, staff, toPlace, -10);
        MouseDown(*window, a.x, a.y, 0);
        MouseUp(*window, b.x, b.y);
    }
    // A press with an item in hand, moved to another point before it is let go.
    void Stroke(int group, int item, Point from, Point to) {
        SetToolMode(ModePencil);
        SetPaletteGroup(static_cast<uint8_t>(group));
        SetItem(static_cast<uint16_t>(item));
        MouseDown(*window, from.x, from.y, 0);
        MouseMove(*window, to.x, to.y);
        MouseUp(*window, to.x, to.y);
    }
    Point MiddleOf(const Rect& rect) { return {(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2}; }
    void EraseAt(Point p) {
        SetToolMode(ModeEraser);
        MouseDown(*window, p.x, p.y, 0);
    }
    // Objects of a class in the whole score.
    int Count(int16_t number) {
        int count = 0;
        const ObjectIndexBitmap index(*window->Pool());
        index.ForEach(
            [&](ObjectIndexBitmap::Object object) { count += ClassNumberOf(object.start) == number; });
        return count;
    }
    template <class R>
    R* First(int measure, int staff) {
        for (StaffMeasureSymbol* symbol : staffSymbols.Of(Crossing(measure, staff)))
            if (R* found = As<R>(symbol)) return found;
        return nullptr;
    }
};

}  // namespace corvane
