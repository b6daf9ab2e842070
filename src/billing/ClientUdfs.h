// Billing's reads and writes of the client in hand's UDFs, through the automation link.
#pragma once

#include <cstdint>
#include <string>

namespace tolmen {

class Tolmen;

// The trimmed value of the UDF at `field`, or of the field `name` when one is given; "" for a
// field below 1 without a name.
std::string ReadClientUdf(Tolmen& app, std::int16_t field, const std::string& name = "");
// Stores `text` into the UDF at `field` (0 writes nothing).
void WriteClientUdf(Tolmen& app, std::int16_t field, const std::string& text);
// Stores `date` as "dd mmm yyyy".
void WriteClientDate(Tolmen& app, std::int16_t field, double date);

}  // namespace tolmen
