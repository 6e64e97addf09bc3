#include "propertydb/hvac_catalog.h"

#include "core/item_reader.h"
#include "core/line_writer.h"
#include "core/numeric_helpers.h"
#include "core/text_file.h"
#include "core/unit_factors.h"
#include "propertydb/envelope_defaults.h"

namespace solvane {

namespace {

std::string NumberItem(ItemReader& in) {
    return StrForm(static_cast<float>(in.NextNumber()));
}

// One system record: texts as written, numbers in text form.
HvacRow ReadRecord(ItemReader& in) {
    HvacRow r;
    r.id = StrForm(in.NextInt());
    r.Des = in.NextText();
    r.Feature = in.NextText();
    r.BldApp = in.NextText();
    r.stpresIn = NumberItem(in);
    r.stpresPa = NumberItem(in);
    r.seer = NumberItem(in);
    r.cop = NumberItem(in);
    r.tempF = NumberItem(in);
    r.tempC = NumberItem(in);
    r.fcost = NumberItem(in);
    r.mcost = NumberItem(in);
    r.Heater = in.NextText();
    in.NextInt();  // the heating type the row was rated with; not used here
    r.HTCOP = NumberItem(in);
    return r;
}

ItemReader OpenHvacFile(const ProgramPaths& paths, int codeNum) {
    const auto path = paths.Resolve(HvacEfficiencyFile(codeNum));
    auto content = ReadTextFile(path);
    if (!content) throw ReadError(path.string(), 0, "File not found");
    return ItemReader(std::move(*content), path.string());
}

}  // namespace

std::string HvacEfficiencyFile(int codeNum) {
    return codeNum == 3 ? "\\codes/HVAC-Eff-gb.txt" : "\\codes/HVAC-Eff-90.txt";
}

HvacRow ReadHvacRecord(const ProgramPaths& paths, int codeNum, int system) {
    ItemReader in = OpenHvacFile(paths, codeNum);
    for (int i = 0; i < system + 2; ++i) in.NextLine();
    return ReadRecord(in);
}

void LoadHvacCatalog(ProjectModel& model, const ProgramPaths& paths) {
    ItemReader in = OpenHvacFile(paths, model.session.CodeNum);
    for (int i = 0; i < 3; ++i) in.NextLine();
    for (int s = 1; s <= kHvacSystems; ++s) model.hvac.HvacCatalog[s] = ReadRecord(in);
}

std::string HvacMaintenanceCost(int system, double firstCost) {
    const double share = system < 4 ? 0.037 : system == 4 ? 0.04 : 0.045;
    return FormatField(StrForm(RoundOff(firstCost * share, 2)), "@@@@@");
}

void HvacWaterCooledNotice(ProjectModel& model, Prompt& prompt, int system) {
    const bool waterCooled = system < 3 || system == 5 || system == 7;
    if (model.hvac.HvacNoticeCount != 0 || !waterCooled) return;
    const std::string label = model.session.Units == 2 ? "SCOP" : "SEER";
    prompt.Ask(
        "Be aware that the Seasonal efficiency value (" + label +
            ") represents the water chiller rating alone in systems with "
            "water cooled condensers and cooling towers (i.e., systems 1, 2, 5, and 7.) Energy "
            "for pumps and cooling tower fans are handled "
            "separately within the program. For this sort of system, the ASHRAE Standards "
            "mandate limits for the chiller only and not the whole "
            "cooling system, which it does in the other packaged and DX systems.",
        "Notice for water cooled condensers systems with cooling towers.", Buttons::Ok,
        Icon::Information);
    ++model.hvac.HvacNoticeCount;
}

void ApplyHvacSystem(ProjectModel& model, const ProgramPaths& paths, Prompt& prompt, int system,
                     int zone, bool showNotice, ScreenFields& zoneScreen) {
    ZoneEditState& edit = model.zoneEdit;
    model.hvac.CurrentHvacSystem = static_cast<std::int16_t>(system);
    if (showNotice) HvacWaterCooledNotice(model, prompt, system);

    constexpr int kFields[] = {20, 26, 27, 28, 29, 30};
    for (int f : kFields) edit.PrevFieldText[f] = zoneScreen.At("zone", f).text;

    const HvacRow r = ReadHvacRecord(paths, model.session.CodeNum, system);
    const bool si = model.session.Units == 2;
    zoneScreen.At("zone", 26).text = si ? r.stpresPa : r.stpresIn;
    zoneScreen.At("zone", 27).text = si ? r.cop : r.seer;
    model.zones.ZoneData[zone][27] = zoneScreen.At("zone", 27).text;
    zoneScreen.At("zone", 28).text = r.HTCOP;
    zoneScreen.At("zone", 29).text = r.fcost;
    zoneScreen.At("zone", 30).text = r.mcost;

    // Fossil heating adds the cost of the furnace or boiler, except for the
    // window unit and the evaporative cooler.
    if (NumVal(zoneScreen.At("zone", 21).text) == 1 && system != 14 && system != 15) {
        const float first = static_cast<float>(NumVal(zoneScreen.At("zone", 29).text) + 200);
        zoneScreen.At("zone", 29).text = StrForm(first);
        zoneScreen.At("zone", 30).text = HvacMaintenanceCost(system, first);
    }
    zoneScreen.At("zone", 20).text = StrForm(system);
    edit.CurrentField = 20;

    for (int f : kFields) {
        const std::string& now = zoneScreen.At("zone", f).text;
        if (now != edit.PrevFieldText[f]) {
            edit.ZoneFieldChanged[zone][f] = 1;
            edit.PrevFieldText[f] = now;
        }
    }
}

std::string HvacCoolingText(const std::array<HvacScreenRow, kHvacSystems + 1>& rows, int units) {
    const bool si = units == 2;
    LineWriter out;
    out.Column(64).Text("FAN STATIC PRESS.  SYSTEM   SUPPLY TEMP  SYSTEM COST PER TON").EndLine();
    out.Line(
        "     I.D.  NAME OF SYSTEM                                      (INCH)   (Pa)    SEER  "
        "COP    F   C      1ST...MAINT.");
    out.Line("     " + std::string(135, '-'));
    for (int n = 1; n <= kHvacSystems; ++n) {
        const HvacScreenRow& r = rows[n];
        if (r.id.empty()) continue;
        const double sp = NumVal(r.stpres), seer = NumVal(r.seer), temp = NumVal(r.temp);
        out.Column(6).Text(StrForm(n)).Column(11).Text(r.Des);
        if (si) {
            out.Column(65).Text(
                FormatField(StrForm(RoundOff(sp / UnitFactor::InWaterToPa, 2)), "@@@@"));
            out.Column(72).Text(r.stpres);
            out.Column(81).Text(FormatField(StrForm(RoundOff(seer * 3.412, 1)), "@@@@"));
            out.Column(86).Text(r.seer);
            out.Column(93).Text(FormatField(StrForm(RoundOff(temp * 1.8 + 32, 0)), "@@"));
            out.Column(97).Text(r.temp);
        } else {
            out.Column(65).Text(r.stpres);
            out.Column(72).Text(
                FormatField(StrForm(RoundOff(sp * UnitFactor::InWaterToPa, 1)), "@@@@@@"));
            out.Column(80).Text(r.seer);
            out.Column(86).Text(FormatField(StrForm(RoundOff(seer / 3.412, 2)), "@@@@@"));
            out.Column(93).Text(r.temp);
            out.Column(97).Text(FormatField(StrForm(RoundOff((temp - 32) / 1.8, 0)), "@@"));
        }
        out.Column(103).Text(r.fcost).Column(111).Text(r.mcost).Column(119).Text("ELEC. HEAT");
        out.EndLine();

        // The gas-heat line: the furnace or boiler adds to the costs.
        const double fcost = NumVal(r.fcost), mcost = NumVal(r.mcost);
        std::string first, maint;
        if (n == 7) {
            first = maint = "   ";
        } else {
            first = FormatField(StrForm(RoundOff(n < 7 ? fcost + 200 : fcost, 0)), "@@@");
            const double add = n < 4 ? 7.4 : n == 4 ? 8 : n <= 6 ? 0 : 9;
            maint = FormatField(StrForm(RoundOff(mcost + add, 2)), "@@@@@");
        }
        out.Column(103).Text(first).Column(111).Text(maint).Column(119).Text("GAS HEAT");
        out.EndLine();
    }
    return out.Str();
}

bool WriteHvacCoolingFile(const std::array<HvacScreenRow, kHvacSystems + 1>& rows, int units,
                          const ProgramPaths& paths) {
    return WriteFileAtomic(paths.Resolve(kHvacCoolingFile), HvacCoolingText(rows, units));
}

namespace {

// Costs are kept per ton of cooling; SI screens show them per kW
// (1 ton of refrigeration = 12,000 Btu/h = 3.51685 kW).
constexpr double kKwPerTon = 3.51685;

std::string PerKw(const std::string& perTon) {
    return NumText(RoundOff(NumVal(perTon) / kKwPerTon, 2));
}

// The cost per ton behind a cell: the catalog's own figure while the cell
// still shows it, otherwise the figure typed, per kW.
std::string PerTon(const std::string& cell, const std::string& perTon) {
    if (cell == PerKw(perTon)) return perTon;
    return NumText(RoundOff(NumVal(cell) * kKwPerTon, 1));
}

}  // namespace

HvacController::HvacController(Session& session, Prompt& prompt)
    : session_(session), prompt_(prompt) {}

bool HvacController::Open() {
    ProjectModel& m = session_.model;
    if (m.session.CodeNum == 0) {
        prompt_.Ask(
            "The energy code must be specified before the HVAC systems components can be "
            "displayed.",
            kMissingSpecsTitle, Buttons::Ok, Icon::Exclamation);
        return false;
    }
    LoadHvacCatalog(m, session_.paths);
    const bool si = m.session.Units == 2;
    const int type = m.session.BuildingType;
    fields.caption = m.session.ProjectTitle + " -- " + "HVAC SYSTEM SELECTIONS";
    fields["Btype"].text = StrForm(type) + ".  " + m.btypes.BTypeName[type];
    fields["Cat"].text = BuildingClassName(type);
    fields["CZone"].text = m.session.ClimateZone;
    fields["code"].text = "Values based on " + session_.labels.CodeTitle[m.session.CodeNum];
    fields["code"].color = session_.labels.CodeColor[m.session.CodeNum];
    if (si) {
        fields["stpres_caption"].text = "St. Press. (Pa)";
        fields["seer_caption"].text = "Cooling COP";
        fields["temp_caption"].text = "Supply Temp (C)";
    }
    fields["fcost_caption"].text = si ? "1st Cost ($/kW)" : "1st Cost ($/ton)";
    fields["mcost_caption"].text = si ? "Maint. Cost ($/kW)" : "Maint. Cost ($/ton)";
    for (int s = 1; s <= kHvacSystems; ++s) {
        const HvacRow& r = m.hvac.HvacCatalog[s];
        fields.At("id", s).text = r.id;
        fields.At("Des", s).text = r.Des;
        fields.At("Feature", s).text = r.Feature;
        fields.At("BldApp", s).text = r.BldApp;
        fields.At("stpres", s).text = si ? r.stpresPa : r.stpresIn;
        fields.At("seer", s).text = si ? r.cop : r.seer;
        fields.At("temp", s).text = si ? r.tempC : r.tempF;
        fields.At("fcost", s).text = si ? PerKw(r.fcost) : r.fcost;
        fields.At("mcost", s).text = si ? PerKw(r.mcost) : r.mcost;
        fields.At("Heater", s).text = r.Heater;
        fields.At("HTCOP", s).text = r.HTCOP;
    }
    HvacEdited = false;
    return true;
}

void HvacController::Edit(const std::string& column, int row, const std::string& text) {
    fields.At(column, row).text = text;
    HvacEdited = true;
}

std::array<HvacScreenRow, kHvacSystems + 1> HvacController::ScreenRows() {
    std::array<HvacScreenRow, kHvacSystems + 1> rows;
    for (int s = 1; s <= kHvacSystems; ++s) {
        HvacScreenRow& r = rows[s];
        r.id = fields.At("id", s).text;
        r.Des = fields.At("Des", s).text;
        r.Feature = fields.At("Feature", s).text;
        r.BldApp = fields.At("BldApp", s).text;
        r.stpres = fields.At("stpres", s).text;
        r.seer = fields.At("seer", s).text;
        r.temp = fields.At("temp", s).text;
        r.fcost = fields.At("fcost", s).text;
        r.mcost = fields.At("mcost", s).text;
        if (session_.model.session.Units == 2) {
            const HvacRow& kept = session_.model.hvac.HvacCatalog[s];
            r.fcost = PerTon(r.fcost, kept.fcost);
            r.mcost = PerTon(r.mcost, kept.mcost);
        }
        r.Heater = fields.At("Heater", s).text;
        r.HTCOP = fields.At("HTCOP", s).text;
    }
    return rows;
}

Navigation HvacController::Ok() {
    if (!HvacEdited) return {Screen::MainMenu, true, false};
    if (prompt_.Ask("The data you have just edited have not been saved.  Update the database now?",
                    "Update Database", Buttons::YesNo, Icon::Question) != Answer::Yes)
        return {Screen::MainMenu, true, false};
    if (!WriteHvacCoolingFile(ScreenRows(), session_.model.session.Units, session_.paths)) {
        prompt_.Ask("The file " + session_.paths.Resolve(kHvacCoolingFile).string() +
                        " could not be written.",
                    "Update HVAC System Database", Buttons::Ok, Icon::Critical);
        return {};
    }
    prompt_.Ask("The HVAC system database has been updated.", "Update HVAC System Database",
                Buttons::Ok, Icon::Information);
    HvacEdited = false;
    return {};
}

void HvacController::UpdateNotAvailable() {
    prompt_.Ask(
        "The HVAC update feature will be added in a future software upgrade, but you can still "
        "revise your system parameters by entering the "
        "Zone Description Form, clicking on the HVAC System dropdown menu and editing the HVAC "
        "parameters. "
        "Revised properties can be applied to individual zones or the entire project.",
        "Not available.", Buttons::Ok, Icon::Information);
}

Navigation HvacController::Close() {
    return {Screen::MainMenu, true, false};
}

}  // namespace solvane
