#include "app/runsim.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>
#include <QVBoxLayout>

#include "app/field_binding.h"
#include "app/field_edits.h"
#include "app/form_helpers.h"
#include "app/selectweth.h"

namespace solvane {

RunOptionsScreen::RunOptionsScreen(std::function<void(int)> runEnergy, QWidget* parent)
    : QDialog(parent) {
    setObjectName("RunOptions");
    setWindowTitle("Execute Energy Analysis");
    auto* layout = new QVBoxLayout(this);
    const auto add = [&](const char* name, const char* caption, int runType) {
        auto* b = new QPushButton(caption);
        b->setObjectName(name);
        layout->addWidget(b);
        connect(b, &QPushButton::clicked, this, [this, runEnergy, runType] {
            accept();
            runEnergy(runType);
        });
    };
    add("Command1", "Run with conventional Heating and Air Conditioning", 3);
    add("Command2", "Comfort analysis with no HVAC (Passive Analysis)", 4);
    auto* back = new QPushButton("Back");
    back->setObjectName("Command3");
    layout->addWidget(back);
    connect(back, &QPushButton::clicked, this, &QDialog::reject);
}

RunSimScreen::RunSimScreen(RunSimController& controller,
                           std::function<void(const Navigation&)> navigate,
                           std::function<void()> showResults, QWidget* parent)
    : QDialog(parent),
      controller_(controller),
      navigate_(std::move(navigate)),
      showResults_(std::move(showResults)) {
    setObjectName("runsim");
    timer_ = new QTimer(this);
    timer_->setInterval(100);
    connect(timer_, &QTimer::timeout, this, &RunSimScreen::Poll);
    auto* edits = new FieldEdits(controller_.fields(), {}, this);
    auto* layout = new QVBoxLayout(this);

    auto* period = new QGroupBox("Analysis Period: (day-month)");
    auto* pg = new QGridLayout(period);
    pg->addWidget(new QLabel("From"), 0, 0);
    AddEdit(pg, 0, 1, "Text1_0", edits, 80);
    pg->addWidget(new QLabel("To"), 0, 2);
    AddEdit(pg, 0, 3, "Text1_1", edits, 80);
    pg->addWidget(new QLabel("Weather Year"), 0, 4);
    AddEdit(pg, 0, 5, "Text1_2", edits, 60);
    pg->addWidget(new QLabel("Skip months (click to mark):"), 1, 0, 1, 6);
    auto* months = new QHBoxLayout;
    for (int i = 0; i < 12; ++i) {
        auto* mon = new QPushButton;
        mon->setObjectName(QString("mon_%1").arg(i));
        mon->setFlat(true);
        mon->setAutoFillBackground(true);
        mon->setFixedWidth(40);
        months->addWidget(mon);
        connect(mon, &QPushButton::clicked, this, [this, i] {
            controller_.ToggleMonth(i);
            ShowFields();
        });
    }
    pg->addLayout(months, 2, 0, 1, 6);
    layout->addWidget(period);

    auto* design = new QGroupBox("Design Temperatures");
    auto* dg = new QGridLayout(design);
    const char* captions[] = {"Summer Dry-Bulb", "Summer Wet-Bulb", "Winter Dry-Bulb"};
    for (int i = 1; i <= 3; ++i) {
        dg->addWidget(new QLabel(captions[i - 1]), 0, 2 * (i - 1));
        AddEdit(dg, 0, 2 * i - 1, QString("destemp_%1").arg(i), edits, 60);
    }
    layout->addWidget(design);

    auto* weather = new QGroupBox("Weather");
    auto* wl = new QVBoxLayout(weather);
    for (int i = 0; i < 2; ++i) {
        auto* r =
            new QRadioButton(i == 0 ? "Simulated Weather (Default Option):" : "Recorded Weather:");
        r->setObjectName(QString("weather_%1").arg(i));
        wl->addWidget(r);
        connect(r, &QRadioButton::toggled, this, [this, i](bool on) {
            if (on) {
                controller_.fields().At("weather", i).value = 1;
                controller_.fields().At("weather", 1 - i).value = 0;
            }
        });
        if (i == 1) connect(r, &QRadioButton::clicked, this, &RunSimScreen::PickRecordedWeather);
    }
    for (const auto& [name, caption] :
         {std::pair{"weatherseq", "Repeat previously run weather sequence."},
          std::pair{"hourlyoutput", "Produce Hourly Output File"},
          std::pair{"ensemble",
                    "Weather ensemble: 20 more runs, their 10th to 90th percentile drawn "
                    "behind the charts' bars"}}) {
        auto* check = new QCheckBox(caption);
        check->setObjectName(name);
        wl->addWidget(check);
        const std::string field = name;
        connect(check, &QCheckBox::toggled, this,
                [this, field](bool on) { controller_.fields()[field].value = on ? 1 : 0; });
    }
    layout->addWidget(weather);

    auto* comfort = new QGroupBox("Comfort Zone Temperature Limits: ");
    auto* cg = new QGridLayout(comfort);
    cg->addWidget(new QLabel("Lower Limit"), 0, 0);
    AddEdit(cg, 0, 1, "Tlower", edits, 60);
    cg->addWidget(new QLabel("Upper Limit"), 0, 2);
    AddEdit(cg, 0, 3, "Tupper", edits, 60);
    layout->addWidget(comfort);

    auto* bar = new QProgressBar;
    bar->setObjectName("ProgressBar1");
    bar->setRange(0, 100);
    layout->addWidget(bar);
    auto* status = new QLabel;
    status->setObjectName("runstatus");
    status->setMinimumHeight(36);
    layout->addWidget(status);

    auto* buttons = new QHBoxLayout;
    connect(AddButton(buttons, "Command1", "Execute Run"), &QPushButton::clicked, this,
            &RunSimScreen::Execute);
    connect(AddButton(buttons, "Command2", "Cancel"), &QPushButton::clicked, this,
            &RunSimScreen::reject);
    connect(AddButton(buttons, "Command3", "Review Results"), &QPushButton::clicked, this, [this] {
        if (!controller_.ReviewResults()) return;
        hide();
        showResults_();
    });
    layout->addLayout(buttons);
}

void RunSimScreen::Open() {
    controller_.OpenRun();
    setWindowTitle(QString::fromStdString(controller_.fields().caption));
    ShowFields();
    show();
    raise();
    activateWindow();
}

void RunSimScreen::SetRecordedWeather(SelectWeatherController& controller) {
    select_ = new SelectWeatherScreen(controller, this);
}

void RunSimScreen::PickRecordedWeather() {
    if (!select_) return;
    ScreenFields& f = controller_.fields();
    select_->Pick(f.At("Text1", 2).text);
    // Without a file taken the run stays on simulated weather.
    const bool taken = controller_.session().model.climate.RecordedWeatherSelected == 1;
    f.At("weather", 0).value = taken ? 0 : 1;
    f.At("weather", 1).value = taken ? 1 : 0;
    ShowFields();
}

void RunSimScreen::ShowFields() {
    ScreenFields& f = controller_.fields();
    ApplyFields(this, f);
    for (const char* name : {"weatherseq", "hourlyoutput", "ensemble"})
        if (auto* check = findChild<QCheckBox*>(name)) check->setChecked(f[name].value != 0);
    if (auto* bar = findChild<QProgressBar*>("ProgressBar1"))
        bar->setValue(f["ProgressBar1"].value);
    for (int i = 0; i < 12; ++i) {
        auto* mon = findChild<QPushButton*>(QString("mon_%1").arg(i));
        if (mon)
            // A push button paints a style sheet's background only with a
            // border of the sheet's own.
            mon->setStyleSheet(QString::asprintf(
                "QPushButton { background-color: #%06x; border: 1px solid #b0b0b0; }",
                static_cast<unsigned>(f.At("mon", i).color)));
    }
    // While the engine runs only Cancel answers.
    const bool running = controller_.Running();
    for (QWidget* w : findChildren<QGroupBox*>()) w->setEnabled(!running);
}

void RunSimScreen::Execute() {
    setCursor(Qt::WaitCursor);
    const bool started = controller_.ExecuteRun();
    ShowFields();
    if (!started) {
        unsetCursor();
        return;
    }
    timer_->start();
}

void RunSimScreen::Poll() {
    const bool running = controller_.Wait(0);
    ShowFields();
    if (running) return;
    timer_->stop();
    unsetCursor();
    emit runFinished();
}

void RunSimScreen::reject() {
    // Cancel and Escape during a run end the engine and keep the screen;
    // otherwise they return to the hub.
    if (controller_.Running()) {
        timer_->stop();
        controller_.Cancel();
        unsetCursor();
        ShowFields();
        emit runFinished();
        return;
    }
    QDialog::reject();
    navigate_({Screen::MainMenu, false, false});
}

}  // namespace solvane
