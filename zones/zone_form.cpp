#include "zones/zone_form.h"

#include <algorithm>

#include "core/item_reader.h"
#include "core/numeric_helpers.h"
#include "core/text_cuts.h"
#include "propertydb/envelope_defaults.h"
#include "propertydb/hvac_catalog.h"
#include "zones/zone_fields.h"

namespace solvane {

namespace {

bool Blank(const std::string& s) {
    return cuts::IsBlankText(s);
}

// The captions that change with the units: I-P and SI texts by label name.
struct UnitCaption {
    const char* name;
    const char* ip;
    const char* si;
};
constexpr UnitCaption kCaptions[] = {
    {"lblMass", "lb/sq.ft.", "kg/sq.m."},
    {"lblHotWater", "Gal/day /person", "Ltr/day /person"},
    {"lblLightCost", " Cost  $/sq.ft.", " Cost  $/sq.m."},
    {"lblLightPower", "W/ sq.ft.", "W/ sq.m."},
    {"lblNatVent", "Nat. Vent. CFM/sq.ft.", "Nat. Vent. L/s/sq.m."},
    {"lblDayDepth", "Daylighting   Depth (ft)", "Daylighting   Depth (m)"},
    {"lblDayTarget", "  Target       Foot-candles", "  Target       Lux"},
    {"lblWallArea", "  Wall     Area    (sq.ft.)", "  Wall     Area    (sq.m.)"},
    {"lblGlassArea", " Glass  Area (sq.ft.)", " Glass  Area (sq.m.)"},
    {"lblSill", "   Sill      Ht.      (ft.)", "   Sill      Ht.      (m.)"},
    {"lblCool", " Cool.   SEER", " Cool.   COP"},
};

}  // namespace

ZoneFormController::ZoneFormController(Session& session, Prompt& prompt)
    : surfaces(session.model, session.labels, fields),
      session_(session),
      model_(session.model),
      prompt_(prompt) {}

void ZoneFormController::SetCaptions() {
    fields.caption =
        "Zone Description:... " + model_.session.ProjectTitle + "  " + model_.session.CodeName;
    const bool si = model_.session.Units == 2;
    for (const UnitCaption& c : kCaptions) fields[c.name].text = si ? c.si : c.ip;
}

// ---- bringing a zone to the screen ----------------------------------------------------

void ZoneFormController::ApplyHvacToAllZones() {
    ZoneState& zs = model_.zones;
    for (int z = 1; z <= zs.NumZones && z <= kMaxZones; ++z) {
        if (zs.ZoneFloorArea[z] < 0) continue;
        const int system = static_cast<int>(NumVal(zs.ZoneData[z][20]));
        if (system < 1 || system > kHvacSystems) continue;
        // Each zone's own heating type decides the fossil-heat cost.
        ScreenFields scratch;
        for (int f : {20, 21, 26, 27, 28, 29, 30}) scratch.At("zone", f).text = zs.ZoneData[z][f];
        try {
            ApplyHvacSystem(model_, session_.paths, prompt_, system, z, false, scratch);
        } catch (const ReadError& e) {
            prompt_.Ask("The HVAC system file could not be read: " + e.File() + ", line " +
                            std::to_string(e.Line()) + ": " + e.what(),
                        "File Error", Buttons::Ok, Icon::Exclamation);
            return;
        }
        for (int f : {20, 26, 27, 28, 29, 30}) zs.ZoneData[z][f] = scratch.At("zone", f).text;
    }
    model_.zoneEdit.CurrentField = 0;
}

bool ZoneFormController::ShowZone(int zone) {
    ZoneState& zs = model_.zones;
    if (zone < 1 || zone > kMaxZones || zone > zs.NumZones || Blank(zs.ZoneNumber[zone])) {
        prompt_.Beep();
        prompt_.Ask("Zone does not exist.  Select another zone.", "Error", Buttons::Ok,
                    Icon::Exclamation);
        return false;
    }
    currentZone_ = zone;
    currentFloor_ = static_cast<int>(NumVal(zs.ZoneNumber[zone]));
    SetCaptions();
    fields["builname"].text = model_.ProjectData[kProjName];
    fields["builtype"].text = model_.ProjectData[kBldType];
    fields["builloc"].text = model_.ProjectData[kLocation];

    auto& d = zs.ZoneData[zone];
    d[4] = InternalMassFloor(model_.session.Units, d[4]);
    if (zone < static_cast<int>(model_.flags.FirstVisit.size()) &&
        model_.flags.FirstVisit[zone] == 1)
        ApplyHvacToAllZones();

    for (int f = 1; f <= 30; ++f) {
        if (f == 10) continue;
        if (TakesDefaultGroup(f) && NumVal(d[f]) == 0) d[f] = DefaultGroupText(model_);
        model_.zoneEdit.ZoneFieldChanged[zone][f] = 0;
        fields.At("zone", f).color = kBlack;
    }
    d[9] = NormaliseOutdoorAir(model_, d[9]);
    zs.ZoneEconCycle[zone] = NormaliseYesNo(zs.ZoneEconCycle[zone]);
    zs.ZoneNatVent[zone] = NormaliseYesNo(zs.ZoneNatVent[zone]);
    zs.ZoneDaylight[zone] = NormaliseYesNo(zs.ZoneDaylight[zone]);
    ShowRecord();
    ShowSwitches();

    surfaces.Fill(zone);
    for (int dir = 0; dir <= 4; ++dir) {
        const float x = elevation.ElevWinFraction[zone][dir];
        fields.At("ElevArea", dir).text = x != 0 ? StrForm(x) : std::string();
        const float pf = currentFloor_ == 1 ? elevation.ElevPFLower[zone][dir]
                                            : elevation.ElevPFUpper[zone][dir];
        fields.At("ElevPF", dir).text = pf != 0 ? StrForm(pf) : std::string();
        fields.At("ElevPF", dir).color = kBlack;
    }
    model_.zoneEdit.CurrentField = 0;
    changeCount_ = 0;
    return true;
}

void ZoneFormController::ShowRecord() {
    const auto& d = model_.zones.ZoneData[currentZone_];
    for (int f = 1; f <= 30; ++f)
        if (f != 10) Box(f) = d[f];
}

void ZoneFormController::ShowSwitches() {
    const ZoneState& zs = model_.zones;
    fields["natvent"].text = zs.ZoneNatVent[currentZone_];
    fields["dayt"].text = zs.ZoneDaylight[currentZone_];
    fields["Econcycle"].text = zs.ZoneEconCycle[currentZone_];
    EnableSwitchFields();
}

void ZoneFormController::EnableSwitchFields() {
    fields.At("zone", 22).visible = NormaliseYesNo(fields["natvent"].text) == "Yes";
    const bool day = NormaliseYesNo(fields["dayt"].text) == "Yes";
    fields.At("zone", 24).visible = fields.At("zone", 25).visible = day;
}

// ---- zone boxes -----------------------------------------------------------------------

int ZoneFormController::EnterField(int field) {
    ZoneEditState& edit = model_.zoneEdit;
    edit.CurrentField = field;
    if (field >= 0 && field <= kZoneFields) edit.PrevFieldText[field] = Box(field);
    if (field == 27) HvacWaterCooledNotice(model_, prompt_, static_cast<int>(NumVal(Box(20))));
    return ProfileTypeOfField(field);
}

bool ZoneFormController::FieldKey(int field) {
    Prompt& prompt = prompt_;
    const auto refuse = [&](const char* text, const char* title) {
        prompt.Beep();
        prompt.Ask(text, title, Buttons::Ok, Icon::Exclamation);
        return false;
    };
    if (ProfileTypeOfField(field) > 0)
        return refuse("Select Profile from Pull-down Menu", "Profiles");
    if (field == 11) return refuse("Select Lighting type from Pull-down Menu", "Lighting Type");
    if (field == 20 || field == 21)
        return refuse("Select HVAC system from Pull-down Menu", "HVAC System");
    return true;
}

void ZoneFormController::EditField(int field, const std::string& text) {
    if (field >= 1 && field <= 30) Box(field) = text;
}

void ZoneFormController::MarkIfChanged(int field) {
    ZoneEditState& edit = model_.zoneEdit;
    if (Box(field) != edit.PrevFieldText[field]) {
        edit.ZoneFieldChanged[currentZone_][field] = 1;
        fields.At("zone", field).color = kRed;
        ++changeCount_;
    }
}

void ZoneFormController::LeaveField(int field) {
    if (field < 1 || field > 30 || field == 10 || currentZone_ == 0) return;
    ZoneState& zs = model_.zones;
    auto& d = zs.ZoneData[currentZone_];
    const int z = currentZone_;
    if (field == 9) Box(9) = NormaliseOutdoorAir(model_, Box(9));
    d[field] = Box(field);
    switch (field) {
        case 3:
            zs.ZoneFloorArea[z] = static_cast<float>(NumVal(d[3]));
            if (NumVal(d[5]) > 0)
                zs.ZoneAreaPerPerson[z] = static_cast<float>(NumVal(d[3]) / NumVal(d[5]));
            model_.zoneEdit.ZoneFieldChanged[z][3] = 1;
            ++changeCount_;
            break;
        case 5:
            model_.flags.WallsDerived = 1;
            zs.ZoneAreaPerPerson[z] = NumVal(d[5]) > 0
                                          ? static_cast<float>(NumVal(d[3]) / NumVal(d[5]))
                                          : zs.DefaultAreaPerPerson;
            MarkIfChanged(5);
            break;
        case 6:
        case 8:
        case 14:
        case 16:
        case 17:
        case 18:
        case 19:
        case 20:
        case 21:
            // A zero group is not allowed once the zone is on the screen.
            if (NumVal(d[field]) == 0) Box(field) = d[field] = " 1 ";
            break;
        default:
            MarkIfChanged(field);
            break;
    }
}

int ZoneFormController::ChooseProfile(int entry) {
    if (entry < 1 || entry > kProfileTypes) return 0;
    return EnterField(kProfileField[entry]);
}

void ZoneFormController::ChooseLighting(int type) {
    if (type < 1 || type > kLampTypes) return;
    ZoneEditState& edit = model_.zoneEdit;
    edit.PrevFieldText[11] = Box(11);
    edit.PrevFieldText[13] = Box(13);
    Box(11) = StrForm(type) + " ";
    edit.CurrentField = 11;
    if (Box(11) == edit.PrevFieldText[11]) return;
    MarkIfChanged(11);
    const std::string power = LightingPowerText(model_, type);
    if (!power.empty()) Box(13) = power;
    MarkIfChanged(13);
}

void ZoneFormController::ChooseSystem(int system, bool showNotice) {
    if (system < 1 || system > kHvacSystems || currentZone_ == 0) return;
    try {
        ApplyHvacSystem(model_, session_.paths, prompt_, system, currentZone_, showNotice, fields);
    } catch (const ReadError& e) {
        prompt_.Ask("The HVAC system file could not be read: " + e.File() + ", line " +
                        std::to_string(e.Line()) + ": " + e.what(),
                    "File Error", Buttons::Ok, Icon::Exclamation);
        return;
    }
    for (int f : {20, 26, 27, 28, 29, 30})
        if (model_.zoneEdit.ZoneFieldChanged[currentZone_][f]) fields.At("zone", f).color = kRed;
    ++changeCount_;
}

void ZoneFormController::ChooseHeating(int entry) {
    if (entry < 1 || entry > 3 || currentZone_ == 0) return;
    ZoneEditState& edit = model_.zoneEdit;
    for (int f : {21, 27, 28, 29, 30}) edit.PrevFieldText[f] = Box(f);

    const std::string efficiency = HeatingEfficiency(session_.paths, entry);
    if (!efficiency.empty()) Box(28) = efficiency;

    const int system = static_cast<int>(NumVal(Box(20)));
    const int previous = static_cast<int>(NumVal(edit.PrevFieldText[21]));
    if (system != 8 && system != 9) {
        double first = NumVal(Box(29));
        bool changed = false;
        if (previous == 1 && entry != 1) {
            first -= 200;  // no furnace or boiler any more
            changed = true;
        } else if (entry == 1 && previous != 1) {
            first += 200;
            changed = true;
        }
        if (changed) {
            Box(29) = StrForm(static_cast<float>(first));
            Box(30) = HvacMaintenanceCost(system, first);
        }
    }
    Box(21) = StrForm(entry);
    edit.CurrentField = 21;
    for (int f : {21, 27, 28, 29, 30}) MarkIfChanged(f);
}

// ---- switches ---------------------------------------------------------------------------

void ZoneFormController::ToggleNatVent() {
    std::string& label = fields["natvent"].text;
    label = FlipYesNo(label);
    if (label == "Yes") Box(22) = model_.session.Units == 2 ? "20" : "4";
    fields.At("zone", 22).visible = label == "Yes";
    model_.zoneEdit.CurrentField = 31;
    model_.zoneEdit.ZoneFieldChanged[currentZone_][22] = 1;
    ++changeCount_;
}

void ZoneFormController::ToggleEconomiser() {
    std::string& label = fields["Econcycle"].text;
    label = FlipYesNo(label);
    EconTouched[currentZone_] = 1;
    // The economiser has no field of its own: its click marks the record as a whole.
    model_.zoneEdit.ZoneFieldChanged[currentZone_][0] = 1;
    ++changeCount_;
}

void ZoneFormController::ToggleDaylight() {
    std::string& label = fields["dayt"].text;
    label = FlipYesNo(label);
    fields.At("zone", 24).visible = fields.At("zone", 25).visible = label == "Yes";
    DaylightTouched[currentZone_] = 1;
    model_.zoneEdit.ZoneFieldChanged[currentZone_][24] = 1;
    ++changeCount_;
}

void ZoneFormController::DaylightingHelp() {
    prompt_.Ask(DaylightingHelpText(), kDaylightingHelpTitle, Buttons::Ok, Icon::Information);
}

// ---- elevation boxes ----------------------------------------------------------------------

bool ZoneFormController::ElevationFraction(int direction, const std::string& text) {
    if (direction < 0 || direction > 4 || currentZone_ == 0) return false;
    const int z = currentZone_;
    elevation.ElevFractionText[direction] = text;
    if (Blank(text)) return true;  // nothing entered for this side
    const double x = NumVal(text);
    elevation.ElevWinFraction[z][direction] = static_cast<float>(x);
    const int dp = DecimalPlaces(model_.session.Units);
    SurfaceBuffers& b = surfaces.buffers;
    bool checked = false;
    for (int r = 1; r <= kMaxSurfaces; ++r) {
        if (Blank(b.At(kColWallId, r))) continue;
        const int exposure = static_cast<int>(NumVal(b.At(kColSurf, r)));
        const int orient = static_cast<int>(NumVal(b.At(kColOrient, r)));
        if (exposure >= 7 || WindowDirection(exposure, orient) != direction) continue;
        if (!checked && (x < 0 || x > 1)) {
            prompt_.Ask("Window or skylight fractions must be between 0 and 1, please re-enter.",
                        "FractiOn Error!", Buttons::Ok, Icon::Exclamation);
            return false;
        }
        checked = true;
        float area = RoundOff(NumVal(b.At(kColWallArea, r)) * x, dp);
        if (model_.session.Units != 2 && area < 1) area = 0;  // under a square foot: no window
        model_.surfaces.SurfWindowArea[z][r] = area;
        b.At(kColWinArea, r) = StrForm(area);
        if (FieldState* box = surfaces.Box(kColWinArea, r)) box->text = b.At(kColWinArea, r);
    }
    // The elevations have no field of their own: the record as a whole is marked.
    model_.zoneEdit.ZoneFieldChanged[z][0] = 1;
    ++changeCount_;
    return true;
}

bool ZoneFormController::ElevationPF(int direction, const std::string& text) {
    if (direction < 0 || direction > 3 || currentZone_ == 0) return false;
    const int z = currentZone_;
    FieldState& box = fields.At("ElevPF", direction);
    const float before = currentFloor_ == 1 ? elevation.ElevPFLower[z][direction]
                                            : elevation.ElevPFUpper[z][direction];
    const auto restore = [&] {
        box.text = before != 0 ? StrForm(before) : std::string();
        return false;
    };
    const float pf = static_cast<float>(NumVal(text));
    std::string zone = model_.session.ClimateZone;
    zone.erase(std::remove(zone.begin(), zone.end(), ' '), zone.end());
    const bool tested = ClimateNumber(model_.session.ClimateZone) <= 4 && zone != "4A";
    if (tested) {
        if (pf < 0 || text.find('-') != std::string::npos) {
            prompt_.Ask("PF fractions must be 0 or greater, please re-enter positive value.",
                        "Negative sign Error!", Buttons::Ok, Icon::Exclamation);
            return restore();
        }
        if (pf >= 1 &&
            prompt_.Ask("Most PF fractions are less than 1.0, but not necessary. If your PF is "
                        "correct, click OK; if incorrect, click Cancel",
                        "Unusually large window overhang!", Buttons::OkCancel,
                        Icon::Question) == Answer::Cancel)
            return restore();
        const SurfaceBuffers& b = surfaces.buffers;
        const float latitude = model_.climate.Latitude;
        for (int r = 1; r <= kMaxSurfaces; ++r) {
            if (Blank(b.At(kColWallId, r))) continue;
            const int exposure = static_cast<int>(NumVal(b.At(kColSurf, r)));
            const int orient = static_cast<int>(NumVal(b.At(kColOrient, r)));
            if (exposure >= 6 || ShadeDirection(exposure, orient) != direction) continue;
            // The side away from the equator needs no overhang.
            if ((direction == 0 && latitude > 0) || (direction == 2 && latitude < 0)) continue;
            if (pf >= 0.5f) break;
            float required = 0;
            if (currentFloor_ > 1) {
                if (pf < 0.25f) required = 0.25f;
            } else if (elevation.ElevWinFraction[z][direction] < 0.5f && !PFAlertsOff) {
                required = 0.5f;
            }
            if (required == 0) break;
            box.color = kRed;
            if (prompt_.Ask("This PF value of " + cuts::TrimLeft(text) +
                                " will not meet the energy code minimum requirement of " +
                                NumText(required) +
                                " on this floor; Click Cancel to revise the value or click OK to "
                                "ignore the energy standard and proceed.",
                            "PF inadequate.", Buttons::OkCancel,
                            Icon::Exclamation) == Answer::Cancel)
                return restore();
            PFAlertsOff = true;
            break;
        }
    }
    return ApplyPF(direction, pf);
}

// The third shading word of each surface of the side takes the factor: the
// text up to its first "F" or "T" stands and the factor follows. A text with
// neither gets a front overhang word in the place of its third word.
bool ZoneFormController::ApplyPF(int direction, float pf) {
    const int z = currentZone_;
    SurfaceBuffers& b = surfaces.buffers;
    std::string pfText = StrForm(pf);
    if (!pfText.empty() && pfText[0] == ' ') pfText.erase(0, 1);
    bool asked = false;
    for (int r = 1; r <= kMaxSurfaces; ++r) {
        if (Blank(b.At(kColWallId, r))) continue;
        const int exposure = static_cast<int>(NumVal(b.At(kColSurf, r)));
        const int orient = static_cast<int>(NumVal(b.At(kColOrient, r)));
        if (exposure >= 6 || ShadeDirection(exposure, orient) != direction) continue;
        const std::string& shade = b.At(kColShade, r);
        std::string updated;
        const std::size_t cut = shade.find_first_of("FT");
        if (cut != std::string::npos) {
            updated = shade.substr(0, cut + 1) + pfText;
        } else {
            auto words = cuts::Tokens(shade);
            while (words.size() < 3) words.push_back("N0.");
            updated = " " + words[0] + " " + words[1] + " F" + pfText;
        }
        if (!asked) {
            asked = true;
            if (prompt_.Ask("Shade text = " + updated + "   Want to proceed? Yes/No",
                            "Shade transfer check.", Buttons::YesNo, Icon::Question) == Answer::No)
                return false;
        }
        b.At(kColShade, r) = updated;
        model_.surfaces.SurfShade[z][r] = updated;
        if (FieldState* box = surfaces.Box(kColShade, r)) box->text = updated;
    }
    (currentFloor_ == 1 ? elevation.ElevPFLower : elevation.ElevPFUpper)[z][direction] = pf;
    ++changeCount_;
    return true;
}

// ---- surface boxes ------------------------------------------------------------------------

void ZoneFormController::EditSurface(const std::string& column, int box, const std::string& text) {
    const int c = SurfaceColumnOf(column);
    if (c >= 0) surfaces.Edit(c, box, text);
}

bool ZoneFormController::SurfaceKey(const std::string& column, char& key) {
    const int c = SurfaceColumnOf(column);
    return c < 0 || surfaces.Key(c, key, prompt_);
}

bool ZoneFormController::LeaveSurface(const std::string& column, int box) {
    const int c = SurfaceColumnOf(column);
    return c < 0 || surfaces.Leave(c, box, prompt_);
}

// ---- OK, Undo, Cancel -----------------------------------------------------------------------

bool ZoneFormController::SaveZoneFromScreen() {
    const int z = currentZone_;
    ZoneState& zs = model_.zones;
    if (NormaliseYesNo(fields["dayt"].text) == "Yes" &&
        (NumVal(Box(24)) == 0 || NumVal(Box(25)) == 0)) {
        prompt_.Ask(
            "Daylighting depth or target footcandles cannot be 0 if daylight is used.  Please "
            "correct your input.",
            "Error", Buttons::Ok, Icon::Exclamation);
        return false;
    }
    for (int f = 1; f <= 30; ++f) {
        if (f == 10) continue;
        if (TakesDefaultGroup(f)) {
            if (Box(f).empty()) Box(f) = " 0 ";
            if (NumVal(Box(f)) == 0) {
                Box(f) = DefaultGroupText(model_);
                fields.At("zone", f).color = kRed;
            }
        }
        zs.ZoneData[z][f] = Box(f);
    }
    Box(9) = zs.ZoneData[z][9] = NormaliseOutdoorAir(model_, zs.ZoneData[z][9]);
    const auto orNo = [](const std::string& s) { return s.empty() ? std::string("No") : s; };
    zs.ZoneNatVent[z] = orNo(fields["natvent"].text);
    zs.ZoneDaylight[z] = orNo(fields["dayt"].text);
    zs.ZoneEconCycle[z] = fields["Econcycle"].text;
    surfaces.Save(z);
    return true;
}

bool ZoneFormController::Ok() {
    if (currentZone_ == 0) return true;
    const int z = currentZone_;
    ZoneState& zs = model_.zones;
    zs.ZoneFloorArea[z] = static_cast<float>(NumVal(Box(3)));
    Box(4) = InternalMassFloor(model_.session.Units, Box(4));
    for (int f = 1; f <= 30; ++f) {
        if (!TakesDefaultGroup(f) || NumVal(Box(f)) != 0) continue;
        Box(f) = DefaultGroupText(model_);
        fields.At("zone", f).color = kRed;
    }
    for (int f = 1; f <= 30; ++f)
        if (f != 10) zs.ZoneData[z][f] = Box(f);

    if (!Blank(surfaces.buffers.At(kColShade, 1)) &&
        !surfaces.Check(prompt_, windowAlertAnswered_[z]))
        return false;
    if (!SaveZoneFromScreen()) return false;

    zs.ZoneExists[z] = zs.ZoneDescribed[z] = 1;
    if (z < static_cast<int>(model_.flags.FirstVisit.size())) model_.flags.FirstVisit[z] = 0;
    if (model_.flags.SketchVisits > 0) zs.ZoneVisited[z] = 1;
    for (int k = 1; k <= zs.NumZones && k <= kMaxZones; ++k) {
        const double people = NumVal(zs.ZoneData[k][5]);
        zs.ZoneAreaPerPerson[k] = people > 0
                                      ? static_cast<float>(NumVal(zs.ZoneData[k][3]) / people)
                                      : zs.DefaultAreaPerPerson;
    }
    model_.flags.ProjectTouched = 1;
    return true;
}

void ZoneFormController::Undo() {
    const int f = model_.zoneEdit.CurrentField;
    const auto& d = model_.zones.ZoneData[currentZone_];
    if (f > 0 && f <= 30) {
        Box(f) = d[f];
        fields.At("zone", f).color = kBlack;
        if (f == 20 || f == 21)
            for (int k = 26; k <= 30; ++k) Box(k) = d[k];
    }
    // With no box current there is nothing to take back: the surfaces and
    // buffers are never touched by Undo.
}

void ZoneFormController::Cancel() {
    ShowRecord();
    ShowSwitches();
    surfaces.Fill(currentZone_);
}

}  // namespace solvane
