#include "screen/Desk.h"

#include <utility>

Desk::Answer Desk::ask(const Box& box)
{
  if (!m_isHolding)
    return showBox(box);
  Q_ASSERT(box.buttons == Buttons::Ok);
  m_held.append(box);
  return Answer::Ok;
}

void Desk::showHeldBoxes()
{
  m_isHolding = false;
  for (const Box& box : std::exchange(m_held, {}))
    showBox(box);
}

void Desk::dropHeldBoxes()
{
  m_isHolding = false;
  m_held.clear();
}
