// What one client turns into while it is being made a debtor: its account code, a generated
// code still to be written back to Maximizer, the address being folded into five lines, and
// the number the category list offers to a new category. The client's display name and its
// category live in RunState (ClientName, CurrentCategoryNumber, CurrentCategoryText), which the
// log reads as well.
#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace tolmen {

struct ClientState {
  // The Pastel account of the client in hand; empty until decided, and empty afterwards when no
  // debtor came of the client. Cleared at the start of each DoDebtorInfo.
  std::string AccountCode;
  // A code generated because the account number UDF was empty: written into the UDF once the
  // customer line stands. Cleared with AccountCode.
  std::string CodeToStore;
  // -1 while a new debtor is being filled (CreateNewDebtorRecord), 0 otherwise. The address
  // routines blank an address that is not found only while it is -1.
  std::int16_t NewRecordFlag = 0;

  // The working result of an address choice (GetAddressLines) and the number of texts added to
  // it, which keeps rising past five.
  std::array<std::string, 5> AddressLines;
  std::int32_t AddressLineCount = 0;

  // The number after the highest category of the category file, as LoadCategories last found
  // it; the "Create New Customer Category" boxes offer it.
  std::int16_t NextCategoryNumber = 1;
};

}  // namespace tolmen
