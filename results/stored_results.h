// Stored results: the save screen `saveoutform`, the view screen `selectview`
// and the hub's View Output entries. A stored result is a set of sibling
// files named from one stem; viewing it copies them back into \temp, so that
// the result screens work the same on live and on stored results.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "core/session.h"
#include "projectfile/file_dialogs.h"
#include "ui/prompt.h"

namespace solvane {

// The extension rule of a stored name: a dot, "ot" or "fl" in either case
// (only "ot" when `fl` is false) and one digit, "trial.ot1".
bool ValidOutputName(const std::string& name, bool fl = true);
inline constexpr const char* kOutputNameError =
    "The file extension name should be :  .ot + a number, Example :  trial.ot1  or   trial.ot2 "
    ".  Try again.";

// The files of one stored set, from its full name (its extension valid).
struct StoredFileSet {
    std::filesystem::path results;                       // stem.ot<n>, whatever the case typed
    std::filesystem::path comfort;                       // stem-ot<n>.flt
    std::filesystem::path energy, temperature, weather;  // stem-ot<n>-Energy.hry, -Temp, -Weth
};
StoredFileSet StoredFiles(const std::string& fullName);

// The hourly files of \temp in the order of the stored set's.
inline constexpr const char* kHourlyTempFiles[3] = {"\\temp\\ecalc$.hry", "\\temp\\etemp$.hry",
                                                    "\\temp\\eweth$.hry"};

// What a results file says of the project it came from.
struct ReportIdentity {
    std::string CodeTitle;  // the text of the " ENERGY CODE" line from column 16
    int CodeNum = 0;
    std::string TypeText;     // 28 characters of the "    TYPE:" line from column 18
    int BuildingType = 0;     // the digits of TypeText joined
    std::string ProjectName;  // from the first "*** PROJECT:" page head
};
// Nothing when the file has no " ENERGY CODE" line.
std::optional<ReportIdentity> ReadReportIdentity(const std::string& report);

class SaveOutFormController {
  public:
    SaveOutFormController(Session& session, Prompt& prompt);

    FileBrowser browser{"*.ot*"};
    std::string outputname;
    ScreenFields fields;  // caption, `nosave`, `Text1`

    // Opens on `folder`; `suggestion` is the name the project save dialog
    // proposes when it hands over to this one.
    void Show(const std::string& folder, const std::optional<ResultsName>& suggestion = {});
    void ChooseFile(int index);
    Navigation Ok();      // `okbutton`: SaveOutput
    Navigation NoSave();  // `nosave`: on without storing the results
    Navigation Cancel();  // `cancelbuttton`

  private:
    Navigation Continue();

    Session& session_;
    Prompt& prompt_;
};

// Copies a stored set back into \temp and makes it the results on show.
// False, after telling the user, when it cannot be read.
bool OpenStoredResults(Session& session, Prompt& prompt, const std::string& fullName);

class SelectViewController {
  public:
    SelectViewController(Session& session, Prompt& prompt);

    FileBrowser browser{"*.ot*"};
    std::string Text1;  // the chosen name

    void Show(const std::string& folder);
    void ChooseFile(int index);
    // `OK`: the stored set, then the view the hub asked for.
    Navigation Ok();
    Navigation Cancel();

  private:
    Session& session_;
    Prompt& prompt_;
};

// The hub's View Output menu: `Table` entries 1..8, `graph` entries 1..7 and
// `View` ("Retrieve Previous Output File"). With results in \temp the view
// comes at once; without, the stored set is chosen first.
Navigation TableEntry(Session& session, int entry);
Navigation GraphEntry(Session& session, int entry);
Navigation RetrieveEntry(Session& session, Prompt& prompt);

}  // namespace solvane
