// Operation codes and status words of the record manager's call, as the engine answers them.
#pragma once

#include <cstdint>

namespace tolmen {

// Base operation codes. Get operations may carry a lock bias (+100 to +400), and Begin
// Transaction may be asked for as 1019 (concurrent); the engine takes no locks for either.
enum BtrOp : uint16_t {
  kOpOpen = 0,
  kOpClose = 1,
  kOpInsert = 2,
  kOpUpdate = 3,
  kOpDelete = 4,
  kOpGetEqual = 5,
  kOpGetNext = 6,
  kOpGetPrevious = 7,
  kOpGetGreater = 8,
  kOpGetGreaterOrEqual = 9,
  kOpGetLess = 10,
  kOpGetLessOrEqual = 11,
  kOpGetFirst = 12,
  kOpGetLast = 13,
  kOpCreate = 14,
  kOpStat = 15,
  kOpBeginTransaction = 19,
  kOpEndTransaction = 20,
  kOpAbortTransaction = 21,
  kOpGetPosition = 22,
  kOpGetDirect = 23,
  kOpStop = 25,
  kOpVersion = 26,
  kOpUnlock = 27,
  kOpReset = 28,
  kOpConcurrentBias = 1000,  // 1019: Begin Transaction, concurrent
};

// The statuses the engine gives.
enum BtrStatus : int16_t {
  kStatusOk = 0,
  kStatusInvalidOperation = 1,
  kStatusIoError = 2,
  kStatusNotOpen = 3,
  kStatusKeyNotFound = 4,
  kStatusDuplicateKey = 5,
  kStatusInvalidKeyNumber = 6,
  kStatusKeyNumberChanged = 7,
  kStatusInvalidPositioning = 8,
  kStatusEndOfFile = 9,
  kStatusKeyNotModifiable = 10,
  kStatusInvalidFileName = 11,
  kStatusFileNotFound = 12,
  kStatusDiskFull = 18,
  kStatusKeyBufferTooShort = 21,
  kStatusDataBufferTooShort = 22,
  kStatusPositionBlockLength = 23,
  kStatusInvalidPageSize = 24,
  kStatusCreateIoError = 25,
  kStatusInvalidKeyCount = 26,
  kStatusInvalidKeyPosition = 27,
  kStatusInvalidRecordLength = 28,
  kStatusInvalidKeyLength = 29,
  kStatusNotARecordFile = 30,
  kStatusTransactionActive = 37,
  kStatusNoTransaction = 39,
  kStatusInvalidRecordAddress = 43,
  kStatusInvalidKeyFlags = 45,
  kStatusAccessDenied = 46,
  kStatusInvalidAutoIncrement = 55,
  kStatusFileExists = 59,
  kStatusFileLocked = 85,
};

}  // namespace tolmen
