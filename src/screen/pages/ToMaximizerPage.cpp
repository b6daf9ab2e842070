#include "screen/pages/ToMaximizerPage.h"

namespace tolmen {

ToMaximizerPage::ToMaximizerPage() {
  // Add and Replace wait for a selection in both upper lists, Delete and Edit for a link.
  for (Button* button : {&cmd2MaxAdd, &cmd2MaxReplace, &cmd2MaxEdit, &cmd2MaxDelete})
    button->SetEnabled(false);
  lst2MaxLinked.SetToolTipText("Click item & Wait for Tooltip");
}

PageControls ToMaximizerPage::ToMaximizerPageControls() {
  return {{&lbl2MaxPastel, &lst2MaxPastel, &lbl2MaxUDFs, &lst2MaxUDFs, &cmd2MaxAdd, &cmd2MaxReplace,
           &cmd2MaxEdit, &cmd2MaxDelete, &lbl2MaxLinked, &lst2MaxLinked},
          {}};
}

}  // namespace tolmen
