// tolmen-toolkit: the posting toolkit for people who post documents from their own scripts.
//
//   tolmen-toolkit post PASTEL_DIR --header STRING [--line STRING]... [--type N]
//                  [--file NAME] [--customer-file NAME] [--tax PERCENT | --tax-code N]
//
// Prints the toolkit's status string ("0|<number>=<exclusive>|<inclusive>"). Exit status: 0
// posted, 1 a string, the customer or the posting refused (the reason on stderr), 2 the set or
// a file could not be used, 4 a wrong command line. Arguments are UTF-8; the set's files and
// the import files hold Windows-1252.
#include <CLI/CLI.hpp>
#include <iostream>

#include "PostCommand.h"
#include "platform/ui/Clock.h"
#include "platform/ui/ScriptUi.h"
#include "runtime/Cp1252.h"
#include "runtime/RuntimeError.h"
#include "runtime/SystemPath.h"
#include "shell/AppInfo.h"
#include "shell/Tolmen.h"

int main(int argc, char** argv) {
  using namespace tolmen;
  CLI::App cli{"Posts documents through Tolmen's posting toolkit.", "tolmen-toolkit"};
  cli.require_subcommand(1);
  CLI::App* post =
      cli.add_subcommand("post", "Append one document to an invoice import file of a Pastel set.");
  std::string folder;
  PostRequest request;
  std::int16_t documentType = request.documentType;
  double tax = 0;
  int taxCode = 0;
  post->add_option("PASTEL_DIR", folder, "The folder of the Pastel set")->required();
  post->add_option("--header", request.header, "The header string (31 fields)")->required();
  post->add_option("--line", request.lines, "A line string (13 fields); once for each line")
      ->allow_extra_args(false);
  post->add_option("--type", documentType,
                   "Document type: 3 invoice, 4 credit note, 6 and above batched (103 a batched "
                   "invoice)")
      ->capture_default_str();
  post->add_option("--file", request.invoiceFile,
                   "Invoice import file to append to (default: the next MaxInv<NN>.csv)");
  post->add_option("--customer-file", request.customerFile,
                   "Customer import file for the debtor lines (default: the next "
                   "MaxCus<NN>.csv)");
  CLI::Option* taxOption = post->add_option("--tax", tax, "Tax percentage of the lines");
  post->add_option("--tax-code", taxCode, "Tax code whose percentage the set's tax table holds")
      ->check(CLI::Range(1, 99))
      ->excludes(taxOption);
  try {
    cli.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    const int status = cli.exit(error);
    return status == 0 ? 0 : kPostUsage;
  }

  // TOLMEN_NOW sets the time of the debtor's change stamp, as for every program of the system.
  const std::unique_ptr<Clock> clock = MakeClockFromEnvironment();
  // Nothing here asks the user anything; a dialog of the record layer goes to stderr.
  ScriptUi ui({}, &std::cerr, *clock, "tolmen-toolkit");
  try {
    request.folder = PathFromSystem(folder);
    if (request.folder.empty() || request.folder.back() != '/') request.folder += '/';
    for (std::string* text : {&request.header, &request.invoiceFile, &request.customerFile})
      *text = Utf8ToCp1252(*text);
    for (std::string& line : request.lines) line = Utf8ToCp1252(line);
    request.documentType = documentType;
    if (post->count("--tax")) request.taxPercentage = tax;
    if (post->count("--tax-code")) request.taxCode = taxCode;
    Tolmen app(MakeAppInfo(request.folder, TOLMEN_VERSION), ui, *clock, "");
    return PostDocument(app, request, std::cout, std::cerr);
  } catch (const RuntimeError& error) {
    std::cerr << "tolmen-toolkit: error " << error.Number() << ": "
              << Cp1252ToUtf8(error.Description()) << "\n";
    return kPostCannotRun;
  } catch (const std::exception& error) {
    std::cerr << "tolmen-toolkit: " << error.what() << "\n";
    return kPostCannotRun;
  }
}
