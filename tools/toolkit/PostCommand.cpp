#include "PostCommand.h"

#include <fstream>
#include <ostream>

#include "pastel/ImportLineSink.h"
#include "pastel/PastelFiles.h"
#include "pastel/pasDebtor.h"
#include "pastel/pasDelivery.h"
#include "pastel/pasGParm.h"
#include "pastel/pasTaxParameters.h"
#include "platform/recordmanager/BtrCodes.h"
#include "recordio/StatusCatalogue.h"
#include "recordio/TextHelpers.h"
#include "runtime/Conversion.h"
#include "runtime/Cp1252.h"
#include "runtime/RuntimeError.h"
#include "runtime/SystemPath.h"
#include "shell/Tolmen.h"
#include "toolkit/DocumentStrings.h"
#include "toolkit/ToolkitStatus.h"
#include "transfer/ImportFiles.h"

namespace tolmen {
namespace {

constexpr std::int32_t kCustomerCodeWidth = 6;
constexpr std::int32_t kDeliveryFields = 14;
constexpr std::int32_t kTaxPercentageBase = 5;  // tax code n is field n + 5

// Appends the lines of one document to the two import files; each file is opened for one line,
// so a file that another program reads between documents holds whole lines.
class AppendingSink final : public ImportLineSink {
 public:
  AppendingSink(PastelFiles& files, std::string invoice, std::string customer)
      : files_(files), invoice_(std::move(invoice)), customer_(std::move(customer)) {}

  void WriteDebtor(pasDebtor& debtor) override {
    Append(customer_, DebtorCsvLine(debtor, files_.Delivery()));
  }
  void WriteHeader(pasHisHeader& header) override { Append(invoice_, HeaderCsvLine(header)); }
  void WriteDetail(pasHisDetail& detail) override { Append(invoice_, DetailCsvLine(detail)); }

  // Creates the file when it is not there.
  static bool CanAppend(const std::string& path) {
    return std::ofstream(SystemPath(path), std::ios::binary | std::ios::app).good();
  }

 private:
  static void Append(const std::string& path, const std::string& line) {
    std::ofstream file(SystemPath(path), std::ios::binary | std::ios::app);
    file << line << "\r\n";
    if (!file.flush()) throw RuntimeError(57);  // "Device I/O error"
  }

  PastelFiles& files_;
  std::string invoice_;
  std::string customer_;
};

std::string InFolder(const std::string& folder, const std::string& name) {
  return name.find('/') == std::string::npos ? folder + name : name;
}

// Opens a file of the set, reads its first record and closes it again; false when it cannot.
bool ReadFirstRecord(PastelRecord& record, const std::string& path) {
  record.FileName = path;
  record.OPEN_();
  if (record.STATUS_ != kStatusOk) return false;
  record.GET_LOWEST();
  const bool read = record.STATUS_ == kStatusOk;
  record.CLOSE_();
  return read;
}

// Positions the set's debtor, and its delivery record when there is one, on `code`.
bool FindCustomer(Tolmen& app, const std::string& folder, const std::string& code) {
  const std::string key = PadToWidth(code, kCustomerCodeWidth);
  pasDebtor& debtor = app.pastelFiles.Debtor();
  debtor.FileName = folder + pasDebtor::kFileName;
  debtor.OPEN_();
  if (debtor.STATUS_ != kStatusOk) return false;
  debtor.GET_EQUAL(key);
  if (debtor.STATUS_ != kStatusOk) return false;
  pasDelivery& delivery = app.pastelFiles.Delivery();
  delivery.FileName = folder + pasDelivery::kFileName;
  delivery.OPEN_();
  if (delivery.STATUS_ == kStatusOk) delivery.GET_EQUAL(key);
  if (delivery.STATUS_ != kStatusOk)
    for (std::int32_t field = 1; field <= kDeliveryFields; ++field) delivery.default_(field, "");
  return true;
}

}  // namespace

int PostDocument(Tolmen& app, const PostRequest& request, std::ostream& out, std::ostream& err) {
  const auto refuse = [&](int status, const std::string& why) {
    err << "tolmen-toolkit: " << Cp1252ToUtf8(why) << "\n";
    return status;
  };
  const std::string& folder = request.folder;
  quilletToolkit& toolkit = app.toolkit;
  const std::string tested = toolkit.SetDataPath(folder);
  const auto testStatus = static_cast<std::int16_t>(Val(tested));
  if (testStatus != kStatusOk)
    return refuse(kPostCannotRun, folder + " holds no Pastel set: status " + tested + " (" +
                                      StatusText(testStatus) + ")");
  if (!ReadFirstRecord(app.pastelFiles.GParm(), folder + pasGParm::kFileName))
    return refuse(kPostCannotRun, "the GL parameters of " + folder + " cannot be read");

  double percentage = request.taxPercentage.value_or(0);
  if (request.taxCode) {
    pasTaxParameters& tax = app.pastelFiles.TaxParameters();
    tax.FileName = folder + pasTaxParameters::kFileName;
    tax.OPEN_();
    if (tax.STATUS_ != kStatusOk)
      return refuse(kPostCannotRun, "the tax table of " + folder + " cannot be read");
    percentage = Round(CDbl(tax.default_(*request.taxCode + kTaxPercentageBase)) / 100, 2);
  }
  app.billing.BillingVATRate = percentage;

  std::string header = request.header;
  std::string answer = toolkit.DefineDocumentHeader(header);
  if (!answer.empty()) return refuse(kPostRejected, "the header string is refused: " + answer);
  for (size_t index = 0; index < request.lines.size(); ++index) {
    std::string line = request.lines[index];
    answer = toolkit.DefineDocumentLine(line);
    if (!answer.empty())
      return refuse(kPostRejected, "line " + std::to_string(index + 1) + " is refused: " + answer);
  }

  std::int16_t documentType = request.documentType;
  if (documentType < kBatchedDocuments) {
    std::string fields = header;
    std::string code;
    for (int field = 1; field <= 4; ++field) code = PopField(fields, "|");
    if (!FindCustomer(app, folder, code))
      return refuse(kPostRejected, ToolkitStatusText("5", code));
  }

  const ImportFileNames next = NumberImportFiles(folder);
  const std::string invoice =
      request.invoiceFile.empty() ? next.invoice : InFolder(folder, request.invoiceFile);
  const std::string customer =
      request.customerFile.empty() ? next.customer : InFolder(folder, request.customerFile);
  if (!AppendingSink::CanAppend(invoice))
    return refuse(kPostCannotRun, invoice + " cannot be written");
  if (!AppendingSink::CanAppend(customer))
    return refuse(kPostCannotRun, customer + " cannot be written");

  AppendingSink sink(app.pastelFiles, invoice, customer);
  app.pastelFiles.lineSink = &sink;
  const std::string status = toolkit.ImportDocument(documentType, 0);
  app.pastelFiles.lineSink = nullptr;
  out << Cp1252ToUtf8(status) << "\n";
  if (static_cast<int>(Val(status)) != kStatusOk)
    return refuse(kPostRejected, ToolkitStatusText(status));
  return kPostDone;
}

}  // namespace tolmen
