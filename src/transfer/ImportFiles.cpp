#include "transfer/ImportFiles.h"

#include <algorithm>
#include <filesystem>
#include <vector>

#include "pastel/pasDebtor.h"
#include "pastel/pasDelivery.h"
#include "pastel/pasHisDetail.h"
#include "pastel/pasHisHeader.h"
#include "recordio/TextHelpers.h"
#include "runtime/Conversion.h"
#include "runtime/Cp1252.h"
#include "runtime/Format.h"
#include "runtime/RuntimeError.h"
#include "runtime/Strings.h"
#include "runtime/SystemPath.h"
#include "shell/Tolmen.h"

namespace fs = std::filesystem;

namespace tolmen {

namespace {

std::string Quoted(const std::string& text) {
  return "\"" + text + "\"";
}

// A field's text with its padding, as the record holds it.
std::string FieldText(PastelRecord& record, int field) {
  return CStr(record.default_(field));
}

std::string QuotedField(PastelRecord& record, int field) {
  return CsvQuote(FieldText(record, field));
}

std::string BareNumber(PastelRecord& record, int field) {
  return NumberText(CDbl(record.default_(field)));
}

// The field's bytes as they lie in the record, whatever its kind.
std::string RawBytes(PastelRecord& record, int field) {
  const auto spot = record.Layout().Locate(field);
  if (!spot) return "";
  return record.Image().substr(static_cast<size_t>(spot->offset), static_cast<size_t>(spot->width));
}

std::string JoinColumns(const std::vector<std::string>& columns) {
  std::string line;
  for (size_t i = 0; i < columns.size(); ++i) {
    if (i > 0) line += ',';
    line += columns[i];
  }
  return line;
}

void WriteTo(ImportFile& file, const std::string& line) {
  file.Append(line + "\r\n");
}

}  // namespace

ImportFileNames NumberImportFiles(const std::string& folder) {
  std::string highest;
  std::error_code error;
  for (fs::directory_iterator it(SystemPath(folder), error), end; !error && it != end;
       it.increment(error)) {
    // A name Windows-1252 cannot hold is none the system wrote.
    const std::string listed = it->path().filename().string();
    if (!FitsCp1252(listed)) continue;
    const std::string name = Utf8ToCp1252(listed);
    if (!Like(UCase(name), "MAXCUS*.CSV")) continue;
    if (highest.empty() || UCase(name) > UCase(highest)) highest = name;
  }
  const long next = static_cast<long>(Val(Mid(highest, 7))) + 1;
  const std::string digits = Format(Variant(static_cast<double>(next)), "00");
  return {folder + "MaxCus" + digits + ".csv", folder + "MaxInv" + digits + ".csv"};
}

bool OpenCsvFiles(Tolmen& app) {
  ImportFileHandles& files = app.importFiles;
  app.run.CurrentSection = "Opening CSV files";
  const auto open = [&](ImportFile& file, const std::string& name) {
    for (;;) {
      if (file.Open(name)) return true;
      const std::string why = fs::exists(SystemPath(name)) ? RuntimeError(75).Description()
                                                           : RuntimeError(76).Description();
      const std::string& br = app.info.LineBreak;
      const int answer = app.ui.MsgBox(app.run.CurrentSection + br + why + br +
                                           "Please fix the Error and Click OK, or Cancel the run.",
                                       vbOKCancel);
      if (answer != vbOK) return false;
    }
  };
  if (!open(files.customer, app.run.CsvFileName)) return false;
  if (app.run.RecurringBillingOn) {
    if (!open(files.invoice, app.run.InvoiceFileName)) {
      files.customer.Close();
      return false;
    }
  } else {
    std::error_code ignored;
    fs::remove(SystemPath(app.run.InvoiceFileName), ignored);
  }
  app.pastelFiles.lineSink = &files;
  app.run.CurrentSection.clear();
  return true;
}

void CloseCsvFiles(Tolmen& app) {
  ImportFileHandles& files = app.importFiles;
  if (!files.customer.IsOpen()) return;
  app.run.CurrentSection = "Closing CSV files";
  files.customer.Close();
  files.invoice.Close();
  app.run.CurrentSection.clear();
}

std::string DebtorCsvLine(pasDebtor& debtor, pasDelivery& delivery) {
  std::vector<std::string> c;
  c.push_back(Quoted(FieldText(debtor, 2)));
  c.push_back(QuotedField(debtor, 3));
  for (int field = 56; field <= 60; ++field) c.push_back(QuotedField(debtor, field));
  c.push_back(QuotedField(delivery, 5));
  c.push_back(QuotedField(delivery, 7));
  c.push_back(QuotedField(delivery, 4));
  for (const char* constant : {"\"1\"", "\"0\"", "\"1\"", "\"\""}) c.push_back(constant);
  for (int field = 8; field <= 12; ++field) c.push_back(QuotedField(delivery, field));
  for (const char* constant : {"\"N\"", "\"0\"", "\"N\"", "\"1\"", "\"\""}) c.push_back(constant);
  c.push_back(Quoted(BareNumber(debtor, 1)));
  for (const char* constant : {"\"00\"", "\"0\"", "\"\""}) c.push_back(constant);
  for (int field = 105; field <= 109; ++field) c.push_back(QuotedField(debtor, field));
  // Field 61 is an Integer; the format takes its two bytes as characters.
  c.push_back(CsvQuote(RawBytes(debtor, 61)));
  c.push_back("\"\"");
  c.push_back(QuotedField(delivery, 6));
  c.push_back(QuotedField(delivery, 13));
  for (int column = 38; column <= 44; ++column) c.push_back("\"\"");
  return JoinColumns(c);
}

std::string HeaderCsvLine(pasHisHeader& header) {
  const std::string dateText = Quoted(FormatDate(CDbl(header.default_(4)), "dd/mm/yyyy"));
  std::vector<std::string> c = {"\"Header\"", "\"\"", "\" \"", "\" \""};
  c.push_back(Quoted(FieldText(header, 3)));
  c.push_back(BareNumber(header, 20));
  c.push_back(dateText);
  c.push_back(QuotedField(header, 5));
  c.push_back("\"N\"");
  c.push_back(BareNumber(header, 27));
  for (int field = 9; field <= 16; ++field) c.push_back(QuotedField(header, field));
  c.push_back("\"\"");
  c.push_back(BareNumber(header, 17));
  c.push_back(dateText);
  for (int field = 22; field <= 24; ++field) c.push_back(QuotedField(header, field));
  c.push_back("1");
  c.push_back(QuotedField(header, 38));
  c.push_back(QuotedField(header, 39));
  c.push_back(CsvQuote(RawBytes(header, 18)));
  return JoinColumns(c);
}

std::string DetailCsvLine(pasHisDetail& detail) {
  std::vector<std::string> c = {"\"Detail\""};
  for (int field : {15, 16, 17, 18}) c.push_back(BareNumber(detail, field));
  c.push_back(Quoted(Trim(FieldText(detail, 10))));
  c.push_back(Quoted(BareNumber(detail, 11)));
  c.push_back("\"0\"");
  c.push_back("\"0\"");
  c.push_back(QuotedField(detail, 4));
  c.push_back(QuotedField(detail, 14));
  c.push_back(Quoted(BareNumber(detail, 7)));
  c.push_back(QuotedField(detail, 25));
  c.push_back(QuotedField(detail, 35));
  return JoinColumns(c);
}

void WriteCustomerLine(Tolmen& app, const std::string& line) {
  WriteTo(app.importFiles.customer, line);
}

void WriteInvoiceLine(Tolmen& app, const std::string& line) {
  WriteTo(app.importFiles.invoice, line);
}

void ImportFileHandles::WriteDebtor(pasDebtor& debtor) {
  if (run_.WriteCsv) WriteTo(customer, DebtorCsvLine(debtor, pastelFiles_.Delivery()));
}

void ImportFileHandles::WriteHeader(pasHisHeader& header) {
  if (run_.WriteCsv) WriteTo(invoice, HeaderCsvLine(header));
}

void ImportFileHandles::WriteDetail(pasHisDetail& detail) {
  if (run_.WriteCsv) WriteTo(invoice, DetailCsvLine(detail));
}

}  // namespace tolmen
