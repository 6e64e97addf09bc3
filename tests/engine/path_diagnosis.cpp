// Which difference between the project route and the layered description of
// the ASHRAE 140 cases moves the loads: each difference swapped on its own.
// Run by hand: engine_path_diagnosis.
#include <cstdio>
#include <functional>

#include "bestest_building.h"
#include "bestest_cases.h"
#include "engine/assembly.h"
#include "engine/simulation.h"

using namespace solvane;
using namespace solvane::engine;

int main() {
    const WeatherYear& w = testing::DenverWeather();
    RunOptions opt;
    opt.keepHourly = false;
    for (bool heavy : {false, true}) {
        const Building layered = testing::BestestBuilding(heavy, false);
        const Building project = testing::ProjectCaseBuilding(heavy, false);
        auto run = [&](const Building& b) { return Simulate(b, w, opt).zones[0]; };
        const ZoneResults d = run(layered);
        std::printf("%s layered: heating %.3f cooling %.3f\n", heavy ? "900" : "600",
                    d.heatingEnergy / 1e6, d.coolingEnergy / 1e6);
        const ZoneResults p = run(project);
        std::printf("  project: heating %.3f cooling %.3f\n", p.heatingEnergy / 1e6,
                    p.coolingEnergy / 1e6);
        // Swaps applied to the project's building one at a time.
        const int wallC = project.zones[0].surfaces[0].construction;
        const int roofC = project.zones[0].surfaces[4].construction;
        const int floorC = project.zones[0].surfaces[5].construction;
        std::vector<std::pair<const char*, std::function<void(Building&)>>> swaps = {
            {"volume 2.7 m", [](Building& b) { b.zones[0].volume = 129.6; }},
            {"equipment radiant 0.6", [](Building& b) { b.zones[0].gains.equipmentRadiant = 0.6; }},
            {"layered walls",
             [&](Building& b) { b.constructions[wallC] = layered.constructions[0]; }},
            {"layered roof",
             [&](Building& b) { b.constructions[roofC] = layered.constructions[1]; }},
            {"layered floor",
             [&](Building& b) { b.constructions[floorC] = layered.constructions[2]; }},
            {"layered glazing",
             [&](Building& b) { b.windowTypes[0].glazing = layered.windowTypes[0].glazing; }},
            {"floor no sun no wind",
             [](Building& b) { b.zones[0].surfaces[5].boundary = Boundary::OutdoorAirNoSun; }},
            {"surface heights",
             [](Building& b) {
                 for (auto& s : b.zones[0].surfaces)
                     s.height = s.kind == SurfaceClass::Roof ? 2.7 : 1.35;
             }},
        };
        Building all = project;
        for (auto& [name, f] : swaps) {
            Building b = project;
            f(b);
            f(all);
            const ZoneResults r = run(b);
            std::printf("  %-24s heating %+6.2f %% cooling %+6.2f %%\n", name,
                        100 * (r.heatingEnergy / p.heatingEnergy - 1),
                        100 * (r.coolingEnergy / p.coolingEnergy - 1));
        }
        const ZoneResults r = run(all);
        std::printf("  all swaps: heating %.3f cooling %.3f\n", r.heatingEnergy / 1e6,
                    r.coolingEnergy / 1e6);
        // Each layered construction replaced by what its catalog figures
        // give through its assembly class.
        const char* classes[3] = {heavy ? "Wall, mass" : "Wall, wood-framed",
                                  "Roof, attic and other",
                                  heavy ? "Floor, mass" : "Floor, wood-framed"};
        for (int c = 0; c < 3; ++c) {
            Building b = layered;
            const PeriodicResponse pr = PeriodicResponseOf(b.constructions[c]);
            const CatalogAssembly a =
                AssemblyFromCatalog(4, classes[c], pr.uFactor, pr.timeLag, pr.decrement);
            Construction fitted = a.construction;
            fitted.outsideAbsorptance = b.constructions[c].outsideAbsorptance;
            const PeriodicResponse fr = PeriodicResponseOf(fitted);
            b.constructions[c] = fitted;
            const ZoneResults x = run(b);
            std::printf(
                "  %s: U %.3f lag %.2f h f %.3f Y11 %.2f -> %s lag %.2f f %.3f Y11 %.2f: "
                "heating %+.2f %% cooling %+.2f %%\n",
                layered.constructions[c].name.c_str(), pr.uFactor, pr.timeLag, pr.decrement,
                pr.insideAdmittance, AssemblyClassName(a.assemblyClass), fr.timeLag, fr.decrement,
                fr.insideAdmittance, 100 * (x.heatingEnergy / d.heatingEnergy - 1),
                100 * (x.coolingEnergy / d.coolingEnergy - 1));
        }
    }
}
