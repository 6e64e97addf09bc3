#include "sketch/window_sizer.h"

#include <cmath>
#include <string>

#include "core/numeric_helpers.h"
#include "core/text_cuts.h"

namespace solvane {

namespace {

constexpr const char* kCompass[] = {"North", "East", "South", "West"};
constexpr const char* kSideLetter[] = {"(N)", "(E)", "(S)", "(W)"};
constexpr const char* kLimitTitle = "Window Area limit exceeded.";
constexpr const char* kOverhangTitle = "Overhang projection insufficient.";
constexpr const char* kSizerTitle = "Window Sizer";

float BoxValue(const ScreenFields& fields, const char* name, int row) {
    return static_cast<float>(NumVal(fields.Text(std::string(name) + "_" + std::to_string(row))));
}

// The building types that must have skylights of at least 1 % of the roof.
bool NeedsSkylight(int type) {
    switch (type) {
        case 2:
        case 5:
        case 6:
        case 12:
        case 13:
        case 15:
        case 20:
        case 21:
        case 26:
        case 31:
        case 34:
            return true;
        default:
            return type >= 38;
    }
}

// Climate zones below 4, and 4 B and 4 C, require the sunward overhang.
bool OverhangZone(const std::string& climateZone) {
    const double number = NumVal(climateZone);
    const std::string text = cuts::TrimRight(climateZone);
    const char letter = text.empty() ? ' ' : text.back();
    return number < 4 || (number == 4 && (letter == 'B' || letter == 'C'));
}

}  // namespace

WindowSizerController::WindowSizerController(Session& session, Prompt& prompt)
    : session_(session), prompt_(prompt) {}

bool WindowSizerController::Northern() const {
    return session_.model.climate.Latitude >= 0;
}

void WindowSizerController::Open() {
    ProjectModel& m = session_.model;
    WindowSizerState& s = m.sizer;
    const int type = m.session.BuildingType;
    if ((type == 26 || type == 34) && !m.btypes.BTypeSizerAlternate[type].empty())
        m.btypes.BTypeSizerText[type] = m.btypes.BTypeSizerAlternate[type];

    // Headings: the compass side and the side of the sheet that faces it.
    int facing = static_cast<int>(std::floor((m.sketch.Rotation + 45) / 90));
    facing = ((facing % 4) + 4) % 4;
    for (int n = 0; n < 4; ++n)
        fields.At("ElevName", n).text =
            std::string(kCompass[n]) + " " + kSideLetter[(n - facing + 4) % 4];
    fields.At("ElevName", 4).text = "Skylight";

    const int exempt = Northern() ? 0 : 2;
    if (m.flags.WindowSizerFresh == 1) {
        const float percent[kSizerRows] = {40, 20, 40, 15, m.session.CodeNum == 1 ? 5.0f : 3.0f};
        for (int n = 0; n < kSizerRows; ++n) {
            s.WindowPercent[n] = s.WindowPercentDefault[n] = percent[n];
            s.WindowFraction[n] = percent[n] / 100;
        }
        for (int n = 0; n < 4; ++n) {
            s.PFFirst[n] = s.PFFirstWork[n] = n == exempt ? 0.0f : 0.5f;
            s.PFUpper[n] = s.PFUpperWork[n] = n == exempt ? 0.0f : 0.25f;
        }
        for (int row = 0; row <= kMaxZones; ++row)
            for (int n = 0; n < 4; ++n) {
                s.OverhangFirst[row][n] = s.PFFirst[n];
                s.OverhangUpper[row][n] = s.PFUpper[n];
            }
    }
    for (int n = 0; n < kSizerRows; ++n) fields.At("WinAr", n).text = NumText(s.WindowPercent[n]);
    for (int n = 0; n < 4; ++n) {
        const bool keepZero = n == exempt;
        s.PFFirstWork[n] = s.PFFirst[n] == 0 && !keepZero ? 0.5f : s.PFFirst[n];
        s.PFUpperWork[n] = s.PFUpper[n] == 0 && !keepZero ? 0.25f : s.PFUpper[n];
        fields.At("PF1", n).text = NumText(s.PFFirstWork[n]);
        fields.At("PF2", n).text = NumText(s.PFUpperWork[n]);
    }
    changeMade_ = false;
}

void WindowSizerController::Correct(const std::string& text, const std::string& title) {
    prompt_.Ask(text, title, Buttons::Ok, Icon::Exclamation);
    changeMade_ = true;
}

void WindowSizerController::Apply() {
    ProjectModel& m = session_.model;
    WindowSizerState& s = m.sizer;
    const int type = m.session.BuildingType;
    const auto name = [&](int n) { return fields.At("ElevName", n).text; };
    changeMade_ = false;

    // The building type's limit on every facade.
    const float typeLimit = type >= 1 && type <= 50
                                ? static_cast<float>(NumVal(m.btypes.BTypeSizerText[type]) / 100)
                                : 0.0f;
    for (int n = 0; n < 4; ++n) {
        s.WindowFraction[n] = BoxValue(fields, "WinAr", n) / 100;
        if (typeLimit > 0 && s.WindowFraction[n] > typeLimit) {
            const std::string limit = NumText(RoundOff(typeLimit * 100.0, 4));
            Correct("Northern and Southern facing window areas are restricted to " + limit +
                        "% of wall area. " + name(n) + " area is being changed",
                    kLimitTitle);
            fields.At("WinAr", n).text = limit;
            s.WindowFraction[n] = typeLimit;
        }
    }
    double sum = 0;
    for (int n = 0; n < 4; ++n) sum += s.WindowFraction[n];

    // The sunward overhang in warm climates.
    if (OverhangZone(m.session.ClimateZone)) {
        const bool north = Northern();
        const int row = north ? 2 : 0;
        const std::string lead = north ? "In Northern hemisphere, the southern walls"
                                       : "In Southern hemisphere, the northern walls";
        if (BoxValue(fields, "PF1", row) < 0.5f) {
            Correct(lead +
                        " are required to have an overhang PF value of 0.5 or greater on "
                        "ground level floor. " +
                        name(row) + " PF is being changed to 0.5 for ground level Fenestration.",
                    kOverhangTitle);
            fields.At("PF1", row).text = ".5";
            s.PFFirstWork[row] = 0.5f;
        }
        if (BoxValue(fields, "PF2", row) < 0.25f) {
            Correct(lead +
                        " are required to have an overhang PF value of 0.25 or greater on "
                        "upper floors. " +
                        name(row) + " PF is being changed to 0.25 for upper floors.",
                    kOverhangTitle);
            fields.At("PF2", row).text = ".25";
            s.PFUpperWork[row] = 0.25f;
        }
    }

    // East and west against the code's share of the four facades.
    const int code = m.session.CodeNum;
    const double divisor = code == 1 ? 2 : code == 2 ? 4 : code == 3 ? 6 : 0;
    if (divisor > 0) {
        const float limit = static_cast<float>(sum / divisor);
        const float shown = RoundOff(100.0 * limit - 0.5, 2);
        for (int n : {1, 3}) {
            if (s.WindowFraction[n] <= limit) continue;
            Correct("Eastern and Western facing window areas are restricted to " + NumText(shown) +
                        "% of wall area. " + name(n) + " area is being changed",
                    kLimitTitle);
            fields.At("WinAr", n).text = NumText(shown);
            s.WindowFraction[n] = shown / 100;
        }
    }

    // Skylights: the code's maximum and the building type's minimum.
    s.WindowFraction[4] = BoxValue(fields, "WinAr", 4) / 100;
    const float skyLimit = code == 1 ? 0.05f : 0.03f;
    if (s.WindowFraction[4] > skyLimit) {
        const std::string percent = NumText(skyLimit * 100);
        Correct("Skylight areas are restricted to " + percent +
                    "% of roof area. The Skylight area is being changed",
                "Skylight Area limit exceeded.");
        fields.At("WinAr", 4).text = percent;
        s.WindowFraction[4] = skyLimit;
    }
    if (NeedsSkylight(type) && s.WindowFraction[4] < 0.01f) {
        const std::string typeName = type >= 1 && type <= 50 ? m.btypes.BTypeName[type] : "";
        Correct("Building type [" + typeName +
                    "] is required to have a skylight area equal or greater that 1% of roof area. "
                    "The Skylight area is being set to 1%.",
                "Skylight Area minimum not met.");
        fields.At("WinAr", 4).text = "1";
        s.WindowFraction[4] = 0.01f;
    }

    if (changeMade_) {
        prompt_.Ask("No changes have been applied.  To keep the values, click on SaveExit button.",
                    kSizerTitle, Buttons::Ok, Icon::Information);
    } else {
        prompt_.Ask(
            "These changes have not been saved. If you wish to apply these new areas, click on "
            "the SaveExit button, or click Cancel to make no changes.",
            kSizerTitle, Buttons::Ok, Icon::Information);
    }
}

bool WindowSizerController::SaveExit(bool drawingMode) {
    const std::string text =
        drawingMode
            ? std::string("NOTE: While you are still in the Drawing mode ") +
                  "you may apply the Window Sizer any number of times, and these new window "
                  "sizes will be applied later to all zones."
            : std::string(
                  "ALERT! Saving the window sizes now means that these areas will be "
                  "changed in all zones. You may edit these areas later after you "
                  "return to ") +
                  "the Zone Description Form in the Main Menu by editing any desired window "
                  "sizes." +
                  "You may " + "Cancel now or click OK to accept the changes.";
    if (prompt_.Ask(text, "Window Areas Will be Permanent if Applied.", Buttons::OkCancel,
                    Icon::Exclamation) != Answer::Ok) {
        prompt_.Ask("Window changes will not be applied", "Changes canceled:", Buttons::Ok,
                    Icon::Information);
        return false;
    }
    ProjectModel& m = session_.model;
    WindowSizerState& s = m.sizer;
    for (int n = 0; n < kSizerRows; ++n) {
        s.WindowPercent[n] = BoxValue(fields, "WinAr", n);
        s.WindowFraction[n] = s.WindowPercent[n] / 100;
    }
    for (int n = 0; n < 4; ++n) {
        s.PFFirst[n] = s.PFFirstWork[n] = BoxValue(fields, "PF1", n);
        s.PFUpper[n] = s.PFUpperWork[n] = BoxValue(fields, "PF2", n);
    }
    for (int row = 0; row <= kMaxZones; ++row)
        for (int n = 0; n < 4; ++n) {
            s.OverhangFirst[row][n] = s.PFFirst[n];
            s.OverhangUpper[row][n] = s.PFUpper[n];
        }
    s.WindowSizerApplied = 1;
    m.flags.WindowSizerFresh = 0;
    prompt_.Ask("Window area changes will be saved in all zones.", "Changes saved.", Buttons::Ok,
                Icon::Information);
    return true;
}

void WindowSizerController::Cancel() {
    session_.model.sizer.WindowSizerApplied = 0;
}

bool WindowSizerController::FactorKeyAccepted(int keyCode) {
    return (keyCode >= '0' && keyCode <= '9') || keyCode == '.' || keyCode == 8 || keyCode == 9 ||
           keyCode == 13;
}

void WindowSizerController::LeaveFactor(int row, bool upper) {
    if (row < 0 || row > 3) return;
    WindowSizerState& s = session_.model.sizer;
    const float value = BoxValue(fields, upper ? "PF2" : "PF1", row);
    (upper ? s.PFUpperWork : s.PFFirstWork)[static_cast<std::size_t>(row)] = value;
}

}  // namespace solvane
