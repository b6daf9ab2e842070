// maxsim's request lines: every line of the input is one request to a session over a fresh copy
// of the demo address book, parsed and answered as the server does. Every answer is a reply
// object that says whether it went well.
#include <cctype>
#include <filesystem>
#include <fstream>

#include <nlohmann/json.hpp>

#include "FuzzSupport.h"
#include "Targets.h"
#include "maxsim/ClientFile.h"
#include "maxsim/Description.h"
#include "maxsim/Session.h"
#include "maxsim/Store.h"
#include "platform/ui/Clock.h"
#include "runtime/DateTime.h"
#include "templates/TemplateLine.h"

namespace tolmen::fuzz {
namespace {

namespace fs = std::filesystem;

// The demo address book, made once per process; each input works on a copy.
const std::string& PristineBook() {
  static const std::string folder = [] {
    const std::string path = ScratchFolder() + "pristine";
    fs::create_directories(path);
    std::ifstream in(std::string(TOLMEN_SOURCE_DIR) + "/tools/maxsim/samples/demo.json");
    const auto book =
        maxsim::ReadDescription(nlohmann::ordered_json::parse(in), DateSerial(2024, 6, 1));
    maxsim::Store::Create(path + "/" + maxsim::kStoreName, book);
    maxsim::ClientFile::Create(path + "/" + maxsim::kClientFileName, book);
    return path;
  }();
  return folder;
}

// ListOfCategories writes the file its first argument names: the fuzzer's names are replaced by
// one in the scratch folder, so that no input writes elsewhere.
void KeepInScratch(nlohmann::ordered_json& request) {
  if (!request.is_object() || !request.contains("call") || !request["call"].is_string()) return;
  std::string call = request["call"].get<std::string>();
  for (char& c : call) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  if (call != "listofcategories") return;
  auto& args = request["args"];
  if (args.is_array() && !args.empty() && args[0].is_string())
    args[0] = ScratchFolder() + "categories.txt";
}

}  // namespace

int FuzzMaxsim(const uint8_t* data, size_t size) {
  const std::string book = ScratchFolder() + "book";
  fs::remove_all(book);
  fs::copy(PristineBook(), book);
  VirtualClock clock(DateSerial(2024, 6, 15) + 0.5);
  maxsim::Session session(clock, ScratchFolder() + "databases.txt");
  session.Open(book);
  for (const std::string& line : TemplateLines(Bytes(data, size))) {
    auto request = nlohmann::ordered_json::parse(line, nullptr, false);
    if (request.is_discarded()) continue;
    KeepInScratch(request);
    const auto reply = session.Handle(request);
    FUZZ_CHECK(reply.is_object() && reply.contains("ok") && reply["ok"].is_boolean());
    FUZZ_CHECK(reply["ok"].get<bool>() || reply["error"].is_string());
    // The reply goes out as the server sends it.
    (void)reply.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
    if (session.QuitRequested()) break;
  }
  return 0;
}

}  // namespace tolmen::fuzz
