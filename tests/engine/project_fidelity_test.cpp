// What a project file says is what the engine simulates: the ASHRAE 140
// cases as a user writes them, each catalog construction against its
// layers, and every simulated field moving the result the way physics says.
#include <gtest/gtest.h>

#include <functional>

#include "bestest_building.h"
#include "bestest_cases.h"
#include "climate_records.h"
#include "engine/assembly.h"

namespace solvane::engine {
namespace {

const std::string kSource = SOLVANE_SOURCE_DIR;

const WeatherYear& Denver() {
    return testing::DenverWeather();
}

TEST(ProjectRoute, Ashrae140CasesAsProjectFilesInsideEveryRange) {
    // Annual loads, peaks and the free-float figures of the four cases run
    // from case600.inp and case900.inp exactly as a user's project runs.
    const auto f = testing::RunBestestCases(Denver(), 4, testing::ProjectCaseBuilding);
    int checked = 0;
    for (const auto& r :
         testing::ReadReferenceRanges(kSource + "/tests/engine/bestest_ranges.csv")) {
        if (r.quantity.find('_') == std::string::npos || r.quantity.rfind("heating_", 0) == 0 ||
            r.quantity.rfind("cooling_", 0) == 0)
            continue;  // monthly rows: reported in docs/validation.md
        const double v = f.at(r.caseName + "/" + r.quantity);
        EXPECT_GE(v, r.min) << r.caseName << " " << r.quantity;
        EXPECT_LE(v, r.max) << r.caseName << " " << r.quantity;
        ++checked;
    }
    EXPECT_EQ(checked, 14);
    for (const char* c : {"600", "900", "600FF", "900FF"})
        EXPECT_LT(f.at(std::string(c) + "/balance_error"), 1e-3) << c;
}

TEST(Assembly, CatalogFiguresOfEachCaseConstructionGiveItsLayersLoads) {
    // Each published construction of cases 600 and 900 replaced by what its
    // U-factor, time lag and decrement give through its assembly class:
    // annual heating and cooling within 3 % of the layers themselves.
    struct Case {
        bool heavy;
        int construction;
        const char* description;
    };
    const Case cases[] = {{false, 0, "Wall, wood-framed"},
                          {false, 1, "Roof, attic and other"},
                          {false, 2, "Floor, wood-framed"},
                          {true, 0, "Wall, mass"},
                          {true, 2, "Floor, mass"}};
    RunOptions opt;
    opt.keepHourly = false;
    const ZoneResults light =
        Simulate(testing::BestestBuilding(false, false), Denver(), opt).zones[0];
    const ZoneResults heavy =
        Simulate(testing::BestestBuilding(true, false), Denver(), opt).zones[0];
    for (const Case& c : cases) {
        Building b = testing::BestestBuilding(c.heavy, false);
        const Construction& layers = b.constructions[c.construction];
        const PeriodicResponse p = PeriodicResponseOf(layers);
        Construction fitted =
            AssemblyFromCatalog(4, c.description, p.uFactor, p.timeLag, p.decrement).construction;
        fitted.outsideAbsorptance = layers.outsideAbsorptance;
        b.constructions[c.construction] = fitted;
        const ZoneResults r = Simulate(b, Denver(), opt).zones[0];
        const ZoneResults& ref = c.heavy ? heavy : light;
        EXPECT_NEAR(r.heatingEnergy, ref.heatingEnergy, 0.03 * ref.heatingEnergy) << c.description;
        EXPECT_NEAR(r.coolingEnergy, ref.coolingEnergy, 0.03 * ref.coolingEnergy) << c.description;
    }
}

TEST(Assembly, ClassFromTheDescriptionAndTheFiguresHeld) {
    // The envelope catalog's own entry names.
    const std::pair<const char*, AssemblyClass> named[] = {
        {"Wall, mass (above grade)", AssemblyClass::WallMass},
        {"Roof, insulation entirely above deck", AssemblyClass::RoofAboveDeck},
        {"Roof, metal building", AssemblyClass::RoofMetalBuilding},
        {"Wall, metal building", AssemblyClass::WallMetalBuilding},
        {"Floor, wood-framed and other", AssemblyClass::FloorWoodFramed},
        {"Slab on grade, unheated (F-factor / 3 ft)", AssemblyClass::SlabOnGrade},
        {"Mass wall, interior insulation", AssemblyClass::WallMassInteriorInsulation},
    };
    AssemblyClass c{};
    for (const auto& [text, cls] : named) {
        ASSERT_TRUE(AssemblyClassOfDescription(text, c)) << text;
        EXPECT_EQ(c, cls) << text;
    }
    EXPECT_FALSE(AssemblyClassOfDescription("Brick veneer", c));

    // U exact, lag reached, the room side the class's: a mass wall keeps its
    // block inside, a wood-framed wall its gypsum.
    const CatalogAssembly mass = AssemblyFromCatalog(5, "Wall, mass", 0.5, 6.0, 0.45);
    EXPECT_FALSE(mass.farFromClass);
    EXPECT_NEAR(PeriodicResponseOf(mass.construction).uFactor, 0.5, 1e-9);
    EXPECT_NEAR(mass.timeLag, 6.0, 0.05);
    EXPECT_GT(mass.construction.layers.back().density, 1000);
    const CatalogAssembly wood = AssemblyFromCatalog(5, "Wall, wood-framed", 0.3, 1.0, 0.98);
    EXPECT_NEAR(PeriodicResponseOf(wood.construction).uFactor, 0.3, 1e-9);
    EXPECT_NEAR(wood.timeLag, 1.0, 0.05);
    EXPECT_NEAR(wood.construction.layers.back().thickness, 0.0127, 1e-9);
    // An uninsulated construction whose U the layers alone cannot give.
    const CatalogAssembly bare = AssemblyFromCatalog(5, "Wall, mass", 3.5, 3.0, 0.7);
    EXPECT_NEAR(PeriodicResponseOf(bare.construction).uFactor, 3.5, 1e-6);
}

TEST(Assembly, AnEntryFarFromItsClassIsBuiltAsTheNearestAndSaysSo) {
    // A "wood-framed" wall with eight hours of lag is a mass wall.
    const CatalogAssembly far = AssemblyFromCatalog(5, "Wall, wood-framed", 0.5, 8.0, 0.3);
    EXPECT_TRUE(far.farFromClass);
    EXPECT_EQ(far.namedClass, AssemblyClass::WallWoodFramed);
    EXPECT_TRUE(far.assemblyClass == AssemblyClass::WallMass ||
                far.assemblyClass == AssemblyClass::WallMassInteriorInsulation);
    EXPECT_NEAR(far.timeLag, 8.0, 1.5);
    // No class named: the kind's class nearest the figures.
    EXPECT_EQ(AssemblyFromCatalog(5, "Exterior wall", 0.5, 7.0, 0.35).assemblyClass,
              AssemblyClass::WallMass);
    const AssemblyClass light =
        AssemblyFromCatalog(5, "Exterior wall", 0.5, 0.3, 1.0).assemblyClass;
    EXPECT_NE(light, AssemblyClass::WallMass);
    EXPECT_EQ(AssemblyFromCatalog(2, "Roof", 0.3, 0.1, 1.0).assemblyClass,
              AssemblyClass::RoofMetalBuilding);
}

// ---- the fields of a project ------------------------------------------------

using Edit = testing::ProjectEdit;

ProjectRunInputs Case600(int runType, const Edit& edit = {}) {
    return testing::LoadProjectCase(kSource + "/tests/engine/projects/case600.inp", runType, edit);
}

ZoneResults Simulated(const ProjectRunInputs& in) {
    RunOptions opt;
    opt.keepHourly = false;
    return Simulate(in.building, Denver(), opt).zones[0];
}

TEST(ProjectFields, StoreyFromTheBuildingMatrix) {
    const ProjectRunInputs in = Case600(3);
    EXPECT_NEAR(in.building.zones[0].volume, 48.0 * 2.7, 0.05);
    EXPECT_NEAR(in.building.zones[0].surfaces[4].height, 2.7, 0.01);  // the roof
    for (const std::string& n : in.notes) EXPECT_EQ(n.find("room height"), std::string::npos);

    // A second level of 12 ft over the first: its zones stand on 8.86 ft.
    const std::string first =
        "Grid Size   :2\r\nRotation    :0\r\nNo. of Flrs :1\r\n"
        "Room Height :8.86\r\nFloor Area  :100\r\nSection Area:100\r\n";
    const std::string second =
        "Grid Size   :2\r\nRotation    :0\r\nNo. of Flrs :1\r\n"
        "Room Height :12\r\nFloor Area  :100\r\nSection Area:100\r\n";
    const auto levels = ReadLevelHeights(first + second);
    ASSERT_EQ(levels.size(), 2u);
    EXPECT_DOUBLE_EQ(levels[1].roomHeight, 12);
    const ProjectRunInputs up = Case600(3, [&](ProjectModel& m, std::string& matrix) {
        m.zones.ZoneNumber[1] = "2-1";
        matrix = first + second;
    });
    const Zone& z = up.building.zones[0];
    EXPECT_NEAR(z.volume, 48.0 * 12 * 0.3048, 0.05);
    EXPECT_NEAR(z.surfaces[4].height, (8.86 + 12) * 0.3048, 0.01);
    EXPECT_NEAR(z.surfaces[0].height, (8.86 + 6) * 0.3048, 0.01);
    // No matrix: the storey is assumed, and Monitor.txt says so.
    const ProjectRunInputs none = Case600(3, [](ProjectModel&, std::string& m) { m.clear(); });
    EXPECT_NEAR(none.building.zones[0].volume, 48.0 * 3.048, 0.05);
    ASSERT_FALSE(none.notes.empty());
    EXPECT_NE(none.notes[0].find("Zone 1-1: no room height"), std::string::npos);
}

TEST(ProjectFields, GainsSplitByTheirKind) {
    const ProjectRunInputs in =
        Case600(3, [](ProjectModel& m, std::string&) { m.zones.ZoneData[1][11] = "9"; });
    const ZoneGains& g = in.building.zones[0].gains;
    EXPECT_DOUBLE_EQ(g.peopleRadiant, 0.6);
    EXPECT_DOUBLE_EQ(g.equipmentRadiant, 0.3);
    EXPECT_NEAR(g.lightsRadiant, 0.73, 0.01);  // incandescent downlight
    const ProjectRunInputs cfl =
        Case600(3, [](ProjectModel& m, std::string&) { m.zones.ZoneData[1][11] = "6"; });
    EXPECT_NEAR(cfl.building.zones[0].gains.lightsRadiant, 0.18, 0.01);
}

// Each simulated field moved one way moves the result the way physics says,
// from case 600 in Denver.
TEST(ProjectFields, EachSimulatedFieldMovesTheResultTheRightWay) {
    const ZoneResults base = Simulated(Case600(3));
    struct Move {
        const char* field;
        Edit edit;
        std::function<bool(const ZoneResults&)> right;
    };
    const Move moves[] = {
        {"overhang on the south window",
         [](ProjectModel& m, std::string&) { m.surfaces.SurfShade[1][1] = " N0. N0. F.5"; },
         [&](const ZoneResults& r) { return r.coolingEnergy < 0.95 * base.coolingEnergy; }},
        {"fins on the south window",
         [](ProjectModel& m, std::string&) { m.surfaces.SurfShade[1][1] = " R1. L1. N0."; },
         [&](const ZoneResults& r) { return r.coolingEnergy < base.coolingEnergy; }},
        {"natural ventilation",
         [](ProjectModel& m, std::string&) {
             m.zones.ZoneNatVent[1] = "Yes";
             m.zones.ZoneData[1][22] = "4";
         },
         [&](const ZoneResults& r) { return r.coolingEnergy < 0.8 * base.coolingEnergy; }},
        {"infiltration", [](ProjectModel& m, std::string&) { m.zones.ZoneData[1][23] = "1"; },
         [&](const ZoneResults& r) { return r.heatingEnergy > 1.1 * base.heatingEnergy; }},
        {"room height (air volume)",
         [](ProjectModel&, std::string& mx) {
             mx.replace(mx.find("Room Height :8.8583"), 19, "Room Height :12");
         },
         [&](const ZoneResults& r) { return r.heatingEnergy > base.heatingEnergy; }},
        {"people",
         [](ProjectModel& m, std::string&) {
             m.zones.ZoneData[1][5] = "4";
             m.zones.ZoneData[1][6] = "1";
             m.profiles.Types[kOccupancy].Profile[1][1] = std::string(96, ' ');
             for (int h = 0; h < 24; ++h)
                 m.profiles.Types[kOccupancy].Profile[1][1].replace(h * 4, 4, " 100");
         },
         [&](const ZoneResults& r) { return r.heatingEnergy < base.heatingEnergy; }},
        {"lights",
         [](ProjectModel& m, std::string&) {
             m.zones.ZoneData[1][13] = "1";
             for (int d = 1; d <= 3; ++d)
                 m.profiles.Types[kLights].Profile[1][d] =
                     m.profiles.Types[kReceptacles].Profile[1][d];
         },
         [&](const ZoneResults& r) { return r.heatingEnergy < base.heatingEnergy; }},
        {"receptacles", [](ProjectModel& m, std::string&) { m.zones.ZoneData[1][15] = "1"; },
         [&](const ZoneResults& r) { return r.heatingEnergy < base.heatingEnergy; }},
        {"outdoor air while the fans run",
         [](ProjectModel& m, std::string&) {
             m.zones.ZoneData[1][9] = "CS.2";
             for (int d = 1; d <= 3; ++d)
                 m.profiles.Types[kFans].Profile[1][d] =
                     m.profiles.Types[kReceptacles].Profile[1][d];
         },
         [&](const ZoneResults& r) { return r.heatingEnergy > 1.2 * base.heatingEnergy; }},
        {"heating set-point",
         [](ProjectModel& m, std::string&) {
             for (int d = 1; d <= 3; ++d)
                 for (int h = 0; h < 24; ++h)
                     m.profiles.Types[kHeatStat].Profile[1][d].replace(h * 4, 4, "  70");
         },
         [&](const ZoneResults& r) { return r.heatingEnergy > base.heatingEnergy; }},
        {"solar absorptance of the walls",
         [](ProjectModel& m, std::string&) { m.walls.WallSolarAbs[4] = ".9"; },
         [&](const ZoneResults& r) { return r.coolingEnergy > base.coolingEnergy; }},
        {"venetian blind always drawn",
         [](ProjectModel& m, std::string&) { m.surfaces.SurfBlind[1][1] = 5; },
         [&](const ZoneResults& r) { return r.coolingEnergy < 0.9 * base.coolingEnergy; }},
        {"skylight in the roof",
         [](ProjectModel& m, std::string&) { m.surfaces.SurfWindowArea[1][5] = 50; },
         [&](const ZoneResults& r) { return r.coolingEnergy > base.coolingEnergy; }},
        {"cooling set-point",
         [](ProjectModel& m, std::string&) {
             for (int d = 1; d <= 3; ++d)
                 for (int h = 0; h < 24; ++h)
                     m.profiles.Types[kCoolStat].Profile[1][d].replace(h * 4, 4, "  75");
         },
         [&](const ZoneResults& r) { return r.coolingEnergy > base.coolingEnergy; }},
        {"wall U-factor", [](ProjectModel& m, std::string&) { m.walls.WallUFactor[4] = ".2"; },
         [&](const ZoneResults& r) { return r.heatingEnergy > base.heatingEnergy; }},
        {"window SHGC", [](ProjectModel& m, std::string&) { m.windows.WindowSHGC[1] = ".4"; },
         [&](const ZoneResults& r) { return r.coolingEnergy < 0.8 * base.coolingEnergy; }},
        {"window area",
         [](ProjectModel& m, std::string&) { m.surfaces.SurfWindowArea[1][1] = 200; },
         [&](const ZoneResults& r) { return r.coolingEnergy > base.coolingEnergy; }},
        {"floor on the ground (slab edge)",
         [](ProjectModel& m, std::string&) { m.surfaces.SurfExposure[1][6] = 7; },
         [&](const ZoneResults& r) { return r.heatingEnergy < base.heatingEnergy; }},
        {"ground reflectance",
         [](ProjectModel& m, std::string&) { m.surfaces.SurfGroundRefl[1][1] = 0.6f; },
         [&](const ZoneResults& r) { return r.coolingEnergy > base.coolingEnergy; }},
    };
    for (const Move& mv : moves) {
        const ZoneResults r = Simulated(Case600(3, mv.edit));
        EXPECT_TRUE(mv.right(r)) << mv.field << ": heating " << r.heatingEnergy / 1e6 << " (was "
                                 << base.heatingEnergy / 1e6 << "), cooling "
                                 << r.coolingEnergy / 1e6 << " (was " << base.coolingEnergy / 1e6
                                 << ") MWh";
        EXPECT_LT(r.BalanceError(), 1e-3) << mv.field;
    }
}

TEST(ProjectFields, OverhangPlacedByTheProjectionFactorsDefinition) {
    // PF = depth / (sill to the overhang's underside); the overhang at the
    // top of the 8.86 ft storey, the window from 0.66 to 7.22 ft.
    const ProjectRunInputs in = Case600(
        3, [](ProjectModel& m, std::string&) { m.surfaces.SurfShade[1][1] = " N0. N0. F.5"; });
    const WindowShading& sh = in.building.zones[0].surfaces[0].windows[0].shading;
    const double h = 7.22 - 0.66, gap = 8.8583 - 7.22;
    EXPECT_NEAR(sh.overhangProjection * h, 0.5 * (h + gap), 1e-3);
    EXPECT_NEAR(sh.overhangGap * h, gap, 1e-3);
}

TEST(ProjectFields, OverhangShadowFollowsTheSunThroughTheYear) {
    // A south overhang takes a larger share of the July sun through the
    // window than of the January sun, which passes under it.
    auto share = [](const ZoneResults& r, const ZoneResults& b, int m) {
        return 1.0 - r.monthlySolarGain[m] / b.monthlySolarGain[m];
    };
    const ZoneResults base = Simulated(Case600(3));
    const ZoneResults shaded = Simulated(Case600(
        3, [](ProjectModel& m, std::string&) { m.surfaces.SurfShade[1][1] = " N0. N0. F1"; }));
    EXPECT_GT(share(shaded, base, 6), share(shaded, base, 0));
    EXPECT_GT(share(shaded, base, 0), 0.0);
    // On a north window, which sees little beam, the overhang still takes
    // sky light and the fins sky and ground light: heating rises.
    auto north = [](const char* shade) {
        return [shade](ProjectModel& m, std::string&) {
            m.surfaces.SurfWindowArea[1][2] = m.surfaces.SurfWindowArea[1][1];
            m.surfaces.SurfWindowArea[1][1] = 0;
            m.surfaces.SurfSillHeight[1][2] = m.surfaces.SurfSillHeight[1][1];
            m.surfaces.SurfWindowHeight[1][2] = m.surfaces.SurfWindowHeight[1][1];
            m.surfaces.SurfShade[1][2] = shade;
        };
    };
    const ZoneResults open = Simulated(Case600(3, north(" N0. N0. N0.")));
    const ZoneResults roofed = Simulated(Case600(3, north(" N0. N0. F1")));
    const ZoneResults finned = Simulated(Case600(3, north(" R1. L1. N0.")));
    EXPECT_GT(roofed.heatingEnergy, open.heatingEnergy);
    EXPECT_GT(finned.heatingEnergy, open.heatingEnergy);
}

TEST(ProjectFields, NaturalVentilationCoolsInAMildClimate) {
    // Case 600 in a synthetic Seattle year (marine, mild summers): windows
    // opened at 4 cfm per sq.ft take most of the cooling, and the heating
    // they cause later (heat vented that the night would have used) is
    // less than the cooling they save.
    const auto records = testing::ReadClimateRecords(kSource + "/tests/engine/climate_records.txt");
    const auto seattle = std::find_if(records.begin(), records.end(), [](const auto& r) {
        return r.name.find("Seattle") != std::string::npos;
    });
    ASSERT_NE(seattle, records.end());
    const WeatherYear w = SynthesizeWeather(seattle->climate, seattle->site, 1);
    RunOptions opt;
    opt.keepHourly = false;
    const ZoneResults shut = Simulate(Case600(3).building, w, opt).zones[0];
    const ZoneResults open = Simulate(Case600(3,
                                              [](ProjectModel& m, std::string&) {
                                                  m.zones.ZoneNatVent[1] = "Yes";
                                                  m.zones.ZoneData[1][22] = "4";
                                              })
                                          .building,
                                      w, opt)
                                 .zones[0];
    EXPECT_LT(open.coolingEnergy, 0.5 * shut.coolingEnergy);
    EXPECT_LT(open.heatingEnergy - shut.heatingEnergy, shut.coolingEnergy - open.coolingEnergy);
    EXPECT_LT(open.coolingByComponent[kCompNaturalVent], 0.0 + 1e-9);
    EXPECT_LT(open.BalanceError(), 1e-3);
}

TEST(ProjectFields, InternalMassNarrowsTheFreeFloatSwing) {
    const ZoneResults light = Simulated(Case600(4));
    const ZoneResults heavy =
        Simulated(Case600(4, [](ProjectModel& m, std::string&) { m.zones.ZoneData[1][4] = "30"; }));
    EXPECT_LT(heavy.maxTemperature - heavy.minTemperature,
              0.8 * (light.maxTemperature - light.minTemperature));
    EXPECT_LT(heavy.BalanceError(), 1e-3);
}

TEST(ProjectFields, OutdoorAirFollowsTheFanProfile) {
    // With the fans off all year the outdoor air never enters.
    const ZoneResults base = Simulated(Case600(3));
    const ZoneResults off = Simulated(
        Case600(3, [](ProjectModel& m, std::string&) { m.zones.ZoneData[1][9] = "CS.2"; }));
    EXPECT_DOUBLE_EQ(off.heatingEnergy, base.heatingEnergy);
}

TEST(ProjectFields, DaylightingDimsTheLightsOfTheDaylitFloor) {
    // Case 600 with 1 W/sq.ft of lights all day: its south window (12 m2,
    // visible transmittance 0.81) lights a 10 ft deep strip along the 8 m
    // wall, 24 m2 of the 48.
    auto lit = [](const std::string& on, const std::string& depthFt, const std::string& fc) {
        return Case600(3, [&](ProjectModel& m, std::string&) {
            m.zones.ZoneData[1][13] = "1";
            m.profiles.Types[kLights].Profile[1] = m.profiles.Types[kReceptacles].Profile[1];
            m.zones.ZoneDaylight[1] = on;
            m.zones.ZoneData[1][24] = depthFt;
            m.zones.ZoneData[1][25] = fc;
        });
    };
    const ProjectRunInputs off = lit("No", "10", "50");
    const ProjectRunInputs on = lit("Yes", "10", "50");
    const ZoneDaylighting& d = on.building.zones[0].daylight;
    EXPECT_NEAR(d.share, 8.0 * 10 * 0.3048 / 48.0, 0.02);
    EXPECT_NEAR(d.targetLux, 538.2, 0.1);
    EXPECT_GT(d.daylightFactor, 2.0);  // a large window: a well-lit strip
    EXPECT_LT(d.daylightFactor, 20.0);
    EXPECT_EQ(off.building.zones[0].daylight.share, 0.0);
    const double base = Simulated(off).lightsEnergy, dimmed = Simulated(on).lightsEnergy;
    // Savings only in the daylit share and only by day: below half the
    // strip's share of the year's lighting.
    EXPECT_LT(dimmed, base * (1.0 - 0.1 * d.share));
    EXPECT_GT(dimmed, base * (1.0 - 0.5 * d.share));
    // A deeper strip saves more; a higher target less.
    EXPECT_LT(Simulated(lit("Yes", "16", "50")).lightsEnergy, dimmed);
    EXPECT_GT(Simulated(lit("Yes", "10", "100")).lightsEnergy, dimmed);
}

TEST(ProjectFields, FieldsNotSimulatedAreNamedWithTheirZone) {
    const ProjectRunInputs plain = Case600(3, [](ProjectModel& m, std::string&) {
        for (int s = 1; s <= 6; ++s) m.surfaces.SurfSWB[1][s] = "";
    });
    EXPECT_TRUE(plain.notes.empty());
    // A system number outside the catalog is named: its cooling goes unmet.
    const ProjectRunInputs none = Case600(3, [](ProjectModel& m, std::string&) {
        m.zones.ZoneData[1][20] = "0";
        for (int s = 1; s <= 6; ++s) m.surfaces.SurfSWB[1][s] = "";
    });
    ASSERT_EQ(none.notes.size(), 1u);
    EXPECT_NE(none.notes[0].find("HVAC Type 0 (no such system"), std::string::npos)
        << none.notes[0];
    EXPECT_EQ(none.systems[0].cooling, CoolingPlant::None);
    const ProjectRunInputs in = Case600(3, [](ProjectModel& m, std::string&) {
        m.zones.ZoneData[1][5] = "3";
        m.zones.ZoneData[1][7] = "2";
        m.zones.ZoneDaylight[1] = "Yes";
        m.zones.ZoneEconCycle[1] = " Yes";
        m.zones.ZoneNatVent[1] = "Yes";
        m.zones.ZoneData[1][22] = "0";
        m.surfaces.SurfDiffTrans[1][2] = 0.5f;
    });
    ASSERT_EQ(in.notes.size(), 1u);
    const std::string& n = in.notes[0];
    EXPECT_EQ(n.rfind("Zone 1-1: not simulated in this run: ", 0), 0u) << n;
    for (const char* w : {"no rate", "DiffTrans", "S/W/B"})
        EXPECT_NE(n.find(w), std::string::npos) << w << " in " << n;
    // Hot water, the HVAC and heating types, the economiser, daylighting and
    // the people's latent heat are simulated.
    for (const char* w :
         {"hot water", "HVAC Type", "Htg. Type", "economiser", "latent", "daylighting"})
        EXPECT_EQ(n.find(w), std::string::npos) << w << " in " << n;
    EXPECT_TRUE(in.systems[0].economizer);
    EXPECT_NEAR(in.systems[0].economizerHighLimit, (75.0 - 32) / 1.8, 1e-9);  // zone 5 B
    ASSERT_EQ(in.systems.size(), in.building.zones.size());
    EXPECT_EQ(in.systems[0].cooling, CoolingPlant::WaterChiller);
    EXPECT_EQ(in.systems[0].heating, HeatingPlant::Boiler);
    EXPECT_NEAR(in.systems[0].hotWaterPerDay, 3 * 2 * 0.003785412, 1e-6);  // 2 gal a person

    // Surface figures the engine cannot take as they stand.
    const ProjectRunInputs odd = Case600(3, [](ProjectModel& m, std::string&) {
        m.surfaces.SurfBlind[1][1] = 3;
        m.surfaces.SurfExposure[1][3] = 0;
        m.surfaces.SurfExposure[1][6] = 7;
        m.surfaces.SurfWindowArea[1][6] = 20;
        m.surfaces.SurfWindowArea[1][2] = 300;
        m.ProjectData[kHolidays] = "10";
        m.surfaces.SurfWindowArea[1][5] = 20;
        m.surfaces.SurfShade[1][5] = " N0. N0. F.5";
    });
    std::string all;
    for (const std::string& l : odd.notes) all += l + "\n";
    for (const char* w : {"Zone 1-1 surface 1: Ven. Blnd 3", "Zone 1-1 surface 3: exposure code 0",
                          "Zone 1-1 surface 6: a window in a surface on the ground",
                          "Zone 1-1 surface 2: window larger than its surface",
                          "Project: not simulated in this run: annual holidays",
                          "Zone 1-1 surface 5: overhang and fins of a skylight"})
        EXPECT_NE(all.find(w), std::string::npos) << w << " in " << all;
}

}  // namespace
}  // namespace solvane::engine
