#include "app/catalogs.h"

#include <QFile>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QVBoxLayout>

#include "app/field_binding.h"
#include "app/field_edits.h"
#include "app/form_helpers.h"
#include "app/help_viewer.h"
#include "core/text_file.h"
#include "propertydb/envelope_defaults.h"

namespace solvane {

namespace {

struct Column {
    const char* name;
    const char* caption;  // the caption as first shown
    int width;
    const char* captionField;  // the field that may change the caption, if any
    bool number = true;
};

// A table of named edit boxes `<column>_<row>`, rows 1..rows, edits going to
// `edit(column, row, text)`.
QGridLayout* MakeTable(QWidget* owner, ScreenFields& fields, const Column* columns, int count,
                       int rows,
                       std::function<void(const std::string&, int, const std::string&)> edit) {
    auto* edits = new FieldEdits(fields, {}, owner,
                                 [edit](const std::string& field, const std::string& text) {
                                     const auto [column, row] = SplitFieldName(field);
                                     edit(column, row, text);
                                 });
    auto* grid = new QGridLayout;
    grid->setSpacing(2);
    for (int c = 0; c < count; ++c) {
        auto* caption = new QLabel(columns[c].caption);
        if (columns[c].captionField) caption->setObjectName(columns[c].captionField);
        caption->setWordWrap(true);
        grid->addWidget(caption, 0, c);
        for (int r = 1; r <= rows; ++r)
            AddEdit(grid, r, c, QString("%1_%2").arg(columns[c].name).arg(r), edits,
                    columns[c].width, columns[c].number);
    }
    return grid;
}

QHBoxLayout* Headings(const char* const* names, int count) {
    auto* row = new QHBoxLayout;
    for (int i = 0; i < count; ++i) {
        auto* label = new QLabel;
        label->setObjectName(names[i]);
        row->addWidget(label);
    }
    return row;
}

constexpr const char* kHeadings[] = {"Btype", "Cat", "code", "CZone"};

}  // namespace

CatalogScreen::CatalogScreen(CatalogController& controller, const ProgramPaths& paths,
                             std::function<void(const Navigation&)> navigate, QWidget* parent)
    : QDialog(parent), controller_(controller), paths_(paths), navigate_(std::move(navigate)) {
    setObjectName("catalog");
    help_ = new HelpViewer(paths_, this);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(Headings(kHeadings, 4));
    const Column columns[] = {{"id", "ID #", 40, nullptr},
                              {"Des", "Description", 300, "caption_1", false},
                              {"UF", "U-Factor", 90, "caption_2"},
                              {"Absp", "", 90, "caption_3"},
                              {"lag", "", 90, "caption_4"},
                              {"decr", "", 90, "caption_5"},
                              {"cost", "Installed Cost", 90, "caption_6"}};
    auto* body = new QHBoxLayout;
    body->addLayout(MakeTable(
        this, controller_.fields, columns, 7, kCatalogScreenRows,
        [this](const std::string& c, int r, const std::string& t) { controller_.Edit(c, r, t); }));
    auto* scroll = new QScrollBar(Qt::Vertical);
    scroll->setObjectName("envscroll");
    scroll->setRange(0, kMaxCatalog - kCatalogScreenRows);
    connect(scroll, &QScrollBar::valueChanged, this, [this](int top) {
        controller_.Scroll(top);
        ShowFields();
    });
    body->addWidget(scroll);
    layout->addLayout(body);

    auto* buttons = new QHBoxLayout;
    connect(AddButton(buttons, "Reload", "Reload"), &QPushButton::clicked, this, [this] {
        controller_.ReloadEnvelopeDefaults();
        ShowFields();
    });
    connect(AddButton(buttons, "Help", "Help"), &QPushButton::clicked, this,
            [this] { help_->ShowFile(controller_.Help().first); });
    connect(AddButton(buttons, "OK", "OK"), &QPushButton::clicked, this,
            [this] { Act(controller_.Ok()); });
    connect(AddButton(buttons, "Cancel", "Cancel"), &QPushButton::clicked, this,
            [this] { Act(controller_.Cancel()); });
    layout->addLayout(buttons);
    EscapeIsCancel(this);
}

void CatalogScreen::Open(int kind) {
    if (!controller_.Open(kind)) return;
    setWindowTitle(kind == 1 ? "WALL AND ROOF PROPERTIES" : "WINDOW AND SKYLIGHT PROPERTIES");
    if (auto* scroll = findChild<QScrollBar*>("envscroll")) scroll->setValue(0);
    ShowFields();
    show();
    raise();
}

void CatalogScreen::ShowFields() {
    ApplyFields(this, controller_.fields);
}

void CatalogScreen::Act(Navigation nav) {
    ShowFields();
    if (nav.show != Screen::None || nav.endProgram) hide();
    navigate_(nav);
}

HvacScreen::HvacScreen(HvacController& controller, std::function<void(const Navigation&)> navigate,
                       QWidget* parent)
    : QDialog(parent), controller_(controller), navigate_(std::move(navigate)) {
    setObjectName("hvac");
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(Headings(kHeadings, 4));
    const Column columns[] = {{"id", "ID #", 40, nullptr},
                              {"Des", "System Type", 260, nullptr, false},
                              {"stpres", "St. Press. (in. WG)", 80, "stpres_caption"},
                              {"seer", "Cooling SEER/EER", 80, "seer_caption"},
                              {"temp", "Supply Temp (F)", 80, "temp_caption"},
                              {"fcost", "1st Cost ($/ton)", 80, "fcost_caption"},
                              {"mcost", "Maint. Cost ($/ton)", 80, "mcost_caption"},
                              {"Heater", "Heater", 100, nullptr, false},
                              {"HTCOP", "Heating Eff.", 60, nullptr},
                              {"Feature", "Features", 200, nullptr, false},
                              {"BldApp", "Building Application", 200, nullptr, false}};
    QGridLayout* table = MakeTable(
        this, controller_.fields, columns, 11, kHvacSystems,
        [this](const std::string& c, int r, const std::string& t) { controller_.Edit(c, r, t); });
    layout->addLayout(table);

    auto* buttons = new QHBoxLayout;
    connect(AddButton(buttons, "OK", "OK"), &QPushButton::clicked, this,
            [this] { Act(controller_.Ok()); });
    connect(AddButton(buttons, "Command1", "Update Not Available"), &QPushButton::clicked, this,
            [this] {
                controller_.UpdateNotAvailable();
                ShowFields();
            });
    connect(AddButton(buttons, "Command2", "Close"), &QPushButton::clicked, this,
            [this] { Act(controller_.Close()); });
    layout->addLayout(buttons);
    EscapeIsCancel(this, "Command2");
}

void HvacScreen::Open() {
    if (!controller_.Open()) return;
    ShowFields();
    show();
    raise();
}

void HvacScreen::ShowFields() {
    ApplyFields(this, controller_.fields);
}

void HvacScreen::Act(Navigation nav) {
    ShowFields();
    if (nav.show != Screen::None || nav.endProgram) hide();
    navigate_(nav);
}

}  // namespace solvane
