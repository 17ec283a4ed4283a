#pragma once

#include <QIcon>

// The pictures of the program, drawn for it.
namespace Icons {

// By the name of its file in icons/ of the program's resources, without the ending; a literal. A null icon for null.
QIcon icon(const char* name);

} // namespace Icons
