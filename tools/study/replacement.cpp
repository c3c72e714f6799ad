#include "study/replacement.h"

#include <cerrno>
#include <filesystem>
#include <unistd.h>

namespace tools {

bool Holds(const NewFile& file) {
    try {
        return ReadFile(file.strFile, file.strBytes.size()) == file.strBytes;
    } catch (const ToolError&) { // not there, or larger
        return false;
    }
}

void RefuseToReplace(const std::vector<NewFile>& aFiles) {
    std::error_code tIgnored; // what else is wrong with a name shows on writing
    for (const NewFile& t : aFiles)
        if (std::filesystem::is_regular_file(t.strFile, tIgnored) && !Holds(t))
            throw ToolError(t.strFile, "exists already, with other content",
                            "Replace what differs by --overwrite, or choose another --out");
}

void RemoveFile(const std::string& strFile) {
    if (unlink(strFile.c_str()) == -1 && errno != ENOENT)
        throw ToolError(strFile, "cannot be removed (" + ErrnoText() + ")",
                        "Remove it, or name another folder");
}

} // namespace tools
