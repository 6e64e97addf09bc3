#include "engine/assembly.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <vector>

namespace solvane::engine {
namespace {

constexpr double kInsideFilm = 0.13, kOutsideFilm = 0.04;

// Materials of the build-ups: conductivity W/mK, density kg/m3, specific
// heat J/kgK (ASHRAE Fundamentals 2017 ch. 26 Table 1; DOE reference
// buildings, Deru et al. 2011).
struct Material {
    double k, rho, cp;
};
constexpr Material kStucco{0.6918, 1858, 837};
constexpr Material kWood{0.11, 544.6, 1210};       // siding, sheathing, plywood deck
constexpr Material kGypsum{0.16, 784.9, 830};      // gypsum board
constexpr Material kConcrete{1.311, 2240, 836.8};  // heavyweight concrete
// Concrete masonry units, the base of the standards' mass walls: the block
// of ANSI/ASHRAE Standard 140-2020 (medium weight, hollow).
constexpr Material kBlock{0.51, 1400, 1000};
constexpr Material kSteel{45.0, 7680, 418.4};
constexpr Material kMembrane{0.16, 1121.3, 1460};  // built-up roofing
constexpr Material kBatt{0.045, 12, 840};          // mineral fibre batt
constexpr Material kBoard{0.03, 43, 1210};         // rigid insulation board

// One layer of a build-up: a fixed thickness, the insulation (sized) or the
// core (searched).
enum class Role { Fixed, Insulation, Core };
struct TemplateLayer {
    Material m;
    double thickness;  // m; for the core its typical value
    Role role = Role::Fixed;
};
struct Template {
    std::vector<TemplateLayer> layers;  // outside first
    double coreMin = 0, coreMax = 0;    // m; equal when the class has no core
};

enum class Kind { Roof, Wall, BelowGradeWall, Floor, Slab, Door };

Kind KindOf(AssemblyClass c) {
    switch (c) {
        case AssemblyClass::RoofAboveDeck:
        case AssemblyClass::RoofMetalBuilding:
        case AssemblyClass::RoofAttic:
            return Kind::Roof;
        case AssemblyClass::WallBelowGrade:
            return Kind::BelowGradeWall;
        case AssemblyClass::FloorMass:
        case AssemblyClass::FloorSteelJoist:
        case AssemblyClass::FloorWoodFramed:
            return Kind::Floor;
        case AssemblyClass::SlabOnGrade:
            return Kind::Slab;
        case AssemblyClass::Door:
            return Kind::Door;
        default:
            return Kind::Wall;
    }
}

Template TemplateOf(AssemblyClass c) {
    using R = Role;
    switch (c) {
        case AssemblyClass::RoofAboveDeck:  // membrane, insulation, deck
            return {{{kMembrane, 0.0095},
                     {kBoard, 0, R::Insulation},
                     {kConcrete, 0.0, R::Core},
                     {kSteel, 0.0008}},
                    0.0,
                    0.3};
        case AssemblyClass::RoofMetalBuilding:
            return {{{kSteel, 0.0008}, {kBatt, 0, R::Insulation}}, 0, 0};
        case AssemblyClass::RoofAttic:  // deck, insulation, ceiling board
            return {{{kWood, 0.016, R::Core}, {kBatt, 0, R::Insulation}, {kGypsum, 0.0127}},
                    0.003,
                    0.06};
        case AssemblyClass::WallMass:  // finish, continuous insulation, concrete
            return {
                {{kStucco, 0.0254}, {kBoard, 0, R::Insulation}, {kBlock, 0.2, R::Core}}, 0.05, 0.4};
        case AssemblyClass::WallMassInteriorInsulation:
            return {{{kStucco, 0.0254},
                     {kBlock, 0.2, R::Core},
                     {kBoard, 0, R::Insulation},
                     {kGypsum, 0.0127}},
                    0.05,
                    0.4};
        case AssemblyClass::WallMetalBuilding:
            return {{{kSteel, 0.0015}, {kBatt, 0, R::Insulation}}, 0, 0};
        case AssemblyClass::WallSteelFramed:  // stucco, sheathing, cavity, board
            return {{{kStucco, 0.0254},
                     {kGypsum, 0.0159, R::Core},
                     {kBatt, 0, R::Insulation},
                     {kGypsum, 0.0159}},
                    0.005,
                    0.06};
        case AssemblyClass::WallWoodFramed:  // siding and sheathing, cavity, board
            return {{{kWood, 0.023, R::Core}, {kBatt, 0, R::Insulation}, {kGypsum, 0.0127}},
                    0.003,
                    0.06};
        case AssemblyClass::WallBelowGrade:
            return {{{kConcrete, 0.2, R::Core}, {kBoard, 0, R::Insulation}, {kGypsum, 0.0127}},
                    0.1,
                    0.4};
        case AssemblyClass::FloorMass:  // insulation below the slab
            return {{{kBoard, 0, R::Insulation}, {kConcrete, 0.1, R::Core}}, 0.05, 0.3};
        case AssemblyClass::FloorSteelJoist:
            return {{{kBatt, 0, R::Insulation}, {kSteel, 0.0008}, {kConcrete, 0.05, R::Core}},
                    0.02,
                    0.15};
        case AssemblyClass::FloorWoodFramed:
            return {{{kBatt, 0, R::Insulation}, {kWood, 0.019, R::Core}}, 0.005, 0.06};
        case AssemblyClass::SlabOnGrade:
            return {{{kBoard, 0, R::Insulation}, {kConcrete, 0.15, R::Core}}, 0.05, 0.3};
        case AssemblyClass::Door:  // steel skins, foam core
            return {{{kSteel, 0.0008}, {kBoard, 0, R::Insulation}, {kSteel, 0.0008}}, 0, 0};
    }
    return {};
}

Layer MakeLayer(const Material& m, double thickness) {
    Layer l;
    l.thickness = thickness;
    l.conductivity = m.k;
    l.density = m.rho;
    l.specificHeat = m.cp;
    return l;
}

// The build-up with its insulation giving `rWall` (m2K/W surface to
// surface) and the core `core` m thick. When the other layers alone resist
// more than `rWall`, the insulation goes and their conductivities rise in
// proportion, their capacity kept.
Construction Build(const Template& t, double rWall, double core) {
    Construction c;
    double rSolid = 0;
    for (const TemplateLayer& tl : t.layers) {
        if (tl.role == Role::Insulation) continue;
        const double th = tl.role == Role::Core ? core : tl.thickness;
        if (th > 0) rSolid += th / tl.m.k;
    }
    const double rIns = rWall - rSolid;
    const double kScale = rIns < 0 && rWall > 0 ? rSolid / rWall : 1.0;
    for (const TemplateLayer& tl : t.layers) {
        if (tl.role == Role::Insulation) {
            // A pure resistance: the insulation's own capacity is small
            // beside the boards' and would otherwise set the lag of a thick
            // insulation layer by itself.
            if (rIns > 1e-4) {
                Layer ins;
                ins.resistance = rIns;
                c.layers.push_back(ins);
            }
            continue;
        }
        const double th = tl.role == Role::Core ? core : tl.thickness;
        if (th <= 0) continue;
        Layer l = MakeLayer(tl.m, th);
        l.conductivity *= kScale;
        c.layers.push_back(l);
    }
    return c;
}

struct Fit {
    Construction c;
    double lag = 0, decrement = 1, cost = 0;
};

// The core thickness whose time lag is nearest the target: a grid over the
// class's range, then golden-section refinement around the best point.
Fit FitClass(AssemblyClass cls, double rWall, double lag, double decrement) {
    const Template t = TemplateOf(cls);
    auto evaluate = [&](double core) {
        Fit f;
        f.c = Build(t, rWall, core);
        const PeriodicResponse p = PeriodicResponseOf(f.c, kInsideFilm, kOutsideFilm);
        f.lag = p.timeLag;
        f.decrement = p.decrement;
        f.cost = std::abs(f.lag - lag) / 1.5 + std::abs(f.decrement - decrement) / 0.15;
        return f;
    };
    if (t.coreMax <= t.coreMin) return evaluate(t.coreMin);
    auto lagError = [&](double core) { return std::abs(evaluate(core).lag - lag); };
    constexpr int kGrid = 24;
    const double lo0 = std::max(t.coreMin, 1e-3), hi0 = t.coreMax;
    auto at = [&](int i) { return lo0 * std::pow(hi0 / lo0, static_cast<double>(i) / kGrid); };
    int best = 0;
    double bestErr = lagError(at(0));
    for (int i = 1; i <= kGrid; ++i) {
        const double e = lagError(at(i));
        if (e < bestErr) best = i, bestErr = e;
    }
    double a = std::log(at(std::max(best - 1, 0))), b = std::log(at(std::min(best + 1, kGrid)));
    for (int i = 0; i < 40; ++i) {
        const double x1 = a + 0.382 * (b - a), x2 = a + 0.618 * (b - a);
        if (lagError(std::exp(x1)) < lagError(std::exp(x2)))
            b = x2;
        else
            a = x1;
    }
    Fit f = evaluate(std::exp(0.5 * (a + b)));
    // A class that may go without its core (a roof deck of steel alone).
    if (t.coreMin <= 0) {
        Fit none = evaluate(0.0);
        if (std::abs(none.lag - lag) < std::abs(f.lag - lag)) f = none;
    }
    return f;
}

bool Contains(const std::string& text, const char* word) {
    return text.find(word) != std::string::npos;
}

Kind KindOfId(int id) {
    if (id >= 1 && id <= 3) return Kind::Roof;
    if (id == 9) return Kind::Floor;
    if (id == 10) return Kind::Slab;
    if (id == 11) return Kind::Door;
    return Kind::Wall;
}

constexpr AssemblyClass kAll[] = {
    AssemblyClass::RoofAboveDeck,
    AssemblyClass::RoofMetalBuilding,
    AssemblyClass::RoofAttic,
    AssemblyClass::WallMass,
    AssemblyClass::WallMassInteriorInsulation,
    AssemblyClass::WallMetalBuilding,
    AssemblyClass::WallSteelFramed,
    AssemblyClass::WallWoodFramed,
    AssemblyClass::WallBelowGrade,
    AssemblyClass::FloorMass,
    AssemblyClass::FloorSteelJoist,
    AssemblyClass::FloorWoodFramed,
    AssemblyClass::SlabOnGrade,
    AssemblyClass::Door,
};

}  // namespace

const char* AssemblyClassName(AssemblyClass c) {
    switch (c) {
        case AssemblyClass::RoofAboveDeck:
            return "roof, insulation entirely above deck";
        case AssemblyClass::RoofMetalBuilding:
            return "roof, metal building";
        case AssemblyClass::RoofAttic:
            return "roof, attic and other";
        case AssemblyClass::WallMass:
            return "wall, mass";
        case AssemblyClass::WallMassInteriorInsulation:
            return "wall, mass with interior insulation";
        case AssemblyClass::WallMetalBuilding:
            return "wall, metal building";
        case AssemblyClass::WallSteelFramed:
            return "wall, steel-framed";
        case AssemblyClass::WallWoodFramed:
            return "wall, wood-framed and other";
        case AssemblyClass::WallBelowGrade:
            return "wall, below grade";
        case AssemblyClass::FloorMass:
            return "floor, mass";
        case AssemblyClass::FloorSteelJoist:
            return "floor, steel joist";
        case AssemblyClass::FloorWoodFramed:
            return "floor, wood-framed and other";
        case AssemblyClass::SlabOnGrade:
            return "slab on grade";
        case AssemblyClass::Door:
            return "opaque door";
    }
    return "";
}

bool AssemblyClassOfDescription(const std::string& description, AssemblyClass& out) {
    std::string d;
    for (char ch : description)
        d += ch == '-' ? ' ' : static_cast<char>(std::tolower(static_cast<unsigned char>(ch)));
    const bool roof = Contains(d, "roof"), floor = Contains(d, "floor");
    if (Contains(d, "door")) return out = AssemblyClass::Door, true;
    if (Contains(d, "slab")) return out = AssemblyClass::SlabOnGrade, true;
    if (Contains(d, "below grade") && !floor) return out = AssemblyClass::WallBelowGrade, true;
    if (Contains(d, "above deck")) return out = AssemblyClass::RoofAboveDeck, true;
    if (Contains(d, "attic")) return out = AssemblyClass::RoofAttic, true;
    if (Contains(d, "metal building"))
        return out = roof ? AssemblyClass::RoofMetalBuilding : AssemblyClass::WallMetalBuilding,
               true;
    if (Contains(d, "steel joist")) return out = AssemblyClass::FloorSteelJoist, true;
    if (Contains(d, "mass")) {
        if (floor) return out = AssemblyClass::FloorMass, true;
        if (Contains(d, "interior insulation") || Contains(d, "insulation inside"))
            return out = AssemblyClass::WallMassInteriorInsulation, true;
        return out = AssemblyClass::WallMass, true;
    }
    if (Contains(d, "steel framed")) return out = AssemblyClass::WallSteelFramed, true;
    if (Contains(d, "wood framed"))
        return out = floor ? AssemblyClass::FloorWoodFramed : AssemblyClass::WallWoodFramed, true;
    return false;
}

CatalogAssembly AssemblyFromCatalog(int id, const std::string& description, double uFactor,
                                    double lag, double decrement) {
    const double rWall = std::max(1.0 / std::max(uFactor, 1e-3) - kInsideFilm - kOutsideFilm, 0.0);
    lag = std::max(lag, 0.0);
    decrement = std::clamp(decrement, 0.0, 1.0);
    CatalogAssembly out;
    AssemblyClass named{};
    out.classNamed = AssemblyClassOfDescription(description, named);
    out.namedClass = named;
    Fit best;
    bool have = false;
    if (out.classNamed) {
        best = FitClass(named, rWall, lag, decrement);
        out.assemblyClass = named;
        have = std::abs(best.lag - lag) <= 1.5 && std::abs(best.decrement - decrement) <= 0.15;
        out.farFromClass = !have;
    }
    if (!have) {
        const Kind kind = out.classNamed ? KindOf(named) : KindOfId(id);
        for (AssemblyClass c : kAll) {
            if (KindOf(c) != kind) continue;
            Fit f = FitClass(c, rWall, lag, decrement);
            if (!have || f.cost < best.cost) best = std::move(f), out.assemblyClass = c;
            have = true;
        }
    }
    out.construction = std::move(best.c);
    out.construction.name = description;
    out.timeLag = best.lag;
    out.decrement = best.decrement;
    return out;
}

}  // namespace solvane::engine
