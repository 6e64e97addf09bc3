#include "propertydb/catalog_screen.h"

#include "core/numeric_helpers.h"
#include "propertydb/envelope_defaults.h"

namespace solvane {

namespace {

constexpr const char* kColumns[] = {"id", "Des", "UF", "Absp", "lag", "decr", "cost"};

std::string* Cell(EnvelopeRows& r, int column, int row) {
    TextTable<kMaxCatalog>* cols[] = {&r.id, &r.Des, &r.UF, &r.Absp, &r.lag, &r.decr, &r.cost};
    return &(*cols[column])[row];
}

int ColumnIndex(const std::string& name) {
    for (int c = 0; c < 7; ++c)
        if (name == kColumns[c]) return c;
    return -1;
}

}  // namespace

CatalogController::CatalogController(Session& session, Prompt& prompt)
    : session_(session), prompt_(prompt) {}

bool CatalogController::Open(int kind) {
    ProjectModel& m = session_.model;
    kind_ = kind;
    if (m.session.ClimateZone.empty() || m.session.BuildingType == 0 || m.session.CodeNum == 0) {
        prompt_.Ask(
            "Energy code, building type, and climate (city) must all be specified\r\nbefore the "
            "available catalog components can be determined.",
            kMissingSpecsTitle, Buttons::Ok, Icon::Exclamation);
        return false;
    }
    const int type = m.session.BuildingType;
    const int code = m.session.CodeNum;
    const bool si = m.session.Units == 2;
    fields["Btype"].text = StrForm(type) + ".  " + m.btypes.BTypeName[type];
    fields["Cat"].text = BuildingClassName(type);
    fields["code"].text = "Values based on " + session_.labels.CodeTitle[code];
    fields["code"].color = session_.labels.CodeColor[code];
    fields["CZone"].text = m.session.ClimateZone;
    fields.caption =
        std::string(kind == 1 ? "WALL,ROOF,FLOOR,DOOR CATALOG" : "WINDOW & SKYLIGHT CATALOG") +
        " - " + m.session.ProjectTitle;
    fields["caption_2"].text = si ? "U-Factor (Watt/sq.m.C)" : "U-Factor   (Btu/sq.ft.F)";
    if (kind == 1) {
        fields["caption_3"].text = "Solar Absorp- tion Coeff.";
        fields["caption_4"].text = "Time Lag (Hours)";
        fields["caption_5"].text = "Decrement Factor";
    } else {
        fields["caption_3"].text = "SHGC (Solar Ht Gn Coeff.)";
        fields["caption_4"].text = "Emissivity";
        fields["caption_5"].text = "Visible Trans.";
    }
    fields["caption_6"].text = si ? "Installed Cost ($/sq.m.)" : "Installed Cost ($/sq.ft.)";
    scrollTop_ = 0;
    rows = EnvelopeRows{};
    Fill();
    return true;
}

void CatalogController::Fill() {
    ProjectModel& m = session_.model;
    if (m.flags.CatalogReload[kind_] == 1) {
        // The rows now on the screen become the working catalog first, so that
        // Cancel leaves what was shown before the reload.
        int last = 0;
        while (last < kMaxCatalog && !rows.Des[last + 1].empty()) ++last;
        ToCatalog(last);
        rows = EnvelopeRows{};
        m.defaults.EconDefault = ParseEnvelopeFile(m, session_.paths, kind_, rows);
    } else {
        rows = EnvelopeRows{};
        for (int k = 1; k <= kCatalogScreenRows; ++k) {
            const std::string& des =
                kind_ == 1 ? m.walls.WallDescription[k] : m.windows.WindowDescription[k];
            if (des.empty()) break;
            rows.id[k] = kind_ == 1 ? m.walls.WallId[k] : m.windows.WindowId[k];
            if (rows.id[k].empty()) rows.id[k] = StrForm(k);
            rows.Des[k] = des;
            if (kind_ == 1) {
                rows.UF[k] = m.walls.WallUFactor[k];
                rows.Absp[k] = m.walls.WallSolarAbs[k];
                rows.lag[k] = m.walls.WallTimeLag[k];
                rows.decr[k] = m.walls.WallDecrement[k];
                rows.cost[k] = m.walls.WallInsCost[k];
            } else {
                rows.UF[k] = m.windows.WindowUFactor[k];
                rows.Absp[k] = m.windows.WindowSHGC[k];
                rows.lag[k] = m.windows.WindowEmissivity[k];
                rows.decr[k] = m.windows.WindowDLTrans[k];
                rows.cost[k] = m.windows.WindowInsCost[k];
            }
        }
    }
    ShowRows();
}

void CatalogController::ShowRows() {
    for (int i = 1; i <= kCatalogScreenRows; ++i) {
        const int k = scrollTop_ + i;
        for (int c = 0; c < 7; ++c)
            fields.At(kColumns[c], i).text = k <= kMaxCatalog ? *Cell(rows, c, k) : "";
    }
}

void CatalogController::Edit(const std::string& column, int row, const std::string& text) {
    const int c = ColumnIndex(column);
    const int k = scrollTop_ + row;
    if (c < 0 || row < 1 || row > kCatalogScreenRows || k > kMaxCatalog) return;
    fields.At(column, row).text = text;
    *Cell(rows, c, k) = text;
}

void CatalogController::Scroll(int top) {
    scrollTop_ = std::max(0, std::min(top, kMaxCatalog - kCatalogScreenRows));
    ShowRows();
}

void CatalogController::ToCatalog(int lastRow) {
    ProjectModel& m = session_.model;
    for (int k = 1; k <= lastRow; ++k) {
        if (kind_ == 1) {
            m.walls.WallId[k] = StrForm(k);
            m.walls.WallDescription[k] = rows.Des[k];
            m.walls.WallUFactor[k] = rows.UF[k];
            m.walls.WallSolarAbs[k] = rows.Absp[k];
            m.walls.WallTimeLag[k] = rows.lag[k];
            m.walls.WallDecrement[k] = rows.decr[k];
            m.walls.WallInsCost[k] = rows.cost[k];
        } else {
            m.windows.WindowId[k] = StrForm(k);
            m.windows.WindowDescription[k] = rows.Des[k];
            m.windows.WindowUFactor[k] = rows.UF[k];
            m.windows.WindowSHGC[k] = rows.Absp[k];
            m.windows.WindowEmissivity[k] = rows.lag[k];
            m.windows.WindowDLTrans[k] = rows.decr[k];
            m.windows.WindowInsCost[k] = rows.cost[k];
        }
    }
}

bool CatalogController::ReloadEnvelopeDefaults() {
    const std::string k = kind_ == 1 ? "Wall & Roof" : "Windows & Skylights";
    if (prompt_.Ask(
            "ALERT!  This action will reload the " + k +
                " default values complying with the selected code, and will replace all "
                "your changes and edits you've done to the  " +
                k +
                " properties, including all the building's envelope properties in the "
                "Zone "
                "Description Form. Click OK to accept or Cancel to keep your existing data.",
            "Caution! Properties Database Replacement Warning!", Buttons::OkCancel,
            Icon::Exclamation) != Answer::Ok)
        return false;
    session_.model.flags.CatalogReload[kind_] = 1;
    scrollTop_ = 0;
    Fill();
    return true;
}

Navigation CatalogController::Ok() {
    int last = 0;
    while (last < 30 && !rows.id[last + 1].empty()) ++last;
    ToCatalog(last);
    for (int i = 1; i <= kCatalogScreenRows; ++i)
        for (const char* c : kColumns) fields.At(c, i).text.clear();
    prompt_.Ask(std::string("All ") + (kind_ == 1 ? "wall" : "window") +
                    " data you have just edited have been saved for this project session.",
                "Properties Database Kept", Buttons::Ok, Icon::Information);
    session_.model.flags.CatalogReload[kind_] = 0;
    return {Screen::MainMenu, true, false};
}

Navigation CatalogController::Cancel() {
    prompt_.Ask("Any newly edited data in table are not being saved.",
                "Returning to previous Table values.", Buttons::Ok, Icon::Information);
    session_.model.flags.CatalogReload[kind_] = 0;
    return {Screen::MainMenu, true, false};
}

std::pair<std::string, std::string> CatalogController::Help() const {
    if (kind_ == 1) return {"\\Helpinfo\\Help20-7.txt", "WALL AND ROOF PROPERTIES"};
    return {"\\Helpinfo\\Help20-8.txt", "WINDOW AND SKYLIGHT PROPERTIES"};
}

}  // namespace solvane
