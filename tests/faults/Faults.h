#pragma once

#include "Tally.h"

// The kinds of fault. Each prints its counts and adds up what it tried; `isLong` for every place there is
// instead of a choice of them.
namespace Faults {

// The scripts' programs are killed after their statements and in the middle of their writes.
void kill(const QString& scripts, bool onServer, bool isLong, Tally& tally);
// The disk fails, or is full, at a write of a save.
void failingDisk(Tally& tally);
// Files with bytes changed, cut off, or put in.
void damage(bool isLong, Tally& tally);
// Eight users save at once, on the file or on the server of the tests.
void operators(bool onServer, bool isLong, Tally& tally);
// Two users at one bill: one is stopped at a statement or a box while the other runs through.
void pairs(bool onServer, bool isLong, Tally& tally);
// Hostile texts in every field of every screen.
void injection(bool onServer, bool isLong, Tally& tally);

} // namespace Faults
