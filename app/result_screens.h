// The result chart screens `source`, `monthly` and `peak`, and the chooser
// between them (`ViewOutput`). One window draws whichever chart the
// controller reads; a chart can be saved as PNG or PDF.
#pragma once

#include <QDialog>
#include <functional>

#include "results/result_view.h"

class QLabel;
class QStackedWidget;

namespace solvane {

class EuiScreen;

class ViewOutputScreen : public QDialog {
    Q_OBJECT
  public:
    ViewOutputScreen(std::function<void(ChartKind)> choose, QWidget* parent);
};

class ResultChartScreen : public QDialog {
    Q_OBJECT
  public:
    ResultChartScreen(ResultViewController& controller,
                      std::function<void(const Navigation&)> navigate, QWidget* parent);
    // Shows `kind` in `view` (see ResultViewController::ShowView); false, and
    // nothing shown, when the results lack it.
    bool Open(ChartKind kind, int view = 0);
    // Writes the chart on show to `file` (.png, .pdf).
    bool Export(const QString& file);

  protected:
    void reject() override;

  private:
    bool Redraw(int view);
    void ShowFields();
    void ShowBenchmark();

    ResultViewController& controller_;
    std::function<void(const Navigation&)> navigate_;
    ViewOutputScreen* chooser_;
    QLabel* picture_;
    QStackedWidget* viewButtons_;
    QImage image_;
    EuiScreen* eui_ = nullptr;
};

}  // namespace solvane
