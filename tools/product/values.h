#pragma once

#include "basics/json.h"
#include "product/product.h"

#include <functional>
#include <string>
#include <vector>

namespace tools {

// One value of a product: what its file holds under a section and a name, and all that is told of it.
struct ProductValue {
    const char* szSection;
    std::string strName, strUnit, strMeaning, strReader; // the last one: who reads it
    ParameterKind tKind;
    double dLowest, dHighest;
    std::function<double(const Product&)> Get;
    std::function<void(Product&, double)> Set;
};

struct ProductSection {
    const char *szKey, *szWords;
};
constexpr ProductSection kProductSections[] = {{"parameters", "The library's parameters"},
                                               {"limits", "Limits of the verdict"},
                                               {"chart", "The chart"},
                                               {"cameras", "The cameras, to be rendered"}};

// All of them, in the sections' order.
const std::vector<ProductValue>& ProductValues();

// As a file has it: a whole number or a flag as such.
Json JsonOf(const ProductValue& value, const Product& product);

// "1 to 65535", "true or false"
std::string RangeOf(const ProductValue& value);

// For people; the ones that differ from their defaults are marked.
std::string TextOf(const Product& product);

// One object that is a product's file itself: each value beside its default, unit, meaning and reader.
std::string JsonTextOf(const Product& product);

} // namespace tools
