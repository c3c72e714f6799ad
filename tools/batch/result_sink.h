#pragma once

#include "basics/descriptor.h"

#include <string>

namespace tools {

enum class OpenMode { kNew, kOverwrite, kResume };

// A file that grows by whole lines, or standard output for an empty name. Each line is handed to the system
// at once, so that it outlives whatever happens to this process. Only one process writes to a file at a time.
class ResultSink {
public:
    // Changes nothing in a file that is there already. kNew refuses such a file. Throws ToolError.
    ResultSink(const std::string& strFile, OpenMode tMode);

    // Cuts a file off behind its first nBytes; the next line follows there.
    void KeepOnly(std::size_t nBytes);

    // All of it or nothing. Throws ToolError.
    void Write(const std::string& strLine);

private:
    std::string m_strFile;
    Descriptor m_tDescriptor;
    std::size_t m_nSize = 0;
};

} // namespace tools
