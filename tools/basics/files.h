#pragma once

#include "basics/tool_error.h"

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace tools {

// The latest failed system call's reason.
std::string ErrnoText();

// Is given what a file begins with, 64 KiB at most, and throws ToolError if the rest is not worth
// reading.
using CheckStart = std::function<void(const std::string& strStart)>;

// All bytes of a file of at most nLimit bytes. Throws ToolError.
std::string ReadFile(const std::string& strFile, std::size_t nLimit, const CheckStart& Check = {});

// The first nBytes bytes of a file, or all if it has fewer. Throws ToolError.
std::string ReadStart(const std::string& strFile, std::size_t nBytes, const CheckStart& Check = {});

// A file that cannot be written, by the latest system call's reason unless another is given.
ToolError NotWritten(const std::string& strFile, const std::string& strToDo,
                     const std::string& strReason = ErrnoText());

// A new file, of which the latest system call's reason tells what to do, or else szUsually.
ToolError NotCreated(const std::string& strFile, const char* szUsually);

struct NewFile {
    std::string strFile;
    std::string strBytes;
};

// Writes a set of files that belong together. Each is written beside its target under a temporary name; only
// when all of them lie on the disk do they take their places, so that no failure to write leaves half a file
// or a mixed set. A file that is replaced keeps its mode and,
// where the system allows it, its owner. Throws ToolError.
void WriteFiles(const std::vector<NewFile>& aFiles);

// Writes all bytes; false with the reason in errno.
bool WriteAll(int nDescriptor, const std::string& str);

// Whether two names lead to one file, there or not yet, links followed; an empty name leads to none.
bool IsSameFile(const std::string& strOne, const std::string& strOther);

// Creates the folder and its parents where they are missing. Throws ToolError.
void CreateFolder(const std::string& strFolder);

} // namespace tools
