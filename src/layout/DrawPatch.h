// How the sheet sees everything that can appear on a page: a handle on a record or a transient object, with
// the behaviour of its class behind it. Handles are values; equal handles name the same object.
#pragma once

#include <vector>

#include "base/Geometry.h"
#include "layout/VoiceColours.h"
#include "model/Relations.h"

namespace corvane {

class GraphicPort;
class WRegion;

// Whether hidden objects of one kind are seen: in grey on screen, in black on paper.
struct HiddenRule {
    bool show = true;
    bool hideInPrint = true;
};

// What a paint wants to know beyond the object.
struct DrawContext {
    bool printing = false;
    HiddenRule hiddenNotes, hiddenStems, hiddenRests;
    VoiceColouring colouring;
    int editVoice = 0;  // 0 for all

    // Printing knows no colours of voices.
    uint32_t ColourOf(int voice) const { return printing ? 0 : ColourOfVoice(colouring, voice, editVoice); }
};

// Drawing of one class; stateless. Rectangles are absolute page units. Drawing leaves the port's colour and
// pen as they were, and never writes a record.
class PatchBehaviour {
public:
    virtual ~PatchBehaviour() = default;
    virtual void Draw(GraphicPort& port, void* object, const DrawContext& context) const = 0;
    virtual Rect Bounds(const void* object) const = 0;
    // Strictly inside the rectangle, unless a class knows better.
    virtual bool Hit(const void* object, Point p) const { return Bounds(object).EnclosesStrictly(p); }
    // The line that presses of what is long and thin are measured from; empty for everything else.
    virtual std::vector<Point> Outline(const void*) const { return {}; }
    // The region is one of this port.
    virtual bool HitRegion(const GraphicPort& port, const void* object, const WRegion& region) const;
    // Drawn after the rest of its tile: accidentals and handles.
    virtual bool IsLate() const { return false; }
    // The voice whose colour it takes; 0 for none.
    virtual int VoiceOf(const void*) const { return 0; }
    // The class number of a record; 0 for a transient object.
    virtual int16_t ClassNumber() const = 0;
};

class DrawPatch {
public:
    DrawPatch() = default;
    DrawPatch(void* object, const PatchBehaviour* behaviour) : _object(object), _behaviour(behaviour) {}

    explicit operator bool() const { return _object != nullptr; }
    void* Object() const { return _object; }
    int16_t ClassNumber() const { return _behaviour->ClassNumber(); }
    const PatchBehaviour& Behaviour() const { return *_behaviour; }
    Rect Bounds() const { return _behaviour->Bounds(_object); }
    void Draw(GraphicPort& port, const DrawContext& context) const {
        _behaviour->Draw(port, _object, context);
    }
    // The record as a concrete class, or as an abstract one that stands first in all its heirs; null for
    // another class.
    template <class R>
    R* Record() const {
        return _object && IsClass<R>(ClassNumber()) ? static_cast<R*>(_object) : nullptr;
    }
    friend bool operator==(const DrawPatch& a, const DrawPatch& b) { return a._object == b._object; }

private:
    void* _object = nullptr;  // the start of the record
    const PatchBehaviour* _behaviour = nullptr;
};

// The patch of a record; an empty one for a class that is not drawn. `record` is the record's start.
DrawPatch PatchOf(void* record);

}  // namespace corvane
