#include "StatusText.h"

#include "recordio/StatusCatalogue.h"

namespace tolmen::butil {

std::string DescribeStatus(int16_t status) {
  return "status " + std::to_string(status) + " (" + StatusText(status) + ")";
}

}  // namespace tolmen::butil
