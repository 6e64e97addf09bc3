#include "app/mainform.h"

#include <QCloseEvent>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "app/field_binding.h"
#include "app/task_icons.h"

namespace solvane {

MainFormScreen::MainFormScreen(Session& session, MainFormController& controller,
                               std::function<void(const Navigation&)> navigate)
    : session_(session), controller_(controller), navigate_(std::move(navigate)) {
    setObjectName("mainform");
    setWindowTitle("SOLVANE 2020");
    auto* layout = new QVBoxLayout(this);

    auto* title = new QLabel("SOLVANE 2020");
    title->setObjectName("Label1");
    QFont big = title->font();
    big.setPointSize(big.pointSize() * 2);
    big.setBold(true);
    title->setFont(big);
    title->setAlignment(Qt::AlignCenter);
    layout->addWidget(title);

    auto* subtitle = new QLabel("Whole-building energy analysis and energy-code compliance");
    subtitle->setAlignment(Qt::AlignCenter);
    layout->addWidget(subtitle);

    auto* globe = new QLabel;
    globe->setObjectName("Image1");
    globe->setPixmap(GlobeFrame(0, 96));
    globe->setAlignment(Qt::AlignCenter);
    layout->addWidget(globe);

    auto* count = new QLabel;
    count->setObjectName("Label8");
    count->setAlignment(Qt::AlignCenter);
    layout->addWidget(count);

    auto* units = new QGroupBox("Units");
    auto* unitsLayout = new QVBoxLayout(units);
    auto* ip = new QRadioButton("I-P Units");
    ip->setObjectName("unitnum_1");
    auto* si = new QRadioButton("SI Units");
    si->setObjectName("unitnum_2");
    unitsLayout->addWidget(ip);
    unitsLayout->addWidget(si);
    layout->addWidget(units);

    auto* begin = new QPushButton("Begin >>");
    begin->setObjectName("continue");
    begin->setDefault(true);
    layout->addWidget(begin, 0, Qt::AlignRight);

    // Only a click chooses: setting the other button programmatically must not ask again.
    connect(ip, &QRadioButton::clicked, this, [this] {
        controller_.ChooseUnits(1);
        Refresh();
    });
    connect(si, &QRadioButton::clicked, this, [this] {
        controller_.ChooseUnits(2);
        Refresh();
    });
    connect(begin, &QPushButton::clicked, this, [this] { navigate_(controller_.Begin()); });
    Refresh();
}

void MainFormScreen::Refresh() {
    ApplyFields(this, session_.mainform);
}

void MainFormScreen::closeEvent(QCloseEvent* event) {
    const Navigation nav = controller_.Close();
    if (nav.endProgram) {
        event->accept();
    } else {
        event->ignore();
    }
    navigate_(nav);
}

}  // namespace solvane
