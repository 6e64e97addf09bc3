#include "engine/hvac_systems.h"

#include "engine/psychrometrics.h"

#include <gtest/gtest.h>

#include <cmath>

namespace solvane::engine {
namespace {

// One zone with a given hourly load under constant weather: the plant's
// response isolated from the heat balance.
struct Case {
    Building b;
    RunResults run;
    WeatherYear w;
    RunOptions opt;

    Case(double cooling, double heating, double dryBulb, double rh) {
        opt.beginDay = 2;  // the first day holds the peak hour that sizes the plant
        b.zones.resize(1);
        run.zones.resize(1);
        ZoneResults& z = run.zones[0];
        z.cooling.assign(kHoursPerYear, static_cast<float>(cooling));
        z.heating.assign(kHoursPerYear, static_cast<float>(heating));
        z.lights.assign(kHoursPerYear, 500.0f);
        z.equipment.assign(kHoursPerYear, 250.0f);
        z.peakCooling = 10000, z.peakCoolingHour = cooling > 0 ? 0 : -1;
        z.peakHeating = 10000, z.peakHeatingHour = heating > 0 ? 0 : -1;
        w.hours.resize(kHoursPerYear);
        for (WeatherHour& h : w.hours)
            h.dryBulb = static_cast<float>(dryBulb), h.relativeHumidity = static_cast<float>(rh);
    }
    // The peak hour's weather sets the sizing; keep it at the rating.
    SystemsResults Run(const ZoneSystem& s) {
        w.hours[0].dryBulb = 35, w.hours[0].relativeHumidity = 40;
        if (run.zones[0].peakHeatingHour == 0 && run.zones[0].peakCoolingHour < 0)
            w.hours[0].dryBulb = 8.33f;
        return SimulateSystems(b, run, w, opt, {s});
    }
};

constexpr double kCounted = 364 * 24;

double CoolingPerLoad(int type, double load, double dryBulb, double rh) {
    Case c(load, 0, dryBulb, rh);
    const SystemsResults r = c.Run(SystemOfType(type, 1, 12.0, 0.8, 1.0));
    return (r.Electric(kUseCooling) + r.Electric(kUsePumps)) / (load * kCounted);
}

double HeatingPerLoad(int type, int heatingType, double efficiency, double load, double dryBulb) {
    Case c(0, load, dryBulb, 50);
    const SystemsResults r = c.Run(SystemOfType(type, heatingType, 12.0, efficiency, 1.0));
    return (r.Electric(kUseHeating) + r.Fuel(kUseHeating)) / (load * kCounted);
}

TEST(HvacSystems, CoolingCostsMoreInHotterWeatherAndAtLowPartLoad) {
    for (int type = 1; type <= 15; ++type) {
        SCOPED_TRACE(type);
        const double mild = CoolingPerLoad(type, 6000, 22, 40);
        const double hot = CoolingPerLoad(type, 6000, 40, 60);
        const double lowLoad = CoolingPerLoad(type, 900, 30, 50);
        const double fullLoad = CoolingPerLoad(type, 8000, 30, 50);
        const ZoneSystem s = SystemOfType(type, 1, 12.0, 0.8, 1.0);
        ASSERT_GT(mild, 0);
        if (s.cooling == CoolingPlant::AirCooledDx || s.cooling == CoolingPlant::WaterChiller)
            EXPECT_GT(hot, 1.05 * mild);
        else  // water-source and evaporative: no outdoor air at the condenser
            EXPECT_NEAR(hot, mild, 1e-6 * mild);
        if (s.cooling == CoolingPlant::Evaporative) continue;
        EXPECT_GT(lowLoad, 1.03 * fullLoad);  // cycling and unloading losses
    }
}

TEST(HvacSystems, HeatingByPlant) {
    // Furnace and boiler: fuel over load about 1 / efficiency, more at low
    // load (the furnace's cycling loss is the small one of its published curve).
    for (int type : {11, 2}) {
        SCOPED_TRACE(type);
        const double full = HeatingPerLoad(type, 1, 0.8, 8000, 0);
        const double low = HeatingPerLoad(type, 1, 0.8, 800, 0);
        EXPECT_GE(full, 0.99 / 0.8);
        EXPECT_GT(low, (type == 11 ? 1.01 : 1.04) * full);
    }
    // The furnace's curve against ASHRAE 140 HE120 (steady part-load ratio
    // 0.4 at 80 %): load 31.10 GJ, fuel 38.27 GJ in the analytical solution.
    EXPECT_NEAR(FurnacePartLoadInput(0.4) / 0.4, 38.27 * 0.8 / 31.10, 0.002);
    // Resistance: one for one.
    EXPECT_NEAR(HeatingPerLoad(14, 2, 1.0, 5000, 0), 1.0, 1e-9);
    // Air-source heat pump: below 1 in mild weather, dearer in the cold,
    // resistance alone below the cut-out.
    const double mild = HeatingPerLoad(9, 3, 2.34, 4000, 10);
    const double cold = HeatingPerLoad(9, 3, 2.34, 4000, -5);
    EXPECT_LT(mild, 0.4);
    EXPECT_GT(cold, 1.2 * mild);
    EXPECT_NEAR(HeatingPerLoad(9, 3, 2.34, 4000, -15), 1.0, 1e-9);
    // Water-source heat pump: indifferent to the outdoor air.
    EXPECT_NEAR(HeatingPerLoad(6, 3, 4.3, 4000, 10), HeatingPerLoad(6, 3, 4.3, 4000, -15), 1e-9);
}

TEST(HvacSystems, EndUsesSumAndServiceHotWater) {
    Case c(3000, 0, 25, 50);
    ZoneSystem s = SystemOfType(11, 1, 14.0, 0.81, 2.5);
    s.hotWaterPerDay = 0.1;  // m3
    const SystemsResults r = c.Run(s);
    double sum = 0;
    for (int u = 0; u < kEndUseCount; ++u)
        for (int m = 0; m < 12; ++m) sum += r.electric[u][m];
    EXPECT_NEAR(sum, r.TotalElectric(), 1e-6 * sum);
    // Lights and receptacles are the gains the heat balance took.
    EXPECT_NEAR(r.Electric(kUseLights), 500.0 * kCounted, 1e-3);
    EXPECT_NEAR(r.Electric(kUseReceptacles), 250.0 * kCounted, 1e-3);
    // A constant fan profile: the fan runs every hour at flow x pressure / efficiency.
    EXPECT_NEAR(r.Electric(kUseFans), r.zones[0].fanPower * kCounted, 1e-3);
    EXPECT_NEAR(r.zones[0].fanPower, r.zones[0].airFlow * 2.5 * 248.84 / 0.55, 1e-6);
    // Hot water: the day's volume every day, heated by gas from the mains.
    EXPECT_NEAR(r.zones[0].hotWaterVolume, 36.4, 1e-6);
    EXPECT_EQ(r.Electric(kUseHotWater), 0);
    const double perM3 = r.Fuel(kUseHotWater) / 36.4 * 0.8 * 3600 / (998.0 * 4186.0);  // K rise
    EXPECT_GT(perM3, 60.0 - 25.0 - 8);
    EXPECT_LT(perM3, 60.0 - 25.0 + 8);
    // Peak demand: the largest hour is at least the steady lights and receptacles.
    for (int m = 0; m < 12; ++m) EXPECT_GE(r.peakDemand[m], 750.0 + r.zones[0].fanPower);
}

TEST(HvacSystems, SizingLeavesHotterHoursUnmet) {
    // Sized at a mild peak hour, the DX unit loses capacity in the heat.
    Case c(8000, 0, 44, 30);
    c.run.zones[0].peakCooling = 8000;
    c.w.hours[0].dryBulb = 22;  // peak hour at which the plant is sized
    const SystemsResults r =
        SimulateSystems(c.b, c.run, c.w, c.opt, {SystemOfType(11, 1, 14.0, 0.8, 2.5)});
    EXPECT_GT(r.zones[0].unmetCoolingHours, 8000);
    EXPECT_GT(r.zones[0].unmetCooling, 0);
    // A chiller sized at its own peak meets every hour of a constant load.
    Case d(8000, 0, 30, 50);
    d.run.zones[0].peakCooling = 8000;
    const SystemsResults q = d.Run(SystemOfType(2, 1, 23.08, 0.8, 4.1));
    EXPECT_EQ(q.zones[0].unmetCoolingHours, 0);
    // Heating 40 % above the peak that sized it: a furnace leaves the excess
    // over its 1.25 x peak unmet; a heat pump's resistance stage makes it up.
    Case e(0, 14000, 0, 50);
    const SystemsResults f = e.Run(SystemOfType(11, 1, 14.0, 0.8, 2.5));
    EXPECT_EQ(f.zones[0].unmetHeatingHours, 364 * 24);
    EXPECT_NEAR(f.zones[0].unmetHeating, (14000 - 12500) * kCounted, 1e-3 * kCounted);
    const SystemsResults hp = e.Run(SystemOfType(9, 3, 14.0, 2.34, 2.5));
    EXPECT_EQ(hp.zones[0].unmetHeatingHours, 0);
}

TEST(HvacSystems, EconomiserTakesLoadBelowItsHighLimitOnly) {
    // A 3 kW cooling load in a 23.9 C room with the fans on all the time.
    auto cooling = [](double dryBulb, bool economiser, double* free) {
        Case c(3000, 0, dryBulb, 50);
        c.b.zones[0].volume = 300;
        c.run.zones[0].airTemperature.assign(kHoursPerYear, 23.9f);
        ZoneSystem s = SystemOfType(11, 1, 14.0, 0.8, 1.0);
        s.economizer = economiser;
        s.economizerHighLimit = EconomizerHighLimit("5 A");  // 70 F
        const SystemsResults r = c.Run(s);
        if (free) *free = r.zones[0].economizerCooling;
        return r.Electric(kUseCooling);
    };
    double free = 0;
    // Cool outdoors: the outdoor air beyond the minimum carries the load.
    EXPECT_LT(cooling(12, true, &free), 0.5 * cooling(12, false, nullptr));
    EXPECT_GT(free, 0);
    EXPECT_LE(free, 3000 * kCounted + 1e-6);
    // Above the high limit (21.1 C) it stays shut.
    EXPECT_DOUBLE_EQ(cooling(22, true, &free), cooling(22, false, nullptr));
    EXPECT_EQ(free, 0);
    EXPECT_NEAR(EconomizerHighLimit("3 A"), 18.33, 0.01);
    EXPECT_NEAR(EconomizerHighLimit("5 B"), 23.89, 0.01);
    EXPECT_NEAR(EconomizerHighLimit("7"), 23.89, 0.01);
}

TEST(HvacSystems, ZoneHumidityFollowsItsSources) {
    // No cooling: the zone's air reaches the outdoor humidity through
    // infiltration, and people's moisture raises it above; a cooling coil
    // in a humid climate holds it below the outdoor air's.
    auto meanW = [](double cooling, double latent) {
        Case c(cooling, 0, 30, 40);
        c.b.zones[0].volume = 300;
        c.b.zones[0].infiltrationAch = 0.5;
        c.b.zones[0].gains.peopleLatent = latent;
        c.run.zones[0].airTemperature.assign(kHoursPerYear, 24.0f);
        const SystemsResults r = c.Run(SystemOfType(11, 1, 14.0, 0.8, 1.0));
        double w = 0;
        int n = 0;
        for (int m = 0; m < 12; ++m) w += r.zones[0].humidityRatioSum[m], n += r.zones[0].hours[m];
        return w / n;
    };
    const double outdoor = HumidityRatioOfRh(30, 40, 101325);
    EXPECT_NEAR(meanW(0, 0), outdoor, 2e-4);
    // 500 W of latent heat into 0.5 ach of 300 m3: about 0.0049 kg/kg more.
    const double airIn = 0.5 * 300 / 3600.0 * AirDensity(101325, 30);
    EXPECT_NEAR(meanW(0, 500) - meanW(0, 0), 500 / kLatentHeat / airIn, 3e-4);
    EXPECT_LT(meanW(6000, 500), outdoor - 0.001);
}

TEST(HvacSystems, PublishedConversionsAndPsychrometrics) {
    EXPECT_NEAR(CopFromSeer(13), 3.65, 0.01);
    EXPECT_NEAR(HeatingCopFromHspf(7.7), 3.74, 0.01);
    // Stull (2011): 20 C at 50 % is 13.7 C wet bulb.
    EXPECT_NEAR(WetBulb(20, 50), 13.7, 0.15);
    EXPECT_NEAR(DxCapacityRatio(19.44, 35), 1.0, 0.01);
    EXPECT_NEAR(HeatPumpCapacityRatio(8.33), 1.0, 0.01);
    EXPECT_NEAR(ChillerPartLoadPower(1.0), 1.0, 1e-3);
    // Mains water follows the air, lagging: warmest in late summer.
    EXPECT_GT(MainsTemperature(10, 25, 240, 40), MainsTemperature(10, 25, 60, 40));
}

}  // namespace
}  // namespace solvane::engine
