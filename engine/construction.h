// Opaque constructions: layers, their periodic response and the node network
// the heat balance steps in time.
#pragma once

#include <string>
#include <vector>

namespace solvane::engine {

// One layer; a layer with no conductivity is a pure resistance (air gap,
// massless insulation) given by `resistance`.
struct Layer {
    double thickness = 0;     // m
    double conductivity = 0;  // W/mK
    double density = 0;       // kg/m3
    double specificHeat = 0;  // J/kgK
    double resistance = 0;    // m2K/W, used when conductivity is 0

    double Resistance() const { return conductivity > 0 ? thickness / conductivity : resistance; }
    double Capacity() const { return thickness * density * specificHeat; }  // J/m2K
};

// Layers listed from the outside to the inside.
struct Construction {
    std::string name;
    std::vector<Layer> layers;
    double outsideAbsorptance = 0.6;
    double insideAbsorptance = 0.6;
    double outsideEmissivity = 0.9;
    double insideEmissivity = 0.9;

    double Resistance() const;  // surface to surface, m2K/W
};

// Response to a 24-hour periodic temperature swing by the matrix method of
// ISO 13786 (2017), between the two air sides with the given film
// resistances.
struct PeriodicResponse {
    double uFactor = 0;           // W/m2K, air to air
    double decrement = 1;         // |Y12| / U
    double timeLag = 0;           // hours
    double insideAdmittance = 0;  // |Y11| (inside side), W/m2K
};
PeriodicResponse PeriodicResponseOf(const Construction& c, double insideFilmR = 0.13,
                                    double outsideFilmR = 0.04, double periodHours = 24);

// An equivalent two-layer construction (a homogeneous massive layer inside an
// insulating layer) that has the given air-to-air U-factor, decrement factor
// and time lag under ISO 13786: the total capacity and the share of the
// resistance in the massive layer are searched so that the periodic response
// matches. Used for catalog constructions known only by these three figures.
// Its properties are what the tests hold it to; the search stops at the
// nearest attainable pair when the figures are not physical.
Construction FitConstruction(double uFactor, double timeLagHours, double decrement,
                             double insideFilmR = 0.13, double outsideFilmR = 0.04);

// The finite-difference network of a construction: node 0 is the outside
// face, the last node the inside face; conductances between neighbours and
// lumped capacities per m2. Massive layers are split so that each slice is
// thin compared with the penetration depth of one time step (Fourier number
// criterion), as in the control-volume method of Patankar (1980).
struct NodeChain {
    std::vector<double> capacity;     // J/m2K per node
    std::vector<double> conductance;  // W/m2K between node j and j+1
};
NodeChain Discretise(const Construction& c, double timeStepSeconds, int maxSlicesPerLayer = 6);

}  // namespace solvane::engine
