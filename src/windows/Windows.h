#pragma once

#include "desktop/WindowDesigns.h"

// The designed windows of the forms, by the forms' names, and the faces of what the screens share.
namespace Windows {

std::unique_ptr<QWidget> make(const QString& form, QWidget* parent);
ActionFace face(const QString& control);

inline constexpr WindowDesigns Designs{make, face};

} // namespace Windows
