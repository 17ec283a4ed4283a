#pragma once

#include <QString>

#include <array>

// The lines above and below the grid of a printout. They stay between the print jobs of a run: a later
// job that sets fewer of them keeps the older ones beyond its own.
struct PrintStrings {
  static constexpr int Last = 20;
  // Counted from 1; place 0 is not used.
  using Lines = std::array<QString, Last + 1>;

  Lines head = {};
  Lines foot = {};
};
