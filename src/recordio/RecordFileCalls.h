// The two file-level calls every record class makes the same way: opening its file (with or
// without an owner name) and counting its records from the record manager's statistics.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "recordio/BtObject.h"

namespace tolmen {

class Tolmen;

// Opens the file through GlobalIO: KeyNum becomes the open mode (0 when none is given); an owner
// name goes to the record manager in the data buffer, DBLen is restored afterwards and, on
// status 0 or 9, the object is positioned on the first record. FileName becomes `fileName` on
// status 0.
void OpenRecordFile(Tolmen& app, BtObject& object, const std::string& fileName,
                    std::optional<std::int16_t> openMode, const std::optional<std::string>& owner,
                    const std::optional<std::string>& accepted);

// The number of records from the statistics call (operation 15, made directly, past GlobalIO),
// read through the hexadecimal text that drops each byte's leading zero ("&H0015&" for bytes
// 05 01 00 00, which is 21): exact only while no byte below 0x10 follows a non-zero byte.
// 0 when the file is not open; STATUS_ takes the call's status.
std::int32_t StatRecordCount(Tolmen& app, BtObject& object);

}  // namespace tolmen
