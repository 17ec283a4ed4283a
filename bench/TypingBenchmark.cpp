#include "PaymentScreen.h"

#include "screen/CellEditor.h"

#include <benchmark/benchmark.h>

// One keystroke in the amount column of a bill of 200 lines, in the view model.

namespace {

void typeADigit(benchmark::State& state)
{
  PaymentScreen screen;
  screen.fillIn(200);
  screen.typeIntoCell(100, 3, QStringLiteral("1"));
  TextBox& editor = screen.control<TextBox>("Text2");
  const Key digit = Key::character(QStringLiteral("5"));
  const Key backspace{Key::Backspace, {}, false};
  bool isDigit = true;
  for (auto iteration : state) {
    Q_UNUSED(iteration)
    editor.press(isDigit ? digit : backspace);
    isDigit = !isDigit;
  }
}

} // namespace

BENCHMARK(typeADigit)->Name("Typing/program")->Unit(benchmark::kMillisecond);
