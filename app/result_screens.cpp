#include "app/result_screens.h"

#include <QFileDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QStackedWidget>
#include <QVBoxLayout>

#include "app/chart_canvas.h"
#include "app/eui.h"
#include "app/field_binding.h"
#include "app/form_helpers.h"

namespace solvane {

namespace {
constexpr int kCanvasWidth = 960, kCanvasHeight = 720;
constexpr const char* kScreenNames[] = {"source", "monthly", "peak"};
}  // namespace

ViewOutputScreen::ViewOutputScreen(std::function<void(ChartKind)> choose, QWidget* parent)
    : QDialog(parent) {
    setObjectName("ViewOutput");
    setWindowTitle("View Output");
    auto* layout = new QVBoxLayout(this);
    const auto add = [&](const char* name, const char* caption, ChartKind kind) {
        auto* b = new QPushButton(caption);
        b->setObjectName(name);
        layout->addWidget(b);
        connect(b, &QPushButton::clicked, this, [this, choose, kind] {
            accept();
            choose(kind);
        });
    };
    add("viewsource", "Breakdown of Annual Energy", ChartKind::Source);
    add("viewmonthly", "Monthly Energy and Utility Costs", ChartKind::Monthly);
    add("viewpeak", "Annual and Peak Loads by Component", ChartKind::Peak);
    auto* back = new QPushButton("Back");
    layout->addWidget(back);
    connect(back, &QPushButton::clicked, this, &QDialog::reject);
}

ResultChartScreen::ResultChartScreen(ResultViewController& controller,
                                     std::function<void(const Navigation&)> navigate,
                                     QWidget* parent)
    : QDialog(parent), controller_(controller), navigate_(std::move(navigate)) {
    chooser_ = new ViewOutputScreen([this](ChartKind k) { Open(k); }, this);
    auto* layout = new QVBoxLayout(this);
    picture_ = new QLabel;
    picture_->setObjectName("chart");
    picture_->setFixedSize(kCanvasWidth, kCanvasHeight);
    layout->addWidget(picture_);
    auto* total = new QLabel;
    total->setObjectName("Totheat");
    layout->addWidget(total);

    // The view buttons of each screen: none on `source`.
    viewButtons_ = new QStackedWidget;
    viewButtons_->addWidget(new QWidget);
    auto* monthly = new QWidget;
    auto* ml = new QHBoxLayout(monthly);
    connect(AddButton(ml, "monthenergy", "Monthly Heating and Cooling Energy"),
            &QPushButton::clicked, this, [this] { Redraw(0); });
    connect(AddButton(ml, "monthcost", "Monthly Utility Costs"), &QPushButton::clicked, this,
            [this] { Redraw(1); });
    viewButtons_->addWidget(monthly);
    auto* peak = new QWidget;
    auto* pl = new QHBoxLayout(peak);
    const char* names[] = {"annucool", "annuheat", "peakcool", "peakheat"};
    const char* captions[] = {"Annual Cooling", "Annual Heating", "Peak Cooling", "Peak Heating"};
    for (int v = 0; v < 4; ++v)
        connect(AddButton(pl, names[v], captions[v]), &QPushButton::clicked, this,
                [this, v] { Redraw(v); });
    viewButtons_->addWidget(peak);
    layout->addWidget(viewButtons_);

    auto* buttons = new QHBoxLayout;
    connect(AddButton(buttons, "Label5", "Energy Use Benchmark..."), &QPushButton::clicked, this,
            [this] { ShowBenchmark(); });
    connect(AddButton(buttons, "viewoutput", "View Output..."), &QPushButton::clicked, chooser_,
            &QDialog::open);
    connect(AddButton(buttons, "export", "Save Chart..."), &QPushButton::clicked, this, [this] {
        const QString file = QFileDialog::getSaveFileName(
            this, "Save Chart",
            QString(kScreenNames[static_cast<int>(controller_.kind())]) + ".png",
            "PNG image (*.png);;PDF document (*.pdf)");
        if (!file.isEmpty() && !Export(file))
            QMessageBox::warning(this, "Save Chart", "The chart could not be written to " + file);
    });
    connect(AddButton(buttons, "mainmenu", "Main Menu"), &QPushButton::clicked, this,
            &ResultChartScreen::reject);
    layout->addLayout(buttons);
}

void ResultChartScreen::ShowBenchmark() {
    if (!eui_) eui_ = new EuiScreen(controller_.eui, this);
    eui_->Open();
}

bool ResultChartScreen::Open(ChartKind kind, int view) {
    setObjectName(kScreenNames[static_cast<int>(kind)]);
    viewButtons_->setCurrentIndex(static_cast<int>(kind));
    if (auto* benchmark = findChild<QWidget*>("Label5"))
        benchmark->setVisible(kind == ChartKind::Source);
    ChartCanvas canvas(kCanvasWidth, kCanvasHeight);
    if (!controller_.Show(kind, canvas) || (view != 0 && !controller_.ShowView(view, canvas))) {
        hide();
        navigate_({Screen::MainMenu, false, false});
        return false;
    }
    image_ = canvas.image();
    ShowFields();
    show();
    raise();
    return true;
}

bool ResultChartScreen::Redraw(int view) {
    ChartCanvas canvas(kCanvasWidth, kCanvasHeight);
    const bool ok = controller_.ShowView(view, canvas);
    image_ = canvas.image();
    ShowFields();
    return ok;
}

void ResultChartScreen::ShowFields() {
    setWindowTitle(QString::fromStdString(controller_.fields.caption));
    picture_->setPixmap(QPixmap::fromImage(image_));
    ApplyFields(this, controller_.fields);
}

bool ResultChartScreen::Export(const QString& file) {
    return ExportChart(image_, windowTitle(), file);
}

void ResultChartScreen::reject() {
    const Navigation nav = controller_.Leave();
    QDialog::reject();
    navigate_(nav);
}

}  // namespace solvane
