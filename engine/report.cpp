#include "engine/report.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>

#include "core/line_writer.h"
#include "core/numeric_helpers.h"
#include "engine/report_costs.h"
#include "engine/report_format.h"

namespace solvane::engine {
namespace {

constexpr double kWhToMBtu = 3.412141e-6;  // Wh -> MBtu
constexpr double kWhToGJ = 3.6e-6;
constexpr double kWToKBtuh = 3.412141e-3;
constexpr double kM2ToFt2 = 10.76391;

std::string HourText(int hourOfYear) {
    if (hourOfYear < 0) return "NONE";
    const int day = hourOfYear / 24, hour = hourOfYear % 24 + 1;
    const int m = MonthOfDay(day);
    char buf[32];
    std::snprintf(buf, sizeof buf, "%s %2d %02d:00", kMonthName[m], day - kMonthStartDay[m] + 1,
                  hour);
    return buf;
}

// The peak totals of the line under the component table, columns 30-44:
// the charts of peak heating and of peak cooling both take their total
// from there, so it carries both, "H" the heating and "C" the cooling
// peak, each chart showing its own beside the other. Blanks, then
// decimals give way to the width.
std::string BothPeaks(double heat, double cool) {
    char buf[64] = "";
    for (int d = 2; d >= 0; --d) {
        std::snprintf(buf, sizeof buf, "H %.*f C %.*f", d, heat, d, cool);
        if (std::strlen(buf) <= 15) break;
        std::snprintf(buf, sizeof buf, "H%.*f C%.*f", d, heat, d, cool);
        if (std::strlen(buf) <= 15) break;
    }
    return FormatField(buf, "@@@@@@@@@@@@@@@");
}

double Temp(double c, bool si) {
    return si ? c : c * 1.8 + 32;
}

const char* SystemName(const ZoneSystem& s) {
    switch (s.cooling) {
        case CoolingPlant::AirCooledDx:
            return "DX";
        case CoolingPlant::WaterSourceDx:
            return "WSHP";
        case CoolingPlant::WaterChiller:
            return "CHILLER";
        case CoolingPlant::Evaporative:
            return "EVAP";
        case CoolingPlant::None:
            break;
    }
    return "NONE";
}

const char* HeaterName(const ZoneSystem& s) {
    switch (s.heating) {
        case HeatingPlant::Furnace:
            return "FURNACE";
        case HeatingPlant::Boiler:
            return "BOILER";
        case HeatingPlant::Electric:
            return "ELEC.";
        case HeatingPlant::AirSourceHeatPump:
            return "AIR HP";
        case HeatingPlant::WaterSourceHeatPump:
            return "WATER HP";
        case HeatingPlant::None:
            break;
    }
    return "NONE";
}

// The likely cause of a zone's unmet hours: no plant for the load, or a
// plant short of capacity in those hours (the sizing is at the peak hour's
// conditions; a hotter hour, a wetter room or a heat pump's cold limit
// leaves it short).
std::string UnmetCause(const ZoneSystem& s, const ZoneSystemResults& o) {
    std::string c;
    if (o.unmetCoolingHours > 0)
        c = s.cooling == CoolingPlant::None ? "NO COOLING PLANT" : "CLG CAPACITY SHORT";
    if (o.unmetHeatingHours > 0)
        c += std::string(c.empty() ? "" : ", ") +
             (s.heating == HeatingPlant::None ? "NO HEATING PLANT" : "HTG CAPACITY SHORT");
    return c.empty() ? "-" : c;
}

// VI.: each zone's sized plant and unmet hours, then the end uses by month
// (electricity in kWh, fuel in the heating unit) and the peak electric
// demand. Month rows start with a blank so that no reader takes them for
// the monthly table of III.
void SystemsSection(LineWriter& out, const Building& b, const RunResults& r,
                    const SystemsResults& sys, const std::vector<ZoneSystem>& systems,
                    const ReportContext& c, int firstMonth, int lastMonth) {
    const bool si = c.si;
    const double pUnit = si ? 1e-3 : kWToKBtuh;
    const double eUnit = si ? kWhToGJ : kWhToMBtu;
    out.Line("VI.  HVAC SYSTEMS, END USES AND PEAK ELECTRIC DEMAND");
    out.Line();
    if (sys.sizedOnDesignDays) {
        auto t = [&](double c) {
            char buf[32];
            std::snprintf(buf, sizeof buf, "%.1f", si ? c : c * 1.8 + 32.0);
            return std::string(buf);
        };
        const char* u = si ? " C" : " F";
        out.Line("    PLANT SIZED ON THE DESIGN DAYS: SUMMER " + t(sys.design.summerDryBulb) + u +
                 " DRY BULB, " + t(sys.design.summerWetBulb) + u + " WET BULB; WINTER " +
                 t(sys.design.winterDryBulb) + u + " (COOLING x 1.15, HEATING x 1.25)");
    } else {
        out.Line("    PLANT SIZED AT THE YEAR'S PEAK HOURS (COOLING x 1.15, HEATING x 1.25)");
    }
    out.Text("    ZONE")
        .Column(30)
        .Text("TYPE")
        .Column(35)
        .Text("COOLING")
        .Column(44)
        .Text("HEATING")
        .Column(54)
        .Text(si ? " CLG CAP" : " CLG CAP")
        .Column(64)
        .Text(" HTG CAP")
        .Column(74)
        .Text(si ? "  AIR L/S" : "  AIR CFM")
        .Column(85)
        .Text(" FAN KW")
        .Column(94)
        .Text("UNMET CLG H")
        .Column(107)
        .Text("UNMET HTG H")
        .Column(120)
        .Text("LIKELY CAUSE")
        .EndLine();
    out.Column(54).Text(FormatField(si ? "KW" : "KBTUH", "@@@@@@@@"));
    out.Column(64).Text(FormatField(si ? "KW" : "KBTUH", "@@@@@@@@")).EndLine();
    out.Line("    " + std::string(128, '-'));
    for (std::size_t z = 0; z < sys.zones.size() && z < b.zones.size(); ++z) {
        const ZoneSystemResults& o = sys.zones[z];
        const ZoneSystem& s = z < systems.size() ? systems[z] : ZoneSystem{};
        out.Text("    " + (b.zones[z].number.empty() ? r.zones[z].name : b.zones[z].number))
            .Column(30)
            .Text(Fixed(s.hvacType, 4, 0))
            .Column(35)
            .Text(SystemName(s))
            .Column(44)
            .Text(HeaterName(s))
            .Column(54)
            .Text(Fixed(o.coolingCapacity * pUnit, 8, 2))
            .Column(64)
            .Text(Fixed(o.heatingCapacity * pUnit, 8, 2))
            .Column(74)
            .Text(Fixed(o.airFlow * (si ? 1000.0 : 2118.88), 9, 0))
            .Column(85)
            .Text(Fixed(o.fanPower / 1000.0, 7, 2))
            .Column(94)
            .Text(Fixed(o.unmetCoolingHours, 11, 0))
            .Column(107)
            .Text(Fixed(o.unmetHeatingHours, 11, 0))
            .Column(120)
            .Text(UnmetCause(s, o))
            .EndLine();
    }
    out.Line();
    out.Line(std::string("    END USES: ELECTRICITY IN KWH, FUEL IN ") + (si ? "GJ" : "MBTU") +
             ", PEAK ELECTRIC DEMAND IN KW");
    const char* head[] = {"HEATING", "COOLING", "FANS", "PUMPS", "LIGHTS", "RECEPT.", "HOT WTR"};
    out.Text("    MTH");
    for (int u = 0; u < kEndUseCount; ++u)
        out.Column(9 + 10 * u).Text(FormatField(head[u], "@@@@@@@@@"));
    out.Column(79).Text(FormatField("ELEC TOT", "@@@@@@@@@@"));
    out.Column(90).Text(FormatField("FUEL HTG", "@@@@@@@@@"));
    out.Column(100).Text(FormatField("FUEL DHW", "@@@@@@@@@"));
    out.Column(110).Text(FormatField("PEAK KW", "@@@@@@@@@"));
    out.Column(120).Text("PEAK TIME").EndLine();
    out.Line("    " + std::string(126, '-'));
    std::array<double, kEndUseCount> tot{};
    double totFuelH = 0, totFuelW = 0, peak = 0;
    int peakHour = -1;
    auto row = [&](const std::string& name, const std::array<double, kEndUseCount>& e, double fuelH,
                   double fuelW, double pk, int pkHour) {
        out.Text(" " + name);
        double sum = 0;
        for (int u = 0; u < kEndUseCount; ++u) {
            out.Column(9 + 10 * u).Text(Fixed(e[u] / 1000.0, 9, 0));
            sum += e[u];
        }
        out.Column(79).Text(Fixed(sum / 1000.0, 10, 0));
        out.Column(90)
            .Text(Fixed(fuelH * eUnit, 9, 2))
            .Column(100)
            .Text(Fixed(fuelW * eUnit, 9, 2));
        out.Column(110).Text(Fixed(pk / 1000.0, 9, 1)).Column(120).Text(HourText(pkHour)).EndLine();
    };
    for (int m = firstMonth; m <= lastMonth; ++m) {
        std::array<double, kEndUseCount> e{};
        for (int u = 0; u < kEndUseCount; ++u) e[u] = sys.electric[u][m], tot[u] += e[u];
        double fuelAll = 0;
        for (int u = 0; u < kEndUseCount; ++u) fuelAll += sys.fuel[u][m];
        const double fuelW = sys.fuel[kUseHotWater][m];
        totFuelH += fuelAll - fuelW, totFuelW += fuelW;
        if (sys.peakDemand[m] > peak) peak = sys.peakDemand[m], peakHour = sys.peakDemandHour[m];
        row(std::string("   ") + kMonthName[m], e, fuelAll - fuelW, fuelW, sys.peakDemand[m],
            sys.peakDemandHour[m]);
    }
    out.Line("    " + std::string(126, '-'));
    row("   YEAR", tot, totFuelH, totFuelW, peak, peakHour);
    out.Line();
    out.Line(
        "    SOURCE ENERGY: ELECTRICITY x 2.80, NATURAL GAS x 1.05 (ENERGY STAR PORTFOLIO "
        "MANAGER, 2018)");
    int unmetC = 0, unmetH = 0;
    for (const ZoneSystemResults& o : sys.zones)
        unmetC += o.unmetCoolingHours, unmetH += o.unmetHeatingHours;
    out.Line("    UNMET LOAD HOURS, ALL ZONES: COOLING " + std::to_string(unmetC) + ", HEATING " +
             std::to_string(unmetH));
    out.Line();
    // Indoor humidity of the zone's air: the moisture balance's mean and
    // highest relative humidity, and the hours above 60 %.
    out.Line("    INDOOR HUMIDITY");
    out.Text("    ZONE")
        .Column(30)
        .Text("MEAN RH %")
        .Column(42)
        .Text("MAX RH %")
        .Column(53)
        .Text("HOURS > 60 %")
        .Column(68)
        .Text(si ? "MEAN W G/KG" : "MEAN W GR/LB")
        .Column(82)
        .Text("COIL LATENT")
        .Column(96)
        .Text("ECONOMISER")
        .EndLine();
    out.Line("    " + std::string(102, '-'));
    for (std::size_t z = 0; z < sys.zones.size() && z < b.zones.size(); ++z) {
        const ZoneSystemResults& o = sys.zones[z];
        double rh = 0, w = 0, latent = 0;
        int hours = 0;
        for (int m = 0; m < 12; ++m)
            rh += o.rhSum[m], w += o.humidityRatioSum[m], hours += o.hours[m],
                latent += o.coilLatent[m];
        if (hours == 0) continue;
        out.Text("    " + (b.zones[z].number.empty() ? r.zones[z].name : b.zones[z].number))
            .Column(30)
            .Text(Fixed(rh / hours, 9, 1))
            .Column(42)
            .Text(Fixed(o.maxRh, 8, 1))
            .Column(53)
            .Text(Fixed(o.hoursAboveRh60, 12, 0))
            .Column(68)
            .Text(Fixed(w / hours * (si ? 1000.0 : 7000.0), 11, 2))
            .Column(82)
            .Text(Fixed(latent / 1000.0 * (si ? 1.0 : 3.412142), 11, 0))
            .Column(96)
            .Text(Fixed(o.economizerCooling / 1000.0 * (si ? 1.0 : 3.412142), 10, 0))
            .EndLine();
    }
    out.Line(std::string("    COIL LATENT: MOISTURE CONDENSED ON THE COOLING COIL; ECONOMISER: ") +
             "COOLING LOAD TAKEN BY OUTDOOR AIR; " + (si ? "KWH" : "KBTU"));
    out.Line();
}

}  // namespace

std::string MonitorText(const ReportContext& c, int zoneCount,
                        const std::vector<std::string>& notes, const std::string& status) {
    LineWriter out;
    out.Line("SOLV2020 HOURLY SIMULATION ENGINE");
    out.Line("RUN TYPE " + std::to_string(c.control.runType) + "   PERIOD DAY " +
             std::to_string(c.control.beginDay) + " TO DAY " + std::to_string(c.control.endDay));
    out.Line("WEATHER: " + c.weatherSource);
    out.Line("ZONES: " + std::to_string(zoneCount));
    out.Line(" " + c.location);
    for (const std::string& n : notes) out.Line(n);
    out.Line(status);
    return out.Str();
}

std::string SimOutText(const Building& b, const RunResults& r, const SystemsResults& sys,
                       const std::vector<ZoneSystem>& systems, const ReportContext& c,
                       const CostResults* costs) {
    LineWriter out;
    const bool si = c.si;
    const double eUnit = si ? kWhToGJ : kWhToMBtu;  // annual energy
    const double pUnit = si ? 1e-3 : kWToKBtuh;     // peak loads
    const char* eName = si ? "GJ" : "MBTU";
    const char* pName = si ? "KW" : "KBTUH";
    double floorArea = 0;  // m2
    for (const Zone& z : b.zones) floorArea += z.floorArea;
    const double areaUnits = si ? floorArea : floorArea * kM2ToFt2;

    // ---- monthly summary -----------------------------------------------------
    // Heating is the plant's energy (fuel and electricity), cooling the
    // plant's electricity, both from the systems model.
    std::array<double, 12> heatEnergy{}, coolElec{}, heatLoad{}, coolLoad{}, peakH{}, peakC{};
    for (int m = 0; m < 12; ++m) {
        heatEnergy[m] = sys.fuel[kUseHeating][m] + sys.electric[kUseHeating][m];
        coolElec[m] = sys.electric[kUseCooling][m];
    }
    for (const ZoneResults& zr : r.zones) {
        for (int m = 0; m < 12; ++m) {
            heatLoad[m] += zr.monthlyHeating[m];
            coolLoad[m] += zr.monthlyCooling[m];
        }
        if (!zr.heating.empty()) {
            for (int h = 0; h < kHoursPerYear; ++h) {
                const int m = MonthOfDay(h / 24);
                peakH[m] = std::max(peakH[m], static_cast<double>(zr.heating[h]));
                peakC[m] = std::max(peakC[m], static_cast<double>(zr.cooling[h]));
            }
        }
    }
    out.Line("III.  MONTHLY ENERGY SUMMARY AND SITE ENERGY");
    out.Line();
    out.Line("    ZONE LOADS AND THE ENERGY OF THEIR HVAC SYSTEMS");
    out.Text("    PROJECT AND LOCATION:")
        .Column(89)
        .Text((c.projectName + ", " + c.location).substr(0, 44));
    out.EndLine();
    out.Line(
        "    HEATING: FUEL AND ELECTRICITY OF THE HEATING PLANT; COOLING: ELECTRICITY OF THE "
        "COOLING PLANT (SECTION VI.)");
    out.Line();
    out.Text("MONTHLY HEATING AND COOLING");
    if (costs) out.Column(63).Text("ELECTRIC DEMAND, WATER AND UTILITY COSTS AT FIRST-YEAR PRICES");
    out.EndLine();
    out.Text("   ").Column(4).Text(FormatField(eName, "@@@@@@@@"));
    out.Column(13).Text(FormatField(pName, "@@@@@@@@@"));
    out.Column(22).Text(FormatField(pName, "@@@@@@@@@"));
    out.Column(31).Text(FormatField("KWH", "@@@@@@@@@"));
    out.Column(41).Text(FormatField(eName, "@@@@@@@@@@"));
    out.Column(52).Text(FormatField(eName, "@@@@@@@@@@"));
    if (costs) CostColumnUnits(out, si);
    out.EndLine();
    out.Text("MTH")
        .Column(4)
        .Text(" HEATING")
        .Column(13)
        .Text(" PEAK HTG")
        .Column(22)
        .Text(" PEAK CLG")
        .Column(31)
        .Text("  COOLING")
        .Column(41)
        .Text(" HTG. LOAD")
        .Column(52)
        .Text(" CLG. LOAD");
    if (costs) CostColumnNames(out);
    out.EndLine();
    const std::size_t ruleWidth = costs ? 122 : 61;
    out.Line(std::string(ruleWidth, '-'));
    out.Line();
    int firstMonth = MonthOfDay(std::clamp(c.control.beginDay, 1, 365) - 1);
    int lastMonth = MonthOfDay(std::clamp(c.control.endDay, 1, 365) - 1);
    double totH = 0, totC = 0, totHL = 0, totCL = 0;
    for (int m = firstMonth; m <= lastMonth; ++m) {
        out.Text(kMonthName[m]).Column(4).Text(Fixed(heatEnergy[m] * eUnit, 8, 3));
        out.Column(13).Text(Fixed(peakH[m] * pUnit, 9, 2));
        out.Column(22).Text(Fixed(peakC[m] * pUnit, 9, 2));
        out.Column(31).Text(Fixed(coolElec[m] / 1000.0, 9, 0));
        out.Column(41).Text(Fixed(heatLoad[m] * eUnit, 10, 3));
        out.Column(52).Text(Fixed(coolLoad[m] * eUnit, 10, 3));
        if (costs) CostColumns(out, costs->month[m], si);
        out.EndLine();
        totH += heatEnergy[m], totC += coolElec[m], totHL += heatLoad[m], totCL += coolLoad[m];
    }
    out.Line(std::string(ruleWidth, '='));
    out.Text("TOT").Column(4).Text(Fixed(totH * eUnit, 8, 3));
    out.Column(31).Text(Fixed(totC / 1000.0, 9, 0));
    out.Column(41).Text(Fixed(totHL * eUnit, 10, 3));
    out.Column(52).Text(Fixed(totCL * eUnit, 10, 3));
    if (costs) {
        CostTotalsOnEnergyLine(out, costs->Period(), si);
        out.EndLine();
        CostTotalsLine(out, costs->Period());
    } else {
        out.EndLine();
    }
    out.Line();
    // Site energy by category: heating (fuel and electricity), cooling
    // with its pumps, lights, receptacles, fans, service hot water.
    const double cat[6] = {totH * eUnit,
                           (totC + sys.Electric(kUsePumps)) * eUnit,
                           sys.Electric(kUseLights) * eUnit,
                           sys.Electric(kUseReceptacles) * eUnit,
                           sys.Electric(kUseFans) * eUnit,
                           (sys.Electric(kUseHotWater) + sys.Fuel(kUseHotWater)) * eUnit};
    out.Text("    ")
        .Column(18)
        .Text("HEATING")
        .Column(27)
        .Text(" COOLING")
        .Column(38)
        .Text(" LIGHTS")
        .Column(48)
        .Text("  EQUIP")
        .Column(57)
        .Text("   FANS")
        .Column(68)
        .Text("  DHW")
        .EndLine();
    out.Text("Site " + std::string(eName));
    out.Column(18).Text(Fixed(cat[0], 7, 2)).Column(27).Text(Fixed(cat[1], 8, 2));
    out.Column(38).Text(Fixed(cat[2], 7, 2)).Column(48).Text(Fixed(cat[3], 7, 2));
    out.Column(57).Text(Fixed(cat[4], 7, 2)).Column(68).Text(Fixed(cat[5], 7, 2)).EndLine();
    double site = 0;
    for (double v : cat) site += v;
    // Source energy with the site-to-source ratios of ENERGY STAR Portfolio
    // Manager (Technical Reference: Source Energy, 2018): electricity 2.80,
    // natural gas 1.05.
    const double siteFuel = sys.TotalFuel() * eUnit;
    const double source = siteFuel * 1.05 + (site - siteFuel) * 2.80;
    const double perArea = si ? 1000.0 : 1000.0;  // GJ -> MJ, MBtu -> kBtu
    const double siteEui = areaUnits > 0 ? site * perArea / areaUnits : 0;
    const double sourceEui = areaUnits > 0 ? source * perArea / areaUnits : 0;
    out.Text(si ? "    MJ/SQ.M." : "    KBTU/SQ.FT.")
        .Column(34)
        .Text("SITE EUI")
        .Column(51)
        .Text(Fixed(siteEui, 6, 1));
    out.Column(60).Text("PER AREA").Column(89).Text(Fixed(siteEui, 7, 1));
    out.Column(104).Text(Fixed(sourceEui, 7, 1)).Column(112).Text("SOURCE EUI").EndLine();
    out.Line();

    // ---- component loads ---------------------------------------------------------
    std::array<double, kComponentCount> ah{}, ac{}, ph{}, pc{};
    double peakHeat = 0, peakCool = 0, annH = 0, annC = 0;
    int peakHeatHour = -1, peakCoolHour = -1;
    std::vector<double> sumH(kHoursPerYear, 0.0), sumC(kHoursPerYear, 0.0);
    for (const ZoneResults& zr : r.zones) {
        for (int k = 0; k < kComponentCount; ++k) {
            ah[k] += zr.heatingByComponent[k];
            ac[k] += zr.coolingByComponent[k];
        }
        annH += zr.heatingEnergy;
        annC += zr.coolingEnergy;
        for (int h = 0; h < static_cast<int>(zr.heating.size()); ++h) {
            sumH[h] += zr.heating[h];
            sumC[h] += zr.cooling[h];
        }
    }
    for (int h = 0; h < kHoursPerYear; ++h) {
        if (sumH[h] > peakHeat) peakHeat = sumH[h], peakHeatHour = h;
        if (sumC[h] > peakCool) peakCool = sumC[h], peakCoolHour = h;
    }
    // Components at the building's peak hours: each zone's share at that
    // hour, from its own peak breakdown scaled when the zone peaks then, else
    // its load split in proportion to its annual breakdown.
    for (const ZoneResults& zr : r.zones) {
        auto addAt = [&](int hour, const std::vector<float>& series,
                         const std::array<double, kComponentCount>& atPeak, int zonePeakHour,
                         const std::array<double, kComponentCount>& annual, double annualTotal,
                         std::array<double, kComponentCount>& into) {
            if (hour < 0 || series.empty() || series[hour] <= 0) return;
            if (hour == zonePeakHour) {
                for (int k = 0; k < kComponentCount; ++k) into[k] += atPeak[k];
            } else if (annualTotal > 0) {
                for (int k = 0; k < kComponentCount; ++k)
                    into[k] += series[hour] * annual[k] / annualTotal;
            }
        };
        addAt(peakHeatHour, zr.heating, zr.peakHeatingComponents, zr.peakHeatingHour,
              zr.heatingByComponent, zr.heatingEnergy, ph);
        addAt(peakCoolHour, zr.cooling, zr.peakCoolingComponents, zr.peakCoolingHour,
              zr.coolingByComponent, zr.coolingEnergy, pc);
    }
    out.Line("IV.  DESIGN DATA FOR HVAC ZONES: LOADS BY COMPONENT, ALL ZONES");
    out.Line();
    out.Text("COMPONENT")
        .Column(29)
        .Text("PEAK HEATING")
        .Column(45)
        .Text("PEAK COOLING")
        .Column(100)
        .Text("ANNUAL HEATING")
        .Column(117)
        .Text("ANNUAL COOLING")
        .EndLine();
    out.Column(29).Text(FormatField(pName, "@@@@@@@@")).Column(38).Text("    %");
    out.Column(45).Text(FormatField(pName, "@@@@@@@@")).Column(54).Text("    %");
    out.Column(100).Text(FormatField(eName, "@@@@@@@@")).Column(109).Text("    %");
    out.Column(117).Text(FormatField(eName, "@@@@@@@@")).Column(126).Text("    %").EndLine();
    out.Line(std::string(130, '-'));
    const char* rowName[kComponentCount] = {
        "ROOF",         "WALLS AND DOORS", "FLOORS AND SLABS", "WINDOW CONDUCTION",
        "WINDOW SOLAR", "PEOPLE",          "LIGHTS",           "EQUIPMENT",
        "INFILTRATION", "OUTDOOR AIR",     "NATURAL VENT.",    "MASS AND AIR STORAGE"};
    auto pct = [](double v, double total) { return total != 0 ? 100.0 * v / total : 0.0; };
    double tph = 0, tpc = 0;
    for (int k = 0; k < kComponentCount; ++k) tph += ph[k], tpc += pc[k];
    auto row = [&](const std::string& name, double a, double b2, double c2, double d) {
        out.Text(name)
            .Column(29)
            .Text(Fixed(a * pUnit, 8, 2))
            .Column(38)
            .Text(Fixed(pct(a, tph), 5, 1));
        out.Column(45).Text(Fixed(b2 * pUnit, 8, 2)).Column(54).Text(Fixed(pct(b2, tpc), 5, 1));
        out.Column(100).Text(Fixed(c2 * eUnit, 8, 3)).Column(109).Text(Fixed(pct(c2, annH), 5, 1));
        out.Column(117)
            .Text(Fixed(d * eUnit, 8, 3))
            .Column(126)
            .Text(Fixed(pct(d, annC), 5, 1))
            .EndLine();
    };
    for (int k = 0; k < kComponentCount; ++k) row(rowName[k], ph[k], pc[k], ah[k], ac[k]);
    out.Line(std::string(130, '-'));
    row("TOTAL", tph, tpc, annH, annC);
    out.Line();
    out.Line("    PEAK HEATING AT " + HourText(peakHeatHour) + ", PEAK COOLING AT " +
             HourText(peakCoolHour) + " (HOUR ENDING, STANDARD TIME)");
    out.Line(
        "    HEATING COLUMNS COUNT LOSSES POSITIVE, COOLING COLUMNS GAINS POSITIVE; PEAK TOTALS "
        "BELOW: H HEATING, C COOLING");
    out.Line();
    out.Line(std::string(130, '-'));
    out.Text("TOTAL LOADS").Column(30).Text(BothPeaks(peakHeat * pUnit, peakCool * pUnit));
    out.Column(46).Text(HourText(peakHeatHour));
    out.Column(100).Text(Fixed(annH * eUnit, 8, 3));
    out.Column(117).Text(Fixed(annC * eUnit, 8, 3)).EndLine();
    const double pa = si ? 1000.0 : 1000.0;  // kW -> W per m2, kBtuh -> Btuh per sq.ft
    const double ea = si ? 1000.0 : 1000.0;  // GJ -> MJ, MBtu -> kBtu
    out.Text(si ? "PER SQ.M." : "PER SQ.FT.");
    if (areaUnits > 0) {
        out.Column(30).Text(Fixed(peakHeat * pUnit * pa / areaUnits, 8, 2));
        out.Column(47).Text(Fixed(peakCool * pUnit * pa / areaUnits, 8, 2));
        out.Column(100).Text(Fixed(annH * eUnit * ea / areaUnits, 8, 2));
        out.Column(117).Text(Fixed(annC * eUnit * ea / areaUnits, 8, 2));
    }
    out.EndLine();
    out.Text("    PEAK COOLING TOTAL")
        .Column(30)
        .Text(Fixed(peakCool * pUnit, 8, 2))
        .Column(46)
        .Text(HourText(peakCoolHour))
        .EndLine();
    out.Line();

    // ---- zone peaks ------------------------------------------------------------------
    out.Line("    ZONE PEAKS AND ENERGY BALANCE");
    out.Text("    ZONE")
        .Column(20)
        .Text("PEAK HTG")
        .Column(30)
        .Text("TIME")
        .Column(44)
        .Text("PEAK CLG")
        .Column(54)
        .Text("TIME")
        .Column(68)
        .Text("BALANCE ERROR")
        .EndLine();
    for (std::size_t z = 0; z < r.zones.size(); ++z) {
        const ZoneResults& zr = r.zones[z];
        out.Text("    " + b.zones[z].number + " " + b.zones[z].name.substr(0, 8));
        out.Column(20)
            .Text(Fixed(zr.peakHeating * pUnit, 8, 2))
            .Column(30)
            .Text(HourText(zr.peakHeatingHour));
        out.Column(44)
            .Text(Fixed(zr.peakCooling * pUnit, 8, 2))
            .Column(54)
            .Text(HourText(zr.peakCoolingHour));
        char buf[32];
        std::snprintf(buf, sizeof buf, "%.2e", zr.BalanceError());
        out.Column(68).Text(buf).EndLine();
    }
    out.Line();

    // ---- peak-day profiles -------------------------------------------------------------
    out.Line("V.   PEAK DEMAND PROFILES: HOURLY LOADS OF THE PEAK DAYS, ALL ZONES (" +
             std::string(pName) + ")");
    out.Line();
    const int hd = peakHeatHour >= 0 ? peakHeatHour / 24 : 0;
    const int cd = peakCoolHour >= 0 ? peakCoolHour / 24 : 0;
    out.Text("    HOUR")
        .Column(12)
        .Text("HEATING " + HourText(hd * 24).substr(0, 6))
        .Column(32)
        .Text("COOLING " + HourText(cd * 24).substr(0, 6))
        .EndLine();
    for (int h = 0; h < 24; ++h) {
        out.Text("    " + Fixed(h + 1, 4, 0))
            .Column(12)
            .Text(Fixed(sumH[hd * 24 + h] * pUnit, 10, 2));
        out.Column(32).Text(Fixed(sumC[cd * 24 + h] * pUnit, 10, 2)).EndLine();
    }
    out.Line();
    SystemsSection(out, b, r, sys, systems, c, firstMonth, lastMonth);
    if (costs) CostSection(out, *costs, c);
    return out.Str();
}

std::string WeatherSummaryText(const WeatherYear& w, const ReportContext& c) {
    LineWriter out;
    const bool si = c.si;
    out.Line("VIII. WEATHER SUMMARY");
    out.Line("    " + c.weatherSource);
    out.Line("    " + w.site.name + "   LAT " + Fixed(w.site.latitude, 7, 2) + "   LONG " +
             Fixed(w.site.longitude, 8, 2) + "   ELEV " +
             Fixed(si ? w.site.elevation : w.site.elevation / 0.3048, 7, 0) + (si ? " M" : " FT"));
    out.Line();
    const char* t = si ? "C" : "F";
    out.Text("    MONTH")
        .Column(14)
        .Text(std::string("DB MEAN ") + t)
        .Column(26)
        .Text(std::string("DB MAX ") + t)
        .Column(38)
        .Text(std::string("DB MIN ") + t)
        .Column(50)
        .Text(std::string("DP MEAN ") + t)
        .Column(62)
        .Text(si ? "SOLAR KWH/SQ.M.DAY" : "SOLAR BTU/SQ.FT.DAY")
        .Column(84)
        .Text(si ? "WIND M/S" : "WIND MPH")
        .EndLine();
    out.Line("    " + std::string(88, '-'));
    struct Day {
        double mean = 0, max = -1e9, min = 1e9, dew = 0, solar = 0, wind = 0;
    };
    std::vector<Day> days(365);
    for (int d = 0; d < 365; ++d) {
        for (int h = 0; h < 24; ++h) {
            const WeatherHour& wh = w.hours[d * 24 + h];
            days[d].mean += wh.dryBulb / 24.0;
            days[d].max = std::max(days[d].max, static_cast<double>(wh.dryBulb));
            days[d].min = std::min(days[d].min, static_cast<double>(wh.dryBulb));
            days[d].dew += wh.dewPoint / 24.0;
            days[d].solar += wh.globalHorizontal;
            days[d].wind += wh.windSpeed / 24.0;
        }
    }
    auto solar = [&](double wh) { return si ? wh / 1000.0 : wh / 3.154591; };
    auto wind = [&](double ms) { return si ? ms : ms / 0.44704; };
    for (int m = 0; m < 12; ++m) {
        Day s;
        const int n = kMonthStartDay[m + 1] - kMonthStartDay[m];
        for (int d = kMonthStartDay[m]; d < kMonthStartDay[m + 1]; ++d) {
            s.mean += days[d].mean / n;
            s.max = std::max(s.max, days[d].max);
            s.min = std::min(s.min, days[d].min);
            s.dew += days[d].dew / n;
            s.solar += days[d].solar / n;
            s.wind += days[d].wind / n;
        }
        out.Text(std::string("    ") + kMonthName[m])
            .Column(14)
            .Text(Fixed(Temp(s.mean, si), 8, 1));
        out.Column(26)
            .Text(Fixed(Temp(s.max, si), 8, 1))
            .Column(38)
            .Text(Fixed(Temp(s.min, si), 8, 1));
        out.Column(50)
            .Text(Fixed(Temp(s.dew, si), 8, 1))
            .Column(62)
            .Text(Fixed(solar(s.solar), 10, si ? 2 : 0));
        out.Column(84).Text(Fixed(wind(s.wind), 7, 1)).EndLine();
    }
    out.Line();
    out.Line(" DAILY WEATHER");
    out.Text("    DAY")
        .Column(14)
        .Text("DB MEAN")
        .Column(26)
        .Text("DB MAX")
        .Column(38)
        .Text("DB MIN")
        .Column(50)
        .Text("DP MEAN")
        .Column(62)
        .Text("SOLAR")
        .Column(84)
        .Text("WIND")
        .EndLine();
    for (int d = 0; d < 365; ++d) {
        const int m = MonthOfDay(d);
        char label[16];
        std::snprintf(label, sizeof label, "%s %2d", kMonthName[m], d - kMonthStartDay[m] + 1);
        out.Text(std::string("    ") + label).Column(14).Text(Fixed(Temp(days[d].mean, si), 8, 1));
        out.Column(26)
            .Text(Fixed(Temp(days[d].max, si), 8, 1))
            .Column(38)
            .Text(Fixed(Temp(days[d].min, si), 8, 1));
        out.Column(50)
            .Text(Fixed(Temp(days[d].dew, si), 8, 1))
            .Column(62)
            .Text(Fixed(solar(days[d].solar), 10, si ? 2 : 0));
        out.Column(84).Text(Fixed(wind(days[d].wind), 7, 1)).EndLine();
    }
    return out.Str();
}

std::string ComfortText(const Building& b, const RunResults& r, const ReportContext& c) {
    LineWriter out;
    const bool si = c.si;
    const char* t = si ? "C" : "F";
    out.Line("IX.  SPACE COMFORT CONDITIONS");
    for (std::size_t z = 0; z < r.zones.size(); ++z) {
        const ZoneResults& zr = r.zones[z];
        out.Text("*** PROJECT: " + c.projectName)
            .Column(75)
            .Text("LOCATION:     " + c.location)
            .EndLine();
        out.Line(" ZONE " + b.zones[z].number + "  " + b.zones[z].name);
        out.Line(
            "    COMFORT LIMITS: LOWER " + Fixed(c.control.comfortLower, 6, 1) + " " + t +
            "   UPPER " + Fixed(c.control.comfortUpper, 6, 1) + " " + t +
            (b.zones[z].conditioned && c.control.runType != 4 ? "   (WITH HVAC)" : "   (NO HVAC)"));
        out.Line();
        out.Text("    MONTH")
            .Column(14)
            .Text("HOURS BELOW")
            .Column(28)
            .Text("HOURS WITHIN")
            .Column(42)
            .Text("HOURS ABOVE")
            .Column(56)
            .Text(std::string("MAX TEMP ") + t)
            .Column(70)
            .Text(std::string("MIN TEMP ") + t)
            .Column(84)
            .Text(std::string("MEAN TEMP ") + t)
            .EndLine();
        out.Line("    " + std::string(90, '-'));
        for (int m = 0; m < 12; ++m) {
            const int hours =
                zr.monthlyHoursBelow[m] + zr.monthlyHoursWithin[m] + zr.monthlyHoursAbove[m];
            if (hours == 0) continue;
            out.Text(std::string("    ") + kMonthName[m])
                .Column(14)
                .Text(Fixed(zr.monthlyHoursBelow[m], 11, 0));
            out.Column(28)
                .Text(Fixed(zr.monthlyHoursWithin[m], 12, 0))
                .Column(42)
                .Text(Fixed(zr.monthlyHoursAbove[m], 11, 0));
            out.Column(56).Text(Fixed(Temp(zr.monthlyMaxTemperature[m], si), 10, 1));
            out.Column(70).Text(Fixed(Temp(zr.monthlyMinTemperature[m], si), 10, 1));
            out.Column(84).Text(Fixed(Temp(zr.monthlyMeanTemperature[m], si), 11, 1)).EndLine();
        }
        out.Line("    " + std::string(90, '-'));
        out.Text("    YEAR")
            .Column(14)
            .Text(Fixed(zr.hoursBelow, 11, 0))
            .Column(28)
            .Text(Fixed(zr.hoursWithin, 12, 0))
            .Column(42)
            .Text(Fixed(zr.hoursAbove, 11, 0));
        out.Column(56)
            .Text(Fixed(Temp(zr.maxTemperature, si), 10, 1))
            .Column(70)
            .Text(Fixed(Temp(zr.minTemperature, si), 10, 1));
        out.Column(84).Text(Fixed(Temp(zr.meanTemperature, si), 11, 1)).EndLine();
        out.Line("    HOTTEST HOUR " + HourText(zr.maxTemperatureHour) + "   COLDEST HOUR " +
                 HourText(zr.minTemperatureHour));
        out.Line();
    }
    return out.Str();
}

std::string HourlyEnergyText(const RunResults& r, const ReportContext& c) {
    LineWriter out;
    const double u = c.si ? 1e-3 : 3.412141e-3;
    out.Line(std::string("Hour,Month,Day,Hour of day,Heating (") + (c.si ? "kW" : "kBtuh") +
             "),Cooling (" + (c.si ? "kW" : "kBtuh") + ")");
    for (int h = 0; h < kHoursPerYear; ++h) {
        double hs = 0, cs = 0;
        for (const ZoneResults& zr : r.zones) {
            if (zr.heating.empty()) continue;
            hs += zr.heating[h];
            cs += zr.cooling[h];
        }
        const int d = h / 24, m = MonthOfDay(d);
        out.Line(std::to_string(h + 1) + "," + std::to_string(m + 1) + "," +
                 std::to_string(d - kMonthStartDay[m] + 1) + "," + std::to_string(h % 24 + 1) +
                 "," + NumText(static_cast<float>(hs * u)) + "," +
                 NumText(static_cast<float>(cs * u)));
    }
    return out.Str();
}

std::string HourlyTemperatureText(const RunResults& r, const ReportContext& c) {
    LineWriter out;
    std::string head = "Hour";
    for (const ZoneResults& zr : r.zones) head += ",Zone " + zr.name + (c.si ? " (C)" : " (F)");
    out.Line(head);
    for (int h = 0; h < kHoursPerYear; ++h) {
        std::string line = std::to_string(h + 1);
        for (const ZoneResults& zr : r.zones)
            line += "," + NumText(static_cast<float>(
                              zr.airTemperature.empty() ? 0.0 : Temp(zr.airTemperature[h], c.si)));
        out.Line(line);
    }
    return out.Str();
}

std::string HourlyWeatherText(const WeatherYear& w, const ReportContext& c) {
    LineWriter out;
    out.Line(std::string("Hour,Dry bulb,Dew point,Global horizontal,Direct normal,Diffuse,Wind") +
             (c.si ? " (C, W/sq.m., m/s)" : " (F, Btu/h sq.ft, mph)"));
    for (int h = 0; h < kHoursPerYear; ++h) {
        const WeatherHour& wh = w.hours[h];
        const double s = c.si ? 1.0 : 0.3169983;
        out.Line(std::to_string(h + 1) + "," + NumText(static_cast<float>(Temp(wh.dryBulb, c.si))) +
                 "," + NumText(static_cast<float>(Temp(wh.dewPoint, c.si))) + "," +
                 NumText(static_cast<float>(wh.globalHorizontal * s)) + "," +
                 NumText(static_cast<float>(wh.directNormal * s)) + "," +
                 NumText(static_cast<float>(wh.diffuseHorizontal * s)) + "," +
                 NumText(static_cast<float>(c.si ? wh.windSpeed : wh.windSpeed / 0.44704)));
    }
    return out.Str();
}

}  // namespace solvane::engine
