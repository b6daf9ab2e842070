// `tolmen run --preview TEMPLATE...`: each template run exactly as `tolmen run` runs it, but
// against a snapshot, so that nothing real changes:
//   1  a temporary folder with a copy of the Pastel folder's files (the folder the template's
//      "*Pastel Data Folder" line names), of the program's folder and of the settings store
//   2  a copy of the template naming the copied Pastel folder
//   3  a Maximizer link that reads the live address book but keeps every field write (a later
//      read of a written field gives the written value); the list and window calls still go to
//      Maximizer, as they change none of its records
//   4  the run (the log heading names the real template)
//   5  what it made, read back from the copy: the import files' lines, the UDF changes, the
//      categories created, the invoices with their amounts and the log's new lines, with the
//      copy's folder named as the real one; then the temporary folder removed
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "platform/automation/KeptWrites.h"
#include "unattended/RunCommand.h"
#include "unattended/UnattendedUi.h"

namespace tolmen {

class Clock;

struct PreviewFile {
  std::string name;                // as it would be named in the real Pastel folder
  std::vector<std::string> lines;  // without their CR LF
};

struct PreviewUdfChange {
  RecordKey record;
  std::string udf;
  std::string before;
  std::string after;
};

struct PreviewInvoiceLine {
  std::string description;
  std::string quantity;
  std::string price;      // the unit price without tax
  std::string priceIncl;  // with tax
};

struct PreviewInvoice {
  std::string account;
  std::string date;
  std::vector<PreviewInvoiceLine> lines;
};

struct PreviewResult {
  TemplateResult run;  // files named as in the real folder
  std::vector<PreviewFile> files;
  std::vector<PreviewUdfChange> udfChanges;
  std::vector<std::string> categories;
  std::vector<PreviewInvoice> invoices;
  std::vector<std::string> log;
};

// The invoices of an invoice import file's lines: each "Header" line starts one, each "Detail"
// line adds to the last.
std::vector<PreviewInvoice> InvoicesOfLines(const std::vector<std::string>& lines);

// Steps 1 to 5 for one template (a Windows-1252 path). `settingsPath` is the settings store to
// copy, `appFolder` the program's folder. Messages of a template that could not start go to
// `err`.
PreviewResult PreviewTemplate(const std::string& path, const std::string& appFolder,
                              const std::string& settingsPath, Clock& clock,
                              const UnattendedUi::Settings& uiSettings, std::ostream& err);

// The preview as text (UTF-8), and as one JSON object on one line.
std::string PreviewText(const PreviewResult& result);
std::string PreviewJson(const PreviewResult& result);

}  // namespace tolmen
