#include "screen/WheelPaging.h"

#include "screen/Form.h"

void turnPagesByWheel(Grid& grid)
{
  static constexpr int Notch = 120;
  grid.onWheel = [&grid](int step) {
    if (grid.form().focused() != &grid)
      return;
    if (step == -Notch)
      grid.press(Key{Key::PageDown, {}});
    else if (step == Notch)
      grid.press(Key{Key::PageUp, {}});
  };
}
