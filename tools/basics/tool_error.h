#pragma once

#include "basics/harmless_text.h"

#include <stdexcept>
#include <string>

namespace tools {

// A file that cannot be read, written or used. Says which file, what is wrong with it and what to do, each in
// one line and harmless, whatever names it quotes.
class ToolError : public std::runtime_error {
public:
    ToolError(const std::string& strFile, const std::string& strReason, const std::string& strAdvice)
        : std::runtime_error(Told(strFile, strReason) + "\n  " + Harmless(strAdvice) + "."),
          m_strFile(strFile), m_strReason(strReason), m_strAdvice(strAdvice) {}

    const std::string& File() const { return m_strFile; }
    const std::string& Reason() const { return m_strReason; }
    const std::string& Advice() const { return m_strAdvice; }
    std::string OneLine() const { return Told(m_strFile, m_strReason) + " " + Harmless(m_strAdvice) + "."; }

private:
    static std::string Told(const std::string& strFile, const std::string& strReason) {
        return (strFile.empty() ? "a file without a name" : Harmless(strFile)) + ": " + Harmless(strReason) +
               ".";
    }

    std::string m_strFile, m_strReason, m_strAdvice;
};

} // namespace tools
