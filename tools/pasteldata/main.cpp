// pasteldata: Pastel sets of accounts for the tests and the demo, made with Tolmen's own record
// classes.
//
//   pasteldata create DIR < SET.json    creates every Pastel file of a set in DIR
//   pasteldata dump DIR FILE            prints the records of one file as the same JSON
//   pasteldata --help                   the usage, on standard output
//
// The JSON is described in src/pastel/PastelDataSet.h; samples/demo.json is a whole set. Exit
// status: 0 done, 1 a description or file that could not be used, 2 a wrong command line.
#include <iostream>
#include <iterator>
#include <string>

#include "pastel/PastelDataSet.h"
#include "platform/ui/Clock.h"
#include "platform/ui/ScriptUi.h"
#include "runtime/Cp1252.h"
#include "runtime/RuntimeError.h"
#include "runtime/SystemPath.h"
#include "shell/AppInfo.h"
#include "shell/Tolmen.h"

namespace {

// The usage text: on stdout with status 0 when asked for (--help), else on stderr with 2.
int Usage(bool asked = false) {
  (asked ? std::cout : std::cerr) << "usage: pasteldata create DIR < SET.json\n"
                                     "       pasteldata dump DIR FILE\n";
  return asked ? 0 : 2;
}

}  // namespace

int main(int argc, char** argv) {
  using namespace tolmen;
  const std::string command = argc > 1 ? argv[1] : "";
  if ((command == "--help" || command == "-h") && argc == 2) return Usage(true);
  if (!((command == "create" && argc == 3) || (command == "dump" && argc == 4))) return Usage();

  // Nothing here asks the user anything; a message a codec might show goes to stderr.
  RealClock clock;
  ScriptUi ui({}, &std::cerr, clock, "pasteldata");
  try {
    // The folder arrives as UTF-8; the system holds it as Windows-1252 text.
    const std::string folder = PathFromSystem(argv[2]);
    Tolmen app(MakeAppInfo(folder + "/", TOLMEN_VERSION), ui, clock, "");
    if (command == "create") {
      const std::string text((std::istreambuf_iterator<char>(std::cin)),
                             std::istreambuf_iterator<char>());
      CreatePastelSet(app, folder, nlohmann::json::parse(text));
    } else {
      std::cout << DumpPastelFile(app, folder, PathFromSystem(argv[3])).dump(2) << "\n";
    }
  } catch (const nlohmann::json::exception& error) {
    std::cerr << "pasteldata: the JSON cannot be read: " << error.what() << "\n";
    return 1;
  } catch (const RuntimeError& error) {
    std::cerr << "pasteldata: error " << error.Number() << ": " << Cp1252ToUtf8(error.Description())
              << "\n";
    return 1;
  } catch (const std::exception& error) {
    std::cerr << "pasteldata: " << error.what() << "\n";
    return 1;
  }
  return 0;
}
