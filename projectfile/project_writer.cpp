// The writers of the project file: in the project's own units, and in the
// other unit system with every dimensional value converted on its way out.

#include <algorithm>
#include <cmath>

#include "core/numeric_helpers.h"
#include "core/text_file.h"
#include "core/unit_factors.h"
#include "projectfile/design_temps.h"
#include "projectfile/project_file.h"
#include "core/text_cuts.h"

namespace solvane {

namespace {

enum class Target { Same, ToSI, ToIP };

// A conversion of one kind of value: a function each way and the decimals
// the converted value is rounded to.
struct Factor {
    double (*toSi)(double);
    double (*toIp)(double);
    int digitsSi;
    int digitsIp;
};

namespace uf = UnitFactor;
constexpr Factor kArea{[](double v) { return v * uf::AreaIpToSi; },
                       [](double v) { return v * uf::AreaSiToIp; }, 1, 1};
constexpr Factor kCostPerArea1{[](double v) { return v / uf::AreaIpToSi; },
                               [](double v) { return v * uf::AreaIpToSi; }, 1, 1};
constexpr Factor kCostPerArea2{[](double v) { return v / uf::AreaIpToSi; },
                               [](double v) { return v * uf::AreaIpToSi; }, 2, 2};
constexpr Factor kEnergyPrice{[](double v) { return v / uf::EnergyPrice; },
                              [](double v) { return v * uf::EnergyPrice; }, 2, 2};
constexpr Factor kWaterPrice{[](double v) { return v / uf::VolumeIpToSi; },
                             [](double v) { return v * uf::VolumeIpToSi; }, 2, 2};
constexpr Factor kTemperature{[](double v) { return uf::FahrenheitToCelsius(v); },
                              [](double v) { return uf::CelsiusToFahrenheit(v); }, 1, 1};
constexpr Factor kMass{[](double v) { return v * uf::MassPerAreaIpToSi; },
                       [](double v) { return v * uf::MassPerAreaSiToIp; }, 1, 1};
constexpr Factor kVolume{[](double v) { return v * uf::VolumeIpToSi; },
                         [](double v) { return v * uf::VolumeSiToIp; }, 1, 1};
constexpr Factor kAirPerPerson{[](double v) { return v * uf::AirFlowCfmToLps; },
                               [](double v) { return v / uf::AirFlowCfmToLps; }, 1, 1};
constexpr Factor kAirPerArea{[](double v) { return v * uf::AirFlowPerAreaIpToSi; },
                             [](double v) { return v / uf::AirFlowPerAreaIpToSi; }, 2, 3};
constexpr Factor kNatVent{[](double v) { return v * uf::AirFlowPerAreaIpToSi; },
                          [](double v) { return v / uf::AirFlowPerAreaIpToSi; }, 1, 1};
constexpr Factor kLength{[](double v) { return v * uf::LengthIpToSi; },
                         [](double v) { return v * uf::LengthSiToIp; }, 1, 1};
constexpr Factor kIlluminance{[](double v) { return v * uf::IlluminanceIpToSi; },
                              [](double v) { return v * uf::IlluminanceSiToIp; }, 0, 0};
constexpr Factor kPressure{[](double v) { return v * uf::InWaterToPa; },
                           [](double v) { return v / uf::InWaterToPa; }, 1, 1};
constexpr Factor kEfficiency{[](double v) { return v / uf::WattToBtuh; },
                             [](double v) { return v * uf::WattToBtuh; }, 1, 1};
constexpr Factor kUFactor{[](double v) { return v * uf::UFactorIpToSi; },
                          [](double v) { return v * uf::UFactorSiToIp; }, 3, 3};

const char* const kProjectLabels[12] = {"Bld. Type ", "Proj.Name ", "Proj.Desc ", "Location  ",
                                        "Dsgn. Stg ", "Schm. Num ", "Con. Year ", "Orient.   ",
                                        "FloorArea ", "Con. Cost ", "Occ. Days ", "An Hldays "};
const char* const kEconomicsLabels[11] = {"Econ.Life ", "Mech.Life ", "SolarLife ", "Disc.Rate ",
                                          "Cost Esc. ", "Elec.Cost ", "Elec.Esc. ", "Gas  Cost ",
                                          "Gas  Esc. ", "WaterCost ", "WaterEsc. "};

const char* const kProfileHeader =
    "PROFILES    1a  2a  3a  4a  5a  6a  7a  8a  9a 10a 11a 12N  1p  2p  3p  4p  5p  6p  7p  8p  "
    "9p 10p 11p 12M";

class BodyWriter {
  public:
    BodyWriter(const ProjectModel& m, const FixedLabels& labels, const ProgramPaths& paths,
               Target target, LineWriter& out)
        : m_(m), labels_(labels), paths_(paths), target_(target), out_(out) {}

    void Write(const TextTable<3>& desTemps);

  private:
    bool Converting() const { return target_ != Target::Same; }
    bool SiLabels() const {
        return target_ == Target::ToSI || (target_ == Target::Same && m_.session.Units == 2);
    }
    double Apply(const Factor& f, double v) const {
        return target_ == Target::ToSI ? f.toSi(v) : f.toIp(v);
    }
    // The converted value as the plain text of its rounded number.
    std::string ConvertedNumber(std::string_view text, const Factor& f) const {
        return NumText(
            RoundOff(Apply(f, NumVal(text)), target_ == Target::ToSI ? f.digitsSi : f.digitsIp));
    }
    // A text value: as it stands, or converted and written through the mask
    // " &&&&&&&&&&&" so that it begins in column 12.
    std::string Field(std::string_view text, const Factor* f) const {
        if (!Converting() || f == nullptr) return std::string(text);
        return " " + FormatField(ConvertedNumber(text, *f), "&&&&&&&&&&&");
    }
    // `ProjectData` and `EconomicsData` write a blank text as "0.0".
    std::string RecordField(std::string_view text, const Factor* f) const {
        if (cuts::IsBlankText(text)) return "0.0";
        return Field(text, f);
    }
    void Labelled(std::string_view label, std::string_view value) {
        out_.Text(label).Text(value).EndLine();
    }

    void WriteClimate();
    std::string ConvertWeatherRow(int row) const;
    std::string OutdoorAir(std::string_view text) const;
    std::string ThermostatProfile(std::string_view text) const;
    void WriteCatalogs();
    void WriteProfiles();
    void WriteZones();
    void WriteMatrix();

    const ProjectModel& m_;
    const FixedLabels& labels_;
    const ProgramPaths& paths_;
    Target target_;
    LineWriter& out_;
};

void BodyWriter::Write(const TextTable<3>& desTemps) {
    for (int i = 0; i < 12; ++i) {
        const Factor* f = i == kFloorArea ? &kArea : i == kConCost ? &kCostPerArea1 : nullptr;
        Labelled(kProjectLabels[i], RecordField(m_.ProjectData[i], f));
    }
    out_.Text("Code Num  ").Num(static_cast<int>(m_.session.CodeNum)).EndLine();

    WriteClimate();

    out_.Text("DesTemps: ");
    for (int i = 1; i <= 3; ++i) {
        if (Converting())
            out_.Text(ConvertedNumber(desTemps[i], kTemperature));
        else
            out_.Text(desTemps[i]);
        out_.Text(" ");
    }
    out_.EndLine();

    out_.Line("ECONOMICS");
    for (int i = 0; i <= 10; ++i) {
        const Factor* f = (i == 5 || i == 7) ? &kEnergyPrice : i == 9 ? &kWaterPrice : nullptr;
        Labelled(kEconomicsLabels[i], RecordField(m_.economics.EconomicsData[i], f));
    }
    const int rates = std::clamp<int>(m_.economics.NumDemandRates, 0, 3);
    if (rates == 0) {
        out_.Line("DemCharge  N");
    } else {
        out_.Text("DemCharge ").Text(m_.economics.DemandCharge).EndLine();
        out_.Text("DemChgRate");
        for (int r = 1; r <= rates; ++r)
            out_.Text(" ")
                .Text(m_.economics.DemandRateLimit[r])
                .Text(" ")
                .Text(m_.economics.DemandRateCost[r]);
        out_.EndLine();
    }

    WriteCatalogs();
    WriteProfiles();
    WriteZones();
    WriteMatrix();
}

void BodyWriter::WriteClimate() {
    const auto& wd = m_.climate.WeatherData;
    out_.Text("WEATHER").Column(11).Text("CLzone=  ").Text(m_.session.ClimateZone).EndLine();
    if (!Converting()) {
        for (int i = 1; i <= 3; ++i) out_.Line(wd[i]);
    } else {
        // Degree days are rebuilt in their columns; the rest of the line stays.
        const double hdd = NumVal(cuts::Mid(wd[1], 17, 12));
        const double cdd = NumVal(cuts::Mid(wd[1], 35, 12));
        const auto dd = [&](double v) {
            return NumText(static_cast<float>(target_ == Target::ToSI ? uf::DeltaFToDeltaC(v)
                                                                      : uf::DeltaCToDeltaF(v)));
        };
        out_.Text("          HDD = ")
            .Text(cuts::LeftJustify(dd(hdd), 12))
            .Text("CDD = ")
            .Text(cuts::LeftJustify(dd(cdd), 12))
            .Text(cuts::Mid(wd[1], 47))
            .EndLine();
        // The elevation is the last six characters of the station line.
        const std::string& station = wd[2];
        const std::size_t keep = station.size() > 6 ? station.size() - 6 : 0;
        // Six characters hold at most six digits; an exponent form is held to that.
        const double elevation = std::clamp(NumVal(cuts::Right(station, 6)), -999999.0, 999999.0);
        const long converted = target_ == Target::ToSI ? uf::ElevationFeetToMetres(elevation)
                                                       : uf::ElevationMetresToFeet(elevation);
        out_.Text(cuts::Left(station, keep))
            .Text(FormatField(NumText(static_cast<double>(converted)), "@@@@@@"))
            .EndLine();
        out_.Line(wd[3]);
    }
    for (int i = 4; i <= 11; ++i)
        out_.Text(labels_.WeatherLabel[i])
            .Text(Converting() ? ConvertWeatherRow(i) : wd[i])
            .EndLine();
}

// The monthly rows: temperatures, temperature differences, solar and wind,
// each to one decimal by adding 0.5 to ten times the value and truncating.
std::string BodyWriter::ConvertWeatherRow(int row) const {
    std::string line;
    for (const std::string& token : cuts::Tokens(m_.climate.WeatherData[row], 12)) {
        const double v = NumVal(token);
        const bool si = target_ == Target::ToSI;
        double c = v;
        switch (row) {
            case 4:
            case 6:
            case 8:
                c = si ? uf::FahrenheitToCelsius(v) : uf::CelsiusToFahrenheit(v);
                break;
            case 5:
            case 7:
            case 9:
                c = si ? uf::DeltaFToDeltaC(v) : uf::DeltaCToDeltaF(v);
                break;
            case 10:
                c = v * (si ? uf::SolarIpToSi : uf::SolarSiToIp);
                break;
            case 11:
                c = v * (si ? uf::WindIpToSi : uf::WindSiToIp);
                break;
        }
        // Daily solar in SI runs to five digits, which with a decimal would
        // fill the six columns of the field and run into the next month's;
        // it is kept to whole units, as the location screen shows it.
        const double rounded = (row == 10 && si) ? std::trunc(c + 0.5) : RoundOneDecimal(c);
        line += FormatField(NumText(rounded), "@@@@@@");
    }
    return line;
}

// Outdoor air: the two-letter prefix says how the number counts. "CP" per
// person and "CS" per unit floor area are converted and keep their prefix;
// "PA", a percentage, stays; a value with no prefix counts per person.
std::string BodyWriter::OutdoorAir(std::string_view text) const {
    const std::string t = cuts::TrimLeft(text);
    const std::string prefix = cuts::Left(t, 2);
    if (prefix == "PA") return " " + t;
    if (prefix == "CS") return " CS" + ConvertedNumber(cuts::Mid(t, 3), kAirPerArea);
    if (prefix == "CP") return " CP" + ConvertedNumber(cuts::Mid(t, 3), kAirPerPerson);
    return " CP" + ConvertedNumber(t, kAirPerPerson);
}

// Thermostat profiles: 24 four-character fields, each converted to one
// decimal and written back under "@@@@".
std::string BodyWriter::ThermostatProfile(std::string_view text) const {
    std::string out;
    for (int h = 0; h < 24; ++h)
        out += FormatField(ConvertedNumber(cuts::Mid(text, 4 * h + 1, 4), kTemperature), "@@@@");
    return out;
}

void BodyWriter::WriteCatalogs() {
    const auto& w = m_.walls;
    out_.Line("WALL AND ROOF PROPERTIES");
    for (int i = 1; i <= kCatalogWritten; ++i) {
        if (w.WallUsed[i] != 1) continue;
        Labelled("ID. #     ", w.WallId[i]);
        Labelled("Descript. ", w.WallDescription[i]);
        Labelled("U-Factor  ", Field(w.WallUFactor[i], &kUFactor));
        Labelled("Solar Abs ", w.WallSolarAbs[i]);
        Labelled("Time Lag  ", w.WallTimeLag[i]);
        Labelled("Dec. Fact ", w.WallDecrement[i]);
        Labelled("Ins. Cost ", Field(w.WallInsCost[i], &kCostPerArea2));
    }
    out_.Line("9999");
    const auto& g = m_.windows;
    out_.Line("WINDOW PROPERTIES");
    for (int i = 1; i <= kCatalogWritten; ++i) {
        if (g.WindowUsed[i] != 1) continue;
        Labelled("ID. #     ", g.WindowId[i]);
        Labelled("Descript. ", g.WindowDescription[i]);
        Labelled("U-Factor  ", Field(g.WindowUFactor[i], &kUFactor));
        Labelled("S.H.G.C.  ", g.WindowSHGC[i]);
        Labelled("Emissiv.  ", g.WindowEmissivity[i]);
        Labelled("DL. Trans ", g.WindowDLTrans[i]);
        Labelled("Ins. Cost ", Field(g.WindowInsCost[i], &kCostPerArea2));
    }
    out_.Line("9999");
}

void BodyWriter::WriteProfiles() {
    const ProfileState& p = m_.profiles;
    out_.Line(kProfileHeader);
    for (int type = 1; type <= kProfileTypes; ++type) {
        out_.Line(p.ProfileTypeTitle[type]);
        const ProfileTable& table = p.Types[type];
        const bool thermostat = type == kCoolStat || type == kHeatStat;
        for (int g = 1; g <= kProfileGroups; ++g) {
            if (cuts::IsBlankText(table.GroupNum[g])) continue;
            out_.Text(table.GroupNum[g])
                .Text("  ")
                .Text(std::string(1, QuoteChar) + p.ProfileGroupName[g] + QuoteChar)
                .EndLine();
            for (int k = 1; k <= kDayTypes; ++k) {
                out_.Text(labels_.DayTypeLabel[k]).Column(11);
                out_.Text(Converting() && thermostat ? ThermostatProfile(table.Profile[g][k])
                                                     : table.Profile[g][k]);
                out_.EndLine();
            }
        }
        out_.Line("99");
    }
}

void BodyWriter::WriteZones() {
    const ZoneState& zs = m_.zones;
    const SurfaceState& sf = m_.surfaces;
    const bool si = SiLabels();
    out_.Line("ZONES");
    const int numZones = std::clamp(zs.NumZones, 0, kMaxZones);
    for (int z = 1; z <= numZones; ++z) {
        if (cuts::IsBlankText(zs.ZoneNumber[z])) continue;
        const auto& d = zs.ZoneData[z];
        Labelled("Zone No.  ", d[1]);
        Labelled("Zone Name ", d[2]);
        Labelled("Flr. Area ", Field(d[3], &kArea));
        Labelled("Int. Mass ", Field(d[4], &kMass));
        Labelled("No.People ", d[5]);
        Labelled("Occ. Prof ", d[6]);
        Labelled("HW/person ", Field(d[7], &kVolume));
        Labelled("HW.  Prof ", d[8]);
        Labelled(si ? "OA lit/s  " : "OA CFM    ", Converting() ? OutdoorAir(d[9]) : d[9]);
        Labelled("Lite Type ", d[11]);
        Labelled(si ? "Cost/sq.m " : "Cost/sqft ", Field(d[12], &kCostPerArea2));
        Labelled(si ? "Watt/sq.m " : "Watt/sqft ", Field(d[13], &kCostPerArea2));
        Labelled("Lite Prof ", d[14]);
        Labelled("Receptacle", d[15]);
        Labelled("Recep.Prof", d[16]);
        Labelled("Fan Prof  ", d[17]);
        Labelled("Clg. Stat ", d[18]);
        Labelled("Htg. Stat ", d[19]);
        Labelled("HVAC Type ", d[20]);
        Labelled("Htg. Type ", d[21]);
        Labelled("Nat. Vent ", zs.ZoneNatVent[z]);
        Labelled(si ? "l/s/sq.m. " : "CFM/sqft. ", Field(d[22], &kNatVent));
        Labelled("Inf. Rate ", d[23]);
        Labelled("Daylight  ", zs.ZoneDaylight[z]);
        Labelled("DL Depth  ", Field(d[24], &kLength));
        Labelled("Target FC ", Field(d[25], &kIlluminance));
        Labelled("Econ.Cycle", zs.ZoneEconCycle[z]);
        Labelled("Stat.Pres ", Field(d[26], &kPressure));
        Labelled("Cool SEER ", Field(d[27], &kEfficiency));
        Labelled("Heat COP  ", Field(d[28], &kEfficiency));
        Labelled("1st Cost  ", d[29]);
        Labelled("Maint Cost", d[30]);

        const int surfaces = std::clamp<int>(zs.ZoneSurfaceCount[z], 0, kMaxSurfaces);
        const auto area = [&](float v) {
            if (!Converting()) return v;
            return static_cast<float>(Apply(kArea, v));
        };
        const auto length = [&](float v) {
            if (!Converting()) return v;
            return static_cast<float>(Apply(kLength, v));
        };
        for (int s = 1; s <= surfaces; ++s) {
            out_.Text("Wall ID.  ").Num(static_cast<int>(sf.SurfWallId[z][s])).EndLine();
            out_.Text("Wall Area ").Num(area(sf.SurfArea[z][s])).EndLine();
            out_.Text("WallOrien ").Num(static_cast<int>(sf.SurfOrient[z][s])).EndLine();
            out_.Text("Surf Exp. ").Num(static_cast<int>(sf.SurfExposure[z][s])).EndLine();
            Labelled("Ext. Shd. ", sf.SurfShade[z][s]);
            out_.Text("Window ID ").Num(static_cast<int>(sf.SurfWindowId[z][s])).EndLine();
            out_.Text("Win. Area ").Num(area(sf.SurfWindowArea[z][s])).EndLine();
            out_.Text("Rf/Wl Slp ").Num(sf.SurfSlope[z][s]).EndLine();
            Labelled("S/W/B     ", sf.SurfSWB[z][s]);
            out_.Text("Ven. Blnd ").Num(static_cast<int>(sf.SurfBlind[z][s])).EndLine();
            out_.Text("DiffTrans ").Num(sf.SurfDiffTrans[z][s]).EndLine();
            out_.Text("Sill High ").Num(length(sf.SurfSillHeight[z][s])).EndLine();
            out_.Text("Window Ht ").Num(length(sf.SurfWindowHeight[z][s])).EndLine();
            out_.Text("Grnd Refl ").Num(sf.SurfGroundRefl[z][s]).EndLine();
        }
        out_.Line("9999");
    }
}

// The building matrix is copied line for line; it carries its own unit flag.
void BodyWriter::WriteMatrix() {
    const auto path = paths_.Resolve("\\sketch\\bld_mtx.all");
    const auto text = ReadTextFile(path);
    if (!text) throw WriteError("File not found: " + path.string());
    out_.Line("BUILDING MATRIX");
    for (const std::string& line : SplitLines(*text)) out_.Line(line);
}

void WriteConverted(const Session& session, LineWriter& out, Target target) {
    const ProjectModel& m = session.model;
    TextTable<3> desTemps = m.climate.DesTemps;
    if (DesignTempsNeeded(m)) desTemps = ComputeDesignTemps(m.climate, m.session.Units);
    BodyWriter(m, session.labels, session.paths, target, out).Write(desTemps);
}

}  // namespace

std::string HeadLine(const ProjectModel& model, std::string_view unitsWord) {
    LineWriter line;
    line.Text("SOLVANE   ").Text(model.session.WeatherSeed).Column(21);
    line.Num(static_cast<int>(model.session.InputFileVersion)).Text(" ").Text(unitsWord);
    return line.Str();
}

void WriteProjectFile(Session& session, LineWriter& out) {
    ProjectModel& m = session.model;
    if (DesignTempsNeeded(m)) m.climate.DesTemps = ComputeDesignTemps(m.climate, m.session.Units);
    const int numZones = std::clamp(m.zones.NumZones, 0, kMaxZones);
    for (int z = 1; z <= numZones; ++z) {
        if (cuts::IsBlankText(m.zones.ZoneNumber[z])) continue;
        // Outdoor air without its prefix counts per person.
        std::string& oa = m.zones.ZoneData[z][9];
        const std::string prefix = cuts::Left(cuts::TrimLeft(oa), 2);
        if (prefix != "CS" && prefix != "CP" && prefix != "PA") oa = "CP" + oa;
        const std::string& daylight = m.zones.ZoneDaylight[z];
        if (daylight == "Yes" || daylight == " Yes") m.flags.DaylightingUsed = 1;
    }
    BodyWriter(m, session.labels, session.paths, Target::Same, out).Write(m.climate.DesTemps);
}

void WriteProjectFileToSI(const Session& session, LineWriter& out) {
    WriteConverted(session, out, Target::ToSI);
}

void WriteProjectFileToIP(const Session& session, LineWriter& out) {
    WriteConverted(session, out, Target::ToIP);
}

}  // namespace solvane
