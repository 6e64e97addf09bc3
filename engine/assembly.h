// Catalog constructions, known only by U-factor, time lag and decrement
// factor, turned into layered constructions by their assembly class.
//
// Method. The energy standards' assembly tables (ASHRAE 90.1-2019 Normative
// Appendix A: roofs with insulation entirely above deck, metal building
// roofs, attic and other roofs; mass, metal building, steel-framed and
// wood-framed walls; below-grade walls; mass, steel-joist and wood-framed
// floors; slabs on grade; opaque doors) each describe a typical build-up. An
// entry's class is taken from its description (the words of the standards'
// class names, as the envelope files name their entries) or, for an entry
// that names none, is the class of its kind (roof, wall, floor, door by the
// catalog ID) whose build-up reaches the entry's time lag and decrement
// best. The class's layers are kept in their order, so that the room side
// (a gypsum finish, or the concrete of a mass wall with its insulation
// outside) is what the class has; the insulation layer is sized to the
// entry's U-factor (films 0.13 and 0.04 m2K/W), and the thickness of the
// class's core layer (the concrete of mass classes, the sheathing or deck of
// framed ones) is searched within the class's range so that the periodic
// response (ISO 13786) has the entry's time lag. Layer properties: ASHRAE
// Handbook of Fundamentals (2017) ch. 26 Table 1, as the DOE reference
// buildings use them (Deru et al. 2011).
//
// An entry whose time lag or decrement cannot be reached within its class
// (more than 1.5 h of lag or 0.15 of decrement away at the nearest core
// thickness) is far from its class: it is built as the class of its kind
// that comes nearest, and the result says so, for Monitor.txt.
#pragma once

#include <string>

#include "engine/construction.h"

namespace solvane::engine {

enum class AssemblyClass {
    RoofAboveDeck,
    RoofMetalBuilding,
    RoofAttic,
    WallMass,
    WallMassInteriorInsulation,
    WallMetalBuilding,
    WallSteelFramed,
    WallWoodFramed,
    WallBelowGrade,
    FloorMass,
    FloorSteelJoist,
    FloorWoodFramed,
    SlabOnGrade,
    Door,
};

// The class's name as reports print it.
const char* AssemblyClassName(AssemblyClass c);

// The class named by a catalog description ("Wall, mass (above grade)",
// "Roof, attic and other", ...); false when the description names none.
bool AssemblyClassOfDescription(const std::string& description, AssemblyClass& out);

struct CatalogAssembly {
    Construction construction;
    AssemblyClass assemblyClass = AssemblyClass::WallWoodFramed;
    bool classNamed = false;    // the description named the class
    bool farFromClass = false;  // the named class could not reach the lag and decrement
    AssemblyClass namedClass = AssemblyClass::WallWoodFramed;  // when classNamed
    double timeLag = 0, decrement = 1;                         // what the layers give (ISO 13786)
};

// The layered construction of a catalog entry. `catalogId` gives the kind
// when the description names no class: 1 to 3 roofs, 4 to 8 walls, 9
// floors, 10 slabs, 11 doors, others walls. `uFactor` in W/m2K air to air.
CatalogAssembly AssemblyFromCatalog(int catalogId, const std::string& description, double uFactor,
                                    double timeLagHours, double decrement);

}  // namespace solvane::engine
