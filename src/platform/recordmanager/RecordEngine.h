// The record engine: the record manager's single call, BTRCALL, over SQLite, one SQLite database
// per record file (RecordFile.h). One engine serves a process; the application object owns it.
//
// The call: operation, a 128-byte position block that the caller keeps for each open file
// (PositionBlock.h), the data buffer and its length (in and out), the key buffer and its length,
// and the key number (on Open, the open mode). Buffers are byte strings.
//
// Operations: 0 Open, 1 Close, 2 Insert, 3 Update, 4 Delete, 5 Get Equal, 6 Get Next, 7 Get
// Previous, 8 Get Greater, 9 Get Greater or Equal, 10 Get Less, 11 Get Less or Equal, 12 Get
// First, 13 Get Last, 14 Create, 15 Stat, 19 and 1019 Begin Transaction, 20 End, 21 Abort, 22
// Get Position, 23 Get Direct, 25 Stop, 26 Version, 27 Unlock, 28 Reset. Lock biases (+100 to
// +400) are accepted and take no lock; any other operation gives status 1.
//
// What comes back:
// - Every Get returns the record in the data buffer (the buffer then holds exactly the record),
//   its length in the data length, and the key value in the first bytes of the key buffer; it
//   makes the record current along the key number. A data buffer shorter than the record gives
//   22: the buffer holds its length's worth of the start of the record, and the record is current.
// - Get Equal gives 4 when no record has the value (on duplicates it finds the first); Get
//   Greater, Greater or Equal, Less, Less or Equal, First and Last give 9 when no record
//   qualifies; Get Next and Previous move from the block's currency (duplicates come in insertion
//   order), give 9 at the ends, 8 without a currency and 7 when the key number is not the one the
//   currency was made on. A failed Get leaves the currency as it was.
// - Insert returns the key in the key buffer and makes the new record current (key number -1:
//   no currency change); an AUTOINCREMENT field holding 0 gets the next value, in the data
//   buffer too. Update and Delete need a current record (8); Update refuses a change of a
//   non-modifiable key (10) and a duplicate of a unique key (5), and keeps the record current; it
//   writes only the record when no key changed, and only the changed keys otherwise.
//   After Delete, Get Next and Previous continue from where the record was. A fixed-length file
//   takes records of exactly its record length, a variable-length one records of at least it
//   (22 otherwise).
// - Open: the key buffer holds the path (surrounding double quotes and blanks, and anything
//   from a NUL, are dropped; the file is found without regard to case); the key number is the
//   mode: 0 normal, -1 accelerated, -2 read-only (writes give 46), -3 verify, -4 exclusive (no
//   other Open of the file in this engine: 85). The data buffer may carry an owner name, which is
//   accepted: the engine's files have no owners. 12 for a missing file, 30 for a file that is
//   not a record file of this engine, 2 for a damaged one.
// - Create: the key buffer holds the path, the data buffer the definition (FileStat.h); key
//   number -1 refuses to replace an existing file (59), 0 replaces it. The file is not opened.
// - Stat fills the definition with the number of records at offset 6 and, for each key's
//   first segment, the number of distinct values. Get Position gives the current record's
//   4-byte position; Get Direct reads the record at the position in the first 4 bytes of the data
//   buffer (43 if there is none) and makes it current along the key number.
// - Statuses for the block: 3 when it names no open file of this engine, 23 when it is not 128
//   bytes (Open). 6 for a key number the file does not have, 21 for a key buffer length shorter
//   than the key.
//
// Transactions: Begin (19, 1019) opens one transaction for every file the process writes until
// End (20) or Abort (21); 37 for a second Begin, 39 for End or Abort without one. Each file is
// its own SQLite database with its own connection (SQLite attaches at most 10 databases to one
// connection, fewer than a set of accounts has files), so a file joins the transaction at its
// first write: BEGIN IMMEDIATE on its connection. End commits the files one after another, Abort
// rolls them all back.
//
// Durability: files are written with WAL and synchronous=NORMAL (EngineOptions.h). SQLite's log
// keeps each file whole through a crash of the process or the machine at any moment. A
// transaction over several files comes back all or none after a crash of the process, also one
// in the middle of End: End leaves an intent file beside each file while it commits, and the next
// Open of any of them finishes the transaction (EndIntent.h); a failed commit in End takes the
// committed files back at once. A power cut may lose the last commits, of each file on its own:
// commits are not synced until SQLite copies its log into the file. Stop (25) and Reset (28) roll
// back and close every file, as does destroying the engine.
//
// Other processes may read the files at any time: between calls no statement is open. Get Next
// and Previous read ahead a window of rows (8, doubling up to EngineOptions::windowRows) from one
// statement and reset it; the window is dropped when this engine writes the file, and when it is
// older than EngineOptions::windowMilliseconds, so what another process writes shows within that
// time or once the window is used up.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/recordmanager/EngineOptions.h"

namespace tolmen {

class RecordEngine {
 public:
  explicit RecordEngine(const EngineOptions& options = {});
  RecordEngine(const RecordEngine&) = delete;
  RecordEngine& operator=(const RecordEngine&) = delete;
  ~RecordEngine();

  int16_t BTRCALL(uint16_t operation, std::string& posBlk, std::string& dataBuf, int32_t& dataLen,
                  std::string& keyBuf, int16_t keyLen, int16_t keyNum);

 private:
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

}  // namespace tolmen
