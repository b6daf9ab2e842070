// quilletToolkit: the posting toolkit, a text interface over Pastel's data through which billing
// reaches categories, debtors and documents. Every read answers with a status string: the status
// number, a pipe, and the record or field ("0|..."); the caller reads the number with Val and
// takes the fields off the rest with PopField. One instance lives as long as the application.
//
// Its record objects are its own (created on first use), apart from the open set's objects.
// OpenObject knows four names only: "ACCDCAT.DAT" and "ACCDCAT" (categories), "ACCMASD.DAT" and
// "ACCMASD" (debtors). Every other name, "ACCPRD", "ACCSTKST" and "ACCPRMSY" among them, is
// unknown: NumberOfRecords answers -1, GetNearest "1|", GetNext, GetRecord and GetField "11|".
//
// Walking a table: NumberOfRecords, GetNearest with an empty key, then GetNext until the status
// is no longer 0. Errors raised by the record classes reach the caller: the class traps nothing.
//
// A document is DefineDocumentHeader once, DefineDocumentLine once a line, ImportDocument once
// (toolkit/DocumentStrings.h describes the strings). The Define routines answer "" when they
// accept a string and "Invalid " and the field's name otherwise; ImportDocument answers a status
// string. ToolkitStatusText (toolkit/ToolkitStatus.h) makes a sentence of any status string.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace tolmen {

class Tolmen;
class PastelRecord;
class pasDcodeFile;
class pasDebtor;
class pasHisHeader;
class pasHisDetail;

class quilletToolkit {
 public:
  // REQUIRES: `app` outlives the toolkit.
  explicit quilletToolkit(Tolmen& app);
  ~quilletToolkit();
  quilletToolkit(const quilletToolkit&) = delete;
  quilletToolkit& operator=(const quilletToolkit&) = delete;

  // Stores the folder (with one trailing '/'), gives the category and debtor objects their file
  // names (in double quotes) after closing them, and opens the debtor file as a test: the answer
  // is its status as text, "0" when the folder holds a debtor file. The test open is closed again.
  std::string SetDataPath(const std::string& folder);
  // Stores the ledger folder with a trailing '/'; answers "".
  std::string SetGLPath(const std::string& folder);

  // Upper-cases `tableName` in place; for a known name sets `object`, opens it when it is not
  // open, and answers true.
  bool OpenObject(std::string& tableName, PastelRecord*& object);
  // 0 without a data path, -1 for an unknown name, else the object's RecordCount.
  std::int32_t NumberOfRecords(std::string& tableName);
  // Greater-or-equal search on `keyNumber`: "0|" and the record, or "90|", the status, a blank
  // and its words. `keyValue` receives the key buffer the search left.
  std::string GetNearest(std::string& tableName, std::int16_t keyNumber, std::string& keyValue);
  // The next record along `keyNumber`: "0|" and the record, or the status and "|".
  std::string GetNext(std::string& tableName, std::int16_t keyNumber);
  // Equal search: "0|" and the record, or the status and "|" (4 for a missing key).
  std::string GetRecord(std::string& tableName, std::int16_t keyNumber, std::string& keyValue);
  // As GetRecord, answering "0|" and the one field's text.
  std::string GetField(std::string& tableName, std::int16_t keyNumber, std::string& keyValue,
                       std::int32_t& fieldNumber);
  // There is no password handling: `password` is left alone and the answer is "".
  std::string GetPassword(std::string& password);

  // Starts a document: the tax rate becomes the billing percentage (BillingState) over 100,
  // totals and line count go to 0, and the string is checked field by field. Only dates (D) and
  // numbers (N) can fail; on failure the held header is emptied.
  std::string DefineDocumentHeader(std::string& header);
  // Checks one line string, completes its amounts (quantity 0 is 1; exclusive from cost, else
  // from inclusive; inclusive from exclusive, both rounded to cents, halves to even), adds them
  // to the totals and keeps the line. A rejected line leaves count and totals alone. The
  // eleventh line of a document wipes the stored amounts of lines 1 to 10 (the totals stay).
  std::string DefineDocumentLine(std::string& line);
  // The date in the set's date format, read once from "ACCPRMSY"; as OpenObject does not know
  // that name the format is empty, and the date takes its general form.
  std::string FormatDate(double date);
  // The ledger batch line format is stated here only: nothing is read or posted; answers "".
  std::string ImportGLBatch(std::string& batch, const std::string& unused);

  // Posts the held document: one "Header" line, and unless the header's "Delete" is Y, one
  // "Detail" line per line (through the history objects' INSERT, that is the import line sink).
  // For a type below 6 every line also changes the run's debtor (PastelFiles::Debtor, which
  // must be positioned on the customer) and writes its customer line. The period number comes
  // from the GL parameters' first period date (PastelFiles::GParm, loaded). Answers
  // "0|<number>=<exclusive>|<inclusive>", or the header's status and "|".
  std::string ImportDocument(std::int16_t& documentType, std::int16_t user);
  // True when a history object exists and is open (only OpenDocumentFiles opens them).
  bool DocumentFilesOpen() const;
  // Closes both history objects, replaces them by fresh ones and sets the line count to 0.
  void CloseDocumentFiles();
  // With a data path: opens ACCHISTH.DAT and ACCHISTL.DAT there and sets the line count to 0.
  // Posting does not need it, since INSERT writes to the import file only.
  void OpenDocumentFiles();

  // Fields 1 to MaxFields of the object, each in its text form, joined with "|" and trimmed. A
  // text field holding "|" thus adds a field.
  std::string RecordString(PastelRecord& object);

  // Both close the debtor and history objects when open and release them; the category object
  // is left alone.
  void Class_Initialize();
  void Class_Terminate();

  // The objects, each created when first asked for.
  pasDcodeFile& CategoryFile();
  pasDebtor& DebtorFile();
  pasHisHeader& HistoryHeader();
  pasHisDetail& HistoryDetail();

  double TaxRate = 0;
  std::string DataPath;  // with a trailing '/'; "" until SetDataPath
  std::string GLPath;
  std::string HeaderText;
  std::vector<std::string> LineTexts{1};  // indexed from 1
  std::int32_t LineCount = 0;
  std::int16_t DefaultUser = 0;
  std::string DateFormatText;
  std::int16_t PeriodCode = 0;
  double TotalExclusive = 0;
  double TotalInclusive = 0;
  std::int32_t IncExc = 0;
  std::vector<double> LineQuantity{0};  // indexed like LineTexts
  std::vector<double> LineCost{0};
  std::vector<double> LineExclusive{0};
  std::vector<double> LineInclusive{0};

 private:
  void CloseAndRelease();
  // Adds (type 4: subtracts) the unit amounts to the debtor's figures of PeriodCode and writes
  // the debtor's customer line. The quantity is not applied.
  void UpdateDebtorTotals(double& inclusive, double& exclusive, std::int16_t& documentType);
  void FillHeader(pasHisHeader& header, std::int16_t documentType, std::int16_t user);
  void FillDetail(pasHisDetail& detail, pasHisHeader& header, std::int32_t line,
                  std::int16_t documentType, std::int16_t user);

  Tolmen& app_;
  std::unique_ptr<pasDcodeFile> category_;
  std::unique_ptr<pasDebtor> debtor_;
  std::unique_ptr<pasHisHeader> header_;
  std::unique_ptr<pasHisDetail> detail_;
};

}  // namespace tolmen
