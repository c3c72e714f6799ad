#pragma once

#include "pictures/picture_size.h"

#include <CLI/CLI.hpp>

namespace tools {

// Accepts numbers from dLowest to dHighest, and nothing that is no number.
CLI::Validator Within(double dLowest, double dHighest);

// Accepts whole numbers from 0 that fit into 64 bits, and no sign.
CLI::Validator WholeNumber();

// Accepts a name of a file or folder: any but an empty one, which a script's unset variable leaves.
CLI::Validator FileName();

// Accepts one of these words.
CLI::Validator OneOf(const std::vector<std::string>& aWords);

// Reads "1728x972", the value of an option. Throws CLI::ValidationError.
PictureSize ParsedSize(const std::string& strOption, const std::string& str);

} // namespace tools
