// What billing keeps between its steps for the life of the process.
#pragma once

namespace tolmen {

struct BillingState {
  // The casual billing page's inventory list has been read from Pastel; picking another folder
  // or drive clears it, so that the list is read again from the new set.
  bool InventoryLoaded = false;
  // The percentage of the billing tax type, to two decimals; the posting toolkit's documents
  // take their tax rate from it.
  double BillingVATRate = 0;
};

}  // namespace tolmen
