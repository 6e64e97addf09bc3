#include "zones/surface_rows.h"

#include <algorithm>
#include <cctype>
#include <cmath>

#include "core/numeric_helpers.h"
#include "core/text_cuts.h"

namespace solvane {

namespace {

constexpr char kBackspace = 8, kTab = 9, kLineFeed = 10, kReturn = 13;

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}
bool IsEditKey(char c) {
    return c == kBackspace || c == kTab || c == kReturn;
}

bool Blank(const std::string& s) {
    return cuts::IsBlankText(s);
}

// A typed number into a 16-bit column, held within the column's range.
std::int16_t Int16Field(double v) {
    return ToInt16(std::clamp(v, -32768.0, 32767.0));
}

// A word of the shading text: a code letter and digits or points.
bool ShadeWordOk(const std::string& word) {
    if (word.empty() || std::string("LFRTN").find(word[0]) == std::string::npos) return false;
    for (std::size_t i = 1; i < word.size(); ++i)
        if (!IsDigit(word[i]) && word[i] != '.') return false;
    return true;
}

}  // namespace

int DecimalPlaces(int units) {
    return units == 2 ? 1 : 0;
}

int WindowDirection(int exposure, int orient) {
    if (exposure == 6) return 4;
    if (orient >= 316) return 0;
    return std::min(3, static_cast<int>(std::trunc((orient + 45) / 90.0)));
}

int ShadeDirection(int exposure, int orient) {
    if (exposure == 6) return 4;
    if (orient >= 315) return 0;
    return static_cast<int>(std::trunc((orient + 45) / 90.0));
}

int SurfaceColumnOf(const std::string& name) {
    for (int c = 0; c < kSurfaceColumns; ++c)
        if (name == kSurfaceColumn[c]) return c;
    return -1;
}

std::string WallIdText(const FixedLabels& labels, int id) {
    const std::string label = id >= 0 && id <= 76 ? labels.SurfaceClassLabel[id] : "Other";
    return label + " " + StrForm(id);
}

int WallIdNumber(const std::string& text) {
    return static_cast<int>(NumVal(cuts::Right(cuts::TrimRight(text), 2)));
}

// ---- buffers and boxes --------------------------------------------------------------

FieldState* SurfaceRows::Box(int column, int row) {
    const int box = row - top_;
    if (box < 1 || box > kShownRows) return nullptr;
    return &fields_.At(kSurfaceColumn[column], box);
}

void SurfaceRows::ShowRow(int row) {
    for (int c = 0; c < kSurfaceColumns; ++c)
        if (FieldState* b = Box(c, row)) b->text = buffers.At(c, row);
}

void SurfaceRows::MarkRow(int row, Color color) {
    for (int c = 0; c < kSurfaceColumns; ++c)
        if (FieldState* b = Box(c, row)) b->color = color;
}

void SurfaceRows::Scroll(int top) {
    top_ = std::clamp(top, 0, kMaxSurfaces - kShownRows);
    fields_["envscroll"].value = top_;
    for (int box = 1; box <= kShownRows; ++box) {
        ShowRow(top_ + box);
        MarkRow(top_ + box, kBlack);
    }
}

void SurfaceRows::Clear() {
    for (auto& column : buffers.col)
        for (auto& text : column) text.clear();
    for (int c = 0; c < kSurfaceColumns; ++c)
        for (int box = 1; box <= kShownRows; ++box) {
            fields_.At(kSurfaceColumn[c], box).text.clear();
            fields_.At(kSurfaceColumn[c], box).color = kBlack;
        }
}

void SurfaceRows::Fill(int zone) {
    Clear();
    const SurfaceState& sf = model_.surfaces;
    const int dp = DecimalPlaces(model_.session.Units);
    const int count = std::min<int>(model_.zones.ZoneSurfaceCount[zone], kMaxSurfaces);
    for (int s = 1; s <= count; ++s) {
        const int exposure = sf.SurfExposure[zone][s];
        buffers.At(kColWallId, s) = WallIdText(labels_, sf.SurfWallId[zone][s]);
        buffers.At(kColWallArea, s) = StrForm(RoundOff(sf.SurfArea[zone][s], dp));
        buffers.At(kColOrient, s) = StrForm(static_cast<int>(sf.SurfOrient[zone][s]));
        buffers.At(kColSurf, s) =
            StrForm(exposure) + " " +
            (exposure >= 0 && exposure <= 76 ? labels_.GroundCoverLabel[exposure] : std::string());
        buffers.At(kColShade, s) = sf.SurfShade[zone][s];
        buffers.At(kColWindowId, s) = StrForm(static_cast<int>(sf.SurfWindowId[zone][s]));
        buffers.At(kColWinArea, s) = StrForm(RoundOff(sf.SurfWindowArea[zone][s], dp));
        buffers.At(kColSlope, s) = StrForm(sf.SurfSlope[zone][s]);
        buffers.At(kColSwb, s) = sf.SurfSWB[zone][s];
        buffers.At(kColBlind, s) = StrForm(static_cast<int>(sf.SurfBlind[zone][s]));
        buffers.At(kColDiff, s) = StrForm(sf.SurfDiffTrans[zone][s]);
        buffers.At(kColSill, s) = StrForm(sf.SurfSillHeight[zone][s]);
        buffers.At(kColTopWin, s) = StrForm(sf.SurfWindowHeight[zone][s]);
        buffers.At(kColReflect, s) = StrForm(sf.SurfGroundRefl[zone][s]);
    }
    Scroll(0);
}

void SurfaceRows::Edit(int column, int box, const std::string& text) {
    if (box < 1 || box > kShownRows) return;
    buffers.At(column, top_ + box) = text;
    fields_.At(kSurfaceColumn[column], box).text = text;
}

// ---- keys -------------------------------------------------------------------------

bool SurfaceRows::Key(int column, char& key, Prompt& prompt) {
    const auto refuse = [&](const char* text, const char* title) {
        prompt.Beep();
        prompt.Ask(text, title, Buttons::Ok, Icon::Exclamation);
        return false;
    };
    switch (column) {
        case kColSurf:
            return refuse("Select type from the Exterior Exposure pull-down Menu",
                          "Exterior Outdoor Exposure");
        case kColShade: {
            if (key == 'l' || key == 'f' || key == 't') key = static_cast<char>(key - 32);
            if (key == 'L' || key == 'F' || key == 'T' || IsDigit(key) || key == '.' ||
                key == ' ' || IsEditKey(key))
                return true;
            if (std::isalpha(static_cast<unsigned char>(key)))
                return refuse("You should type either F or L or R or T or N.", "Error");
            return refuse("You should type either a number or the shading code (F, L, R, T, or N).",
                          "Error");
        }
        case kColSwb:
            if (key == 'b' || key == 's' || key == 'w') key = static_cast<char>(key - 32);
            if (key == kBackspace || key == 6 || key == kLineFeed || key == ' ' || key == 'B' ||
                key == 'S' || key == 'W')
                return true;
            return refuse("Error.  Type S, or W, or B, or s, or w, or b", "Error");
        case kColBlind:
            if (key == '0' || key == '1' || key == '5' || key == '.' || key == ' ' ||
                IsEditKey(key))
                return true;
            return refuse("Please enter 0, 1 or 5.", "Error");
        default:
            if (IsDigit(key) || key == '.' || key == ' ' || IsEditKey(key)) return true;
            prompt.Beep();
            AskNumeric(prompt);
            return false;
    }
}

// ---- row rules ----------------------------------------------------------------------

// The catalog row of an ID, 0 when none: a row whose ID was never set by the
// catalog screen or a project file stands for its own row number, as the
// catalog screen would number it.
static int CatalogRow(const TextTable<kMaxCatalog>& ids, const TextTable<kMaxCatalog>& names,
                      double id) {
    for (int i = 1; i <= kMaxCatalog; ++i) {
        if (!Blank(ids[i])) {
            if (NumVal(ids[i]) == id) return i;
        } else if (!Blank(names[i]) && i == id) {
            return i;
        }
    }
    return 0;
}

// ID 0 is the catalog's empty entry 0: a surface without a window.
static bool InCatalog(const TextTable<kMaxCatalog>& ids, const TextTable<kMaxCatalog>& names,
                      double id) {
    return id == 0 || CatalogRow(ids, names, id) > 0;
}

bool SurfaceRows::InWallCatalog(double id) const {
    return InCatalog(model_.walls.WallId, model_.walls.WallDescription, id);
}

bool SurfaceRows::InWindowCatalog(double id) const {
    return InCatalog(model_.windows.WindowId, model_.windows.WindowDescription, id);
}

void SurfaceRows::DoorDefaults(int row) {
    const bool si = model_.session.Units == 2;
    const char* values[kSurfaceColumns] = {nullptr,
                                           si ? " 2 " : " 21 ",
                                           " 0 ",
                                           " 2 Conc.",
                                           "N0. N0. N0.",
                                           " 1 ",
                                           " 1 ",
                                           " 90 ",
                                           "B  ",
                                           " 0 ",
                                           " 0 ",
                                           si ? " 1.4 " : " 4.5 ",
                                           si ? " 2.3 " : " 7.4 ",
                                           " 0 "};
    for (int c = 1; c < kSurfaceColumns; ++c) buffers.At(c, row) = values[c];
    ShowRow(row);
}

void SurfaceRows::ChooseExposure(int box, int entry) {
    if (box < 1 || box > kShownRows || entry < 0 || entry > 7) return;
    const int code = entry < 7 ? entry + 1 : 76;
    Edit(kColSurf, box, StrForm(code) + " " + labels_.GroundCoverLabel[code]);
}

bool SurfaceRows::Leave(int column, int box, Prompt& prompt) {
    if (box < 1 || box > kShownRows) return true;
    const int row = top_ + box;
    std::string& text = buffers.At(column, row);
    if (column == kColWallId) {
        if (cuts::Left(text, 4) == "Door") {
            DoorDefaults(row);
            return true;
        }
        if (Blank(text)) return true;
        const bool typed = !std::isalpha(static_cast<unsigned char>(cuts::TrimLeft(text)[0]));
        if (!typed) return true;
        if (cuts::TrimRight(cuts::TrimLeft(text)) == "1") return true;
        const double id = NumVal(text);
        if (!InWallCatalog(id)) {
            MarkRow(row, kRed);
            prompt.Ask(
                "Error.  Wall ID number is not in the wall catalog.  Select the wall ID number "
                "again.",
                "Error", Buttons::Ok, Icon::Exclamation);
            return false;
        }
        text = WallIdText(labels_, static_cast<int>(id));
        ShowRow(row);
        if (cuts::Left(text, 4) == "Door") DoorDefaults(row);
        return true;
    }
    if (column == kColWindowId) {
        if (Blank(text) || cuts::TrimRight(cuts::TrimLeft(text)) == "1") return true;
        if (!InWindowCatalog(NumVal(text))) {
            MarkRow(row, kRed);
            prompt.Ask(
                "Error.  Window ID number is not in the window catalog.  Select the window ID "
                "number again.",
                "Error", Buttons::Ok, Icon::Exclamation);
            return false;
        }
        return true;
    }
    if (column == kColWinArea && !Blank(text)) {
        // A fraction of the wall stays as typed until OK asks about it.
        const double value = NumVal(text);
        if (value >= 1) {
            text = StrForm(RoundOff(value, DecimalPlaces(model_.session.Units)));
            ShowRow(row);
        }
    }
    return true;
}

// ---- OK ---------------------------------------------------------------------------

bool SurfaceRows::Check(Prompt& prompt, bool& windowAlertAnswered) {
    const auto refuse = [&](int row, const std::string& text, const std::string& title) {
        MarkRow(row, kRed);
        prompt.Ask(text, title, Buttons::Ok, Icon::Exclamation);
        return false;
    };
    for (int r = 1; r <= kMaxSurfaces; ++r) {
        const std::string& id = buffers.At(kColWallId, r);
        if (Blank(id)) continue;
        const bool labelled = std::isalpha(static_cast<unsigned char>(cuts::TrimLeft(id)[0]));
        if (!InWallCatalog(labelled ? WallIdNumber(id) : NumVal(id)))
            return refuse(r,
                          "One of your wall ID numbers is not in the catalog.  Please double "
                          "click the ID number and select the correct ID.",
                          "Error");
    }

    if (!windowAlertAnswered) {
        bool fractions = false;
        for (int r = 1; r <= kMaxSurfaces; ++r) {
            const std::string& w = buffers.At(kColWinArea, r);
            const double v = NumVal(w);
            if (!Blank(w) && v > 0 && v < 1) {
                fractions = true;
                MarkRow(r, kRed);
            }
        }
        if (fractions) {
            windowAlertAnswered = true;
            const Answer a = prompt.Ask(
                "Your window area is less than 1.0.  Is this intended to be a fraction of the "
                "wall area?  If you answer 'Yes', the actual window area will be computed.  If you "
                "answer 'No', the area will be as entered.",
                "Window area alert", Buttons::YesNo, Icon::Question);
            if (a == Answer::Yes) {
                const int dp = DecimalPlaces(model_.session.Units);
                for (int r = 1; r <= kMaxSurfaces; ++r) {
                    std::string& w = buffers.At(kColWinArea, r);
                    const double v = NumVal(w);
                    if (Blank(w) || v <= 0 || v >= 1) continue;
                    w = StrForm(RoundOff(v * NumVal(buffers.At(kColWallArea, r)), dp));
                    ShowRow(r);
                    MarkRow(r, kBlack);
                }
            }
        }
    }

    for (int r = 1; r <= kMaxSurfaces; ++r) {
        for (const std::string& word : cuts::Tokens(buffers.At(kColShade, r)))
            if (!ShadeWordOk(word))
                return refuse(r, "The shading has wrong values.  Please check your input.",
                              "Shading error");
    }

    for (int r = 1; r <= kMaxSurfaces; ++r) {
        if (NumVal(buffers.At(kColWinArea, r)) > NumVal(buffers.At(kColWallArea, r)))
            return refuse(
                r, "Your window area is larger than the wall area.  Please correct your input.",
                "Wall and window area conflict");
    }

    for (int r = 1; r <= kMaxSurfaces; ++r) {
        const std::string& id = buffers.At(kColWindowId, r);
        if (Blank(id)) continue;
        if (!InWindowCatalog(NumVal(id)))
            return refuse(r,
                          "One of your window ID numbers is not in the catalog.  Please double "
                          "click the ID number and select the right ID.",
                          "Error");
    }
    return true;
}

void SurfaceRows::Save(int zone) {
    SurfaceState& sf = model_.surfaces;
    int last = 0;
    for (int r = 1; r <= kMaxSurfaces; ++r) {
        if (Blank(buffers.At(kColWallId, r)) || Blank(buffers.At(kColWindowId, r))) continue;
        const auto num = [&](int c) { return NumVal(buffers.At(c, r)); };
        std::string& wallId = buffers.At(kColWallId, r);
        const bool labelled = std::isalpha(static_cast<unsigned char>(cuts::TrimLeft(wallId)[0]));
        sf.SurfWallId[zone][r] = Int16Field(labelled ? WallIdNumber(wallId) : num(kColWallId));
        sf.SurfArea[zone][r] = static_cast<float>(num(kColWallArea));
        sf.SurfOrient[zone][r] = Int16Field(num(kColOrient));
        if (cuts::Left(wallId, 4) == "Roof") {
            sf.SurfOrient[zone][r] = 0;
            buffers.At(kColOrient, r) = " 0 ";
        }
        sf.SurfExposure[zone][r] = Int16Field(num(kColSurf));
        sf.SurfShade[zone][r] = buffers.At(kColShade, r);
        sf.SurfWindowId[zone][r] = Int16Field(num(kColWindowId));
        sf.SurfWindowArea[zone][r] = static_cast<float>(num(kColWinArea));
        sf.SurfSlope[zone][r] = static_cast<float>(num(kColSlope));
        sf.SurfSWB[zone][r] = buffers.At(kColSwb, r);
        sf.SurfBlind[zone][r] = Int16Field(num(kColBlind));
        sf.SurfDiffTrans[zone][r] = static_cast<float>(num(kColDiff));
        sf.SurfSillHeight[zone][r] = static_cast<float>(num(kColSill));
        sf.SurfWindowHeight[zone][r] = static_cast<float>(num(kColTopWin));
        sf.SurfGroundRefl[zone][r] = static_cast<float>(num(kColReflect));
        // The rows in use go into the project file with it.
        if (int k = CatalogRow(model_.walls.WallId, model_.walls.WallDescription,
                               sf.SurfWallId[zone][r]))
            model_.walls.WallUsed[k] = 1;
        if (int k = CatalogRow(model_.windows.WindowId, model_.windows.WindowDescription,
                               sf.SurfWindowId[zone][r]))
            model_.windows.WindowUsed[k] = 1;
        last = r;
        ShowRow(r);
    }
    // A row added on the screen (a door, say) joins the zone's surfaces.
    auto& count = model_.zones.ZoneSurfaceCount[zone];
    if (last > count) count = static_cast<std::int16_t>(last);
    if (count < 0) count = 0;
}

}  // namespace solvane
