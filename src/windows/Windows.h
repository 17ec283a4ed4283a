#pragma once

#include "desktop/WindowDesigns.h"

// The windows of the forms and the designs of their actions, by name.
namespace Windows {

std::unique_ptr<QWidget> make(const QString& form, QWidget* parent);
ActionDesign action(const QString& control);

inline constexpr WindowDesigns Designs{make, action};

} // namespace Windows
