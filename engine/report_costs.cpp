#include "engine/report_costs.h"

#include <string>

#include "core/numeric_helpers.h"
#include "core/text_cuts.h"
#include "engine/report_format.h"

namespace solvane::engine {
namespace {

constexpr double kGjPerTherm = 0.1055056;
constexpr double kM3PerKgal = 3.785411784;

double Water(double kgal, bool si) {
    return si ? kgal * kM3PerKgal : kgal;
}

std::string Trim(const std::string& s) {
    return cuts::TrimLeft(s);
}

std::string Right(const std::string& text, int width) {
    return FormatField(text, std::string(static_cast<std::size_t>(width), '@'));
}

void Dollars(LineWriter& out, const MonthlyBill& b) {
    out.Column(80).Text(Fixed(b.gas, 8, 0));
    out.Column(89).Text(Fixed(b.water, 8, 0));
    out.Column(97).Text(Fixed(b.electricDemand, 8, 0));
    out.Column(105).Text(Fixed(b.Electric(), 9, 0));
    out.Column(114).Text(Fixed(b.Total(), 9, 0));
}

void Money(LineWriter& out, const std::string& caption, double value) {
    out.Text("    " + caption).Column(60).Text(Fixed(value, 14, 0)).EndLine();
}

}  // namespace

void CostColumnUnits(LineWriter& out, bool si) {
    out.Column(63).Text(Right("KW", 8)).Column(71).Text(Right(si ? "M3" : "1000 GAL", 8));
    out.Column(80)
        .Text(Right("$", 8))
        .Column(89)
        .Text(Right("$", 8))
        .Column(97)
        .Text(Right("$", 8));
    out.Column(105).Text(Right("$", 9)).Column(114).Text(Right("$", 9));
}

void CostColumnNames(LineWriter& out) {
    out.Column(63).Text(Right("PEAK", 8)).Column(71).Text(Right("WATER", 8));
    out.Column(80).Text(Right("GAS", 8)).Column(89).Text(Right("WATER", 8));
    out.Column(97).Text(Right("DEMAND", 8)).Column(105).Text(Right("ELECTRIC", 9));
    out.Column(114).Text(Right("TOTAL", 9));
}

void CostTotalsOnEnergyLine(LineWriter& out, const MonthlyBill& p, bool si) {
    out.Column(63).Text(Fixed(p.peakKw, 8, 1)).Column(71).Text(Fixed(Water(p.kgal, si), 8, 1));
}

void CostColumns(LineWriter& out, const MonthlyBill& b, bool si) {
    CostTotalsOnEnergyLine(out, b, si);  // the same two figures
    Dollars(out, b);
}

void CostTotalsLine(LineWriter& out, const MonthlyBill& p) {
    out.Text("COST");
    Dollars(out, p);
    out.EndLine();
}

void CostSection(LineWriter& out, const CostResults& c, const ReportContext& ctx) {
    const bool si = ctx.si;
    const EconomicInputs& in = c.inputs;
    out.Line("VII. COST ANALYSIS: UTILITY BILLS AND LIFE-CYCLE COST");
    out.Line();
    // Prices: the engine's I-P figures, shown in the report's units.
    const double gasPrice = si ? in.gasPrice / kGjPerTherm : in.gasPrice;
    const double waterPrice = si ? in.waterPrice / kM3PerKgal : in.waterPrice;
    out.Line("    PRICES OF THE FIRST YEAR AND THEIR ESCALATION A YEAR");
    auto price = [&](const std::string& what, const std::string& value, double escalation) {
        out.Text("    " + what);
        if (!value.empty()) out.Column(24).Text(value);
        out.Column(50).Text(Fixed(escalation * 100, 6, 2) + " %").EndLine();
    };
    price("ELECTRICITY", Fixed(in.electricPrice, 10, 4) + " $/KWH", in.electricEscalation);
    price("NATURAL GAS", Fixed(gasPrice, 10, 4) + (si ? " $/GJ" : " $/THERM"), in.gasEscalation);
    price("WATER", Fixed(waterPrice, 10, 4) + (si ? " $/1000 L" : " $/1000 GAL"),
          in.waterEscalation);
    price("BUILDING AND MAINTENANCE", "", in.costEscalation);
    if (in.demandInForce && !in.demandSteps.empty()) {
        out.Line("    DEMAND CHARGE ON EACH MONTH'S PEAK HOURLY KW, IN BLOCKS (NO RATCHET):");
        double from = 0;
        for (std::size_t i = 0; i < in.demandSteps.size(); ++i) {
            const bool last = i + 1 == in.demandSteps.size();
            const std::string to = last ? "    ABOVE" : Fixed(from + in.demandSteps[i].kw, 9, 1);
            out.Text("      " + Fixed(from, 9, 1) + " KW TO" + to + (last ? "" : " KW"))
                .Column(40)
                .Text(Fixed(in.demandSteps[i].costPerKw, 9, 2) + " $/KW")
                .EndLine();
            from += in.demandSteps[i].kw;
        }
    } else if (in.demandInForce) {
        out.Line("    DEMAND CHARGE IN FORCE BUT ITS SCHEDULE HAS NO STEPS: NO DEMAND IS BILLED");
    } else {
        out.Line("    NO DEMAND CHARGE SCHEDULE IN FORCE");
    }
    out.Line();

    out.Line("    UTILITY BILLS BY MONTH AT FIRST-YEAR PRICES");
    out.Text("    MTH")
        .Column(10)
        .Text(Right("ELEC KWH", 11))
        .Column(22)
        .Text(Right("PEAK KW", 9))
        .Column(32)
        .Text(Right("ENERGY $", 10))
        .Column(43)
        .Text(Right("DEMAND $", 10))
        .Column(54)
        .Text(Right(si ? "GAS GJ" : "GAS THERMS", 10))
        .Column(65)
        .Text(Right("GAS $", 10))
        .Column(76)
        .Text(Right(si ? "WATER M3" : "WATER KGAL", 10))
        .Column(87)
        .Text(Right("WATER $", 10))
        .Column(98)
        .Text(Right("TOTAL $", 11))
        .EndLine();
    out.Line("    " + std::string(105, '-'));
    auto row = [&](const std::string& name, const MonthlyBill& b) {
        out.Text("    " + name)
            .Column(10)
            .Text(Fixed(b.kwh, 11, 0))
            .Column(22)
            .Text(Fixed(b.peakKw, 9, 1))
            .Column(32)
            .Text(Fixed(b.electricEnergy, 10, 2))
            .Column(43)
            .Text(Fixed(b.electricDemand, 10, 2))
            .Column(54)
            .Text(Fixed(si ? b.therms * kGjPerTherm : b.therms, 10, 1))
            .Column(65)
            .Text(Fixed(b.gas, 10, 2))
            .Column(76)
            .Text(Fixed(Water(b.kgal, si), 10, 1))
            .Column(87)
            .Text(Fixed(b.water, 10, 2))
            .Column(98)
            .Text(Fixed(b.Total(), 11, 2))
            .EndLine();
    };
    for (int m = c.firstMonth; m <= c.lastMonth; ++m) row(kMonthName[m], c.month[m]);
    out.Line("    " + std::string(105, '-'));
    row("TOTAL", c.Period());
    out.Line();

    out.Line("    HVAC FIRST AND MAINTENANCE COSTS: THE ZONE'S $ PER TON OF ITS SIZED PLANT");
    out.Text("    ZONE")
        .Column(20)
        .Text(Right("TONS", 9))
        .Column(30)
        .Text(Right("1ST $/TON", 10))
        .Column(41)
        .Text(Right("FIRST $", 11))
        .Column(53)
        .Text(Right("MAINT $/TON", 11))
        .Column(65)
        .Text(Right("MAINT $/YR", 11))
        .Column(77)
        .Text(Right("LIGHTING $", 11))
        .EndLine();
    out.Line("    " + std::string(84, '-'));
    for (std::size_t z = 0; z < c.zones.size(); ++z) {
        const ZoneCost& zc = c.zones[z];
        const double tons = zc.tons;
        out.Text("    " + zc.number)
            .Column(20)
            .Text(Fixed(tons, 9, 2))
            .Column(30)
            .Text(Fixed(tons > 0 ? zc.first / tons : 0.0, 10, 2))
            .Column(41)
            .Text(Fixed(zc.first, 11, 0))
            .Column(53)
            .Text(Fixed(tons > 0 ? zc.maintenance / tons : 0.0, 11, 2))
            .Column(65)
            .Text(Fixed(zc.maintenance, 11, 0))
            .Column(77)
            .Text(Fixed(zc.lighting, 11, 0))
            .EndLine();
    }
    out.Line("    " + std::string(84, '-'));
    out.Text("    ALL ZONES")
        .Column(41)
        .Text(Fixed(c.hvacFirst, 11, 0))
        .Column(65)
        .Text(Fixed(c.hvacMaintenance, 11, 0))
        .Column(77)
        .Text(Fixed(c.lighting, 11, 0))
        .EndLine();
    out.Line();

    const LifeCycleCost& l = c.lifeCycle;
    if (!l.computed) {
        const char* why = l.years <= 0 ? "THE ECONOMIC LIFE IS NOT SET"
                          : in.discountRate <= -1
                              ? "THE DISCOUNT RATE IS -100 % OR BELOW"
                              : "IT NEEDS THE BILLS OF A WHOLE YEAR AND THIS RUN IS SHORTER";
        out.Line(std::string("    LIFE-CYCLE COST NOT COMPUTED: ") + why);
        out.Line();
        return;
    }
    out.Line("    LIFE-CYCLE COST: PRESENT WORTH OVER " + std::to_string(l.years) +
             " YEARS AT A DISCOUNT RATE OF " + Trim(Fixed(in.discountRate * 100, 6, 2)) +
             " % (NIST HANDBOOK 135)");
    out.Line("    " + std::string(70, '-'));
    Money(out, "CONSTRUCTION (" + Trim(Fixed(in.constructionCostPerFt2, 8, 2)) + " $/SQ.FT.)",
          l.construction);
    Money(out, "LIGHTING, INSTALLED", l.lighting);
    Money(out, "HVAC PLANT, FIRST COST", l.hvacFirst);
    Money(out,
          "HVAC REPLACEMENTS (" + std::to_string(l.replacementCount) + ", LIFE " +
              Trim(Fixed(in.hvacLife, 6, 0)) + " YEARS)",
          l.hvacReplacements);
    Money(out, "HVAC RESIDUAL VALUE AT THE END (CREDIT)", -l.hvacResidual);
    Money(out, "HVAC MAINTENANCE (UPV " + Trim(Fixed(l.maintenanceFactor, 8, 3)) + ")",
          l.maintenance);
    Money(out, "ELECTRICITY (UPV " + Trim(Fixed(l.electricFactor, 8, 3)) + ")", l.electric);
    Money(out, "NATURAL GAS (UPV " + Trim(Fixed(l.gasFactor, 8, 3)) + ")", l.gas);
    Money(out, "WATER (UPV " + Trim(Fixed(l.waterFactor, 8, 3)) + ")", l.water);
    out.Line("    " + std::string(70, '-'));
    Money(out, "TOTAL LIFE-CYCLE COST", l.Total());
    out.Line("    SOLAR SYSTEM: NONE IS MODELLED, SO ITS LIFE (" + Trim(Fixed(in.solarLife, 6, 0)) +
             " YEARS) ENTERS NO COST");
    out.Line();
}

}  // namespace solvane::engine
