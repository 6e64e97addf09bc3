// The state of one zone while the year runs, and its step (zone_step.cpp).
// Internal to the engine: simulation.cpp builds it and drives it.
//
// Layout. What a face needs every step lives in two compact blocks per
// zone: `FaceStep` (the face's coefficients and face temperatures, one small
// record per face, in a contiguous array) and the mode arrays of
// `ZoneState` (the interiors of all the zone's node chains one after the
// other, in modal form, chain_modes.h). A step then streams through a few
// hundred bytes per face instead of chasing one heap block per quantity, so
// that a zone stays in cache, and has no recurrence along a chain. What is read once an hour
// (orientation, shading, convection factors) stays in `HeatSurface`.
#pragma once

#include <array>
#include <limits>
#include <vector>

#include "engine/building.h"
#include "engine/simulation.h"

namespace solvane::engine::detail {

// Natural convection factors of |dT|^(1/3) for a face warmer and for a face
// cooler than the air (see NaturalFactorsFor).
struct NaturalFactors {
    double warmer = 1.31, cooler = 1.31;
};

// One heat-exchanging face of a zone as described: the opaque part of a
// surface, or one window of it. Read when the films are refreshed (hourly)
// and by the hourly solar work.
struct HeatSurface {
    int sourceSurface = 0;
    int construction = 0;
    Component component = kCompWalls;
    bool isWindow = false;
    bool internalMass = false;
    Boundary boundary = Boundary::Outdoors;
    double area = 0;
    double cosTilt = 0;    // of the outward normal
    int orientation = -1;  // index of its (azimuth, tilt) pair, -1 when sunless
    double outsideAbsorptance = 0, outsideEmissivity = 0.9;
    double groundReflectance = 0.2;
    double groundTemperature = std::numeric_limits<double>::quiet_NaN();
    double groundConductance = 0;
    double windowConductance = 0;  // window: outdoor air to inside face, W/m2K
    double azimuth = 0;
    double cosAzimuth = 1, sinAzimuth = 0;
    NaturalFactors outsideNatural, insideNatural;  // the inside face looks the other way
    double windFactor = 1;  // wind at the surface over the wind of the weather
    double windFactorWindward = 1, windFactorLeeward = 1;  // its powers 0.89 and 0.617
    double skyShare = 0;  // share of the outside long-wave exchange with the sky
    NodeChain chain;
    double mrtConductance = 0;                                 // W/m2K to the star node
    double beamShare = 0, diffuseShare = 0, radiantShare = 0;  // of zone totals absorbed here
    // Window only.
    int windowType = -1;
    int windowKind = -1;  // index of its kind for the hourly window solar, -1 when sunless
    const Window* window = nullptr;
};

// The coefficients of one face that a step reads. The face's chain is its
// outside face (temperature t0), its inside face (ts) and, between them,
// m = n - 2 interior nodes held as modes (chain_modes.h) at begin..begin+m-1
// of the zone's modes. A one-node chain (a window, a thin massless
// layer) keeps t0 equal to ts.
struct FaceStep {
    int begin = 0, n = 1, m = 0;
    int component = kCompWalls;
    double area = 0, invArea = 0;
    double t0 = 20, ts = 20;                    // face temperatures, C
    double cap0 = 0, capL = 0, k0 = 0, kl = 0;  // faces' capacity over the step, end conductances
    double G1 = 0, B1 = 0, GL = 0, BL = 0;      // see ChainModes
    double hr = 0;                              // long-wave conductance to the star node, W/m2K
    // Held through the hour: inside convection, outside film and its parts
    // on the outdoor air and sky temperatures, the fixed part of the
    // outside source (ground term, or absorbed solar and the sky's term,
    // W/m2), the chain's reduction (outside face T_0 = P + q T_s), the
    // inside face's factor w and the face's weights in the zone's star and
    // air equations.
    NaturalFactors insideNatural;  // of the inside convection
    double hc = 2.0, ho = 0, hoAir = 0, hoSky = 0, hoFix = 0;
    double pInv = 0, q = 0, diag = 0, w = 0, starWeight = 0, airWeight = 0;
    double src = 0;  // inside source of the hour (solar and radiant gains), W
    double srcPerArea = 0;
    // Node 1 and node n-2 before the step, less their parts from the new
    // faces: sum alpha_i z_i and sum beta_i z_i (see ChainModes).
    double A1 = 0, AL = 0;
    // The next step's outside face and right-hand side split into what the
    // state gives and what the outdoor temperature adds, T_0 = P + q T_s with
    // P = Ps + pT Tout, and E = Es + eT Tout: Ps and Es are set when a step
    // ends (or the films change), pT and eT hold through the hour.
    double Ps = 0, Es = 0, pT = 0, eT = 0;
    // Held through the hour for the step's flows: the face's gain to the room
    // is gainFactor T_s less the component's sums (ZoneState), its flow in
    // from outside outAir Tout + outFix - outT0 T_0.
    double gainFactor = 0, outAir = 0, outFix = 0, outT0 = 0;
};

// One mode of a chain's interior: its amplitude, decay, drive by the two
// faces, weights of node 1 and node n-2, and stored heat (see ChainModes).
// Held together, so that a face's few modes are one short stretch of memory.
struct ModeStep {
    double z = 0, lambda = 0, lp = 0, ls = 0, alpha = 0, beta = 0, gamma = 0;
};

// What the hourly outside film of a face under the weather reads (faces
// open to the outdoor air that are not windows), kept apart from the
// described face so that the refresh streams through a short record.
struct OutsideFilm {
    int face = 0;           // index in `faces`
    bool sunlit = false;    // else outdoor air without sun and wind
    bool roofLike = false;  // roofs and floors count as windward
    NaturalFactors natural;
    double windwardFactor = 1, leewardFactor = 1;  // wind factor ^0.89 and ^0.617
    double cosAzimuth = 1, sinAzimuth = 0;
    double skyRadiation = 0, airRadiation = 0;  // emissivity sigma times sky share and rest
};

// A face on the ground: its fixed temperature, or NaN for the month's.
struct GroundFace {
    int face = 0;
    double temperature = 0;
};

struct ZoneState {
    std::vector<HeatSurface> surfaces;  // as described, parallel to `faces`
    std::vector<FaceStep> faces;
    std::vector<OutsideFilm> outsideFilms;
    std::vector<GroundFace> groundFaces;
    // Modes of all chains, face after face (see ChainModes).
    std::vector<ModeStep> modes;
    double airCapacity = 0;  // J/K
    double tAir = 20, tAirOld = 20, tStar = 20;
    double m1 = 0, m2 = 0, a1 = 0, a2 = 0;  // zone sums held through the hour
    // The star and air equations' sums of the faces' E (see FaceStep): the
    // state's part for the next step, and the outdoor temperature's factor.
    double m0State = 0, a0State = 0, m0Out = 0, a0Out = 0;
    // By component, through the hour: sum of area hc, of area hr and of the
    // inside sources (a component's gain is sum gainFactor T_s - Ta sum A hc
    // - Tm sum A hr - sum src).
    std::array<double, kComponentCount> componentHc{}, componentHr{}, componentSrc{};
    double srcIn = 0, srcOut = 0;  // the faces' inside sources of the hour, W in and out
};

// What one zone sees in one step.
struct StepInputs {
    double tOut = 0, tSky = 0, tGround = 10;
    double windPowerWindward = 0, windPowerLeeward = 0;  // weather wind ^0.89, ^0.617
    double windCos = 1, windSin = 0;                     // of the direction the wind comes from
    double gInfiltration = 0, gOutdoorAir = 0;           // W/K
    double gNaturalVentMax = 0, tVent = 1e30;  // natural ventilation: W/K at most, and down to C
    double convective = 0;                     // internal gains to the air, W
    double tHeat = -1e30, tCool = 1e30;
    double heatCapacity = 1e30, coolCapacity = 1e30;
};

struct StepResult {
    double q = 0;  // ideal system, W, heating positive
    double tAir = 0;
    std::array<double, kComponentCount> gains{};  // W into the zone
    double in = 0, out = 0;                       // W across the zone's boundary
};

NaturalFactors NaturalFactorsFor(double cosUp);

// Packs the described faces into the step arrays (face nodes, modes of the
// interior at a uniform 20 C) with the step `dt` in seconds.
void PackFaces(ZoneState& z, double dt);

// Evaluates the film coefficients (outside convection and long-wave, inside
// convection) from the last temperatures and keeps every coefficient that
// follows from them, with the hour's outside solar (W/m2 absorbed per face)
// and inside sources (W per face).
void RefreshFilms(ZoneState& z, const StepInputs& in, const double* outsideSolar,
                  const double* src);

// One step of a zone with the coefficients of the last refresh.
StepResult StepZone(ZoneState& z, const StepInputs& in, double dt);

// The heat the zone holds (air and every node), in W over one step of `dt`
// (J / dt) from 0 C: the stored heat of a stretch of steps is the change of
// it, divided by the number of steps for the stretch's mean in W.
double StoredHeat(const ZoneState& z, double dt);

}  // namespace solvane::engine::detail
