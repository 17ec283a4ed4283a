#pragma once

#include <QIcon>

// The pictures of the program, drawn for it.
namespace Icons {

// By the name of its file below icons/, without the ending; a literal.
QIcon icon(const char* name);

} // namespace Icons
