#pragma once

#include <QString>
#include <memory>

class QWidget;

// The designed windows of the forms, by the forms' names.
namespace Windows {

// A new window of a form's design, over `parent` if there is one. Null if no window was designed for it.
std::unique_ptr<QWidget> make(const QString& form, QWidget* parent);

} // namespace Windows
