// The multi-year billing method (1 moves Date Billed forward, 2 adds the category's years to the
// real Date Billed, 3 as 2 but a forward Date Billed does not hold back; 0 not chosen) and the
// Options > Multi-Year Billing menu.
#pragma once

#include <array>
#include <optional>

namespace tolmen {

class Tolmen;

// The method after menu item `index`: 0 takes the asking dialog's answer (Yes 1, No 2, else 3),
// 1 and 2 set that method, 3 turns method 3 off (0) or on. Another index: no method.
std::optional<int> MultiYearAfter(int index, int current, int answer);

// Which of mnuOptnMulti(0..3) are ticked for a method: 1 and 2 their item, 3 items 2 and 3, any
// other value item 0.
std::array<bool, 4> MultiYearTicks(int method);

// The handler of mnuOptnMulti(index); index 0 asks which method to use.
void MultiYearChoice(Tolmen& app, int index);

}  // namespace tolmen
