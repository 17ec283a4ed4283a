#pragma once

#include "screen/Grid.h"

// Lets the wheel turn the grid by pages while the grid has the focus: one notch of exactly 120 down
// or up acts as the key for a page. A finer step does nothing of its own.
void turnPagesByWheel(Grid& grid);
