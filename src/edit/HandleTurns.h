// Handles that go along one axis between their neighbours in a system. A class of places is made of a system
// and knows Move(handle, distance), which gives where the handle comes to stand, Put(move), and Apply().
#pragma once

#include <algorithm>
#include <vector>

#include "edit/ControlPoints.h"
#include "model/Relations.h"

namespace corvane {

using SystemOfHandle = System* (*)(const Handle&);

inline std::vector<System*> SystemsOf(const std::vector<Handle>& handles, SystemOfHandle systemOf) {
    std::vector<System*> systems;
    for (const Handle& handle : handles)
        if (std::find(systems.begin(), systems.end(), systemOf(handle)) == systems.end())
            systems.push_back(systemOf(handle));
    return systems;
}

// Those in front go first, so that several keep their distances.
template <class Places>
std::vector<HandleMove> MovedInTurn(std::vector<Handle> handles, SystemOfHandle systemOf, Point by,
                                    int32_t Point::*axis) {
    std::stable_sort(handles.begin(), handles.end(), [&](const Handle& a, const Handle& b) {
        return by.*axis > 0 ? a.place.*axis > b.place.*axis : a.place.*axis < b.place.*axis;
    });
    std::vector<HandleMove> moves;
    for (System* system : SystemsOf(handles, systemOf)) {
        Places places(system);
        for (const Handle& handle : handles)
            if (systemOf(handle) == system) moves.push_back({handle, places.Move(handle, by.*axis)});
    }
    return moves;
}

template <class Places>
void ApplyBySystems(const std::vector<HandleMove>& moves, SystemOfHandle systemOf) {
    std::vector<Handle> handles;
    for (const HandleMove& move : moves) handles.push_back(move.handle);
    for (System* system : SystemsOf(handles, systemOf)) {
        Places places(system);
        for (const HandleMove& move : moves)
            if (systemOf(move.handle) == system) places.Put(move);
        places.Apply();
    }
}

}  // namespace corvane
