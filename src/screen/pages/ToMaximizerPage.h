// The "To Maximizer" page: the Pastel fields, the Maximizer UDFs they may go to, and the list
// of links with its four buttons. Links read "row name<TAB> => UDF name<TAB> (Kind)".
#pragma once

#include "screen/Controls.h"
#include "screen/ListControls.h"
#include "screen/pages/Page.h"

namespace tolmen {

struct ToMaximizerPage {
  ToMaximizerPage();
  PageControls ToMaximizerPageControls();

  Label lbl2MaxPastel{"lbl2MaxPastel", "Pastel Fields:"};
  ListBox lst2MaxPastel{"lst2MaxPastel"};
  Label lbl2MaxUDFs{"lbl2MaxUDFs", "Maximizer User-Defined Fields:"};
  ListBox lst2MaxUDFs{"lst2MaxUDFs"};
  Button cmd2MaxAdd{"cmd2MaxAdd", "&Add"};
  Button cmd2MaxReplace{"cmd2MaxReplace", "&Replace"};
  Button cmd2MaxEdit{"cmd2MaxEdit", "&Edit"};
  Button cmd2MaxDelete{"cmd2MaxDelete", "&Delete"};
  Label lbl2MaxLinked{"lbl2MaxLinked", "Pastel Fields linked to Maximizer UDFs:"};
  ListBox lst2MaxLinked{"lst2MaxLinked"};
};

}  // namespace tolmen
