// SetOptions: the run's options from the screen.
#pragma once

namespace tolmen {

class Tolmen;

// Copies the screen into app.options and derives the run's values: the category number and name
// (option 0 from the list's "<number> name", option 1 from the two text boxes with the create
// flag, option 2 the UDF flag and the chosen UDF's item data), the check box values and the
// name-in-address value (company box times 2 plus client box), and, when an account number UDF
// is chosen, the mismatch summary and mode.
void SetOptions(Tolmen& app);

}  // namespace tolmen
