// The `tabular` screen: a section of the printed report in a fixed-pitch
// text box, paged by the `zone` buttons, with printing and saving of the
// table on show.
#pragma once

#include <QDialog>
#include <functional>

#include "results/tabular.h"

class QComboBox;
class QLabel;
class QPlainTextEdit;

namespace solvane {

class TabularScreen : public QDialog {
    Q_OBJECT
  public:
    TabularScreen(TabularController& controller, std::function<void(const Navigation&)> navigate,
                  QWidget* parent);
    // Shows a view; false, and nothing shown, when the report lacks it.
    bool Open(TableView view);
    // Writes the table on show: a PDF for ".pdf", else the text itself.
    bool SaveTable(const QString& file);
    // The same print as the printer gets, into a PDF file.
    bool WritePdf(const QString& file);

  protected:
    void reject() override;

  private:
    void ShowFields();
    void Print();

    TabularController& controller_;
    std::function<void(const Navigation&)> navigate_;
    QComboBox* views_;
    QPlainTextEdit* text_;
    QLabel* page_;
};

}  // namespace solvane
