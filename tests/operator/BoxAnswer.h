#pragma once

#include "Script.h"
#include "screen/Desk.h"

// How a script answers boxes.
namespace BoxAnswer {

// The answer of a message or ask directive. A Failure if it is another directive, or the box has another text, another icon, or no
// such button.
Desk::Answer of(const Directive& directive, const Desk::Box& box);

// The answer that lets a handler end when no more directives are played: Cancel or No. After a hundred boxes every second answer is
// the other one, for a handler that insists.
Desk::Answer declining(const Desk::Box& box, int declinedSoFar);

// Its text and icon, for the reason of a Failure.
QString describe(const Desk::Box& box);

} // namespace BoxAnswer
