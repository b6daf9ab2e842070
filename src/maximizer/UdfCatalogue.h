// The catalogue of Maximizer's user-defined fields (UDFs) of the accepted database, the choice
// lists filled from it, and the reading and writing of a UDF on the current client.
//
// The catalogue holds names and kinds by index, 1 to Count(), rebuilt at each load; an option
// that names a UDF holds the name and the index (0 for none), the index valid for that load only.
//
//   kind  type word in Maximizer's list  shown form     lists that take it
//   0     "Table"                        " (Table)"     cboCatgrUDF "0", cboUserFields "0123",
//   1     "Date"                         " (Date)"      cboAcctCode "23", cboVATnumber "23",
//   2     "Numeric"                      " (Number)"    cboDateJoined "1", cboDateBilled "1",
//   3     "Alphanumeric"                 " (Alpha)"     lstBillCUDFs "023", cboMessage(0) and
//                                                       (1) "0123", lst2MaxUDFs "123"
//
// LoadUDFLists, in order: the lists are cleared (each combo gets an empty first entry; the two
// list boxes none); GetListOfUdf's answer passes through the file "UDFs.txt" in the program's
// folder, which cuts it into lines and is deleted afterwards; on each line the part up to the
// first comma is the name (a line without one is passed over) and the part up to the next comma
// the type word (so a comma inside a name cuts it there, and the rest of the name is taken as
// the type word); an unknown type word keeps the kind of the line before. Before any line has set
// a kind the kind is empty: such a UDF passes every list's filter and is stored and shown as kind
// 0. Each UDF goes into every list whose filter holds its kind, with its index as item data
// (lst2MaxUDFs shows the name, a tab and the shown form). Then the options' names are selected
// again in their lists, which runs each list's click handler and so renews the option's index; a
// name the list does not hold keeps its option as it was, with no selection. "Import Criteria
// Text" goes into txtUserFldVal. The catalogue is then marked loaded for the database accepted.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tolmen {

class Tolmen;
class ListControl;

constexpr const char* kUdfPassingFile = "UDFs.txt";

struct UdfCatalogue {
  std::vector<std::string> Names{""};  // Names[0] is unused
  std::vector<std::uint8_t> Kinds{0};
  bool Loaded = false;
  std::string LoadedFor;  // the database folder of the load

  std::int16_t Count() const { return static_cast<std::int16_t>(Names.size() - 1); }
  // The name at `index`; RuntimeError 9 outside 0..Count() (index 0 is the empty name).
  const std::string& Name(int index) const;
  std::uint8_t Kind(int index) const;
};

// The kind digit of a type word, compared without regard to case; "" for an unknown word.
std::string UdfKindOfWord(const std::string& typeWord);
// " (Table)", " (Date)", " (Number)", " (Alpha)"; "" for another kind.
std::string UdfShownForm(std::uint8_t kind);

void LoadUDFLists(Tolmen& app);

// Adds `text` to `list` with `index` as its item data when the kind digit stands in `filter`.
// An empty kind stands in every filter.
void AddUDFToList(std::int16_t index, const std::string& kind, const std::string& text,
                  ListControl& list, const std::string& filter);

// The trimmed value of a UDF (or, with `name`, of that field) on the current client, after
// WaitForMaximizer. An index below 1 without a name gives "" and calls nothing.
std::string GetClientField(Tolmen& app, std::int16_t index, const std::string& name = "");
// Stores the value into the UDF at `index` on the current client, after WaitForMaximizer. A
// value Maximizer refuses is not reported. Index 0 names no UDF and writes nothing. With the link's
// udfWritten hook set, the write is reported to it (three more reads: key, before, after).
void SetClientField(Tolmen& app, std::int16_t index, const std::string& value);

// Finds `text` in `list` from its first entry: an entry equal to it, or with `prefix` one that
// begins with it, both without regard to case. The first match becomes the list's selection
// (running its click handler) and its position is returned. With no match the list stays as it
// is and the result is 0 when its selection index is 0 or lower, -1 otherwise; so a caller that
// takes -1 alone for failure takes a missing text for found in a list with nothing selected.
int FindInList(const std::string& text, ListControl& list, bool prefix = false);

// The choice lists' click handlers: the list's text becomes the option's name and the selected
// entry's item data its index (0 with no selection).
void cboCatgrUDF_Click(Tolmen& app);    // "Category UDF"
void cboUserFields_Click(Tolmen& app);  // "Import Criteria UDF"; enables txtUserFldVal with a name
void cboAcctCode_Click(Tolmen& app);    // "Account Number"; mismatch choices follow it
void cboVATnumber_Click(Tolmen& app);   // "VAT Number"
void cboDateJoined_Click(Tolmen& app);  // "Date Joined"
void cboDateBilled_Click(Tolmen& app);  // "Date Billed"
// "Custom Message n UDF" (n = index + 1); without a UDF its txtMessage box takes free text.
void cboMessage_Click(Tolmen& app, int index);

}  // namespace tolmen
