// What a press of the pointer began, from its moves to its release. Points are absolute page units of the
// window's current page. Holds no record between two events: keys and commands may come in between.
#pragma once

#include "base/Geometry.h"

namespace corvane {

class GraphicPort;
struct DrawContext;

class Interaction {
public:
    virtual ~Interaction() = default;
    virtual void Move(Point to) = 0;
    virtual void Release(Point at) = 0;
    // The rubber band that the view shows meanwhile; empty for none.
    virtual Rect Band() const { return {}; }
    // What it shows over the page meanwhile: things where they would come to stand.
    virtual void Draw(GraphicPort&, const DrawContext&) const {}
};

}  // namespace corvane
