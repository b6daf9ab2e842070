// A Pastel set of accounts and a maxsim serving an address book the test describes, with Tolmen
// attached to both; clients are selected in maxsim as a user would.
#pragma once

#include <gtest/gtest.h>
#include <stdlib.h>

#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "common/MaxsimProcess.h"
#include "common/TestText.h"
#include "maximizer/OpenMaximizer.h"
#include "pastel/OpenPastel.h"
#include "pastel/PastelTestSet.h"
#include "shell/Tolmen.h"
#include "transfer/ClientNames.h"

namespace tolmen::test {

using json = nlohmann::json;

// A client of an address book: the automation fields, "udfs" and "addresses" as maxsim's
// description has them.
inline json Client(const std::string& id, int type, json fields) {
  fields["Identification"] = id;
  fields["RecType"] = type;
  return fields;
}

// The address book these tests share (clients.json): its UDFs, and its clients by id.
inline const json& SharedBook() {
  static const json book = [] {
    std::ifstream in(std::string(TOLMEN_SOURCE_DIR) + "/tests/client/clients.json");
    return json::parse(in);
  }();
  return book;
}

// The clients of the shared book with these ids, in this order.
inline json Clients(const std::vector<std::string>& ids) {
  json clients = json::array();
  for (const std::string& id : ids) {
    json client = SharedBook()["clients"][id];
    client["Identification"] = id;
    clients.push_back(client);
  }
  return clients;
}

class ClientTest : public tolmen::testing::PastelSetTest {
 protected:
  void TearDown() override {
    app_.reset();
    maxsim_.reset();
    unsetenv("MAXIMIZER_SOCKET");
    PastelSetTest::TearDown();
  }

  // Creates the Pastel set (set_ as the test left it) and the address book of `clients`, starts
  // maxsim, opens the set and attaches to maxsim, with `script` as the user.
  void Begin(const json& clients, const std::vector<std::string>& script) {
    Start(script);
    MakeSet();
    app_->screen.frmMain.Dir1.SetText(Folder());
    ASSERT_TRUE(OpenPastel(*app_));

    const std::string description = (root_ / "book.json").string();
    const json book = {{"name", "Test Book"}, {"udfs", SharedBook()["udfs"]}, {"clients", clients}};
    std::ofstream(description) << book.dump();
    maxsim_ = std::make_unique<MaxsimProcess>(description);
    ASSERT_TRUE(maxsim_->Start());
    setenv("MAXIMIZER_SOCKET", maxsim_->Socket().c_str(), 1);
    ASSERT_TRUE(OpenMaximizerOLE(*app_));
  }

  // The UDF option for a UDF of the book: its name and catalogue index.
  UdfOption Udf(const std::string& name) const {
    const UdfCatalogue& udfs = app_->udfs;
    for (int index = 1; index <= udfs.Count(); ++index)
      if (udfs.Name(index) == name) return {name, static_cast<int16_t>(index)};
    ADD_FAILURE() << "no UDF " << name;
    return {};
  }

  // Makes the client with this id the current one, as the client loop would find it.
  void Select(const std::string& id) {
    const RunResult result = maxsim_->Ctl({"select", id});
    ASSERT_EQ(result.status, 0) << result.out;
    app_->run.ClientName = ClientDisplayName(*app_);
  }

  std::string Log() const { return ReadFile(app_->log.Path()); }

  std::unique_ptr<MaxsimProcess> maxsim_;
};

}  // namespace tolmen::test
