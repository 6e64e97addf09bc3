#include "app/warning.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/field_binding.h"
#include "app/form_helpers.h"

namespace solvane {

WarningScreen::WarningScreen(Session& session, ExitWarningController& controller,
                             std::function<void(const Navigation&)> navigate, QWidget* parent)
    : QDialog(parent), session_(session), controller_(controller), navigate_(std::move(navigate)) {
    setObjectName("warning");
    setWindowTitle("Exit");
    setModal(true);
    auto* layout = new QVBoxLayout(this);
    auto* text = new QLabel;
    text->setObjectName("Label1");
    text->setWordWrap(true);
    layout->addWidget(text);
    auto* buttons = new QHBoxLayout;
    auto* okey = new QPushButton("Save and Exit");
    okey->setObjectName("okey");
    auto* leave = new QPushButton("Exit without Saving");
    leave->setObjectName("Command1");
    auto* cancel = new QPushButton("Cancel");
    cancel->setObjectName("Cancel");
    buttons->addWidget(okey);
    buttons->addWidget(leave);
    buttons->addWidget(cancel);
    layout->addLayout(buttons);
    auto act = [this](Navigation nav) {
        hide();
        navigate_(nav);
    };
    connect(okey, &QPushButton::clicked, this, [this, act] { act(controller_.Okey()); });
    connect(leave, &QPushButton::clicked, this, [this, act] { act(controller_.Command1()); });
    connect(cancel, &QPushButton::clicked, this, [this, act] { act(controller_.Cancel()); });
    EscapeIsCancel(this);
}

void WarningScreen::Refresh() {
    ApplyFields(this, session_.warning);
}

}  // namespace solvane
