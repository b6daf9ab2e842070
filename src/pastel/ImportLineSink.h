// Where the record classes that stand for Pastel's import files send the records they write:
// pasDebtor's INSERT and UPDATE give one customer line, pasHisHeader's and pasHisDetail's one
// "Header" or "Detail" line of the invoice file. The record classes never touch a file
// themselves: the run puts a sink in place when it opens its import files (PastelFiles::lineSink),
// and the sink decides whether the run writes lines at all and how each record becomes a line.
#pragma once

namespace tolmen {

class pasDebtor;
class pasHisHeader;
class pasHisDetail;

class ImportLineSink {
 public:
  virtual ~ImportLineSink() = default;
  virtual void WriteDebtor(pasDebtor& debtor) = 0;
  virtual void WriteHeader(pasHisHeader& header) = 0;
  virtual void WriteDetail(pasHisDetail& detail) = 0;
};

}  // namespace tolmen
