// Words for the statuses the record engine gives, for butil's error messages.
#pragma once

#include <cstdint>
#include <string>

namespace tolmen::butil {

// "status 12 (File Not Found or there are spaces in the Path)".
std::string DescribeStatus(int16_t status);

}  // namespace tolmen::butil
