// The customer and invoice import files that Pastel's own import reads: "MaxCus<NN>.csv" and
// "MaxInv<NN>.csv" in the Pastel data folder, lines ended by CR LF. Each run takes the next number;
// nothing is appended to an older file.
//
// The customer line (44 columns) comes from pasDebtor with the open set's pasDelivery, the
// "Header" line (28 columns) from pasHisHeader, the "Detail" line (14 columns) from pasHisDetail.
// A line that cannot be written (a full disk) raises RuntimeError 61 or 57 to the caller's error
// trap and leaves the file with its whole lines only, so that Retry writes the line once.
#pragma once

#include <string>

#include "pastel/ImportLineSink.h"
#include "transfer/ImportFile.h"

namespace tolmen {

class Tolmen;
class PastelFiles;
struct RunState;
class pasDebtor;
class pasDelivery;
class pasHisHeader;
class pasHisDetail;

// The two files of a run, closed between runs, and the line sink through which the record
// classes write into them: while the run's WriteCsv is on, a debtor (with the open set's delivery
// record) becomes a customer line, a header or detail an invoice line; while it is off nothing is
// written. OpenCsvFiles puts the sink in place.
class ImportFileHandles final : public ImportLineSink {
 public:
  // REQUIRES: both outlive the object.
  ImportFileHandles(const RunState& run, PastelFiles& pastelFiles)
      : run_(run), pastelFiles_(pastelFiles) {}

  ImportFile customer;
  ImportFile invoice;

  void WriteDebtor(pasDebtor& debtor) override;
  void WriteHeader(pasHisHeader& header) override;
  void WriteDetail(pasHisDetail& detail) override;

 private:
  const RunState& run_;
  PastelFiles& pastelFiles_;
};

struct ImportFileNames {
  std::string customer;
  std::string invoice;
};

// The next pair of names in `folder` (with its trailing '/'): the name of the "MaxCus*.csv" files
// that sorts highest without regard to case gives the number, read from its seventh character on,
// plus 1, with at least two digits. As the comparison is of text, "MaxCus100.csv" sorts below
// "MaxCus99.csv" and the number stays at 100 from there on.
ImportFileNames NumberImportFiles(const std::string& folder);

// Opens CsvFileName for output, replacing an old file, and InvoiceFileName when the run raises
// invoices (else deletes that file, passing over errors), and makes the files the record
// classes' line sink. A failure asks OK (try again) or Cancel (false).
bool OpenCsvFiles(Tolmen& app);
// Closes both files when the customer file is open; nothing otherwise.
void CloseCsvFiles(Tolmen& app);

// The lines, without their CR LF.
std::string DebtorCsvLine(pasDebtor& debtor, pasDelivery& delivery);
std::string HeaderCsvLine(pasHisHeader& header);
std::string DetailCsvLine(pasHisDetail& detail);

// Append one line to the open customer or invoice file.
void WriteCustomerLine(Tolmen& app, const std::string& line);
void WriteInvoiceLine(Tolmen& app, const std::string& line);

}  // namespace tolmen
