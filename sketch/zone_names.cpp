#include "sketch/zone_names.h"

#include <algorithm>
#include <string>

#include "core/numeric_helpers.h"
#include "core/text_cuts.h"

namespace solvane {

FieldState& ZoneListCell(ScreenFields& fields, int row, int column) {
    return fields.At("MSFlexGrid1_" + std::to_string(row), column);
}

void ClearZoneList(ScreenFields& fields, int firstRow) {
    for (int row = firstRow; row <= 99; ++row)
        for (int c = 0; c < kZoneListColumns; ++c) ZoneListCell(fields, row, c).text.clear();
}

ZoneNameController::ZoneNameController(Session& session, Prompt& prompt,
                                       ZoneHandOverServices services)
    : session_(session), prompt_(prompt), services_(std::move(services)) {}

void ZoneNameController::FillList() {
    ProjectModel& m = session_.model;
    ZoneState& zs = m.zones;
    const int code = m.session.CodeNum;
    fields.caption = (code >= 1 && code <= 3 ? session_.labels.CodeTitle[code] : std::string()) +
                     "  ZONE NAMES:... " + m.session.ProjectTitle;
    fields["builname"].text = m.ProjectData[kProjName];
    fields["builloc"].text = m.ProjectData[kLocation];
    ZoneListCell(fields, 0, 0).text = "Zone Number";
    ZoneListCell(fields, 0, 1).text = "Zone Name";
    ZoneListCell(fields, 0, 2).text = "Zone Sequence";

    const int count = std::min(zs.NumZones, kMaxZones);
    for (int z = 1; z <= count; ++z) {
        ZoneListCell(fields, z, 0).text = zs.ZoneNumber[z];
        ZoneListCell(fields, z, 1).text = zs.ZoneName[z];
        ZoneListCell(fields, z, 2).text = std::to_string(z);
        zs.ZoneData[z][1] = zs.ZoneNumber[z];
        zs.ZoneData[z][2] = zs.ZoneName[z];
        zs.ZoneData[z][3] = NumText(zs.ZoneFloorArea[z]);
    }
    for (int row = count + 1; row <= 98; ++row)
        for (int c = 0; c < kZoneListColumns; ++c) ZoneListCell(fields, row, c).text.clear();
}

bool ZoneNameController::Enter() {
    ProjectModel& m = session_.model;
    FillList();
    if (m.flags.ReSketched != 1) return true;

    // A new sketch has replaced the zones. Each row keeps what it held, by
    // sequence number: only the number, name, area, people and surfaces change.
    ProgressFlags& f = m.flags;
    f.InputFileSaved = 0;
    m.BuildingFloorAreaEntered = m.BuildingFloorArea;
    m.ProjectData[kFloorArea] = NumText(m.BuildingFloorArea);
    m.ProjectData[kOrientation] = m.sketch.RotationText;
    f.ProjectScreenFlags[1] = f.ProjectScreenFlags[6] = f.ProjectScreenFlags[11] = 1;
    f.ProjectScreenFlags2[1] = 1;
    if (services_.resetProfiles) services_.resetProfiles(session_);

    ZoneState& zs = m.zones;
    for (int z = 1; z <= std::min(zs.NumZones, kMaxZones); ++z) {
        float perPerson = zs.ZoneAreaPerPerson[z];
        if (perPerson <= 0) perPerson = zs.DefaultAreaPerPerson;
        if (perPerson > 0)
            zs.ZoneData[z][5] = StrForm(RoundOff(zs.ZoneFloorArea[z] / perPerson, 2));
        if (services_.readZoneSurfaces && !services_.readZoneSurfaces(session_, prompt_, z))
            return false;
    }
    return true;
}

Navigation ZoneNameController::Ok(int row) {
    const std::string number =
        row >= 1 && row < kZoneListRows ? ZoneListCell(fields, row, 0).text : std::string();
    if (cuts::IsBlankText(number)) {
        prompt_.Beep();
        prompt_.Ask("Zone does not exist.  Select another zone.", "Error", Buttons::Ok,
                    Icon::Exclamation);
        return {};
    }
    PickedZone = row;
    PickedLevel = static_cast<int>(NumVal(number));
    if (services_.showZone) services_.showZone(session_, prompt_, row);
    return {Screen::ZoneForm, true, false};
}

Navigation ZoneNameController::Back(bool fromZoneScreen) {
    ProjectModel& m = session_.model;
    ZoneState& zs = m.zones;
    m.flags.InputSavedFlag = 0;
    std::string unopened;
    if (!fromZoneScreen) {
        for (int z = 1; z <= std::min(zs.NumZones, kMaxZones); ++z) {
            if (zs.ZoneDescribed[z] == 0)
                unopened += (unopened.empty() ? "" : ", ") + zs.ZoneNumber[z];
            zs.ZoneExists[z] = 1;
        }
        m.ProjectData[kFloorArea] = NumText(m.BuildingFloorAreaEntered);
    }
    if (!unopened.empty()) {
        prompt_.Beep();
        if (prompt_.Ask(
                "You have just sketched your building, but you have not opened zone(s) :  " +
                    unopened + ".   Do you really want to go to Main Menu ?",
                "Warning", Buttons::YesNo, Icon::Exclamation) != Answer::Yes)
            return {};
    }

    m.flags.TaskDone[5] = 1;
    session_.mainmenu["zonedescription"].enabled = true;
    session_.mainmenu["Image12"].enabled = true;
    if (m.flags.ReSketched == 1) {
        m.flags.InputFileSaved = 0;
        prompt_.Ask(
            "Please be sure to save your building input file before attempting to "
            "execute the run.",
            "Save Input File", Buttons::Ok, Icon::Information);
        session_.mainmenu["executerun"].enabled = false;
        session_.mainmenu["Image6"].enabled = false;
        m.flags.ReSketched = 0;
    }
    return {Screen::MainMenu, true, false};
}

}  // namespace solvane
