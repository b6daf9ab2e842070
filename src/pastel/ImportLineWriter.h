// The seam between the record classes that leave the system as import lines (the debtor and the
// two history classes) and the module that writes the customer and invoice import files. INSERT
// and UPDATE of those classes call their WriteLine, which hands the record to the writer set in
// PastelFiles::lineWriter.
#pragma once

namespace tolmen {

class Tolmen;
class pasDebtor;
class pasHisHeader;
class pasHisDetail;

class ImportLineWriter {
 public:
  virtual ~ImportLineWriter() = default;
  // One customer line from the debtor (and the delivery record of the open set).
  virtual void DebtorLine(Tolmen& app, pasDebtor& debtor) = 0;
  // One "Header" line of the invoice file.
  virtual void HeaderLine(Tolmen& app, pasHisHeader& header) = 0;
  // One "Detail" line of the invoice file.
  virtual void DetailLine(Tolmen& app, pasHisDetail& detail) = 0;
};

}  // namespace tolmen
