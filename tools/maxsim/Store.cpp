// The SQLite store of an address book.
#include "Store.h"

#include <sqlite3.h>

#include <filesystem>
#include <functional>
#include <stdexcept>
#include <utility>

#include "runtime/Cp1252.h"

namespace tolmen::maxsim {

namespace {

constexpr const char* kSchema = R"(
CREATE TABLE book(key TEXT PRIMARY KEY, value TEXT NOT NULL);
CREATE TABLE udfs(pos INTEGER PRIMARY KEY, name TEXT NOT NULL, type TEXT NOT NULL);
CREATE TABLE udf_items(udf INTEGER, pos INTEGER, item TEXT NOT NULL, PRIMARY KEY(udf, pos));
CREATE TABLE clients(seq INTEGER PRIMARY KEY, last_change REAL NOT NULL);
CREATE TABLE client_fields(seq INTEGER, field TEXT, value TEXT NOT NULL, PRIMARY KEY(seq, field));
CREATE TABLE udf_values(seq INTEGER, udf INTEGER, value TEXT NOT NULL, PRIMARY KEY(seq, udf));
CREATE TABLE addresses(seq INTEGER, pos INTEGER, id INTEGER NOT NULL, name TEXT NOT NULL,
  main INTEGER NOT NULL, division TEXT, address_line_1 TEXT, address_line_2 TEXT, city TEXT,
  "state_/_province" TEXT, country TEXT, "zip_/_postal_code" TEXT, PRIMARY KEY(seq, pos));
)";

sqlite3_stmt* PrepareOrThrow(sqlite3* db, const char* sql, unsigned flags) {
  sqlite3_stmt* stmt = nullptr;
  if (sqlite3_prepare_v3(db, sql, -1, flags, &stmt, nullptr) != SQLITE_OK) {
    sqlite3_finalize(stmt);
    throw std::runtime_error(std::string("store: ") + sqlite3_errmsg(db));
  }
  return stmt;
}

// One prepared statement, finalized on the way out; or one the store keeps (Store::Kept), reset
// and cleared on the way out.
class Statement {
 public:
  Statement(sqlite3* db, const char* sql) : stmt_(PrepareOrThrow(db, sql, 0)), owned_(true) {}
  explicit Statement(sqlite3_stmt* kept) : stmt_(kept), owned_(false) {}
  Statement(const Statement&) = delete;
  Statement& operator=(const Statement&) = delete;
  ~Statement() {
    if (owned_) {
      sqlite3_finalize(stmt_);
    } else {
      sqlite3_reset(stmt_);
      sqlite3_clear_bindings(stmt_);
    }
  }

  Statement& Bind(int column, int64_t value) {
    sqlite3_bind_int64(stmt_, column, value);
    return *this;
  }
  Statement& Bind(int column, double value) {
    sqlite3_bind_double(stmt_, column, value);
    return *this;
  }
  // A Windows-1252 text, stored as UTF-8.
  Statement& Bind(int column, const std::string& text) {
    const std::string utf8 = Cp1252ToUtf8(text);
    sqlite3_bind_text(stmt_, column, utf8.data(), static_cast<int>(utf8.size()), SQLITE_TRANSIENT);
    return *this;
  }
  bool Step() {
    const int rc = sqlite3_step(stmt_);
    if (rc == SQLITE_ROW) return true;
    if (rc != SQLITE_DONE)
      throw std::runtime_error(std::string("store: ") + sqlite3_errmsg(sqlite3_db_handle(stmt_)));
    return false;
  }
  void Run() {
    Step();
    sqlite3_reset(stmt_);
  }
  int64_t Int(int column) { return sqlite3_column_int64(stmt_, column); }
  double Real(int column) { return sqlite3_column_double(stmt_, column); }
  std::string Text(int column) {
    const auto* text = sqlite3_column_text(stmt_, column);
    if (text == nullptr) return "";
    return Utf8ToCp1252(std::string(reinterpret_cast<const char*>(text),
                                    static_cast<size_t>(sqlite3_column_bytes(stmt_, column))));
  }

 private:
  sqlite3_stmt* stmt_ = nullptr;
  bool owned_;
};

// Pages in the log from which an idle moment copies them into the file, and past which a commit
// does (1 and 10 MB with the 1 KB pages of a new store).
constexpr int kIdleCheckpoint = 1000;
constexpr int kCheckpointBound = 10000;

sqlite3* OpenDb(const std::string& path, int flags) {
  sqlite3* db = nullptr;
  if (sqlite3_open_v2(path.c_str(), &db, flags, nullptr) != SQLITE_OK) {
    const std::string message = db ? sqlite3_errmsg(db) : "out of memory";
    sqlite3_close(db);
    throw std::runtime_error("store " + path + ": " + message);
  }
  sqlite3_busy_timeout(db, 5000);
  // A field write changes one small row: small pages make its commit, one page written to the
  // log, a good deal quicker. The size holds only for a store being made.
  if (flags & SQLITE_OPEN_CREATE)
    sqlite3_exec(db, "PRAGMA page_size=1024", nullptr, nullptr, nullptr);
  // A change is saved at each field write: WAL without a sync per commit keeps that quick, and
  // a crash still leaves the store whole.
  sqlite3_exec(db, "PRAGMA journal_mode=WAL; PRAGMA synchronous=NORMAL", nullptr, nullptr, nullptr);
  return db;
}

}  // namespace

Store::Store(const std::string& path) {
  if (!std::filesystem::exists(path)) throw std::runtime_error("no address book at " + path);
  db_ = OpenDb(path, SQLITE_OPEN_READWRITE);
  sqlite3_wal_hook(db_, &Store::AfterCommit, this);
}

Store::Store(sqlite3* db) : db_(db) {
  sqlite3_wal_hook(db_, &Store::AfterCommit, this);
}

int Store::AfterCommit(void* self, sqlite3* /*db*/, const char* /*name*/, int pages) {
  // The hook takes the place of SQLite's own checkpoint after 1,000 pages: a checkpoint waits
  // for the disk twice, so it is put off to an idle moment, and done here only past a bound.
  auto* store = static_cast<Store*>(self);
  store->logPages_ = pages;
  if (pages >= kCheckpointBound) store->Checkpoint();
  return SQLITE_OK;
}

void Store::Checkpoint() {
  sqlite3_wal_checkpoint_v2(db_, nullptr, SQLITE_CHECKPOINT_PASSIVE, nullptr, nullptr);
  logPages_ = 0;
}

void Store::WhenIdle() {
  if (logPages_ >= kIdleCheckpoint) Checkpoint();
}

Store::~Store() {
  for (const auto& [sql, stmt] : kept_) sqlite3_finalize(stmt);
  sqlite3_close(db_);
}

sqlite3_stmt* Store::Kept(const char* sql) {
  sqlite3_stmt*& stmt = kept_[sql];
  if (!stmt) stmt = PrepareOrThrow(db_, sql, SQLITE_PREPARE_PERSISTENT);
  return stmt;
}

void Store::Exec(const std::string& sql) {
  char* error = nullptr;
  if (sqlite3_exec(db_, sql.c_str(), nullptr, nullptr, &error) != SQLITE_OK) {
    const std::string message = error ? error : "failed";
    sqlite3_free(error);
    throw std::runtime_error("store: " + message);
  }
}

void Store::Create(const std::string& path, const AddressBook& book) {
  if (std::filesystem::exists(path)) throw std::runtime_error(path + " exists already");
  try {
    Store store(OpenDb(path, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE));
    store.InTransaction([&] { store.Fill(book); });
  } catch (...) {
    std::error_code ignored;
    for (const char* suffix : {"", "-wal", "-shm"}) std::filesystem::remove(path + suffix, ignored);
    throw;
  }
}

void Store::Fill(const AddressBook& book) {
  Store& store = *this;
  store.Exec(kSchema);
  Statement meta(store.db_, "INSERT INTO book VALUES(?, ?)");
  meta.Bind(1, std::string("name")).Bind(2, book.name).Run();
  meta.Bind(1, std::string("client_record_length"))
      .Bind(2, std::to_string(book.recordLength))
      .Run();
  Statement udf(store.db_, "INSERT INTO udfs VALUES(?, ?, ?)");
  Statement item(store.db_, "INSERT INTO udf_items VALUES(?, ?, ?)");
  for (size_t u = 0; u < book.udfs.size(); ++u) {
    const auto pos = static_cast<int64_t>(u);
    udf.Bind(1, pos)
        .Bind(2, book.udfs[u].name)
        .Bind(3, std::string(UdfTypeWord(book.udfs[u].type)))
        .Run();
    for (size_t i = 0; i < book.udfs[u].items.size(); ++i)
      item.Bind(1, pos).Bind(2, static_cast<int64_t>(i)).Bind(3, book.udfs[u].items[i]).Run();
  }
  Statement client(store.db_, "INSERT INTO clients VALUES(?, ?)");
  Statement field(store.db_, "INSERT INTO client_fields VALUES(?, ?, ?)");
  Statement value(store.db_, "INSERT INTO udf_values VALUES(?, ?, ?)");
  Statement address(store.db_, "INSERT INTO addresses VALUES(?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)");
  for (size_t c = 0; c < book.clients.size(); ++c) {
    const Client& data = book.clients[c];
    const auto seq = static_cast<int64_t>(c + 1);
    client.Bind(1, seq).Bind(2, data.lastChange).Run();
    for (size_t f = 0; f < kFieldCount; ++f)
      if (!data.fields[f].empty())
        field.Bind(1, seq).Bind(2, std::string(kClientFields[f])).Bind(3, data.fields[f]).Run();
    for (size_t u = 0; u < data.udfs.size(); ++u)
      if (!data.udfs[u].empty())
        value.Bind(1, seq).Bind(2, static_cast<int64_t>(u)).Bind(3, data.udfs[u]).Run();
    for (size_t a = 0; a < data.addresses.size(); ++a) {
      const Address& entry = data.addresses[a];
      address.Bind(1, seq).Bind(2, static_cast<int64_t>(a)).Bind(3, int64_t{entry.id});
      address.Bind(4, entry.name).Bind(5, int64_t{entry.main ? 1 : 0});
      for (size_t f = 0; f < kAddressFields.size(); ++f)
        address.Bind(static_cast<int>(6 + f), entry.fields[f]);
      address.Run();
    }
  }
}

AddressBook Store::Load() {
  AddressBook book;
  Statement meta(db_, "SELECT key, value FROM book");
  while (meta.Step()) {
    if (meta.Text(0) == "name") book.name = meta.Text(1);
    if (meta.Text(0) == "client_record_length")
      book.recordLength = static_cast<uint16_t>(std::stoi(meta.Text(1)));
  }
  Statement udfs(db_, "SELECT name, type FROM udfs ORDER BY pos");
  while (udfs.Step())
    book.udfs.push_back(
        Udf{udfs.Text(0), ParseUdfType(udfs.Text(1)).value_or(UdfType::Alphanumeric), {}});
  Statement items(db_, "SELECT udf, item FROM udf_items ORDER BY udf, pos");
  while (items.Step())
    book.udfs.at(static_cast<size_t>(items.Int(0))).items.push_back(items.Text(1));

  Statement clients(db_, "SELECT last_change FROM clients ORDER BY seq");
  while (clients.Step()) {
    Client client;
    client.lastChange = clients.Real(0);
    client.udfs.assign(book.udfs.size(), std::string());
    book.clients.push_back(std::move(client));
  }
  auto at = [&](int64_t seq) -> Client& { return book.clients.at(static_cast<size_t>(seq - 1)); };
  Statement fields(db_, "SELECT seq, field, value FROM client_fields");
  while (fields.Step())
    if (const auto field = FindField(fields.Text(1)))
      at(fields.Int(0)).fields[*field] = fields.Text(2);
  Statement values(db_, "SELECT seq, udf, value FROM udf_values");
  while (values.Step())
    at(values.Int(0)).udfs.at(static_cast<size_t>(values.Int(1))) = values.Text(2);
  Statement addresses(db_, "SELECT * FROM addresses ORDER BY seq, pos");
  while (addresses.Step()) {
    Address address;
    address.id = static_cast<int32_t>(addresses.Int(2));
    address.name = addresses.Text(3);
    address.main = addresses.Int(4) != 0;
    for (size_t f = 0; f < kAddressFields.size(); ++f)
      address.fields[f] = addresses.Text(static_cast<int>(5 + f));
    at(addresses.Int(0)).addresses.push_back(std::move(address));
  }
  return book;
}

void Store::SaveStamp(size_t place, double lastChange) {
  Statement stamp(Kept("UPDATE clients SET last_change = ? WHERE seq = ?"));
  stamp.Bind(1, lastChange).Bind(2, static_cast<int64_t>(place + 1)).Run();
}

void Store::InTransaction(const std::function<void()>& work) {
  Statement(Kept("BEGIN")).Run();
  try {
    work();
    Statement(Kept("COMMIT")).Run();
  } catch (...) {
    sqlite3_exec(db_, "ROLLBACK", nullptr, nullptr, nullptr);
    throw;
  }
}

void Store::Save(size_t place, std::optional<double> lastChange,
                 const std::function<void()>& work) {
  if (!lastChange) return work();
  InTransaction([&] {
    work();
    SaveStamp(place, *lastChange);
  });
}

void Store::SaveField(size_t place, size_t field, const std::string& value,
                      std::optional<double> lastChange) {
  const auto seq = static_cast<int64_t>(place + 1);
  Save(place, lastChange, [&] {
    // A value in place of the old one is one row written, not one removed and one added.
    if (value.empty()) {
      Statement erase(Kept("DELETE FROM client_fields WHERE seq = ? AND field = ?"));
      erase.Bind(1, seq).Bind(2, std::string(kClientFields[field])).Run();
    } else {
      Statement put(
          Kept("INSERT INTO client_fields VALUES(?, ?, ?) "
               "ON CONFLICT(seq, field) DO UPDATE SET value = excluded.value"));
      put.Bind(1, seq).Bind(2, std::string(kClientFields[field])).Bind(3, value).Run();
    }
  });
}

void Store::SaveUdf(size_t place, size_t udf, const std::string& value,
                    std::optional<double> lastChange) {
  const auto seq = static_cast<int64_t>(place + 1);
  Save(place, lastChange, [&] {
    if (value.empty()) {
      Statement erase(Kept("DELETE FROM udf_values WHERE seq = ? AND udf = ?"));
      erase.Bind(1, seq).Bind(2, static_cast<int64_t>(udf)).Run();
    } else {
      Statement put(
          Kept("INSERT INTO udf_values VALUES(?, ?, ?) "
               "ON CONFLICT(seq, udf) DO UPDATE SET value = excluded.value"));
      put.Bind(1, seq).Bind(2, static_cast<int64_t>(udf)).Bind(3, value).Run();
    }
  });
}

}  // namespace tolmen::maxsim
