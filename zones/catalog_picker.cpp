#include "zones/catalog_picker.h"

#include <algorithm>

#include "core/numeric_helpers.h"
#include "core/text_cuts.h"
#include "propertydb/envelope_defaults.h"

namespace solvane {

namespace {

const char* const kColumns[] = {"id", "Des", "UF", "Absp", "lag", "decr", "cost"};

TextTable<kMaxCatalog>* Column(EnvelopeRows& r, const std::string& name) {
    TextTable<kMaxCatalog>* all[] = {&r.id, &r.Des, &r.UF, &r.Absp, &r.lag, &r.decr, &r.cost};
    for (int c = 0; c < 7; ++c)
        if (name == kColumns[c]) return all[c];
    return nullptr;
}

}  // namespace

CatalogPickerController::CatalogPickerController(Session& session, Prompt& prompt,
                                                 ZoneFormController& form)
    : session_(session), prompt_(prompt), form_(form) {}

// The catalog's rows as the picker edits them; a row whose ID was never set
// goes by its row number.
void CatalogPickerController::Load() {
    const ProjectModel& m = session_.model;
    rows = EnvelopeRows{};
    for (int k = 1; k <= kPickerRows; ++k) {
        if (PickerKind == 1) {
            const WallCatalog& w = m.walls;
            rows.Des[k] = w.WallDescription[k], rows.UF[k] = w.WallUFactor[k];
            rows.Absp[k] = w.WallSolarAbs[k], rows.lag[k] = w.WallTimeLag[k];
            rows.decr[k] = w.WallDecrement[k], rows.cost[k] = w.WallInsCost[k];
            rows.id[k] = w.WallId[k];
        } else {
            const WindowCatalog& g = m.windows;
            rows.Des[k] = g.WindowDescription[k], rows.UF[k] = g.WindowUFactor[k];
            rows.Absp[k] = g.WindowSHGC[k], rows.lag[k] = g.WindowEmissivity[k];
            rows.decr[k] = g.WindowDLTrans[k], rows.cost[k] = g.WindowInsCost[k];
            rows.id[k] = g.WindowId[k];
        }
        if (cuts::IsBlankText(rows.id[k]) && !cuts::IsBlankText(rows.Des[k]))
            rows.id[k] = NumText(k);
    }
}

void CatalogPickerController::Show(int k) {
    TextTable<kMaxCatalog>* all[] = {&rows.id,  &rows.Des,  &rows.UF,  &rows.Absp,
                                     &rows.lag, &rows.decr, &rows.cost};
    for (int c = 0; c < 7; ++c) fields.At(kColumns[c], k).text = (*all[c])[k];
}

std::string CatalogPickerController::IdOf(int row) const {
    return rows.id[row];
}

bool CatalogPickerController::Open(int kind, int box) {
    const ProjectModel& m = session_.model;
    if (m.session.ClimateZone.empty() || m.session.BuildingType == 0 || m.session.CodeNum == 0) {
        prompt_.Ask(std::string("Energy code, building type, and climate (city) must all be "
                                "specified") +
                        "\r\n" + "before the available catalog components can be determined.",
                    kMissingSpecsTitle, Buttons::Ok, Icon::Exclamation);
        return false;
    }
    if (form_.CurrentZone() > 0) form_.surfaces.Save(form_.CurrentZone());
    PickerKind = kind == 2 ? 2 : 1;
    PickerRow = form_.surfaces.Top() + box;
    PickerSelected = 0;
    edited_.fill(false);
    Load();
    for (int k = 1; k <= kPickerRows; ++k) Show(k);

    const int type = m.session.BuildingType;
    fields["Btype"].text = NumText(type) + ".  " + m.btypes.BTypeName[type];
    fields["Cat"].text = BuildingClassName(type);
    fields["code"].text = "Values based on " + session_.labels.CodeTitle[m.session.CodeNum];
    fields["code"].color = session_.labels.CodeColor[m.session.CodeNum];
    fields["CZone"].text = m.session.ClimateZone;
    const bool si = m.session.Units == 2;
    fields.caption =
        (PickerKind == 1 ? "WALL,ROOF,FLOOR,DOOR CATALOG" : "WINDOW & SKYLIGHT CATALOG") +
        std::string(" - ") + m.session.ProjectTitle;
    fields["caption_2"].text = si ? "U-Factor (Watt/sq.m.C)" : "U-Factor (Btu/hr.sq.ft.F)";
    fields["caption_6"].text = si ? "Installed Cost ($/sq.m.)" : "Installed Cost ($/sq.ft.)";
    if (PickerKind == 2) {
        fields["caption_3"].text = "SHGC (Solar Ht Gn Coeff.)";
        fields["caption_4"].text = "Emissivity";
        fields["caption_5"].text = "Visible Trans.";
    } else {
        fields["caption_3"].text = "Solar Absorptance";
        fields["caption_4"].text = "Time Lag (hours)";
        fields["caption_5"].text = "Decrement Factor";
    }
    fields["status"].text.clear();
    return true;
}

void CatalogPickerController::Pick(int row) {
    if (row < 1 || row > kPickerRows || cuts::IsBlankText(IdOf(row))) return;
    PickerSelected = row;
    const int number = static_cast<int>(NumVal(IdOf(row)));
    SurfaceRows& s = form_.surfaces;
    if (PickerKind == 2) {
        session_.model.windows.WindowUsed[row] = 1;
        s.buffers.At(kColWindowId, PickerRow) = StrForm(number);
    } else {
        session_.model.walls.WallUsed[row] = 1;
        s.buffers.At(kColWallId, PickerRow) = WallIdText(session_.labels, number);
    }
    s.Scroll(s.Top());
}

void CatalogPickerController::Edit(const std::string& column, int row, const std::string& text) {
    TextTable<kMaxCatalog>* c = Column(rows, column);
    if (!c || row < 1 || row > kPickerRows) return;
    (*c)[row] = text;
    fields.At(column, row).text = text;
    edited_[row] = true;
    fields["status"].text = PickerKind == 1 ? "Wall id modified" : "Window id modified";
}

void CatalogPickerController::Undo() {
    const EnvelopeRows edited = rows;
    Load();
    for (int k = 1; k <= kPickerRows; ++k)
        if (edited_[k]) Show(k);
    edited_.fill(false);
    fields["status"].text =
        PickerKind == 1 ? "Wall id reverted to original" : "Window id reverted to original";
}

void CatalogPickerController::Ok() {
    const std::string word = PickerKind == 1 ? "wall" : "window";
    for (int k = 1; k <= kPickerRows; ++k) {
        if (!edited_[k] || k == PickerSelected) continue;
        if (prompt_.Ask("The " + word +
                            " data you have just edited are not selected.  Save the "
                            "new data before leaving?",
                        "Select " + word + " ID", Buttons::YesNo, Icon::Question) == Answer::Yes)
            Pick(k);
        break;
    }
    ProjectModel& m = session_.model;
    for (int k = 1; k <= kPickerRows; ++k) {
        if (cuts::IsBlankText(rows.Des[k]) && cuts::IsBlankText(rows.id[k])) continue;
        if (PickerKind == 1) {
            WallCatalog& w = m.walls;
            w.WallId[k] = rows.id[k], w.WallDescription[k] = rows.Des[k];
            w.WallUFactor[k] = rows.UF[k], w.WallSolarAbs[k] = rows.Absp[k];
            w.WallTimeLag[k] = rows.lag[k], w.WallDecrement[k] = rows.decr[k];
            w.WallInsCost[k] = rows.cost[k];
        } else {
            WindowCatalog& g = m.windows;
            g.WindowId[k] = rows.id[k], g.WindowDescription[k] = rows.Des[k];
            g.WindowUFactor[k] = rows.UF[k], g.WindowSHGC[k] = rows.Absp[k];
            g.WindowEmissivity[k] = rows.lag[k], g.WindowDLTrans[k] = rows.decr[k];
            g.WindowInsCost[k] = rows.cost[k];
        }
    }
    if (std::find(edited_.begin(), edited_.end(), true) != edited_.end())
        m.flags.CatalogEdited[PickerKind] = 1;
    SurfaceRows& s = form_.surfaces;
    if (PickerKind == 1 && cuts::Left(s.buffers.At(kColWallId, PickerRow), 4) == "Door")
        s.DoorDefaults(PickerRow);
    s.Scroll(s.Top());
}

}  // namespace solvane
