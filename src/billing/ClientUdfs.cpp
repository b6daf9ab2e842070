#include "billing/ClientUdfs.h"

#include "maximizer/UdfCatalogue.h"
#include "runtime/Format.h"

namespace tolmen {

std::string ReadClientUdf(Tolmen& app, std::int16_t field, const std::string& name) {
  return GetClientField(app, field, name);
}

void WriteClientUdf(Tolmen& app, std::int16_t field, const std::string& text) {
  SetClientField(app, field, text);
}

void WriteClientDate(Tolmen& app, std::int16_t field, double date) {
  SetClientField(app, field, FormatDate(date, "dd mmm yyyy"));
}

}  // namespace tolmen
