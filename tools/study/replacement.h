#pragma once

#include "basics/files.h"

namespace tools {

// Whether the file is there with exactly these bytes.
bool Holds(const NewFile& file);

// Throws ToolError for the first of these files that is there with other bytes; the same ones are no loss.
void RefuseToReplace(const std::vector<NewFile>& aFiles);

// Removes the file, where there is one. Throws ToolError.
void RemoveFile(const std::string& strFile);

} // namespace tools
