// maxsim's own store of an address book: an SQLite database "maxsim.db" in the database folder,
// beside the client file. Texts are kept as UTF-8.
//
//   book(key, value)                    name, client_record_length
//   udfs(pos, name, type)               in definition order
//   udf_items(udf, pos, item)           a Table UDF's items
//   clients(seq, last_change)           seq is the client's place + 1 (its sequence number)
//   client_fields(seq, field, value)    by automation name; empty values are not kept
//   udf_values(seq, udf, value)
//   addresses(seq, pos, id, name, main, division, address_line_1, ..., zip_/_postal_code)
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>

#include "Model.h"

struct sqlite3;
struct sqlite3_stmt;

namespace tolmen::maxsim {

inline constexpr const char* kStoreName = "maxsim.db";

class Store {
 public:
  // Opens an existing store; throws std::runtime_error when there is none or it cannot be read.
  explicit Store(const std::string& path);
  Store(const Store&) = delete;
  Store& operator=(const Store&) = delete;
  ~Store();

  // Writes a new store; throws std::runtime_error when the file exists or cannot be written.
  static void Create(const std::string& path, const AddressBook& book);

  AddressBook Load();
  // Copies the store's log into the file when it has grown: called between calls, so that the
  // disk's wait falls outside them.
  void WhenIdle();
  // A changed field or UDF value of the client at `place`, with its new last-change time, or
  // none when the time stays as it is: then the value is the one row written.
  void SaveField(size_t place, size_t field, const std::string& value,
                 std::optional<double> lastChange);
  void SaveUdf(size_t place, size_t udf, const std::string& value,
               std::optional<double> lastChange);

 private:
  explicit Store(sqlite3* db);
  // SQLite's hook after each commit, with the number of pages in the log.
  static int AfterCommit(void* self, sqlite3* db, const char* name, int pages);
  void Checkpoint();
  void Exec(const std::string& sql);
  // Runs `work` and the client's new last-change time in one transaction; without a new time,
  // `work`'s single statement is its own transaction.
  void Save(size_t place, std::optional<double> lastChange, const std::function<void()>& work);
  // Runs `work` in one transaction, rolled back when it throws.
  void InTransaction(const std::function<void()>& work);
  void Fill(const AddressBook& book);
  void SaveStamp(size_t place, double lastChange);
  // The statement of `sql` (a literal), prepared once and kept while the store is open: a field
  // write runs five.
  sqlite3_stmt* Kept(const char* sql);

  sqlite3* db_ = nullptr;
  int logPages_ = 0;
  std::map<const char*, sqlite3_stmt*> kept_;
};

}  // namespace tolmen::maxsim
