#include "app/eui.h"

#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/chart_canvas.h"
#include "app/field_binding.h"

namespace solvane {

namespace {
constexpr int kPictureWidth = 600, kPictureHeight = 250;
}  // namespace

EuiScreen::EuiScreen(EuiController& controller, QWidget* parent)
    : QDialog(parent), controller_(controller) {
    setObjectName("EUI");
    auto* layout = new QVBoxLayout(this);
    auto* heading = new QLabel;
    heading->setObjectName("Heading");
    QFont bold = heading->font();
    bold.setBold(true);
    bold.setPointSize(bold.pointSize() + 2);
    heading->setFont(bold);
    layout->addWidget(heading);
    auto* site = new QLabel;
    site->setObjectName("Label4");
    layout->addWidget(site);
    auto* text = new QPlainTextEdit;
    text->setObjectName("Text1");
    text->setReadOnly(true);
    text->setMinimumSize(kPictureWidth, 200);
    layout->addWidget(text);
    auto* zone = new QLabel;
    zone->setObjectName("Label3");
    layout->addWidget(zone);
    for (int units = 1; units <= 2; ++units) {
        auto* picture = new QLabel;
        picture->setObjectName(QString("Image1_%1").arg(units));
        picture->setFixedSize(kPictureWidth, kPictureHeight);
        layout->addWidget(picture);
    }
    auto* close = new QPushButton("Close");
    close->setObjectName("Close");
    layout->addWidget(close, 0, Qt::AlignRight);
    connect(close, &QPushButton::clicked, this, &QDialog::accept);
}

bool EuiScreen::Open() {
    if (!controller_.Open()) return false;
    ScreenFields& f = controller_.fields;
    setWindowTitle(QString::fromStdString(f.caption));
    ApplyFields(this, f);
    if (auto* text = findChild<QPlainTextEdit*>("Text1"))
        text->setPlainText(QString::fromStdString(f.Text("Text1")));
    for (int units = 1; units <= 2; ++units) {
        ChartCanvas canvas(kPictureWidth, kPictureHeight);
        controller_.Draw(canvas, units);
        if (auto* picture = findChild<QLabel*>(QString("Image1_%1").arg(units))) {
            picture->setPixmap(QPixmap::fromImage(canvas.image()));
            picture->setVisible(f.At("Image1", units).visible);
        }
    }
    adjustSize();
    show();
    raise();
    activateWindow();
    return true;
}

}  // namespace solvane
