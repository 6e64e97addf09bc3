#include "app/mainmenu.h"

#include <QCloseEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenuBar>
#include <QPushButton>
#include <QStatusBar>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>
#include <functional>

#include "app/about_box.h"
#include "app/field_binding.h"
#include "app/help_viewer.h"
#include "app/task_icons.h"
#include "code/code_selection.h"

namespace solvane {

namespace {

QAction* AddAction(QMenu* menu, const QString& name, const QString& text) {
    QAction* action = menu->addAction(text);
    action->setObjectName(name);
    return action;
}

// A caption shown as it is written: an "&" in it is a character, not the
// mark of a shortcut letter.
QString Literal(const QString& text) {
    return QString(text).replace('&', "&&");
}

QMenu* AddMenu(QMenuBar* bar, const QString& name, const QString& title) {
    QMenu* menu = bar->addMenu(title);
    menu->setObjectName(name);
    return menu;
}

}  // namespace

MainMenuScreen::MainMenuScreen(Session& session, MainMenuController& controller,
                               std::function<void(const Navigation&)> navigate)
    : session_(session), controller_(controller), navigate_(std::move(navigate)) {
    setObjectName("mainmenu");
    setMinimumSize(820, 620);
    BuildMenus();
    BuildTasks();
    // The status line, there from the start so that a message moves nothing;
    // a label of its own, so that passing over the menus does not wipe it.
    auto* status = new QLabel;
    status->setObjectName("statusline");
    statusBar()->addWidget(status, 1);
    timer_ = new QTimer(this);
    timer_->setObjectName("Timer1");
    timer_->setInterval(500);
    connect(timer_, &QTimer::timeout, this, [this] {
        controller_.TimerTick();
        globe_->setPixmap(GlobeFrame(session_.TimerPicture, 72));
        ShowFields();
    });
}

void MainMenuScreen::BuildMenus() {
    QMenuBar* bar = menuBar();
    QMenu* file = AddMenu(bar, "filemenu", "&File");
    connect(AddAction(file, "newitem", "&New Project"), &QAction::triggered, this, [this] {
        Go(controller_.NewProject());
        Activate();
    });
    connect(AddAction(file, "retrieveitem", "&Open Existing Project"), &QAction::triggered, this,
            [this] { Go(controller_.OpenProject()); });
    connect(AddAction(file, "saveinput", "Save &Project File"), &QAction::triggered, this,
            [this] { Go(controller_.SaveProject()); });
    file->addSeparator();
    connect(AddAction(file, "exititem", "E&xit"), &QAction::triggered, this,
            [this] { Go(controller_.Exit()); });

    QMenu* run = AddMenu(bar, "runmenu", "&Analysis");
    for (int i = 0; i < 2; ++i) {
        QAction* a = AddAction(run, QString("runenergy_%1").arg(i),
                               i == 0 ? "Run with   A/C " : "Run w/out A/C (&Passive)");
        connect(a, &QAction::triggered, this, [this, i] { Go(controller_.RunEnergy(i)); });
    }

    QMenu* view = AddMenu(bar, "viewmenu", "&View Output");
    QMenu* tables = view->addMenu("Tables");
    tables->setObjectName("Table");
    const char* tableNames[] = {
        "Project Data",         "Zone Data",     "Monthly Summaries", "HVAC Design Data",
        "Peak Demand Profiles", "Cost Analysis", "Weather Summary",   "Space Comfort Conditions"};
    for (int i = 0; i < 8; ++i)
        AddAction(tables, QString("Table_%1").arg(i + 1), Literal(tableNames[i]));
    QMenu* graphs = view->addMenu("Graphs");
    graphs->setObjectName("graph");
    const char* graphNames[] = {"Peak Heating Load",         "Peak Cooling Load",
                                "Annual Heating Load",       "Annual Cooling Load",
                                "Monthly Heating & Cooling", "Monthly Utility Costs",
                                "Breakdown of Annual Energy"};
    for (int i = 0; i < 7; ++i)
        AddAction(graphs, QString("graph_%1").arg(i + 1), Literal(graphNames[i]));
    AddAction(view, "View_0", "Retrieve Previous Output File");

    QMenu* dtbase = AddMenu(bar, "dtbase", "&Mat'l / Systems Database");
    const char* dbNames[] = {"Wall/Roof/Floor Catalog", "Window & Skylight Catalog",
                             "HVAC System Types"};
    for (int i = 0; i < 3; ++i)
        connect(AddAction(dtbase, QString("dbase_%1").arg(i + 1), Literal(dbNames[i])),
                &QAction::triggered, this, [this, i] { Go(controller_.Database(i + 1)); });

    help_ = new HelpViewer(session_.paths, this);
    QMenu* code = AddMenu(bar, "code", "&Energy Code Details");
    connect(AddAction(code, "codehelp", "Energy Code Details"), &QAction::triggered, this,
            [this] { help_->ShowFile(kCodeHelpFile); });
    QMenu* tutorial = AddMenu(bar, "Helpmenu", "&Tutorial");
    int topic = 0;
    for (const auto& [title, file] : HelpTopics(session_.paths)) {
        connect(AddAction(tutorial, QString("helptopic_%1").arg(++topic),
                          Literal(QString::fromStdString(title))),
                &QAction::triggered, this, [this, file = file] { help_->ShowFile(file); });
    }
    tutorial->addSeparator();
    connect(AddAction(tutorial, "aboutitem", "&About SOLVANE 2020"), &QAction::triggered, this,
            [this] {
                if (!about_) about_ = new AboutBox(session_.paths, this);
                about_->show();
                about_->raise();
            });
}

void MainMenuScreen::BuildTasks() {
    auto* central = new QWidget;
    auto* layout = new QVBoxLayout(central);

    // Code banner with its arrow and the two code icons.
    auto* bannerRow = new QHBoxLayout;
    auto* arrow = new QLabel;
    arrow->setObjectName("Image9");
    arrow->setPixmap(SvgPixmap(session_.paths, "arrow", 48, 24));
    auto* banner = new QLabel;
    banner->setObjectName("Label8");
    QFont bold = banner->font();
    bold.setBold(true);
    bold.setPointSize(bold.pointSize() + 2);
    banner->setFont(bold);
    bannerRow->addWidget(arrow);
    bannerRow->addWidget(banner, 1);
    layout->addLayout(bannerRow);

    auto* codeRow = new QGridLayout;
    const char* codeIcons[] = {"code-90", "code-189"};
    const char* codePrompts[] = {"Image10", "Image11"};
    for (int i = 0; i < 2; ++i) {
        auto* prompt = new QLabel;
        prompt->setObjectName(codePrompts[i]);
        auto* icon = new QToolButton;
        icon->setObjectName(QString("Image8_%1").arg(i));
        icon->setIcon(QIcon(SvgPixmap(session_.paths, codeIcons[i], 48, 48)));
        icon->setIconSize(QSize(48, 48));
        icon->setAutoRaise(true);
        codeRow->addWidget(prompt, i, 0);
        codeRow->addWidget(icon, i, 1);
        connect(icon, &QToolButton::clicked, this, [this, i] { Go(controller_.CodeIcon(i)); });
    }
    layout->addLayout(codeRow);

    struct Task {
        const char* label;
        const char* icon;
        const char* picture;
        std::function<Navigation()> action;
    };
    MainMenuController& c = controller_;
    const Task tasks[] = {
        {"CodeStatus", nullptr, nullptr, [&c] { return c.CodeStatus(); }},
        {"weatherdata", "Image3", "weather", [&c] { return c.Weather(); }},
        {"projectinformation", "Image1", "project", [&c] { return c.ProjectInformation(); }},
        {"economicsdata", "Image5", "economics", [&c] { return c.Economics(); }},
        {"buildingsketch", "Image4", "sketch", [&c] { return c.Sketch(); }},
        {"zonedescription", "Image12", "zones", [&c] { return c.ZoneDescription(); }},
        {"executerun", "Image6", "run", [&c] { return c.ExecuteRun(); }},
    };
    auto* grid = new QGridLayout;
    int row = 0;
    for (const Task& t : tasks) {
        auto* pointer = new QLabel;
        pointer->setObjectName(QString("Image7_%1").arg(row));
        pointer->setPixmap(SvgPixmap(session_.paths, "arrow", 32, 16));
        grid->addWidget(pointer, row, 0);
        auto* doneMark = new QLabel(QString::fromUtf8("\u2714"));
        doneMark->setObjectName(QString("TaskDoneMark_%1").arg(row));
        doneMark->setStyleSheet("color: #1a7f37; font-weight: bold;");
        doneMark->setToolTip("Done");
        doneMark->setVisible(false);
        grid->addWidget(doneMark, row, 3);
        if (t.icon) {
            auto* icon = new QToolButton;
            icon->setObjectName(t.icon);
            icon->setIcon(QIcon(SvgPixmap(session_.paths, t.picture, 40, 40)));
            icon->setIconSize(QSize(40, 40));
            icon->setAutoRaise(true);
            grid->addWidget(icon, row, 1);
            connect(icon, &QToolButton::clicked, this, [this, a = t.action] { Go(a()); });
        }
        auto* label = new QPushButton;
        label->setObjectName(t.label);
        label->setFlat(true);
        label->setStyleSheet("text-align: left; padding: 4px;");
        grid->addWidget(label, row, 2);
        connect(label, &QPushButton::clicked, this, [this, a = t.action] { Go(a()); });
        ++row;
    }
    grid->setColumnStretch(2, 1);
    layout->addLayout(grid);

    auto* bottom = new QHBoxLayout;
    auto* units = new QLabel;
    units->setObjectName("Label13");
    bottom->addWidget(units, 1);
    auto* samples = new QToolButton;
    samples->setObjectName("Picture1");
    samples->setIcon(QIcon(SvgPixmap(session_.paths, "samples", 32, 32)));
    samples->setIconSize(QSize(32, 32));
    samples->setText("Sample projects");
    samples->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    connect(samples, &QToolButton::clicked, this, [this] { Go(controller_.OpenSample()); });
    bottom->addWidget(samples);
    globe_ = new QLabel;
    globe_->setObjectName("Image2");
    globe_->setPixmap(GlobeFrame(0, 72));
    bottom->addWidget(globe_);
    layout->addLayout(bottom);

    setCentralWidget(central);

    // What blinks or comes and goes keeps its place, so that nothing moves
    // under the pointer while the user is meant to click it.
    for (QWidget* w : central->findChildren<QWidget*>()) {
        const QString name = w->objectName();
        if (name == "Label8" || name == "Image9" || name == "Image10" || name == "Image11" ||
            name.startsWith("Image8_") || name.startsWith("Image7_") ||
            name.startsWith("TaskDoneMark_")) {
            QSizePolicy policy = w->sizePolicy();
            policy.setRetainSizeWhenHidden(true);
            w->setSizePolicy(policy);
        }
    }
}

void MainMenuScreen::Activate() {
    controller_.Refresh();
    ShowFields();
    if (!timer_->isActive()) timer_->start();
}

void MainMenuScreen::ShowFields() {
    ApplyFields(this, session_.mainmenu);
}

void MainMenuScreen::closeEvent(QCloseEvent* event) {
    event->ignore();
    Go(controller_.Close());
}

}  // namespace solvane
