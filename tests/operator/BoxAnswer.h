#pragma once

#include "Script.h"
#include "screen/Desk.h"

// How a script answers the boxes that come up.
namespace BoxAnswer {

// The answer that a message or ask directive gives to the box. Unmet if it is another directive, or
// the box has another text, another icon, or no such button.
Desk::Answer of(const Directive& directive, const Desk::Box& box);

// The answer that lets a handler end when nothing more is played: Cancel or No. A handler that still
// insists after a hundred boxes is given the other answer every second time.
Desk::Answer declining(const Desk::Box& box, int declinedSoFar);

// Its text and icon, for a failure.
QString describe(const Desk::Box& box);

} // namespace BoxAnswer
