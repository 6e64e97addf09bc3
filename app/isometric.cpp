#include "app/isometric.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSlider>
#include <QVBoxLayout>

#include "app/canvas_view.h"
#include "app/field_binding.h"
#include "app/form_helpers.h"
#include "app/picture_output.h"

namespace solvane {

namespace {

constexpr const char* kCornerNames[] = {"north-west", "north-east", "south-west", "south-east"};

QSlider* AddSlider(QBoxLayout* layout, const QString& name, const QString& caption, int min,
                   int max, int value) {
    layout->addWidget(new QLabel(caption));
    auto* s = new QSlider(Qt::Horizontal);
    s->setObjectName(name);
    s->setRange(min, max);
    s->setValue(value);
    s->setMaximumWidth(140);
    layout->addWidget(s);
    return s;
}

}  // namespace

IsometricScreen::IsometricScreen(Prompt& prompt, QString folder, QWidget* parent)
    : QDialog(parent),
      prompt_(prompt),
      folder_(std::move(folder)),
      canvas_(900, 620, ScreenPixelsPerUnit()) {
    setObjectName("Isometric");
    setWindowTitle("3D View");
    controller_ = std::make_unique<IsometricController>(canvas_, prompt_);
    auto* layout = new QVBoxLayout(this);

    auto* top = new QHBoxLayout;
    top->addWidget(new QLabel("View From:"));
    const char* corners[] = {"UL", "UR", "LL", "LR"};
    for (int i = 0; i < 4; ++i) {
        QPushButton* b = AddButton(top, QString("View_%1").arg(i), corners[i]);
        b->setCheckable(true);
        b->setToolTip(QString("The %1 corner of the plan nearest").arg(kCornerNames[i]));
        connect(b, &QPushButton::clicked, this, [this, i] {
            controller_->View(i);
            ShowFields();
        });
    }
    top->addSpacing(12);
    top->addWidget(new QLabel("Rotation (deg.):"));
    auto* angle = new QLineEdit;
    angle->setObjectName("ZRotation");
    angle->setMaximumWidth(60);
    connect(angle, &QLineEdit::editingFinished, this, [this, angle] {
        controller_->SetRotation(angle->text().toStdString());
        ShowFields();
    });
    top->addWidget(angle);
    auto* frame = new QCheckBox("Frame only");
    frame->setObjectName("TPV1");
    connect(frame, &QCheckBox::toggled, this, [this](bool on) {
        controller_->SetTransparent(on);
        ShowFields();
    });
    top->addWidget(frame);
    top->addStretch(1);
    layout->addLayout(top);

    view_ = new CanvasView(canvas_);
    view_->setObjectName("Picture3D");
    layout->addWidget(view_, 1);

    auto* bottom = new QHBoxLayout;
    scrollX_ = AddSlider(bottom, "VScrollX", "Left/Right", -400, 400, 0);
    scrollY_ = AddSlider(bottom, "VScrollY", "Up/Down", -300, 300, 0);
    zoom_ = AddSlider(bottom, "ViewZoom", "Zoom", 30, 300, 100);
    for (QSlider* s : {scrollX_, scrollY_, zoom_})
        connect(s, &QSlider::valueChanged, this, [this] { Adjust(); });
    bottom->addStretch(1);
    connect(AddButton(bottom, "SaveDWG", "Save Picture..."), &QPushButton::clicked, this, [this] {
        SavePictureAs(this, canvas_.image(), folder_, projectName_ + "-3D.jpg", prompt_);
    });
    connect(AddButton(bottom, "PrintDWG", "Print..."), &QPushButton::clicked, this,
            [this] { PrintPicture(this, canvas_.image(), folder_, "3D View", prompt_); });
    connect(AddButton(bottom, "About3D", "About"), &QPushButton::clicked, this,
            [this] { controller_->About3D(); });
    connect(AddButton(bottom, "Close3D", "Close"), &QPushButton::clicked, this, &QDialog::close);
    layout->addLayout(bottom);
    resize(960, 760);
}

IsometricScreen::~IsometricScreen() = default;

void IsometricScreen::Open(IsoScene scene, const QString& projectName) {
    projectName_ = projectName.isEmpty() ? QString("building") : projectName;
    controller_->Open(std::move(scene));
    Adjust();
    show();
    raise();
}

void IsometricScreen::Adjust() {
    controller_->Adjust(scrollX_->value(), -scrollY_->value(), 0, zoom_->value() / 100.0);
    ShowFields();
}

void IsometricScreen::ShowFields() {
    ApplyFields(this, controller_->fields);
    // The button of the corner in view: UL shows corner 3, UR 4, LL 2, LR 1.
    const int corner = controller_->projection().ViewCorner;
    const int shown[] = {3, 4, 2, 1};
    for (int i = 0; i < 4; ++i)
        findChild<QPushButton*>(QString("View_%1").arg(i))->setChecked(shown[i] == corner);
    view_->update();
}

}  // namespace solvane
