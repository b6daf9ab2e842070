#include "screen/pages/TransferPage.h"

namespace tolmen {

TransferPage::TransferPage() {
  chkWritePasFile.SetValue(1);
}

PageControls TransferPage::TransferPageControls() {
  return {{&chkWritePasFile}, {}};
}

}  // namespace tolmen
