#include "zones/copy_zones.h"

#include <algorithm>

#include "core/numeric_helpers.h"
#include "core/text_cuts.h"
#include "zones/zone_fields.h"

namespace solvane {

CopyToZonesController::CopyToZonesController(Session& session, Prompt& prompt,
                                             ZoneFormController& form)
    : session_(session), prompt_(prompt), form_(form) {}

bool CopyToZonesController::HasNewData() {
    const auto& changed = session_.model.zoneEdit.ZoneFieldChanged[form_.CurrentZone()];
    for (Flag f : changed)
        if (f) return true;
    prompt_.Ask("New data have not been entered.  No data are copied to the other zones.",
                "Copy Data", Buttons::Ok, Icon::Information);
    return false;
}

bool CopyToZonesController::Open(int mode) {
    mode_ = mode;
    if (!HasNewData()) return false;
    const ZoneState& zs = session_.model.zones;
    fields.caption = mode == kCopyWindows ? "Copy window data to zones" : "Copy zone data to zones";
    for (int r = 1; r <= kMaxZones; ++r) {
        FieldState& row = fields.At("CopyZone", r);
        row.visible = r <= zs.NumZones;
        row.text = row.visible ? zs.ZoneNumber[r] + "  " + zs.ZoneName[r] : std::string();
        row.value = 0;
        row.enabled = r != form_.CurrentZone();
    }
    fields["CopyScroll"].visible = zs.NumZones > 10;
    return true;
}

void CopyToZonesController::Tick(int row, bool on) {
    if (row >= 1 && row <= kMaxZones) fields.At("CopyZone", row).value = on ? 1 : 0;
}

bool CopyToZonesController::Ok() {
    std::array<bool, kMaxZones + 1> targets{};
    for (int r = 1; r <= session_.model.zones.NumZones && r <= kMaxZones; ++r)
        targets[r] = fields.At("CopyZone", r).value != 0 && r != form_.CurrentZone();
    return Copy(targets, true);
}

bool CopyToZonesController::CopyAll(int mode) {
    mode_ = mode;
    if (!HasNewData()) return false;
    std::array<bool, kMaxZones + 1> targets{};
    for (int r = 1; r <= session_.model.zones.NumZones && r <= kMaxZones; ++r)
        targets[r] = r != form_.CurrentZone();
    return Copy(targets, false);
}

bool CopyToZonesController::Copy(const std::array<bool, kMaxZones + 1>& targets, bool fromList) {
    if (mode_ == kCopyWindows) return CopyWindows(targets, fromList);
    CopyFields(targets);
    return true;
}

bool CopyToZonesController::CopyWindows(const std::array<bool, kMaxZones + 1>& targets,
                                        bool fromList) {
    ProjectModel& m = session_.model;
    ElevationTables& e = form_.elevation;
    std::array<bool, 5> entered{};
    std::array<float, 5> fraction{};
    for (int d = 0; d <= 4; ++d) {
        const std::string& text = form_.fields.At("ElevArea", d).text;
        e.ElevFractionText[d] = text;
        if (text.empty() || text == " ") continue;
        const double x = NumVal(text);
        if (!IsNumericText(text) || x < 0 || x > 1) {
            prompt_.Ask(fromList ? "Window fractions must be between 0 and 1, please re-enter."
                                 : "Window or skylight fractions must be between 0 and 1, please "
                                   "re-enter.",
                        "FractiOn Error!", Buttons::Ok, Icon::Exclamation);
            return false;
        }
        entered[d] = true;
        fraction[d] = static_cast<float>(x);
    }
    if (std::find(entered.begin(), entered.end(), true) == entered.end()) {
        prompt_.Ask("No window data have been entered.  No data are being copied.",
                    "Copy Window Data", Buttons::Ok, Icon::Information);
        return false;
    }
    const int dp = DecimalPlaces(m.session.Units);
    SurfaceState& sf = m.surfaces;
    for (int z = 1; z <= m.zones.NumZones && z <= kMaxZones; ++z) {
        if (!targets[z]) continue;
        for (int d = 0; d <= 4; ++d)
            if (entered[d]) e.ElevWinFraction[z][d] = fraction[d];
        for (int s = 1; s <= m.zones.ZoneSurfaceCount[z] && s <= kMaxSurfaces; ++s) {
            if (sf.SurfExposure[z][s] >= 7) continue;
            const int d = ShadeDirection(sf.SurfExposure[z][s], sf.SurfOrient[z][s]);
            if (!entered[d]) continue;
            float area = RoundOff(sf.SurfArea[z][s] * fraction[d], dp);
            if (area < 1) area = 0;
            sf.SurfWindowArea[z][s] = area;
        }
    }
    m.flags.ProjectTouched = 1;
    return true;
}

// Field mode copies every field of the record that was changed by hand in the
// zone on the screen, as the screen shows it, except the zone's own number,
// name and floor area. People go over as a density: the target keeps the
// source's floor area per person. A changed natural ventilation or
// daylighting switch goes with its fields, and the economiser switch when it
// was clicked.
void CopyToZonesController::CopyFields(const std::array<bool, kMaxZones + 1>& targets) {
    ProjectModel& m = session_.model;
    ZoneState& zs = m.zones;
    const int from = form_.CurrentZone();
    const auto& changed = m.zoneEdit.ZoneFieldChanged[from];
    const auto box = [&](int f) { return form_.fields.At("zone", f).text; };
    const double sourcePeople = NumVal(box(5));
    const double sourceArea = NumVal(box(3));
    for (int z = 1; z <= zs.NumZones && z <= kMaxZones; ++z) {
        if (!targets[z]) continue;
        auto& d = zs.ZoneData[z];
        for (int f = 4; f <= 30; ++f) {
            if (f == 10 || !changed[f]) continue;
            if (f == 5) {
                if (sourcePeople > 0 && sourceArea > 0)
                    d[5] = StrForm(RoundOff(zs.ZoneFloorArea[z] * sourcePeople / sourceArea, 0));
                continue;
            }
            d[f] = box(f);
        }
        if (changed[22]) zs.ZoneNatVent[z] = NormaliseYesNo(form_.fields["natvent"].text);
        if (changed[24]) {
            zs.ZoneDaylight[z] = NormaliseYesNo(form_.fields["dayt"].text);
            form_.DaylightTouched[z] = 1;
        }
        if (form_.EconTouched[from]) {
            zs.ZoneEconCycle[z] = NormaliseYesNo(form_.fields["Econcycle"].text);
            form_.EconTouched[z] = 1;
        }
        const double people = NumVal(d[5]);
        zs.ZoneAreaPerPerson[z] =
            people > 0 ? static_cast<float>(zs.ZoneFloorArea[z] / people) : zs.DefaultAreaPerPerson;
    }
    m.flags.ProjectTouched = 1;
}

}  // namespace solvane
