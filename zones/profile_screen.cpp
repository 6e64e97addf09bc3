#include "zones/profile_screen.h"

#include <algorithm>

#include "core/numeric_helpers.h"
#include "core/text_cuts.h"
#include "zones/zone_fields.h"

namespace solvane {

namespace {

constexpr char kBackspace = 8, kTab = 9, kReturn = 13;

bool ProfileKey(char c) {
    return (c >= '0' && c <= '9') || c == kBackspace || c == kTab || c == kReturn || c == ' ' ||
           c == '.';
}

int GroupOfBox(int box) {
    return (box + 2) / 3;
}
int DayOfBox(int box) {
    return (box + 2) % 3 + 1;
}
int BoxOf(int group, int day) {
    return 3 * group - 3 + day;
}

const char* const kDayLabel[] = {"", "M-F", "Sat", "Sun"};

}  // namespace

std::vector<double> ProfileValues(const std::string& text) {
    std::vector<double> values;
    for (const std::string& word : cuts::Tokens(text)) values.push_back(NumVal(word));
    return values;
}

bool ProfileTextValid(const std::string& text) {
    for (char c : text)
        if (c != ' ' && (c < 46 || c > 57 || c == 47)) return false;
    return cuts::Tokens(text).size() == 24;
}

// ---- occupprof -------------------------------------------------------------------------

ProfileScreenController::ProfileScreenController(Session& session, Prompt& prompt,
                                                 ZoneFormController& form)
    : session_(session), prompt_(prompt), form_(form) {}

ProfileTable& ProfileScreenController::Table() {
    return session_.model.profiles.Types[ProfileType];
}

void ProfileScreenController::Open(int type) {
    if (type < 1 || type > kProfileTypes) return;
    ProfileType = type;
    const int field = kProfileField[type];
    const int group = static_cast<int>(NumVal(form_.fields.At("zone", field).text));
    SelectedGroup = OriginalGroup = PreviousGroup = std::clamp(group, 1, kProfileGroups);
    GroupUntouched = true;
    BoxEdited.fill(0);
    ProfileRowEdited.fill(0);
    LastBox = 0;

    const ProjectModel& m = session_.model;
    const std::string& title = m.profiles.ProfileTypeTitle[type];
    fields.caption = cuts::Left(title, 37) + " ...   " + m.session.ProjectTitle +
                     " ...   Code = " + m.session.CodeName;
    fields["ProfileName"].text = title;
    if (type == kCoolStat || type == kHeatStat)
        fields["ProfileName"].text =
            cuts::Left(title, 37) + (m.session.Units == 2 ? "   (deg.C)" : "   (deg.F)");
    std::string ruler;
    for (int h = 1; h <= 24; ++h) ruler += FormatField(NumText(h), "@@@@");
    fields["TimeOfDay"].text = ruler;
    Refresh();
}

void ProfileScreenController::Refresh() {
    const ProjectModel& m = session_.model;
    const bool used = m.profiles.ProfileTypeUsed[ProfileType] == 1;
    for (int k = 1; k <= kProfileGroups; ++k) {
        fields.At("Pnum", k).text = StrForm(k) + ".";
        fields.At("SchedType", k).text = m.profiles.ProfileGroupName[k];
        marked_[k] = !cuts::IsBlankText(Table().GroupNum[k]);
        for (int d = 1; d <= kDayTypes; ++d) {
            const int i = BoxOf(k, d);
            fields.At("DayType", i).text = kDayLabel[d];
            fields.At("ProfVal", i).text =
                used ? Table().Profile[k][d] : m.library.LibraryProfile[ProfileType][k][d];
        }
    }
    marked_[SelectedGroup] = true;
    for (int k = 1; k <= kProfileGroups; ++k) ShowLook(k);
    markedAtOpen_ = marked_;
}

void ProfileScreenController::ShowLook(int k) {
    FieldState& number = fields.At("Pnum", k);
    FieldState& name = fields.At("SchedType", k);
    if (k == SelectedGroup) {
        number.color = kFocusMagenta;
        number.value = static_cast<int>(kMarkYellow);
        name.color = kMarkYellow;
    } else {
        number.color = kPlainWhite;
        number.value = static_cast<int>(kNumberRed);
        name.color = marked_[k] ? kMarkYellow : kPlainWhite;
    }
}

void ProfileScreenController::ClickRow(int k) {
    if (k < 1 || k > kProfileGroups) return;
    const int before = SelectedGroup;
    PreviousGroup = SelectedGroup;
    SelectedGroup = k;
    GroupUntouched = false;
    marked_[k] = true;
    Table().GroupNum[k] = NumText(k);
    ShowLook(before);
    ShowLook(k);
}

bool ProfileScreenController::Key(int box, char key) {
    if (box < 1 || box > 3 * kProfileGroups) return false;
    if (!ProfileKey(key)) {
        prompt_.Beep();
        AskNumeric(prompt_);
        return false;
    }
    if (key == kTab || key == kReturn) return true;
    if (marked_[GroupOfBox(box)] && !BoxEdited[box]) WarnSharedProfile(prompt_);
    BoxEdited[box] = 1;
    // The edited-row marks are kept by box number and read back by group
    // number; boxes past the table's 30 entries leave no mark.
    if (box < static_cast<int>(ProfileRowEdited.size())) ProfileRowEdited[box] = 1;
    return true;
}

void ProfileScreenController::Edit(int box, const std::string& text) {
    if (box < 1 || box > 3 * kProfileGroups) return;
    fields.At("ProfVal", box).text = text;
    Table().Profile[GroupOfBox(box)][DayOfBox(box)] = text;
}

void ProfileScreenController::Copy(int start, int length) {
    if (LastBox < 1) return;
    const std::string& text = fields.At("ProfVal", LastBox).text;
    if (start < 0 || start > static_cast<int>(text.size())) return;
    ClipText = text.substr(start, std::max(0, length));
}

void ProfileScreenController::Cut(int start, int length) {
    if (LastBox < 1) return;
    Copy(start, length);
    std::string text = fields.At("ProfVal", LastBox).text;
    if (start < 0 || start > static_cast<int>(text.size())) return;
    text.erase(start, std::max(0, length));
    Edit(LastBox, text);
}

void ProfileScreenController::Paste(int start, int length) {
    if (LastBox < 1) return;
    std::string text = fields.At("ProfVal", LastBox).text;
    if (start < 0 || start > static_cast<int>(text.size())) return;
    text.replace(start, std::max(0, length), ClipText);
    Edit(LastBox, text);
}

void ProfileScreenController::Undo() {
    if (SelectedGroup < 1) return;
    const int k = SelectedGroup;
    fields.At("SchedType", k).text = session_.model.profiles.ProfileGroupName[k];
    // A row that was not in the project when the screen opened leaves it again.
    marked_[k] = false;
    if (!markedAtOpen_[k]) Table().GroupNum[k].clear();
    SelectedGroup = OriginalGroup;
    fields.At("Pnum", k).color = kPlainWhite;
    fields.At("Pnum", k).value = static_cast<int>(kNumberRed);
    fields.At("SchedType", k).color = kPlainWhite;
    marked_[OriginalGroup] = true;
    ShowLook(OriginalGroup);
}

bool ProfileScreenController::Ok() {
    ProfileTable& table = Table();
    // The check pass counts boxes over the marked rows only, so that it tests
    // the first boxes of the table while it writes the marked rows; the save
    // pass below writes the right boxes.
    int c = 0;
    for (int k = 1; k <= kProfileGroups; ++k) {
        if (!marked_[k]) continue;
        for (int d = 1; d <= kDayTypes; ++d) {
            ++c;
            const std::string text = fields.At("ProfVal", c).text;
            if (cuts::IsBlankText(table.GroupNum[k])) break;
            table.Profile[k][d] = text;
            if (!ProfileTextValid(text)) {
                prompt_.Beep();
                prompt_.Ask(
                    "The profile you selected has an invalid entry or an insufficient number of "
                    "values. Please make necessary corrections",
                    "Error...", Buttons::Ok, Icon::Exclamation);
                return false;
            }
        }
    }
    for (int k = 1; k <= kProfileGroups; ++k) {
        if (ProfileRowEdited[k] != 1 || marked_[k]) continue;
        fields.At("SchedType", k).value = static_cast<int>(kNumberRed);
        if (prompt_.Ask("The profile you have just edited is not selected.  Save the new data "
                        "before leaving?",
                        "Select Profile", Buttons::YesNo, Icon::Question) == Answer::Yes) {
            marked_[k] = true;
            SelectedGroup = k;
        } else {
            ProfileRowEdited[k] = 0;
        }
    }
    for (int k = 1; k <= kProfileGroups; ++k) ProfileRowEdited[k] = 0;
    for (int k = 1; k <= kProfileGroups; ++k) {
        if (!marked_[k]) continue;
        table.GroupNum[k] = NumText(k);
        for (int d = 1; d <= kDayTypes; ++d)
            table.Profile[k][d] = fields.At("ProfVal", BoxOf(k, d)).text;
    }

    ProjectModel& m = session_.model;
    m.profiles.ProfileTypeUsed[ProfileType] = 1;
    for (int k = 1; k <= kProfileGroups; ++k) {
        fields.At("Pnum", k).color = fields.At("SchedType", k).color = kPlainWhite;
    }
    form_.fields["builtype"].text = m.ProjectData[kBldType];
    form_.fields["builname"].text = m.ProjectData[kProjName];
    form_.fields["builloc"].text = m.ProjectData[kLocation];

    const int field = kProfileField[ProfileType];
    const int zone = form_.CurrentZone();
    std::string& box = form_.fields.At("zone", field).text;
    if (GroupUntouched) {
        box = StrForm(OriginalGroup);
        if (zone > 0) m.zones.ZoneData[zone][field] = box;
    } else {
        m.zoneEdit.ZoneFieldChanged[zone][field] = 1;
        m.zoneEdit.PrevFieldText[field] = box;
        box = StrForm(SelectedGroup);
        form_.fields.At("zone", field).color = kRed;
        ShowLook(SelectedGroup);
    }
    // A switch clicked on the zone screen and not yet stored stays as clicked.
    form_.EnableSwitchFields();
    m.flags.ProjectTouched = 1;
    return true;
}

// ---- temperature --------------------------------------------------------------------------

TemperatureController::TemperatureController(Session& session, Prompt& prompt,
                                             ZoneFormController& form)
    : session_(session), prompt_(prompt), form_(form) {}

void TemperatureController::Open(int group) {
    const ProjectModel& m = session_.model;
    group_ = std::clamp(group, 1, kProfileGroups);
    fields.caption = m.session.CodeName + m.session.InputFileShortName + " -- " +
                     (m.session.Units == 2 ? "Temperature Profiles (degree C)"
                                           : "Temperature Profiles (degree F)");
    for (int t = 0; t < 2; ++t) {
        const int type = t == 0 ? kCoolStat : kHeatStat;
        const bool used = m.profiles.ProfileTypeUsed[type] == 1;
        for (int d = 1; d <= kDayTypes; ++d) {
            const std::string text = used ? m.profiles.Types[type].Profile[group_][d]
                                          : m.library.LibraryProfile[type][group_][d];
            fields.At(t == 0 ? "temp" : "Text1", d).text = text;
            opened_[t][d] = text;
            ProfileUsedWarned[t][d] = false;
        }
    }
}

bool TemperatureController::Key(int type, int day, char key) {
    if ((type != kCoolStat && type != kHeatStat) || day < 1 || day > kDayTypes) return false;
    if (!ProfileKey(key)) {
        prompt_.Beep();
        AskNumeric(prompt_);
        return false;
    }
    const int t = type == kCoolStat ? 0 : 1;
    const bool used = !cuts::IsBlankText(session_.model.profiles.Types[type].GroupNum[group_]);
    if (used && !ProfileUsedWarned[t][day]) {
        WarnSharedProfile(prompt_);
        ProfileUsedWarned[t][day] = true;
    }
    return true;
}

void TemperatureController::Edit(int type, int day, const std::string& text) {
    if ((type != kCoolStat && type != kHeatStat) || day < 1 || day > kDayTypes) return;
    fields.At(type == kCoolStat ? "temp" : "Text1", day).text = text;
    session_.model.profiles.Types[type].Profile[group_][day] = text;
}

void TemperatureController::Undo() {
    for (int t = 0; t < 2; ++t)
        for (int d = 1; d <= kDayTypes; ++d) Edit(t == 0 ? kCoolStat : kHeatStat, d, opened_[t][d]);
}

void TemperatureController::Ok() {
    ProjectModel& m = session_.model;
    m.profiles.ProfileTypeUsed[kCoolStat] = m.profiles.ProfileTypeUsed[kHeatStat] = 1;
    form_.fields["builtype"].text = m.ProjectData[kBldType];
    form_.fields["builname"].text = m.ProjectData[kProjName];
    form_.fields["builloc"].text = m.ProjectData[kLocation];
    const int zone = form_.CurrentZone();
    if (zone > 0) {
        form_.ShowRecord();
        for (int f = 1; f <= 30; ++f)
            if (f != 10 && form_.fields.At("zone", f).text != m.zoneEdit.PrevFieldText[f] &&
                !m.zoneEdit.PrevFieldText[f].empty())
                m.zoneEdit.ZoneFieldChanged[zone][f] = 1;
    }
    // A switch clicked on the zone screen and not yet stored stays as clicked.
    form_.EnableSwitchFields();
}

// ---- VentilationRate ----------------------------------------------------------------------

VentilationRateController::VentilationRateController(Session& session, Prompt& prompt,
                                                     ZoneFormController& form)
    : session_(session), prompt_(prompt), form_(form) {}

void VentilationRateController::Open() {
    const bool si = session_.model.session.Units == 2;
    fields.caption = "Ventilation Rate";
    fields["ven_caption_0"].text = si ? "L/s per person" : "CFM per person";
    fields["ven_caption_1"].text = si ? "L/s per sq.m." : "CFM per sq.ft.";
    fields["ven_caption_2"].text = "% Outdoor air";
    std::string text = cuts::TrimLeft(form_.fields.At("zone", 9).text);
    const std::string prefix = cuts::Left(text, 2);
    const std::string number = text.size() > 2 ? cuts::TrimLeft(text.substr(2)) : std::string();
    const int box = prefix == "CP" ? 0 : prefix == "PA" ? 2 : 1;
    for (int b = 0; b < 3; ++b) fields.At("ven", b).text = b == box ? number : std::string();
}

bool VentilationRateController::Ok() {
    static const char* const kPrefix[] = {"CP", "CS", "PA"};
    for (int b = 0; b < 3; ++b) {
        std::string number;
        for (char c : fields.At("ven", b).text)
            if (c != ' ') number += c;
        if (number.empty()) continue;
        const int zone = form_.CurrentZone();
        std::string& box = form_.fields.At("zone", 9).text;
        const std::string text = kPrefix[b] + number;
        if (text != box && zone > 0) {
            session_.model.zoneEdit.ZoneFieldChanged[zone][9] = 1;
            form_.fields.At("zone", 9).color = kRed;
        }
        box = text;
        return true;
    }
    prompt_.Ask("Please enter the ventilation rate", "Error", Buttons::Ok, Icon::Exclamation);
    return false;
}

}  // namespace solvane
