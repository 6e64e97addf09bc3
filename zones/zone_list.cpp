#include "zones/zone_list.h"

#include "core/item_reader.h"
#include "core/numeric_helpers.h"
#include "core/text_cuts.h"
#include "propertydb/schedule_library.h"
#include "zones/zone_files.h"

namespace solvane {

namespace {

void AccessError(Prompt& prompt) {
    prompt.Ask(
        "You have not drawn your building, or you have not named the building zone(s).  Please "
        "return to the sketch program.",
        "Zone data access Error", Buttons::Ok, Icon::Exclamation);
}

}  // namespace

void NumberCatalogRows(ProjectModel& model) {
    for (int k = 1; k <= kMaxCatalog; ++k) {
        if (model.walls.WallId[k].empty() && !cuts::IsBlankText(model.walls.WallDescription[k]))
            model.walls.WallId[k] = NumText(k);
        if (model.windows.WindowId[k].empty() &&
            !cuts::IsBlankText(model.windows.WindowDescription[k]))
            model.windows.WindowId[k] = NumText(k);
    }
}

bool ReDeriveZones(Session& session, Prompt& prompt) {
    ProjectModel& m = session.model;
    ZoneState& zs = m.zones;
    if (zs.NumZones < 1) {
        AccessError(prompt);
        return false;
    }
    NumberCatalogRows(m);
    if (m.flags.ReSketched != 1) return true;

    m.flags.InputFileSaved = 0;
    m.BuildingFloorAreaEntered = m.BuildingFloorArea;
    m.ProjectData[kFloorArea] = NumText(m.BuildingFloorArea);
    m.ProjectData[kOrientation] = m.sketch.RotationText;
    m.flags.ProjectScreenFlags[1] = m.flags.ProjectScreenFlags[6] = 1;
    m.flags.ProjectScreenFlags[11] = m.flags.ProjectScreenFlags2[1] = 1;

    UseBuildingTypeProfiles(m);

    for (int z = 1; z <= zs.NumZones && z <= kMaxZones; ++z)
        if (zs.ZoneAreaPerPerson[z] > 0)
            zs.ZoneData[z][5] = StrForm(RoundOff(zs.ZoneFloorArea[z] / zs.ZoneAreaPerPerson[z], 0));

    try {
        for (int z = 1; z <= zs.NumZones && z <= kMaxZones; ++z) ReadZoneFile(m, session.paths, z);
        // Only the first zone gets the second pass.
        if (m.flags.ZonesDescribed == 1) {
            ReadZoneFileKeeping(m, session.paths, 1);
            m.flags.InputFileSaved = 0;
            session.mainmenu["Image6"].enabled = session.mainmenu["executerun"].enabled = false;
        }
    } catch (const ReadError&) {
        AccessError(prompt);
        return false;
    }
    return true;
}

ZoneListController::ZoneListController(Session& session, Prompt& prompt)
    : session_(session), prompt_(prompt) {}

void ZoneListController::Fill() {
    const ProjectModel& m = session_.model;
    const ZoneState& zs = m.zones;
    fields.caption =
        session_.labels.CodeTitle[m.session.CodeNum] + "  ZONE NAMES:... " + m.session.ProjectTitle;
    fields["builname"].text = m.ProjectData[kProjName];
    fields["builloc"].text = m.ProjectData[kLocation];
    for (int r = 1; r <= kMaxZones; ++r) {
        const bool zone = r <= zs.NumZones;
        fields.At("ZoneNumber", r).text = zone ? zs.ZoneNumber[r] : std::string();
        fields.At("ZoneName", r).text = zone ? zs.ZoneName[r] : std::string();
        fields.At("ZoneSeq", r).text = zone ? NumText(r) : std::string();
    }
}

bool ZoneListController::Pick(int row) {
    if (row < 1 || row > kMaxZones || cuts::IsBlankText(fields.At("ZoneNumber", row).text)) {
        prompt_.Beep();
        prompt_.Ask("Zone does not exist.  Select another zone.", "Error", Buttons::Ok,
                    Icon::Exclamation);
        return false;
    }
    PickedZone = row;
    PickedLevel = static_cast<int>(NumVal(fields.At("ZoneNumber", row).text));
    return true;
}

bool ZoneListController::Back() {
    ProjectModel& m = session_.model;
    ZoneState& zs = m.zones;
    m.flags.InputSavedFlag = 0;
    std::string unopened;
    for (int z = 1; z <= zs.NumZones && z <= kMaxZones; ++z) {
        if (zs.ZoneDescribed[z] == 0) unopened += (unopened.empty() ? "" : ", ") + zs.ZoneNumber[z];
        zs.ZoneExists[z] = 1;
    }
    m.ProjectData[kFloorArea] = NumText(m.BuildingFloorAreaEntered);
    if (!unopened.empty()) {
        prompt_.Beep();
        if (prompt_.Ask(
                "You have just sketched your building, but you have not opened zone(s) :  " +
                    unopened + ".   Do you really want to go to Main Menu ?",
                "Warning", Buttons::YesNo, Icon::Exclamation) == Answer::No)
            return false;
    }
    m.flags.TaskDone[5] = 1;
    m.flags.ZonesDescribed = 1;
    session_.mainmenu["zonedescription"].enabled = session_.mainmenu["Image12"].enabled = true;
    if (m.flags.ReSketched == 1) {
        m.flags.InputFileSaved = 0;
        prompt_.Ask(
            "Please be sure to save your building input file before attempting to execute "
            "the run.",
            "Zone Description", Buttons::Ok, Icon::Information);
        session_.mainmenu["Image6"].enabled = session_.mainmenu["executerun"].enabled = false;
        m.flags.ReSketched = 0;
    }
    return true;
}

}  // namespace solvane
