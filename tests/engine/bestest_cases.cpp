#include "bestest_cases.h"

#include <stdexcept>

#include "bestest_building.h"
#include "core/item_reader.h"
#include "core/text_file.h"

namespace solvane::engine::testing {

std::vector<ReferenceRange> ReadReferenceRanges(const std::string& path) {
    const auto text = ReadTextFile(path);
    if (!text) throw std::runtime_error("cannot read " + path);
    std::vector<ReferenceRange> out;
    bool header = true;
    std::string body;
    for (const std::string& line : SplitLines(*text)) {
        if (line.empty() || line[0] == '#') continue;
        if (header) {  // column names
            header = false;
            continue;
        }
        body += line + "\n";
    }
    ItemReader in(body, path);
    while (!in.AtEnd()) {
        ReferenceRange r;
        r.caseName = in.NextText();
        r.quantity = in.NextText();
        r.min = in.NextNumber();
        r.max = in.NextNumber();
        out.push_back(r);
    }
    return out;
}

std::map<std::string, double> RunBestestCases(const WeatherYear& weather, int stepsPerHour,
                                              const CaseSource& source) {
    const CaseSource make = source ? source : CaseSource(BestestBuilding);
    static const char* kMonths[12] = {"jan", "feb", "mar", "apr", "may", "jun",
                                      "jul", "aug", "sep", "oct", "nov", "dec"};
    std::map<std::string, double> f;
    for (bool heavy : {false, true}) {
        const std::string name = heavy ? "900" : "600";
        RunOptions opt;
        opt.stepsPerHour = stepsPerHour;
        opt.keepHourly = false;
        const ZoneResults r = Simulate(make(heavy, false), weather, opt).zones[0];
        f[name + "/annual_heating"] = r.heatingEnergy / 1e6;
        f[name + "/annual_cooling"] = r.coolingEnergy / 1e6;
        f[name + "/peak_heating"] = r.peakHeating / 1e3;
        f[name + "/peak_cooling"] = r.peakCooling / 1e3;
        f[name + "/peak_heating_hour"] = r.peakHeatingHour;
        f[name + "/peak_cooling_hour"] = r.peakCoolingHour;
        f[name + "/balance_error"] = r.BalanceError();
        for (int m = 0; m < 12; ++m) {
            f[name + "/heating_" + kMonths[m]] = r.monthlyHeating[m] / 1e3;
            f[name + "/cooling_" + kMonths[m]] = r.monthlyCooling[m] / 1e3;
        }
        const ZoneResults ff = Simulate(make(heavy, true), weather, opt).zones[0];
        f[name + "FF/max_temperature"] = ff.maxTemperature;
        f[name + "FF/min_temperature"] = ff.minTemperature;
        f[name + "FF/mean_temperature"] = ff.meanTemperature;
        f[name + "FF/max_temperature_hour"] = ff.maxTemperatureHour;
        f[name + "FF/min_temperature_hour"] = ff.minTemperatureHour;
        f[name + "FF/balance_error"] = ff.BalanceError();
    }
    return f;
}

}  // namespace solvane::engine::testing
