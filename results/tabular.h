// The `tabular` screen: the printed report by sections in one fixed-pitch
// text box, with the `zone` buttons paging through the zone, weather and
// comfort views.
#pragma once

#include <string>
#include <vector>

#include "core/session.h"
#include "results/report_tables.h"
#include "ui/prompt.h"

namespace solvane {

class TabularController {
  public:
    TabularController(Session& session, Prompt& prompt);

    // Caption, `Text1`, and the `zone` buttons; `Summary`, `Hourly`.
    ScreenFields fields;
    TableView view() const { return view_; }
    int ZonePageIndex() const { return pageIndex_; }
    int ZonePageCount() const { return pageCount_; }

    // Cuts the view out of \temp\ecalc$.out into its files under \temp and
    // shows it (its first page). False, after telling the user, when the
    // report lacks the view's section; the screen is then left as it was.
    bool Show(TableView view);
    // The `zone` buttons: 1 next page, 2 the one before; nothing at the ends.
    void Zone(int direction);
    // `Summary`: unsaved results are offered for saving, then the energy
    // breakdown chart (or the save screen) comes forward.
    Navigation Summary();
    // `Hourly`: the hourly output screen, when the run made hourly files.
    Navigation Hourly();
    // The text on show and the file it came from (for printing and saving).
    std::string text() const { return fields.Text("Text1"); }
    const std::string& shownFile() const { return shownFile_; }

  private:
    bool LoadPage(int index);

    Session& session_;
    Prompt& prompt_;
    TableView view_ = TableView::ProjectData;
    int pageIndex_ = 0, pageCount_ = 0;
    std::string shownFile_;
};

}  // namespace solvane
