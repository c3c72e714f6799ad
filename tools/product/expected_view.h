#pragma once

#include "product/product.h"

#include <string>

namespace tools {

// Where both cameras should see the chart, upright and from straight ahead, and how far from what they
// search, px: a table for people.
std::string ExpectedViewText(const Product& product);

} // namespace tools
