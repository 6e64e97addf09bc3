#include "app/zone_dialogs.h"

#include <QFontMetrics>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QPainter>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>
#include <algorithm>

#include "app/field_edits.h"
#include "app/form_helpers.h"
#include "app/zoneform.h"

namespace solvane {

namespace {

QString Css(Color c) {
    return QString::asprintf("#%06x", static_cast<unsigned>(c));
}

// The OK and Undo row at the foot of a dialog; Return presses neither.
void AddOkUndo(QDialog* dialog, QVBoxLayout* layout, std::function<void()> ok,
               std::function<void()> undo) {
    auto* buttons = new QHBoxLayout;
    QObject::connect(AddButton(buttons, "okey", "OK"), &QPushButton::clicked, dialog,
                     std::move(ok));
    QObject::connect(AddButton(buttons, "Undo", "Undo"), &QPushButton::clicked, dialog,
                     std::move(undo));
    layout->addLayout(buttons);
    NoDefaultButtons(dialog);
}

// A box as wide as a profile's 24 four-character values, in a fixed-pitch font.
void FitProfileBox(QLineEdit* box) {
    QFont font("Monospace");
    font.setStyleHint(QFont::TypeWriter);
    box->setFont(font);
    box->setMinimumWidth(QFontMetrics(font).horizontalAdvance(QLatin1Char('0')) * 97 + 12);
}

}  // namespace

// ---- bars --------------------------------------------------------------------------------

ProfileBars::ProfileBars(QWidget* parent) : QWidget(parent) {
    setFixedSize(24 * 5 + 2, 26);
}

void ProfileBars::SetProfile(const std::string& text, double scaleTop) {
    values_ = ProfileValues(text);
    if (values_.size() > 24) values_.resize(24);
    top_ = scaleTop;
    if (top_ <= 0) {
        const auto [lo, hi] = std::minmax_element(values_.begin(), values_.end());
        top_ = values_.empty() ? 1 : std::max(1.0, *hi);
        (void)lo;
    }
    update();
}

void ProfileBars::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.fillRect(rect(), QColor(250, 250, 245));
    p.setPen(QColor(200, 200, 200));
    p.drawRect(rect().adjusted(0, 0, -1, -1));
    const int h = height() - 2;
    for (std::size_t i = 0; i < values_.size(); ++i) {
        const double share = std::clamp(values_[i] / top_, 0.0, 1.0);
        const int bar = static_cast<int>(share * h + 0.5);
        p.fillRect(1 + static_cast<int>(i) * 5, h + 1 - bar, 4, bar, QColor(40, 110, 180));
    }
}

// ---- occupprof ----------------------------------------------------------------------------

ProfileDialog::ProfileDialog(ProfileScreenController& controller, std::function<void()> done,
                             QWidget* parent)
    : QDialog(parent), c_(controller), done_(std::move(done)) {
    setObjectName("occupprof");
    auto* layout = new QVBoxLayout(this);
    auto* bar = new QMenuBar;
    QMenu* edit = bar->addMenu("&Edit");
    edit->setObjectName("Editmenu");
    const auto selection = [this](auto act) {
        if (c_.LastBox < 1) return;
        auto* box = findChild<QLineEdit*>(QString("ProfVal_%1").arg(c_.LastBox));
        if (!box) return;
        const int start = box->hasSelectedText() ? box->selectionStart() : box->cursorPosition();
        act(start, box->hasSelectedText() ? static_cast<int>(box->selectedText().size()) : 0);
        ShowFields();
    };
    edit->addAction("Cu&t", this,
                    [this, selection] { selection([this](int s, int n) { c_.Cut(s, n); }); })
        ->setObjectName("cut");
    edit->addAction("&Copy", this,
                    [this, selection] { selection([this](int s, int n) { c_.Copy(s, n); }); })
        ->setObjectName("copy");
    edit->addAction("&Paste", this,
                    [this, selection] { selection([this](int s, int n) { c_.Paste(s, n); }); })
        ->setObjectName("paste");
    layout->setMenuBar(bar);

    auto* name = new QLabel;
    name->setObjectName("ProfileName");
    layout->addWidget(name);
    auto* grid = new QGridLayout;
    grid->setSpacing(2);
    auto* ruler = new QLabel;
    ruler->setObjectName("TimeOfDay");
    QFont fixed("Monospace");
    fixed.setStyleHint(QFont::TypeWriter);
    ruler->setFont(fixed);
    ruler->setContentsMargins(4, 0, 0, 0);
    grid->addWidget(ruler, 0, 3);
    auto* edits = new FieldEdits(
        c_.fields,
        [this](const std::string& field, int key) {
            const auto [base, box] = SplitFieldName(field);
            c_.Focus(box);
            return c_.Key(box, static_cast<char>(key)) ? key : 0;
        },
        this,
        [this](const std::string& field, const std::string& text) {
            c_.Edit(SplitFieldName(field).second, text);
            ShowFields();
        });
    int line = 1;
    for (int k = 1; k <= kProfileGroups; ++k) {
        auto* number = new QPushButton;
        number->setObjectName(QString("Pnum_%1").arg(k));
        number->setFixedWidth(36);
        connect(number, &QPushButton::clicked, this, [this, k] {
            c_.ClickRow(k);
            ShowFields();
        });
        grid->addWidget(number, line, 0, 3, 1);
        auto* group = new QLabel;
        group->setObjectName(QString("SchedType_%1").arg(k));
        group->setAutoFillBackground(true);
        group->setFixedWidth(170);
        grid->addWidget(group, line, 1, 3, 1);
        for (int d = 1; d <= kDayTypes; ++d, ++line) {
            const int i = 3 * k - 3 + d;
            auto* day = new QLabel;
            day->setObjectName(QString("DayType_%1").arg(i));
            grid->addWidget(day, line, 2);
            QLineEdit* box = AddEdit(grid, line, 3, QString("ProfVal_%1").arg(i), edits);
            FitProfileBox(box);
            auto* bars = new ProfileBars;
            bars->setObjectName(QString("ProfBars_%1").arg(i));
            grid->addWidget(bars, line, 4);
        }
    }
    // Twelve groups of three days are taller than most screens: the rows scroll.
    auto* rows = new QWidget;
    rows->setLayout(grid);
    auto* scroll = new QScrollArea;
    scroll->setWidget(rows);
    scroll->setWidgetResizable(true);
    scroll->setMinimumWidth(rows->sizeHint().width() + 24);
    scroll->setMinimumHeight(420);
    layout->addWidget(scroll);
    AddOkUndo(
        this, layout,
        [this] {
            if (!c_.Ok()) {
                ShowFields();
                return;
            }
            hide();
            done_();
        },
        [this] {
            c_.Undo();
            ShowFields();
        });
}

void ProfileDialog::Open() {
    ShowFields();
    show();
    raise();
}

void ProfileDialog::ShowFields() {
    ShowScreenFields(this, c_.fields);
    const bool thermostat = c_.ProfileType == kCoolStat || c_.ProfileType == kHeatStat;
    for (int k = 1; k <= kProfileGroups; ++k) {
        const FieldState& number = c_.fields.At("Pnum", k);
        if (auto* b = findChild<QPushButton*>(QString("Pnum_%1").arg(k)))
            b->setStyleSheet("background: " + Css(number.color) +
                             "; color: " + Css(static_cast<Color>(number.value)) + ";");
        if (auto* l = findChild<QLabel*>(QString("SchedType_%1").arg(k)))
            l->setStyleSheet("background: " + Css(c_.fields.At("SchedType", k).color) + ";");
    }
    for (int i = 1; i <= 3 * kProfileGroups; ++i)
        if (auto* bars = findChild<ProfileBars*>(QString("ProfBars_%1").arg(i)))
            bars->SetProfile(c_.fields.At("ProfVal", i).text, thermostat ? 0 : 100);
}

// ---- temperature ----------------------------------------------------------------------------

TemperatureDialog::TemperatureDialog(TemperatureController& controller, std::function<void()> done,
                                     QWidget* parent)
    : QDialog(parent), c_(controller), done_(std::move(done)) {
    setObjectName("temperature");
    auto* layout = new QVBoxLayout(this);
    auto* grid = new QGridLayout;
    auto* edits = new FieldEdits(
        c_.fields,
        [this](const std::string& field, int key) {
            const auto [base, day] = SplitFieldName(field);
            return c_.Key(base == "temp" ? kCoolStat : kHeatStat, day, static_cast<char>(key)) ? key
                                                                                               : 0;
        },
        this,
        [this](const std::string& field, const std::string& text) {
            const auto [base, day] = SplitFieldName(field);
            c_.Edit(base == "temp" ? kCoolStat : kHeatStat, day, text);
        });
    const char* days[] = {"", "M-F", "Sat", "Sun"};
    grid->addWidget(new QLabel("Summer (cooling)"), 0, 1);
    grid->addWidget(new QLabel("Winter (heating)"), 4, 1);
    for (int d = 1; d <= kDayTypes; ++d) {
        grid->addWidget(new QLabel(days[d]), d, 0);
        FitProfileBox(AddEdit(grid, d, 1, QString("temp_%1").arg(d), edits));
        grid->addWidget(new QLabel(days[d]), 4 + d, 0);
        FitProfileBox(AddEdit(grid, 4 + d, 1, QString("Text1_%1").arg(d), edits));
    }
    layout->addLayout(grid);
    AddOkUndo(
        this, layout,
        [this] {
            c_.Ok();
            hide();
            done_();
        },
        [this] {
            c_.Undo();
            ShowScreenFields(this, c_.fields);
        });
}

void TemperatureDialog::Open(int group) {
    c_.Open(group);
    ShowScreenFields(this, c_.fields);
    show();
    raise();
}

// ---- VentilationRate ---------------------------------------------------------------------------

VentilationDialog::VentilationDialog(VentilationRateController& controller, QWidget* parent)
    : QDialog(parent), c_(controller) {
    setObjectName("VentilationRate");
    setModal(true);
    auto* layout = new QVBoxLayout(this);
    auto* grid = new QGridLayout;
    auto* edits = new FieldEdits(c_.fields, {}, this);
    for (int b = 0; b < 3; ++b) {
        AddLabel(grid, b, 0, QString("ven_caption_%1").arg(b));
        AddEdit(grid, b, 1, QString("ven_%1").arg(b), edits, 80);
    }
    layout->addWidget(new QLabel("Fill in one of the three boxes:"));
    layout->addLayout(grid);
    auto* buttons = new QHBoxLayout;
    connect(AddButton(buttons, "Command1", "OK"), &QPushButton::clicked, this, [this] {
        if (c_.Ok()) accept();
    });
    connect(AddButton(buttons, "Command2", "Cancel"), &QPushButton::clicked, this,
            [this] { reject(); });
    layout->addLayout(buttons);
    NoDefaultButtons(this);
}

void VentilationDialog::Open() {
    ShowScreenFields(this, c_.fields);
    exec();
}

// ---- copytozone ---------------------------------------------------------------------------------

CopyToZoneDialog::CopyToZoneDialog(CopyToZonesController& controller, QWidget* parent)
    : QDialog(parent), c_(controller) {
    setObjectName("copytozone");
    setModal(true);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(new QLabel("Tick the zones to copy to:"));
    list_ = new QListWidget;
    list_->setObjectName("CopyZone");
    layout->addWidget(list_);
    auto* buttons = new QHBoxLayout;
    connect(AddButton(buttons, "okey", "OK"), &QPushButton::clicked, this, [this] {
        for (int i = 0; i < list_->count(); ++i) {
            QListWidgetItem* item = list_->item(i);
            c_.Tick(item->data(Qt::UserRole).toInt(), item->checkState() == Qt::Checked);
        }
        if (c_.Ok()) accept();
    });
    connect(AddButton(buttons, "Cancel", "Cancel"), &QPushButton::clicked, this,
            [this] { reject(); });
    layout->addLayout(buttons);
    NoDefaultButtons(this);
    resize(320, 360);
}

void CopyToZoneDialog::Open() {
    setWindowTitle(QString::fromStdString(c_.fields.caption));
    list_->clear();
    for (int r = 1; r <= kMaxZones; ++r) {
        const FieldState& row = c_.fields.At("CopyZone", r);
        if (!row.visible) break;
        auto* item = new QListWidgetItem(QString::fromStdString(row.text), list_);
        item->setData(Qt::UserRole, r);
        item->setFlags(row.enabled ? Qt::ItemIsEnabled | Qt::ItemIsUserCheckable : Qt::NoItemFlags);
        item->setCheckState(Qt::Unchecked);
    }
    exec();
}

// ---- wallwin -----------------------------------------------------------------------------------

WallWinDialog::WallWinDialog(CatalogPickerController& controller, std::function<void()> done,
                             QWidget* parent)
    : QDialog(parent), c_(controller), done_(std::move(done)) {
    setObjectName("wallwin");
    setModal(true);
    auto* layout = new QVBoxLayout(this);
    auto* heads = new QHBoxLayout;
    for (const char* name : {"Btype", "Cat", "code", "CZone"}) {
        auto* label = new QLabel;
        label->setObjectName(name);
        heads->addWidget(label);
    }
    layout->addLayout(heads);
    auto* grid = new QGridLayout;
    grid->setSpacing(2);
    const char* columns[] = {"Des", "UF", "Absp", "lag", "decr", "cost"};
    const int widths[] = {280, 80, 80, 80, 80, 80};
    grid->addWidget(new QLabel("ID #"), 0, 0);
    grid->addWidget(new QLabel("Description"), 0, 1);
    for (int c = 2; c <= 6; ++c) AddLabel(grid, 0, c, QString("caption_%1").arg(c));
    auto* edits = new FieldEdits(c_.fields, {}, this,
                                 [this](const std::string& field, const std::string& text) {
                                     const auto [column, row] = SplitFieldName(field);
                                     c_.Edit(column, row, text);
                                     ShowScreenFields(this, c_.fields);
                                 });
    for (int r = 1; r <= kPickerRows; ++r) {
        auto* id = new QPushButton;
        id->setObjectName(QString("id_%1").arg(r));
        id->setFixedWidth(44);
        connect(id, &QPushButton::clicked, this, [this, r] {
            c_.Pick(r);
            done_();
        });
        grid->addWidget(id, r, 0);
        for (int c = 0; c < 6; ++c)
            AddEdit(grid, r, c + 1, QString("%1_%2").arg(columns[c]).arg(r), edits, widths[c]);
    }
    layout->addLayout(grid);
    auto* status = new QLabel;
    status->setObjectName("status");
    layout->addWidget(status);
    AddOkUndo(
        this, layout,
        [this] {
            c_.Ok();
            accept();
            done_();
        },
        [this] {
            c_.Undo();
            ShowScreenFields(this, c_.fields);
        });
}

void WallWinDialog::Open() {
    ShowScreenFields(this, c_.fields);
    exec();
}

}  // namespace solvane
