// Shows a controller's named fields on a screen: every widget, menu and action
// whose object name is a field name takes the field's state.
#pragma once

#include "ui/screen_fields.h"

class QWidget;

namespace solvane {

void ApplyFields(QWidget* screen, const ScreenFields& fields);

}  // namespace solvane
