// The events of a measure as a row of gaps that give way by duration, each down to the ink of its event, and
// that keep what they are asked to. Units of the list, before they are per mille.
#pragma once

#include <vector>

#include "layout/ListaEventi.h"

namespace corvane {

class ElasticRow {
public:
    // `list` holds the row as the table makes it.
    ElasticRow(const ListaEventi& list, const SpacingTable& table);

    // Whether the needs can be kept at all.
    bool Fits(const std::vector<EventNeed>& needs) const;
    // Places that fill the usable width. Needs that cannot all be kept are all cut by one ratio.
    std::vector<int32_t> Stretched(const std::vector<EventNeed>& needs) const;

private:
    struct Gap {
        double natural, least, duration;  // duration in whole notes
        double At(double force) const;
    };
    // Places, and the end of the row behind them, each gap longer by so much for a whole note.
    std::vector<double> At(double force, const std::vector<EventNeed>& needs) const;

    std::vector<Gap> _gaps;  // behind each event
    double _start, _usable;
};

}  // namespace corvane
