// What billing keeps between its steps for the life of the process.
#pragma once

namespace tolmen {

struct BillingState {
  // The casual billing page's inventory list has been read from Pastel; picking another folder
  // or drive clears it, so that the list is read again from the new set.
  bool InventoryLoaded = false;
};

}  // namespace tolmen
