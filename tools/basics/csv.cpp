#include "basics/csv.h"

#include <algorithm>

namespace tools {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

class Reader {
public:
    Reader(std::string_view strText, CsvForm tForm)
        : m_strText(strText), m_nAt(strText.starts_with(kByteOrderMark) ? kByteOrderMark.size() : 0),
          m_tForm(tForm) {}

    bool AtEnd() const { return m_nAt >= m_strText.size(); }

    CsvRecord Next() {
        CsvRecord t = {{}, m_nLine, 0, false, false};
        do
            t.aCells.push_back(Cell(t.bQuoteOpen));
        while (Skip(m_tForm.cSeparator));
        t.bLineEnded = Skip('\n');
        t.nEnd = m_nAt;
        return t;
    }

private:
    bool Skip(char c) {
        if (AtEnd() || m_strText[m_nAt] != c)
            return false;
        Take(m_nAt + 1);
        return true;
    }

    std::string_view Take(std::size_t nEnd) {
        const std::string_view str = m_strText.substr(m_nAt, nEnd - m_nAt);
        m_nLine += static_cast<std::size_t>(std::ranges::count(str, '\n'));
        m_nAt += str.size();
        return str;
    }

    std::string Cell(bool& bQuoteOpen) {
        std::string str;
        if (m_tForm.bTrimmed)
            Take(m_strText.find_first_not_of(Blanks(), m_nAt));
        if (Skip('"'))
            bQuoteOpen = !TakeQuoted(str);
        std::string_view strRest =
            Take(m_strText.find_first_of(std::string{m_tForm.cSeparator, '\n'}, m_nAt));
        if ((AtEnd() || m_strText[m_nAt] == '\n') && strRest.ends_with('\r'))
            strRest.remove_suffix(1);
        if (m_tForm.bTrimmed)
            strRest = strRest.substr(0, strRest.find_last_not_of(Blanks()) + 1);
        return str.append(strRest);
    }

    std::string_view Blanks() const { return m_tForm.cSeparator == '\t' ? " " : " \t"; }

    // Up to the closing quote; a doubled one stands for itself.
    bool TakeQuoted(std::string& str) {
        do {
            str += Take(m_strText.find('"', m_nAt));
            if (!Skip('"'))
                return false;
            str += '"';
        } while (Skip('"'));
        str.pop_back();
        return true;
    }

    std::string_view m_strText;
    std::size_t m_nAt;
    CsvForm m_tForm;
    std::size_t m_nLine = 1;
};

std::string Quoted(const std::string& str) {
    if (str.find_first_of(",\"\r\n") == str.npos)
        return str;
    std::string strQuoted = "\"";
    for (const char c : str)
        strQuoted += c == '"' ? std::string("\"\"") : std::string(1, c);
    return strQuoted + "\"";
}

} // namespace

std::vector<CsvRecord> ParseCsv(std::string_view strText, CsvForm tForm) {
    std::vector<CsvRecord> aRecords;
    for (Reader tReader(strText, tForm); !tReader.AtEnd();) {
        CsvRecord t = tReader.Next();
        if (t.aCells != std::vector<std::string>{""} || t.bQuoteOpen)
            aRecords.push_back(std::move(t));
    }
    return aRecords;
}

std::string CsvLine(const std::vector<std::string>& aCells) {
    std::string str;
    for (const std::string& strCell : aCells)
        str += Quoted(strCell) + ",";
    str.back() = '\n';
    return str;
}

} // namespace tools
