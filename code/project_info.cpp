#include "code/project_info.h"

#include <algorithm>

#include "code/building_types.h"
#include "code/code_selection.h"
#include "core/item_reader.h"
#include "core/numeric_helpers.h"
#include "core/text_cuts.h"
#include "core/unit_factors.h"
#include "economics/economics_form.h"
#include "propertydb/hvac_catalog.h"

namespace solvane {

namespace {

constexpr const char* kTypeChangeWarning =
    "### Changing the building type is unusual and may cause new issues if code compliance is "
    "desired. The material thermal properties have already been set "
    "to match the code selected, as have been the occupancy, ventilation rate, HVAC Type, etc.  "
    "If you wish to change to a new building type, you will notice changes "
    "in these aforementioned parameters.  Room names, however, will not change, so this could "
    "give the appearance of an abnormal building "
    "with room names that are not typical for that the new building type. "
    " >> Click YES to make a building type change; "
    "then save the project and re-open it again. You can check the new parameter changes by "
    "clicking the Mat'l/Systems Database pop-down in the Main Menu "
    "or by clicking the Envelope Properties pop-down in the Zone Description Form."
    " >> Click NO if you wish to stay with the current code, and "
    "continue with this building or start a new project after saving this one.";

// RoundOff of the product to one decimal, through a mask.
std::string Converted(const std::string& text, double factor, const char* mask) {
    return FormatField(StrForm(RoundOff(NumVal(text) * factor, 1)), mask);
}

}  // namespace

std::string DefaultHeatingType(int h) {
    if (h == 1 || h == 3 || h == 5 || h == 14) return "2";
    if (h == 6 || h == 8 || h == 9 || h == 13) return "3";
    return "1";
}

ProjectInfoController::ProjectInfoController(Session& session, Prompt& prompt)
    : session_(session), prompt_(prompt) {}

void ProjectInfoController::Open() {
    ProjectModel& m = session_.model;
    const bool si = m.session.Units == 2;
    fields.caption = "Project Information:... " + m.session.ProjectTitle;
    fields["areaunit"].text = si ? "sq.m." : "sq.ft.";
    fields["costunit"].text = si ? "$/sq.m." : "$/sq.ft.";
    for (int i = 1; i <= kBuildingTypes; ++i) fields.At("building", i).text = m.btypes.BTypeName[i];
    const int type = m.session.BuildingType;
    fields.At("projectid", 0).text =
        type > 0 ? NumText(type) + ".." + m.btypes.BTypeName[type] : std::string();
    for (int i = 1; i <= 11; ++i) fields.At("projectid", i).text = m.ProjectData[i];
    fields.At("projectid", 12).text = m.session.ClimateZone;
    fields.At("projectid", 13).text = session_.labels.CodeTitle[m.session.CodeNum];
    if (m.flags.TaskDone[2] == 1) ApplyCode(session_, &fields);
    for (int i = 0; i <= 13; ++i) opened_[i] = fields.At("projectid", i).text;
}

void ProjectInfoController::TimerTick() {
    const ProjectModel& m = session_.model;
    fields.At("projectid", 12).text = m.session.ClimateZone;
    fields.At("projectid", 13).text = session_.labels.CodeTitle[m.session.CodeNum];
    fields.At("projectid", 13).color = session_.labels.CodeColor[m.session.CodeNum];
}

void ProjectInfoController::SelectBuildingType(int type) {
    ProjectModel& m = session_.model;
    if (type == m.session.BuildingType) {
        prompt_.Ask(
            "This building type already matches your current building type. No changes will be "
            "made. Exiting back to main menu.",
            "Bldg type same as current.", Buttons::Ok, Icon::Information);
        return;
    }
    if (m.session.CodeNum == 0 || (m.flags.TaskDone[2] == 0 && m.flags.LocationKnown == 0)) {
        prompt_.Ask(
            "Both the energy code and city (climate data) must be specified before a building "
            "type can be selected.",
            "Energy code not specified..", Buttons::Ok, Icon::Exclamation);
        return;
    }
    if ((m.flags.TaskDone[1] == 1 || m.flags.DefaultsApplied == 1) &&
        prompt_.Ask(kTypeChangeWarning,
                    "Alert!  Building type change will change Code Requirements!", Buttons::YesNo,
                    Icon::Exclamation) != Answer::Yes)
        return;

    HvacRow hvac;
    try {
        LoadBuildingTypeTable(m, session_.paths);
        hvac = ReadHvacRecord(session_.paths, m.session.CodeNum,
                              static_cast<int>(m.btypes.BTypeColumn[type][19]));
    } catch (const ReadError& e) {
        prompt_.Ask(e.what(), "File Error", Buttons::Ok, Icon::Critical);
        return;
    }
    m.session.BuildingType = static_cast<std::int16_t>(type);
    const auto& col = m.btypes.BTypeColumn[type];
    const bool si = m.session.Units == 2;

    m.zones.LastHVACType = static_cast<std::int16_t>(col[19]);
    float app = col[6] > 0 ? RoundOff(1000.0 / col[6], 0) : 0.0f;
    if (si) app = RoundOff(app * UnitFactor::DefaultsAreaIpToSi, 1);
    m.zones.DefaultAreaPerPerson = app;

    fields.At("projectid", 0).text = NumText(type) + ".." + m.btypes.BTypeName[type];
    const std::pair<int, std::string> blanks[] = {{1, "Project Name not entered"},
                                                  {2, "Project Description not entered"},
                                                  {3, "Location Not selected"},
                                                  {4, "Preliminary"},
                                                  {5, "Scheme 1A"},
                                                  {6, NumText(m.session.TodayYear)},
                                                  {7, "0"},
                                                  {8, "0"},
                                                  {9, "0"},
                                                  {10, StrForm(col[3])},
                                                  {11, StrForm(col[4])}};
    for (const auto& [i, text] : blanks)
        if (cuts::IsBlankText(fields.At("projectid", i).text))
            fields.At("projectid", i).text = text;
    for (int i = 1; i <= 13; ++i) m.ProjectData[i] = fields.At("projectid", i).text;
    m.ProjectData[kBldType] = m.btypes.BTypeName[type] + FormatField(NumText(type), "@@");

    TextTable<30>& d = m.defaults.ZoneDefaults;
    d.fill("");
    const std::string group = StrForm(static_cast<int>(col[2]));
    d[4] = StrForm(col[5]);
    d[5] = StrForm(app);
    d[6] = group;
    d[7] = StrForm(col[9]);
    d[8] = group;
    d[9] = "CS" + StrForm(DefaultOutdoorAir(col));
    d[11] = StrForm(col[12]);
    d[12] = StrForm(col[16]);
    d[13] = StrForm(col[12 + std::clamp<int>(m.session.CodeNum, 1, 3)]);
    d[14] = group;
    d[15] = StrForm(col[17]);
    for (int f = 16; f <= 19; ++f) d[f] = group;
    d[20] = StrForm(static_cast<int>(col[19]));
    d[21] = DefaultHeatingType(static_cast<int>(col[19]));
    d[22] = "4";
    d[23] = "0.5";
    d[24] = "12";
    d[25] = StrForm(col[18]);
    // The system's static pressure, cooling and heating efficiency and costs;
    // heating efficiency is the file's last item, as the zone screen takes it.
    d[26] = hvac.stpresIn;
    d[27] = hvac.seer;
    d[28] = hvac.HTCOP;
    d[29] = hvac.fcost;
    d[30] = hvac.mcost;
    if (si) ConvertDefaultsToSI();

    ApplyZoneDefaults();

    try {
        LoadDefaultEconomics(m, session_.paths);
    } catch (const ReadError& e) {
        prompt_.Ask(e.what(), "File Error", Buttons::Ok, Icon::Critical);
    }
    SetSizerStart();
    if ((type == 26 || type == 34) && !m.btypes.BTypeSizerAlternate[type].empty())
        m.btypes.BTypeSizerText[type] = m.btypes.BTypeSizerAlternate[type];

    if (m.flags.DefaultsApplied == 1)
        for (int t = 1; t <= kProfileTypes; ++t) m.profiles.Types[t].GroupNum.fill("");
    m.flags.DefaultsApplied = 1;
    m.flags.TaskDone[1] = 1;
    m.flags.ProjectTouched = 1;
}

void ProjectInfoController::ConvertDefaultsToSI() {
    TextTable<30>& d = session_.model.defaults.ZoneDefaults;
    d[4] = Converted(d[4], UnitFactor::MassPerAreaIpToSi, "@@@@@");
    d[5] = Converted(d[5], UnitFactor::AreaIpToSi, "@@@@@");
    d[7] = Converted(d[7], UnitFactor::VolumeIpToSi, "@@@@@");
    const std::string prefix = d[9].substr(0, 2);
    d[9] = prefix + FormatField(StrForm(RoundOff(NumVal(d[9].substr(2)) * 5.079656, 3)), "@@@@@@@");
    for (int f : {12, 13, 15}) d[f] = Converted(d[f], 1.0 / UnitFactor::AreaIpToSi, "@@@@@");
    d[22] = Converted(d[22], 18.28799833, "@@@@@");
    d[24] = Converted(d[24], UnitFactor::LengthIpToSi, "@@@@@");
    d[25] = Converted(d[25], UnitFactor::IlluminanceIpToSi, "@@@@");
    d[26] = Converted(d[26], UnitFactor::InWaterToPa, "@@@@@@");
    d[27] = Converted(d[27], 1.0 / UnitFactor::WattToBtuh, "@@@@@@");
}

void ProjectInfoController::ApplyZoneDefaults() {
    ProjectModel& m = session_.model;
    const TextTable<30>& d = m.defaults.ZoneDefaults;
    const bool si = m.session.Units == 2;
    const int type = m.session.BuildingType;
    const bool daylight = m.btypes.BTypeColumn[type][7] == 1;
    for (int z = 1; z <= 98; ++z) {
        auto& row = m.zones.ZoneData[z];
        for (int f = 4; f <= 30; ++f)
            if (f != 5) row[f] = d[f];
        float app = m.zones.DefaultAreaPerPerson;
        if (app == 0) {
            app = static_cast<float>(std::max(NumVal(d[5]), 10.0));
            if (si) app = static_cast<float>(app * UnitFactor::DefaultsAreaIpToSi);
        }
        m.zones.ZoneAreaPerPerson[z] = app;
        const float area = m.zones.ZoneFloorArea[z];
        row[5] = area > 0 ? StrForm(RoundOff(area / app, 1)) : " ";
        m.zones.ZoneNatVent[z] = "No";
        m.zones.ZoneDaylight[z] = daylight ? "Yes" : "No";
        m.zones.ZoneEconCycle[z] =
            m.defaults.EconDefault.empty() ? std::string("No") : m.defaults.EconDefault;
    }
}

void ProjectInfoController::SetSizerStart() {
    ProjectModel& m = session_.model;
    WindowSizerState& s = m.sizer;
    const float percent[5] = {40, 20, 40, 15, m.session.CodeNum == 1 ? 5.0f : 3.0f};
    for (int n = 0; n < 5; ++n) {
        s.WindowPercent[n] = s.WindowPercentDefault[n] = percent[n];
        s.WindowFraction[n] = percent[n] / 100;
    }
    // The side facing the pole keeps no overhang: north in the northern
    // hemisphere, south in the southern.
    const int exempt = m.climate.Latitude >= 0 ? 0 : 2;
    for (int n = 0; n < 4; ++n) {
        s.PFFirst[n] = s.PFFirstWork[n] = n == exempt ? 0.0f : 0.5f;
        s.PFUpper[n] = s.PFUpperWork[n] = n == exempt ? 0.0f : 0.25f;
    }
    m.flags.WindowSizerFresh = 1;
}

Navigation ProjectInfoController::AcceptProject() {
    ProjectModel& m = session_.model;
    if (cuts::IsBlankText(fields.At("projectid", 6).text)) {
        prompt_.Ask("You should put the construction year.", "Error", Buttons::Ok,
                    Icon::Exclamation);
        return {};
    }
    if (NumVal(fields.At("projectid", 10).text) > 7) {
        prompt_.Ask("The maximum occupied days are 7 days per-week.", "Error", Buttons::Ok,
                    Icon::Exclamation);
        return {};
    }
    for (int i = 1; i <= 13; ++i) m.ProjectData[i] = fields.At("projectid", i).text;
    m.BuildingFloorArea = m.BuildingFloorAreaEntered =
        static_cast<float>(NumVal(m.ProjectData[kFloorArea]));
    m.session.ProjectTitle = m.ProjectData[kProjName];
    m.flags.TaskDone[1] = 1;
    return {Screen::MainMenu, true, false};
}

void ProjectInfoController::UndoProject() {
    for (int i = 0; i <= 13; ++i) fields.At("projectid", i).text = opened_[i];
}

Navigation ProjectInfoController::CancelProject() {
    UndoProject();
    return {Screen::MainMenu, true, false};
}

Navigation ProjectInfoController::GetWeather() {
    return {Screen::Weather, true, false};
}

bool ProjectInfoController::KeyPress(int field) {
    if (field == 0) {
        prompt_.Ask("Cannot edit this, Select building type from the Building Type pop-down menu",
                    "Building Type, Non-edit item.", Buttons::Ok, Icon::Information);
        return false;
    }
    if (field == 13) {
        prompt_.Ask("Cannot be edited!", "Current energy code", Buttons::Ok, Icon::Information);
        return false;
    }
    return true;
}

void ProjectInfoController::Change(int field, const std::string& text) {
    fields.At("projectid", field).text = text;
    if (field == 0) {
        prompt_.Ask("Select building type from menu", "Building Type", Buttons::Ok,
                    Icon::Information);
    } else if (field == 10 && NumVal(text) > 7) {
        prompt_.Ask("Error. The maximum occupied days are 7 days per-week.", "Error", Buttons::Ok,
                    Icon::Exclamation);
        fields.At("projectid", 10).text = "7";
    }
}

}  // namespace solvane
