// `tolmen-toolkit post`: one document posted through the same toolkit routines a run uses, its
// lines appended to import files of a Pastel set.
//
// Order: the set's debtor file is tested through the toolkit (SetDataPath) and the GL parameters
// are read; DefineDocumentHeader, then DefineDocumentLine for each line (a rejected string ends
// the command before anything is written); for a type below 6 the debtor is found by the
// header's customer code (with its delivery record, for the customer line); ImportDocument.
#pragma once

#include <cstdint>
#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

namespace tolmen {

class Tolmen;

struct PostRequest {
  std::string folder;  // the Pastel set, with a trailing '/'
  std::int16_t documentType = 3;
  std::string header;
  std::vector<std::string> lines;
  // The files appended to; empty means the next pair's names (NumberImportFiles). A name
  // without '/' lies in the set's folder. Both files are created, even when no debtor line is
  // written, so that the next run numbers its files past them instead of emptying them.
  std::string invoiceFile;
  std::string customerFile;
  // The tax percentage, given or read from the set's tax table for a tax code.
  std::optional<double> taxPercentage;
  std::optional<int> taxCode;
};

// Exit statuses of the command.
inline constexpr int kPostDone = 0;
inline constexpr int kPostRejected = 1;   // a string, the customer or the posting was refused
inline constexpr int kPostCannotRun = 2;  // the set or an import file could not be used
inline constexpr int kPostUsage = 4;

// Posts the document and prints the toolkit's status string on `out`; a refusal is explained on
// `err` ("tolmen-toolkit: " and the reason). Answers the exit status.
int PostDocument(Tolmen& app, const PostRequest& request, std::ostream& out, std::ostream& err);

}  // namespace tolmen
