// What the wizard's own flow remembers between clicks.
#pragma once

#include <string>

namespace tolmen {

struct WizardState {
  // The template database the database-change warning was last given for: the warning is given
  // once per template.
  std::string DatabaseWarnedFor;
  bool DatabaseWarned = false;
};

}  // namespace tolmen
