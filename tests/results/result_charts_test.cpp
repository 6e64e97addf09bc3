#include "results/result_charts.h"

#include <gtest/gtest.h>

#include <limits>

#include "ui/raster_canvas.h"

namespace solvane {
namespace {

// Canvas pixels of a twip position on a canvas 960 x 720: a tenth.
constexpr int kW = kChartTwipsWide / 10, kH = kChartTwipsHigh / 10;

TEST(SourceChart, BarsLabelsAndTheElectricFigures) {
    EnergySummary e;
    e.EnergyBreakdown = {0, 77.15, 5.17, 35.75, 0.2, 0, 0};
    e.CategoryName = {"", "HEATING", "COOLING", "LIGHTS", "EQUIP", "FANS", "DHW"};
    e.scale = 80;
    e.SiteEUI = 38.2;
    RasterCanvas canvas(kW, kH);
    ScreenFields f;
    DrawSourceChart(e, {"office.inp", "Office"}, f, canvas);
    EXPECT_EQ(f.caption, "office.inp -- Breakdown of Annual Energy:... ");
    // Heating: x 2000..2500, up from 5000 by 77.15 * 3500 / 80 = 3375.
    EXPECT_EQ(canvas.ColorAt(225, 480), PaletteColor(1));
    EXPECT_EQ(canvas.ColorAt(225, 170), PaletteColor(1));
    EXPECT_NE(canvas.ColorAt(225, 155), PaletteColor(1));
    EXPECT_EQ(canvas.ColorAt(425, 495), PaletteColor(3));  // lights, third bar
    EXPECT_EQ(f.Text("Label4_4"), "80");
    EXPECT_EQ(f.Text("Label4_2"), "40");
    EXPECT_EQ(f.Text("Label3_1"), "77.15");
    EXPECT_EQ(f.Find("Label3_3")->color, PaletteColor(3));
    // No electric figure for the first two; lights 35.75 MBtu = 10474 kWh
    // passes 1000, so it and what follows are in MWh.
    EXPECT_EQ(f.Find("kwh_2"), nullptr);
    EXPECT_EQ(f.Text("kwh_3"), "(10 )");
    EXPECT_EQ(f.Text("kwh_4"), "(0 )");  // 58.6 kWh, yet in MWh after the switch
    EXPECT_EQ(f.Text("kwh_head"), "MWh");
    EXPECT_EQ(f.Text("Label2_1"), "MBtu");
}

TEST(PeakChart, ViewButtonsTotalsAndNegativeBars) {
    ComponentLoads l;
    l.value = {9.43, -16.06, 0, 30.48, -19.49, 5, 6, 8, 24.65};
    for (int i = 0; i < 9; ++i) l.label[i] = "ROW " + std::to_string(i + 1);
    l.total = "194.53";
    l.peakDateText = "DEC 14 08:00";
    l.scale = 40;
    RasterCanvas canvas(kW, kH);
    ScreenFields f;
    DrawPeakChart(l, LoadView::PeakHeating, {"office.inp", "Office"}, f, canvas);
    EXPECT_EQ(f.caption, "office.inp -- Peak Heating Loads");
    EXPECT_FALSE(f.Enabled("peakheat"));
    EXPECT_TRUE(f.Enabled("annucool"));
    EXPECT_EQ(f.Text("Totheat"), "Total Peak Heating Loads = 194.53 kBtuh @ 08:00 on DEC 14");
    EXPECT_EQ(f.Text("Label4"), "kBtuh");
    EXPECT_EQ(f.Text("pluslb_2"), "40");
    EXPECT_EQ(f.Text("minlb_1"), "-20");
    EXPECT_EQ(f.Text("valcat_2"), "-16.06");
    // Category 2 at x 2300..2700 goes below the base line 3500 by 763 twips.
    EXPECT_EQ(canvas.ColorAt(250, 400), PaletteColor(2));
    EXPECT_NE(canvas.ColorAt(250, 340), PaletteColor(2));
    // Category 7 takes entry 12, the pale entry 7 being hard to see.
    EXPECT_EQ(f.Find("valcat_7")->color, PaletteColor(12));
    EXPECT_EQ(canvas.ColorAt(640, 345), PaletteColor(12));

    DrawPeakChart(l, LoadView::AnnualCooling, {"office.inp", "Office"}, f, canvas);
    EXPECT_EQ(f.Text("Totheat"), "Total Annual Cooling Loads = 194.53 MBtu.");
    EXPECT_TRUE(f.Enabled("peakheat"));
    EXPECT_FALSE(f.Enabled("annucool"));
}

TEST(MonthlyChart, PointsStartAtTheReportsFirstMonth) {
    MonthlyEnergy e;
    e.startMonth = 3;  // April
    for (int m = 3; m < 12; ++m) e.heating[m] = 10.0 * m, e.cooling[m] = 1000;
    e.scale = 200;
    e.units.units = 2;
    RasterCanvas canvas(kW, kH);
    ScreenFields f;
    DrawMonthlyEnergy(e, {"retail.inp", "Retail"}, f, canvas);
    // April's point at x 1450, y 5000 - 30 * 3500 / 200 = 4475.
    EXPECT_EQ(canvas.ColorAt(145, 447), 0xFF0000u);
    // Cooling, 1000 kWh = 3.6 GJ: y 5000 - 63 = 4937.
    EXPECT_EQ(canvas.ColorAt(145, 494), 0x0000C0u);
    EXPECT_EQ(f.Text("Label4"), "GJoules");
    EXPECT_EQ(f.Text("Totcool").substr(0, 23), "Total Cooling Energy = ");
}

TEST(MonthlyChart, CostsBeyondTheScaleRunOffTheChartAndNoFurther) {
    // The scale follows the total column; a gas figure far beyond it, or
    // beyond any number, is drawn toward the edge and is no pixel number
    // out of range.
    MonthlyCosts c;
    for (int m = 0; m < 12; ++m) c.total[m] = 100, c.elec[m] = 50;
    c.gas[0] = 1e300;
    c.gas[1] = -1e300;
    c.gas[2] = std::numeric_limits<double>::infinity();
    c.scale = 100;
    RasterCanvas canvas(kW, kH);
    ScreenFields f;
    DrawMonthlyCosts(c, {"store.inp", "Store"}, f, canvas);
    // The gas line crosses the whole canvas between January and February.
    const auto gasIn = [&](int y) {
        for (int x = 145; x <= 205; ++x)
            if (canvas.ColorAt(x, y) == 0xFF0000u) return true;
        return false;
    };
    EXPECT_TRUE(gasIn(0));
    EXPECT_TRUE(gasIn(kH - 1));
    // The total's points stand where the scale puts them: 1450, 5000 - 3500.
    EXPECT_EQ(canvas.ColorAt(145, 150), 0x008000u);
}

TEST(MonthlyCostChart, APeriodEndingBeforeDecemberIsTotalledNotPlotted) {
    // April to September: the period's figures stand in October's place.
    MonthlyCosts c;
    c.startMonth = 3;
    for (int m = 3; m <= 8; ++m) c.gas[m] = 0, c.elec[m] = 100, c.total[m] = 100;
    c.gas[9] = 0, c.elec[9] = 600, c.total[9] = 600;
    c.periodIndex = 9;
    c.scale = 1000;
    RasterCanvas canvas(kW, kH);
    ScreenFields f;
    DrawMonthlyCosts(c, {"retail.inp", "Retail"}, f, canvas);
    // April's total at x 1450, y 5000 - 100 * 3500 / 1000 = 4650.
    EXPECT_EQ(canvas.ColorAt(145, 465), 0x008000u);
    // No point for the period at October's place (x 5050, y 2900).
    EXPECT_NE(canvas.ColorAt(505, 290), 0x008000u);
    EXPECT_EQ(f.Text("Tottotal"), "Total Costs = $ 600");
}

}  // namespace
}  // namespace solvane
