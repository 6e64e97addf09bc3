// The recorded weather screen `selectweth`: a recorded hourly weather file
// in one of the delivered forms is picked, its year is checked against the
// project's, and it is copied to temp\ecalc$.tmy, where the engine reads it.
// For an EPW file the station and design temperatures of its head go to
// temp\tmy2lines.wth. `View` shows the head of the file on `viewweather`.
//
// Named fields: fileformat_1..4 (value 1 = chosen), fileform (the sample's
// title; the sample itself is `sampleText`), Text1 (the file name), Dir1 (the folder
// shown), OK, Cancel, View. The lists are in `browser`.
#pragma once

#include <array>
#include <string>

#include "core/session.h"
#include "projectfile/file_dialogs.h"
#include "ui/prompt.h"
#include "ui/screen_fields.h"

namespace solvane {

// One choice of `fileformat`: its caption, the file pattern under \weather\,
// and the sample shown for it.
struct RecordedFormat {
    const char* choice;
    const char* pattern;
    const char* sampleTitle;
    const char* sampleFile;
};

// [1] EPW, [2] WYEC2, [3] IWEC, [4] custom; the value is the engine's weather
// type in the control file.
extern const std::array<RecordedFormat, 5> kRecordedFormats;

// The station read from an EPW head: numbers rounded to 2 decimals, the
// elevation in feet to 1 decimal.
struct RecordedStation {
    std::string city, state, country;
    float RecordedLatitude = 0, RecordedLongitude = 0, RecordedTimeZone = 0;
    float RecordedElevation = 0;
};

// The year of a recorded file: the first run of digits in its tenth line;
// -1 when the line has none.
long RecordedFileYear(const std::string& content);
// Whether two years agree in their last two digits.
bool SameYearDigits(long fileYear, long projectYear);
// The two lines of tmy2lines.wth from an EPW file's content (CR LF after each),
// and the station of its first line.
std::string Tmy2LinesFromEpw(const std::string& content, RecordedStation* station = nullptr);

class SelectWeatherController {
  public:
    SelectWeatherController(Session& session, Prompt& prompt);

    ScreenFields& fields() { return fields_; }
    FileBrowser browser{"*.*"};
    int WeatherFileFormat = 0;     // 1..4, 0 until a format is chosen
    int WeatherFormatMissing = 0;  // 1 when OK found no format chosen
    RecordedStation station;       // of the last EPW file taken
    std::string sampleText;        // the chosen format's sample file
    std::string viewText;          // what `viewweather` shows

    // Opens the screen at \weather\ with the project's previous choice;
    // `evaluationYear` is the year the run will be made for.
    void Open(const std::string& evaluationYear);
    // A format option, 1..4: the file list takes its pattern and the sample
    // is shown.
    void ChooseFormat(int format);
    // The folder list changed: its files under "*.*".
    void FolderChanged();
    // A click on a file of `File1` puts its name in Text1.
    void ChooseFile(int index);
    // OK: true when the file was taken and the screen closes to `runsim`.
    bool Ok();
    // View: true when `viewweather` is to be shown with `viewText`.
    bool View();

  private:
    std::string FullPath() const;

    Session& session_;
    Prompt& prompt_;
    ScreenFields fields_;
    std::string evaluationYear_;
};

// The first lines of a recorded file that View shows.
inline constexpr int kViewedWeatherLines = 60;

}  // namespace solvane
