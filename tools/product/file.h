#pragma once

#include "product/product.h"

namespace tools {

// Reads a product's file: JSON, in which comments may stand. Sections and names are those of ProductValues();
// what is not there keeps its default. A value stands there itself, or as the "value" of an object that
// describes it, as JsonTextOf() writes it. Throws ToolError with the line.
Product ReadProduct(const std::string& strFile);

} // namespace tools
