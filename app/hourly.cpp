#include "app/hourly.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QDesktopServices>
#include <QFileDialog>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QUrl>
#include <QVBoxLayout>

#include "app/chart_canvas.h"
#include "app/desktop_mime.h"
#include "app/form_helpers.h"

namespace solvane {

namespace {
constexpr int kPlotWidth = 960, kPlotHeight = 560;
}

bool OpenInSpreadsheet(const std::filesystem::path& file) {
    // Without an application for CSV files the desktop's opener starts and
    // shows nothing: the user is told where the files are instead.
    if (!DesktopOpens("text/csv")) return false;
    return QDesktopServices::openUrl(QUrl::fromLocalFile(QString::fromStdString(file.string())));
}

// ---- the hourly plot ----------------------------------------------------------------

HourlyPlotScreen::HourlyPlotScreen(Session& session, Prompt& prompt, QWidget* parent)
    : QDialog(parent), session_(session), prompt_(prompt) {
    setObjectName("hourlyplot");
    setWindowTitle("Hourly Results");
    auto* layout = new QVBoxLayout(this);
    auto* controls = new QHBoxLayout;
    mode_ = new QComboBox;
    mode_->setObjectName("mode");
    mode_->addItems({"Week: zone temperature and building loads", "Year: zone temperature",
                     "Year: building heating load", "Year: building cooling load",
                     "Year: outdoor dry bulb"});
    zone_ = new QComboBox;
    zone_->setObjectName("zone");
    week_ = new QSpinBox;
    week_->setObjectName("week");
    week_->setRange(1, 53);
    week_->setPrefix("Week ");
    controls->addWidget(mode_, 2);
    controls->addWidget(new QLabel("Zone:"));
    controls->addWidget(zone_, 1);
    controls->addWidget(week_);
    layout->addLayout(controls);
    picture_ = new QLabel;
    picture_->setObjectName("plot");
    picture_->setFixedSize(kPlotWidth, kPlotHeight);
    layout->addWidget(picture_);
    legend_ = new QLabel;
    legend_->setObjectName("legend");
    layout->addWidget(legend_);
    auto* buttons = new QHBoxLayout;
    connect(AddButton(buttons, "export", "Save Picture..."), &QPushButton::clicked, this, [this] {
        const QString file = QFileDialog::getSaveFileName(
            this, "Save Picture", "hourly.png", "PNG image (*.png);;PDF document (*.pdf)");
        if (!file.isEmpty() && !ExportChart(image_, windowTitle(), file))
            QMessageBox::warning(this, "Save Picture",
                                 "The picture could not be written to " + file);
    });
    buttons->addStretch(1);
    connect(AddButton(buttons, "close", "Close"), &QPushButton::clicked, this, &QDialog::reject);
    layout->addLayout(buttons);
    connect(mode_, &QComboBox::currentIndexChanged, this, [this] { Redraw(); });
    connect(zone_, &QComboBox::currentIndexChanged, this, [this] { Redraw(); });
    connect(week_, &QSpinBox::valueChanged, this, [this] { Redraw(); });
}

bool HourlyPlotScreen::Open() {
    std::string error;
    data_ = ReadHourlyData(session_.paths, error);
    if (!data_) {
        prompt_.Ask(error, "Hourly Results", Buttons::Ok, Icon::Exclamation);
        return false;
    }
    const QSignalBlocker block(zone_);
    zone_->clear();
    for (const auto& name : data_->zoneNames) zone_->addItem(QString::fromStdString(name));
    Redraw();
    show();
    raise();
    return true;
}

void HourlyPlotScreen::Redraw() {
    if (!data_) return;
    ChartCanvas canvas(kPlotWidth, kPlotHeight);
    ScreenFields fields;
    const int mode = mode_->currentIndex();
    week_->setEnabled(mode == 0);
    const int zone = std::max(0, zone_->currentIndex());
    if (mode == 0)
        DrawHourlyWeek(*data_, zone, week_->value(), canvas, fields);
    else
        DrawHourlyYear(*data_, static_cast<HourlySeries>(mode - 1), zone, canvas, fields);
    image_ = canvas.image();
    picture_->setPixmap(QPixmap::fromImage(image_));
    setWindowTitle(QString::fromStdString(fields.caption));
    legend_->setText(QString::fromStdString(fields.Text("legend")));
}

// ---- Hourly -------------------------------------------------------------------------------

HourlyScreen::HourlyScreen(HourlyController& controller, Session& session, Prompt& prompt,
                           std::function<void(const Navigation&)> navigate, QWidget* parent)
    : QDialog(parent), controller_(controller), navigate_(std::move(navigate)) {
    setObjectName("Hourly");
    auto* layout = new QVBoxLayout(this);
    auto* box = new QGroupBox("Hourly file to display");
    auto* boxLayout = new QVBoxLayout(box);
    auto* group = new QButtonGroup(this);
    for (int i = 1; i <= 3; ++i) {
        auto* choice = new QRadioButton;
        choice->setObjectName(QString("HryDisplay_%1").arg(i));
        group->addButton(choice, i);
        boxLayout->addWidget(choice);
    }
    connect(group, &QButtonGroup::idClicked, this,
            [this](int id) { controller_.fields["HryDisplay"].value = id; });
    layout->addWidget(box);
    auto* buttons = new QHBoxLayout;
    connect(AddButton(buttons, "Action_0", "Display it Now"), &QPushButton::clicked, this,
            [this] { controller_.ShowHourly(); });
    connect(AddButton(buttons, "plot", "Plot in SOLVANE..."), &QPushButton::clicked, this,
            [this] { plot_->Open(); });
    connect(AddButton(buttons, "Action_1", "Return to Tabular Menu"), &QPushButton::clicked, this,
            &HourlyScreen::reject);
    layout->addLayout(buttons);
    plot_ = new HourlyPlotScreen(session, prompt, this);
}

void HourlyScreen::Open() {
    controller_.Open();
    setWindowTitle(QString::fromStdString(controller_.fields.caption));
    for (int i = 1; i <= 3; ++i) {
        auto* choice = findChild<QRadioButton*>(QString("HryDisplay_%1").arg(i));
        choice->setText(QString::fromStdString(controller_.fields.At("HryDisplay", i).text));
        choice->setAutoExclusive(false);
        choice->setChecked(false);
        choice->setAutoExclusive(true);
    }
    show();
    raise();
}

void HourlyScreen::reject() {
    QDialog::reject();
    navigate_(controller_.Return());
}

}  // namespace solvane
