#include "app/weather.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <string_view>

#include "app/field_binding.h"
#include "app/field_edits.h"
#include "app/form_helpers.h"
#include "app/help_viewer.h"
#include "core/numeric_helpers.h"

namespace solvane {

namespace {

constexpr const char* kRowCaptions[] = {"",
                                        "Bry Bulb Ave:",
                                        "Ave. Std. Dev:",
                                        "Bry Bulb Max:",
                                        "Max. Std. Dev:",
                                        "Dewpoint Ave:",
                                        "DP Std. Dev:",
                                        "Solar Radiation:",
                                        "Wind Speed:"};
constexpr const char* kMonths[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                   "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

QLineEdit* Cell(const QString& name, int width = 48) {
    auto* e = new QLineEdit;
    e->setObjectName(name);
    e->setFixedWidth(width);
    e->setAlignment(Qt::AlignRight);
    return e;
}

void FillCombo(QComboBox* combo, const std::vector<std::string>& items, const std::string& text) {
    const QSignalBlocker block(combo);
    combo->clear();
    for (const auto& i : items) combo->addItem(QString::fromStdString(i));
    combo->setCurrentText(QString::fromStdString(text));
}

}  // namespace

WeatherDataScreen::WeatherDataScreen(WeatherScreen& controller,
                                     std::function<void(const Navigation&)> navigate,
                                     QWidget* parent)
    : QDialog(parent), controller_(controller), navigate_(std::move(navigate)) {
    setObjectName("weather");
    setWindowTitle("Weather Data");
    edits_ = new FieldEdits(
        controller_.fields,
        [this](const std::string& field, int key) { return controller_.KeyPress(field, key); },
        this);
    auto* layout = new QVBoxLayout(this);
    auto* top = new QHBoxLayout;
    layout->addLayout(top);

    // Regions.
    auto* regions = new QGroupBox("Click on region name to select:");
    auto* regionGrid = new QGridLayout(regions);
    for (int r = 0; r < 8; ++r) {
        auto* option = new QRadioButton(
            QString::fromUtf8(kRegionCaptions[r + 1].data(), kRegionCaptions[r + 1].size()));
        option->setObjectName(QString("Option1_%1").arg(r));
        auto* count = new QLabel;
        count->setObjectName(QString("Text12_%1").arg(r));
        regionGrid->addWidget(option, r, 0);
        regionGrid->addWidget(count, r, 1);
        connect(option, &QRadioButton::clicked, this, [this, r] {
            controller_.ChooseRegion(r + 1);
            ShowFields();
        });
    }
    auto* totals = new QLabel;
    totals->setObjectName("totals");
    regionGrid->addWidget(totals, 8, 0, 1, 2);
    top->addWidget(regions);

    // State, city and station.
    auto* site = new QGridLayout;
    auto* stateLabel = new QLabel;
    stateLabel->setObjectName("Label1");
    site->addWidget(stateLabel, 0, 0, 1, 2);
    auto* sttext = new QLineEdit;
    sttext->setObjectName("sttext");
    edits_->Bind(sttext);
    states_ = new QComboBox;
    states_->setObjectName("Combo1");
    states_->setMinimumWidth(220);
    site->addWidget(sttext, 1, 0);
    site->addWidget(states_, 1, 1);
    auto* cityNum = new QLabel;
    cityNum->setObjectName("CityNum");
    site->addWidget(cityNum, 2, 0, 1, 2);
    auto* citytext = new QLineEdit;
    citytext->setObjectName("citytext");
    edits_->Bind(citytext);
    cities_ = new QComboBox;
    cities_->setObjectName("Combo3");
    cities_->setMinimumWidth(220);
    site->addWidget(citytext, 3, 0);
    site->addWidget(cities_, 3, 1);
    site->addWidget(new QLabel("* AP indicates airport weather station."), 4, 0, 1, 2);

    auto* station = new QGridLayout;
    const char* stationFields[] = {"WMO", "latitude", "longitude", "timezone", "elev"};
    const char* stationCaptions[] = {"WMO #", "Latitude", "Longitude", "Time Zone", "Elevation"};
    for (int i = 0; i < 5; ++i) {
        auto* caption = new QLabel(stationCaptions[i]);
        if (i == 1) caption->setObjectName("latlabel");
        if (i == 2) caption->setObjectName("longlabel");
        station->addWidget(caption, 0, i);
        auto* e = Cell(stationFields[i], 70);
        if (i == 0)
            edits_->Bind(e);
        else
            edits_->BindNumber(e);
        station->addWidget(e, 1, i);
    }
    const char* climateFields[] = {"HDDV", "CDDV", "CLzoneV"};
    const char* climateCaptions[] = {"Htg Deg. Days", "Clg Deg. Days", "Climate Zone"};
    const char* climateCaptionNames[] = {"HDDn", "CDDn", "ASHzone"};
    for (int i = 0; i < 3; ++i) {
        auto* caption = new QLabel(climateCaptions[i]);
        caption->setObjectName(climateCaptionNames[i]);
        station->addWidget(caption, 2, i);
        auto* e = Cell(climateFields[i], 70);
        e->setReadOnly(true);
        station->addWidget(e, 3, i);
    }
    site->addLayout(station, 5, 0, 1, 2);
    auto* status = new QLabel;
    status->setObjectName("status");
    site->addWidget(status, 6, 0, 1, 2);
    top->addLayout(site, 1);

    map_ = new QLabel;
    map_->setObjectName("Picture1");
    map_->setFixedSize(360, 260);
    map_->setScaledContents(false);
    map_->setAlignment(Qt::AlignCenter);
    top->addWidget(map_);

    // Monthly rows and the extremes.
    auto* months = new QGridLayout;
    for (int m = 0; m < 12; ++m)
        months->addWidget(new QLabel(kMonths[m]), 0, m + 1, Qt::AlignRight);
    for (int row = 1; row <= 8; ++row) {
        months->addWidget(new QLabel(kRowCaptions[row]), row, 0);
        for (int m = 1; m <= 12; ++m) {
            auto* e = Cell(QString("%1_%2").arg(WeatherScreen::kRowNames[row]).arg(m));
            edits_->BindNumber(e);
            months->addWidget(e, row, m);
        }
        auto* unit = new QLabel;
        unit->setObjectName(QString("unt_%1").arg(row));
        months->addWidget(unit, row, 13);
    }
    layout->addLayout(months);

    auto* extremes = new QGroupBox("For New Entries or Revisions Only");
    auto* extremeGrid = new QGridLayout(extremes);
    extremeGrid->addWidget(
        new QLabel("Enter monthly extreme DB's ever recorded or monthly means of annual "
                   "extremes.  Use when Std. Deviations are unknown."),
        0, 0, 1, 14);
    const char* extremeNames[] = {"extdb", "annext"};
    const char* extremeCaptions[] = {"Extreme Dry Bulb:", "Mean Ann. Extreme"};
    for (int k = 0; k < 2; ++k) {
        extremeGrid->addWidget(new QLabel(extremeCaptions[k]), k + 1, 0);
        for (int m = 1; m <= 12; ++m) {
            auto* e = Cell(QString("%1_%2").arg(extremeNames[k]).arg(m));
            edits_->BindNumber(e);
            extremeGrid->addWidget(e, k + 1, m);
            // Leaving a filled cell derives the month's deviations from it.
            connect(e, &QLineEdit::editingFinished, this, [this, k, m, e] {
                if (NumVal(e->text().toStdString()) == 0) return;
                controller_.DeriveDeviations(k == 1, m);
                ShowFields();
            });
        }
        auto* unit = new QLabel;
        unit->setObjectName(QString("unt_%1").arg(9 + k));
        extremeGrid->addWidget(unit, k + 1, 13);
    }
    layout->addWidget(extremes);

    auto* buttons = new QHBoxLayout;
    struct Button {
        const char* name;
        const char* caption;
        std::function<Navigation()> action;
    };
    WeatherScreen& c = controller_;
    const Button list[] = {{"savenew", "Save As New", [&c] { return c.SaveAsNew(); }},
                           {"saveupdate", "Save As Update", [&c] { return c.SaveAsUpdate(); }},
                           {"CityDelete", "Delete this City", [&c] { return c.DeleteCity(); }},
                           {"OK", "OK", [&c] { return c.Ok(); }},
                           {"Cancel", "Cancel", [&c] { return c.Cancel(); }}};
    for (const Button& b : list) {
        auto* button = new QPushButton(b.caption);
        button->setObjectName(b.name);
        // Enter never writes the climate file: OK, which changes nothing on
        // disk, is the one default button.
        button->setAutoDefault(false);
        button->setDefault(std::string_view(b.name) == "OK");
        buttons->addWidget(button);
        connect(button, &QPushButton::clicked, this, [this, a = b.action] { Act(a()); });
    }
    auto* help = new QPushButton("Help");
    help->setObjectName("help");
    help->setAutoDefault(false);
    buttons->addWidget(help);
    connect(help, &QPushButton::clicked, this, [this] {
        if (!help_) help_ = new HelpViewer(controller_.paths(), this);
        help_->ShowFile(kWeatherHelpFile);
    });
    layout->addLayout(buttons);
    EscapeIsCancel(this);

    connect(states_, &QComboBox::textActivated, this, [this](const QString& text) {
        controller_.ChooseState(text.toStdString());
        ShowFields();
    });
    connect(cities_, &QComboBox::textActivated, this, [this](const QString& text) {
        controller_.ChooseCity(text.toStdString());
        ShowFields();
    });
}

void WeatherDataScreen::OpenTask() {
    controller_.OpenTask();
    ShowFields();
    show();
    raise();
}

void WeatherDataScreen::ShowFields() {
    ApplyFields(this, controller_.fields);
    FillCombo(states_, controller_.Combo1Items, controller_.fields.Text("Combo1"));
    FillCombo(cities_, controller_.Combo3Items, controller_.fields.Text("Combo3"));
    for (int r = 0; r < 8; ++r) {
        const FieldState* f = controller_.fields.Find("Text12_" + std::to_string(r));
        if (!f) continue;
        // The region lines' colour is their background: the current one is highlighted.
        findChild<QLabel*>(QString("Text12_%1").arg(r))
            ->setStyleSheet(QString::asprintf("background-color: #%06x; color: black;",
                                              static_cast<unsigned>(f->color)));
    }
    const QString path = QString::fromStdString(controller_.fields.Text("Picture1"));
    if (path != mapPath_) {
        mapPath_ = path;
        const QPixmap map(path);
        map_->setPixmap(
            map.isNull() ? QPixmap()
                         : map.scaled(map_->size(), Qt::KeepAspectRatio, Qt::SmoothTransformation));
    }
}

void WeatherDataScreen::Act(Navigation nav) {
    ShowFields();
    if (nav.show != Screen::None || nav.endProgram) hide();
    navigate_(nav);
}

}  // namespace solvane
