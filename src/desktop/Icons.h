#pragma once

#include <QIcon>

// The program's icons.
namespace Icons {

// By the name of its file in icons/ of the program's resources, without the ending. A null icon for an empty name.
QIcon icon(QStringView name);

} // namespace Icons
