#pragma once

#include "screen/Desk.h"

class QMessageBox;

// The fold-out of a box that says what lies behind its message. It is opened by its button or Alt+D, and looked up then; Ctrl+C
// copies the message with it. Enter, Esc, Y and N press the box's buttons as without it.
void addDetails(QMessageBox& box, const Desk::Details& details);
