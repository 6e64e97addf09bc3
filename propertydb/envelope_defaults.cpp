#include "propertydb/envelope_defaults.h"

#include <algorithm>

#include "core/item_reader.h"
#include "core/numeric_helpers.h"
#include "core/text_file.h"
#include "core/unit_factors.h"

namespace solvane {

namespace {

ItemReader OpenEnvelopeFile(const ProgramPaths& paths, int climate) {
    const auto path = paths.Resolve(EnvelopeFileName(climate));
    auto content = ReadTextFile(path);
    if (!content) throw ReadError(path.string(), 0, "File not found");
    return ItemReader(std::move(*content), path.string());
}

// The nine values of a record, [code 1..3][class 1..3].
struct NineValues {
    float v[4][4] = {};
};

NineValues ReadNine(ItemReader& in) {
    NineValues n;
    for (int code = 1; code <= 3; ++code)
        for (int cls = 1; cls <= 3; ++cls) n.v[code][cls] = static_cast<float>(in.NextNumber());
    return n;
}

std::string UFactorText(float u, bool si) {
    const float value = si ? RoundOff(u * UnitFactor::UFactorIpToSi, 3) : u;
    return FormatField(StrForm(value), "@@@@@@");
}

std::string CostText(float cost, bool si) {
    const float value = si ? RoundOff(cost / UnitFactor::AreaIpToSi, 2) : cost;
    return FormatField(StrForm(value), "@@@@@@");
}

}  // namespace

int BuildingClass(int buildingType) {
    if (buildingType == 24 || buildingType == 33) return 2;
    if (buildingType == 39) return 3;
    return 1;
}

const char* BuildingClassName(int buildingType) {
    switch (BuildingClass(buildingType)) {
        case 2:
            return "Residential";
        case 3:
            return "Semiheated";
        default:
            return "Nonresidential";
    }
}

int ClimateNumber(const std::string& climateZone) {
    return static_cast<int>(NumVal(climateZone));
}

std::string EnvelopeFileName(int climateNumber) {
    const std::string digits = std::to_string(climateNumber);
    return std::string("\\Bldg-Prop\\ENV-Clim-") + digits.back() + ".txt";
}

std::string ParseEnvelopeFile(const ProjectModel& model, const ProgramPaths& paths, int kind,
                              EnvelopeRows& rows) {
    const int code = std::clamp<int>(model.session.CodeNum, 1, 3);
    const int cls = BuildingClass(model.session.BuildingType);
    const int climate = ClimateNumber(model.session.ClimateZone);
    const bool si = model.session.Units == 2;
    const std::string absorptance = climate < 4 ? "0.45" : "0.7";

    ItemReader in = OpenEnvelopeFile(paths, climate);
    in.NextText();    // label
    in.NextNumber();  // the climate number, not used
    float flags[4] = {};
    for (int c = 1; c <= 3; ++c) flags[c] = static_cast<float>(in.NextNumber());
    const std::string econ =
        flags[model.session.CodeNum >= 1 && model.session.CodeNum <= 3 ? model.session.CodeNum
                                                                       : 0] == 1
            ? "Yes"
            : "No";
    for (int i = 0; i < 3; ++i) in.NextLine();

    if (kind == 1) {
        for (int k = 1; k <= 30; ++k) {
            const std::string name = in.NextText();
            if (name == "Fenestration") break;
            const NineValues u = ReadNine(in);
            const float lag = static_cast<float>(in.NextNumber());
            const float cost = static_cast<float>(in.NextNumber());
            rows.id[k] = StrForm(k);
            rows.Des[k] = name;
            rows.UF[k] = UFactorText(u.v[code][cls], si);
            // Rows 1 to 3 of every climate file are the roofs.
            rows.Absp[k] = k <= 3 ? absorptance : "0.75";
            rows.lag[k] = StrForm(lag);
            rows.decr[k] = "0";
            rows.cost[k] = CostText(cost, si);
        }
        return econ;
    }

    // The glazing types follow the line that begins with "Fenestration".
    ItemReader lines = OpenEnvelopeFile(paths, climate);
    bool found = false;
    for (int i = 0; i < 30 && !lines.AtEnd(); ++i) {
        const std::string line = lines.NextLine();
        if (line.size() > 1 && line.substr(1, 12) == "Fenestration") {
            found = true;
            break;
        }
    }
    if (!found) lines.Fail("no \"Fenestration\" line");
    for (int k = 1; k <= 20; ++k) {
        const std::string name = lines.NextText();
        const NineValues u = ReadNine(lines);
        const float emissivity = static_cast<float>(lines.NextNumber());
        const float cost = static_cast<float>(lines.NextNumber());
        lines.NextText();
        const NineValues shgc = ReadNine(lines);
        const float baseVisible = static_cast<float>(lines.NextNumber());
        lines.NextNumber();
        rows.id[k] = StrForm(k);
        rows.Des[k] = name;
        rows.UF[k] = UFactorText(u.v[code][cls], si);
        rows.lag[k] = StrForm(emissivity);
        rows.cost[k] = CostText(cost, si);
        rows.Absp[k] = StrForm(shgc.v[code][cls]);
        // Visible transmittance: at least 1.25 times the SHGC, at most 0.9.
        const double s = NumVal(rows.Absp[k]);
        const double visible = std::min(std::max<double>(baseVisible, 1.25 * s), 0.9);
        rows.decr[k] = StrForm(static_cast<float>(visible));
        if (lines.AtEnd()) break;
    }
    return econ;
}

void LoadEnvelopeDefaults(ProjectModel& model, const ProgramPaths& paths) {
    PropertyDefaults& d = model.defaults;
    d.EconDefault = ParseEnvelopeFile(model, paths, 1, d.WallDefaults);
    for (int z = 1; z <= 99; ++z) model.zones.ZoneEconCycle[z] = d.EconDefault;
    ParseEnvelopeFile(model, paths, 2, d.WindowDefaults);

    WallCatalog& w = model.walls;
    WindowCatalog& g = model.windows;
    for (int k = 1; k <= kCatalogScreenRows; ++k) {
        const EnvelopeRows& a = d.WallDefaults;
        w.WallDescription[k] = a.Des[k];
        w.WallUFactor[k] = a.UF[k];
        w.WallSolarAbs[k] = a.Absp[k];
        w.WallTimeLag[k] = a.lag[k];
        w.WallDecrement[k] = a.decr[k];
        w.WallInsCost[k] = a.cost[k];
        const EnvelopeRows& b = d.WindowDefaults;
        g.WindowDescription[k] = b.Des[k];
        g.WindowUFactor[k] = b.UF[k];
        g.WindowSHGC[k] = b.Absp[k];
        g.WindowEmissivity[k] = b.lag[k];
        g.WindowDLTrans[k] = b.decr[k];
        g.WindowInsCost[k] = b.cost[k];
    }
}

void LoadEnvelopeDefaults(Session& session, Prompt&) {
    LoadEnvelopeDefaults(session.model, session.paths);
}

std::string CatalogFileText(const EnvelopeRows& rows, int units) {
    const bool si = units == 2;
    std::string out;
    for (int k = 1; k <= kCatalogScreenRows && !rows.id[k].empty(); ++k) {
        std::string uf = rows.UF[k], cost = rows.cost[k];
        if (si) {
            uf =
                FormatField(StrForm(RoundOff(NumVal(uf) / UnitFactor::UFactorIpToSi, 3)), "@@@@@@");
            cost =
                FormatField(StrForm(RoundOff(NumVal(cost) * UnitFactor::AreaIpToSi, 2)), "@@@@@@");
        }
        const std::string* values[] = {&rows.id[k],  &rows.Des[k],  &uf,  &rows.Absp[k],
                                       &rows.lag[k], &rows.decr[k], &cost};
        for (const std::string* v : values) out += *v + "\r\n";
    }
    return out;
}

bool SaveCatalogFile(const std::string& screenTitle, const EnvelopeRows& rows, int units,
                     const ProgramPaths& paths) {
    const char* file =
        screenTitle.rfind("WALL", 0) == 0 ? "\\profiles\\B9Prof6.dat" : "\\profiles\\B9Prof7.dat";
    return WriteFileAtomic(paths.Resolve(file), CatalogFileText(rows, units));
}

}  // namespace solvane
