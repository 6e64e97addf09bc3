// Window optics: angular transmittance, absorptance and solar heat gain of a
// glazing of clear panes.
#pragma once

#include <array>

namespace solvane::engine {

// A glazing unit of identical uncoated panes, with the film and gap
// coefficients of its rating.
struct GlazingLayers {
    int panes = 2;
    double refractiveIndex = 1.526;
    double extinction = 19.6;       // 1/m
    double thickness = 0.003175;    // m, each pane
    double outsideFilm = 21.0;      // W/m2K, combined
    double insideFilm = 8.29;       // W/m2K, combined
    double gapConductance = 6.297;  // W/m2K, each gap, combined
    double paneConductance = 333;   // W/m2K
};

// Solar properties of a glazing unit at an angle of incidence.
struct GlazingAtAngle {
    double transmittance = 0;
    double reflectance = 0;
    std::array<double, 3> absorptance{};  // per pane, outermost first
};

// Fresnel reflection at each face and Bouguer absorption in each pane
// (Duffie & Beckman 2013, ch. 5), with the inter-reflections between panes
// solved by the net-radiation method, separately for the two polarisations.
GlazingAtAngle GlazingOptics(const GlazingLayers& g, double incidenceRad);

// Share of the heat absorbed in each pane that flows inwards, from the
// resistances between the pane and the outdoor and indoor air (ASHRAE
// Fundamentals 2017 ch. 15, "inward-flowing fraction").
std::array<double, 3> InwardFractions(const GlazingLayers& g);
double UFactor(const GlazingLayers& g);

// Tabulated properties of a window type used in the hourly loop: beam values
// every 5 degrees, hemispherical (diffuse) values by integration.
struct WindowOptics {
    static constexpr int kSteps = 19;  // 0, 5, ..., 90 degrees
    std::array<double, kSteps> beamTransmittance{};
    std::array<double, kSteps> beamAbsorbedInward{};  // absorbed and flowing in
    double diffuseTransmittance = 0;
    double diffuseAbsorbedInward = 0;
    double diffuseBackAbsorbedInward = 0;  // solar arriving from the room side
    double diffuseReflectance = 0;         // hemispherical, the same from both sides
    double normalShgc = 0;

    double Transmittance(double cosIncidence) const;
    double AbsorbedInward(double cosIncidence) const;
    double Shgc(double cosIncidence) const {
        return Transmittance(cosIncidence) + AbsorbedInward(cosIncidence);
    }
};
WindowOptics MakeWindowOptics(const GlazingLayers& g);

// The clear-glass unit that has the given rated U-factor (W/m2K) and normal
// solar heat gain coefficient: the pane count from the U-factor, the gap
// conductance to make the U-factor, and the pane absorption to make the SHGC
// (found by bisection). Used for catalog windows given only U and SHGC.
GlazingLayers MatchGlazing(double uFactor, double shgc);

}  // namespace solvane::engine
