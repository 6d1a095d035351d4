// What each drawn class adds of its own: its ink, how it is painted, whose voice it is. One file for each
// family; DrawPatch.cpp lists them in one table.
#pragma once

#include <functional>
#include <vector>

#include "graphics/GraphicPort.h"
#include "layout/DrawPatch.h"

namespace corvane {

// Staff lines and what spans staves: DrawStaff.cpp, DrawMeasure.cpp, DrawConnection.cpp.
Rect InkOf(const Staff& staff);
void Paint(GraphicPort& port, const Staff& staff, const DrawContext& context);
Rect InkOf(const Measure& measure);
void Paint(GraphicPort& port, const Measure& measure, const DrawContext& context);
Rect InkOf(const Connection& connection);
void Paint(GraphicPort& port, const Connection& connection, const DrawContext& context);

// Signs of the header and clefs within: DrawHeader.cpp.
Rect InkOf(const StaticClaf& clef);
void Paint(GraphicPort& port, const StaticClaf& clef, const DrawContext& context);
Rect InkOf(const MovingClaf& clef);
void Paint(GraphicPort& port, const MovingClaf& clef, const DrawContext& context);
Rect InkOf(const ClafSignature& key);
void Paint(GraphicPort& port, const ClafSignature& key, const DrawContext& context);
Rect InkOf(const TimeSignature& time);
void Paint(GraphicPort& port, const TimeSignature& time, const DrawContext& context);

// Notes: DrawChord.cpp, DrawRest.cpp, DrawSigns.cpp, DrawBeam.cpp.
Rect InkOf(const ChordSymbol& chordSymbol);
void Paint(GraphicPort& port, const ChordSymbol& chordSymbol, const DrawContext& context);
// The same with the ends of its stems moved by so much, downward.
using EndMove = std::function<int32_t(const Stem* stem)>;
void Paint(GraphicPort& port, const ChordSymbol& chordSymbol, const DrawContext& context,
           const EndMove& endMovedBy);
Rect InkOf(const Pause& pause);
void Paint(GraphicPort& port, const Pause& pause, const DrawContext& context);
Rect InkOf(const Accident& accident);
void Paint(GraphicPort& port, const Accident& accident, const DrawContext& context);
Rect InkOf(const Dot& dot);
void Paint(GraphicPort& port, const Dot& dot, const DrawContext& context);
Rect InkOf(const BeamMarker& marker);
void Paint(GraphicPort& port, const BeamMarker& marker, const DrawContext& context);
std::vector<Point> OutlineOf(const BeamMarker& marker);  // along its strokes

// Spanners, each by its marks: DrawTie.cpp, DrawTuplet.cpp, DrawSlur.cpp, DrawHairpin.cpp, DrawLines.cpp. An
// outline is what a press is measured from.
Rect InkOf(const MarkValue& mark);
void Paint(GraphicPort& port, const MarkValue& mark, const DrawContext& context);
std::vector<Point> OutlineOf(const MarkValue& mark);
Rect InkOf(const MarkIrreg& mark);
void Paint(GraphicPort& port, const MarkIrreg& mark, const DrawContext& context);
std::vector<Point> OutlineOf(const MarkIrreg& mark);
Rect InkOf(const MarkSlur& mark);
void Paint(GraphicPort& port, const MarkSlur& mark, const DrawContext& context);
std::vector<Point> OutlineOf(const MarkSlur& mark);
Rect InkOf(const MarkHairpin& mark);
void Paint(GraphicPort& port, const MarkHairpin& mark, const DrawContext& context);
std::vector<Point> OutlineOf(const MarkHairpin& mark);
Rect InkOf(const MarkOttava& mark);
void Paint(GraphicPort& port, const MarkOttava& mark, const DrawContext& context);
std::vector<Point> OutlineOf(const MarkOttava& mark);
Rect InkOf(const MarkTrillo& mark);
void Paint(GraphicPort& port, const MarkTrillo& mark, const DrawContext& context);
std::vector<Point> OutlineOf(const MarkTrillo& mark);
Rect InkOf(const MarkPedale& mark);
void Paint(GraphicPort& port, const MarkPedale& mark, const DrawContext& context);
std::vector<Point> OutlineOf(const MarkPedale& mark);

// What a mark's line would look like on a system if it ran elsewhere.
struct SpannerPart;
struct LineRun;
void Paint(GraphicPort& port, const MarkHairpin& mark, const SpannerPart& part, const LineRun& run);
void Paint(GraphicPort& port, const MarkOttava& mark, const SpannerPart& part, const LineRun& run);
void Paint(GraphicPort& port, const MarkTrillo& mark, const SpannerPart& part, const LineRun& run);
void Paint(GraphicPort& port, const MarkPedale& mark, const SpannerPart& part, const LineRun& run);

// DrawNoteSigns.cpp.
Rect InkOf(const SymbolAttribute& sign);
void Paint(GraphicPort& port, const SymbolAttribute& sign, const DrawContext& context);
Rect InkOf(const Tremolo& tremolo);
void Paint(GraphicPort& port, const Tremolo& tremolo, const DrawContext& context);

// What stands above a measure: DrawTempo.cpp, DrawEndings.cpp, DrawMeasureSigns.cpp; the last has symbols
// placed at a staff and rests over several measures too.
Rect InkOf(const Time& mark);
void Paint(GraphicPort& port, const Time& mark, const DrawContext& context);
Rect InkOf(const MarkEndings& mark);
void Paint(GraphicPort& port, const MarkEndings& mark, const DrawContext& context);
std::vector<Point> OutlineOf(const MarkEndings& mark);
bool Touches(const MarkEndings& mark, Point p);  // near the line, or on the text
Rect InkOf(const Coda& coda);
void Paint(GraphicPort& port, const Coda& coda, const DrawContext& context);
Rect InkOf(const SimboliVari& sign);
void Paint(GraphicPort& port, const SimboliVari& sign, const DrawContext& context);
Rect InkOf(const Arpeggio& arpeggio);  // DrawArpeggio.cpp
void Paint(GraphicPort& port, const Arpeggio& arpeggio, const DrawContext& context);
std::vector<Point> OutlineOf(const Arpeggio& arpeggio);
Rect InkOf(const Dinamiche& mark);
void Paint(GraphicPort& port, const Dinamiche& mark, const DrawContext& context);
Rect InkOf(const MultiPause& pause);
void Paint(GraphicPort& port, const MultiPause& pause, const DrawContext& context);

// Text: DrawText.cpp.
Rect InkOf(const PageText& text);
void Paint(GraphicPort& port, const PageText& text, const DrawContext& context);
Rect InkOf(const MeasureStaffText& text);
void Paint(GraphicPort& port, const MeasureStaffText& text, const DrawContext& context);
bool Touches(const MeasureStaffText& text, Point p);  // a hit, where it stands at several staves
// DrawTitle.cpp: a score's title is its document's.
Rect InkOf(const Document& document);
void Paint(GraphicPort& port, const Document& document, const DrawContext& context);
// DrawLyrics.cpp.
Rect InkOf(const Liriche& syllable);
void Paint(GraphicPort& port, const Liriche& syllable, const DrawContext& context);
bool Touches(const Liriche& syllable, Point p);

// The voice of a record's own; 0 for what belongs to none.
int VoiceNumberOf(const ChordSymbol& chordSymbol);
int VoiceNumberOf(const Pause& pause);
int VoiceNumberOf(const NoteAttribute& sign);
int VoiceNumberOf(const MarkValue& mark);
int VoiceNumberOf(const Dot& dot);
int VoiceNumberOf(const Tremolo& tremolo);
int VoiceNumberOf(const BeamMarker& marker);
int VoiceNumberOf(const MarkIrreg& mark);

// ---- Helpers of these files

// Puts colour and pen back at its end.
class PenKept {
public:
    explicit PenKept(GraphicPort& port) : _port(port), _colour(port.CurrentColor()), _pen(port.PenSize()) {}
    ~PenKept() {
        _port.SetColor(_colour);
        _port.SetPenSize(_pen.x, _pen.y);
    }
    PenKept(const PenKept&) = delete;

private:
    GraphicPort& _port;
    Colour _colour;
    Point _pen;
};

struct LedgerLines;
void Paint(GraphicPort& port, const LedgerLines& ledgers);
// A press at most 30 page units beside a line is on it.
bool IsNearLine(const std::vector<Point>& line, Point p);

// Whether something hidden is painted now; its colour is set then. The caller keeps the pen.
bool UseHiddenColour(GraphicPort& port, const HiddenRule& rule, bool printing);

// An upright line that fills [x, x + weight), and a level one that is centred on y.
void PaintUpright(GraphicPort& port, int32_t x, int32_t top, int32_t bottom, int32_t weight);
void PaintLevel(GraphicPort& port, int32_t left, int32_t right, int32_t y, int32_t weight);

}  // namespace corvane
