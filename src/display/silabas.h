#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace sorvanel {

// Where a Spanish word may be cut at the end of a line, in bytes from its beginning; at least two letters stand before
// and behind each cut. What is no word has none.
std::vector<std::size_t> cortesSilaba(std::string_view palabra);

}  // namespace sorvanel
