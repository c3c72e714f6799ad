#include "product/file.h"

#include "basics/closest_word.h"
#include "basics/files.h"
#include "product/values.h"

#include <algorithm>
#include <cmath>
#include <fmt/format.h>
#include <set>

namespace tools {
namespace {

constexpr std::size_t kLimit = 1 << 20;

// Bytes of a text, of which it counts the line breaks that were read.
struct CountingBytes {
    using iterator_category = std::input_iterator_tag;
    using value_type = char;
    using difference_type = std::ptrdiff_t;
    using pointer = const char*;
    using reference = const char&;

    const char* p;
    std::size_t* pnLine;

    reference operator*() const { return *p; }
    CountingBytes& operator++() {
        *pnLine += *p++ == '\n' ? 1 : 0;
        return *this;
    }
    bool operator==(const CountingBytes& other) const { return p == other.p; }
};

// As much of a text as a message takes.
std::string Shortened(const std::string& str) {
    return str.size() <= 60 ? str : str.substr(0, 60) + "...";
}

// Takes the file's parts as they are parsed, and refuses the first that does not fit.
class ProductReader : public nlohmann::json_sax<Json> {
public:
    ProductReader(const std::string& strFile, const std::size_t& nLine) : m_strFile(strFile), m_nLine(nLine) {
        m_product.tSetup.strProduct = strFile;
    }

    const Product& Read() const { return m_product; }

    bool start_object(std::size_t) override {
        if (m_aPath.size() > 2 && !m_aPath.back().empty())
            Refuse("is an object", "");
        m_aPath.emplace_back();
        return true;
    }
    bool end_object() override {
        if (m_aPath.size() == 3 && !m_tSeen.contains(m_aPath[0] + "/" + m_aPath[1] + "/value")) {
            m_aPath.pop_back();
            Refuse("holds no \"value\"", "");
        }
        m_aPath.pop_back();
        return true;
    }
    bool key(std::string& str) override {
        m_aPath.back() = str;
        m_nKeyLine = m_nLine;
        if (!m_tSeen.insert(Path()).second)
            Refuse("stands there twice", "");
        CheckName();
        return true;
    }
    bool number_integer(number_integer_t n) override { return Take(static_cast<double>(n), false, Json(n)); }
    bool number_unsigned(number_unsigned_t n) override {
        return Take(static_cast<double>(n), false, Json(n));
    }
    bool number_float(number_float_t d, const string_t&) override { return Take(d, false, Json(d)); }
    bool boolean(bool b) override { return Take(b ? 1 : 0, true, Json(b)); }
    bool null() override { return TakeOther("null"); }
    bool string(string_t& str) override {
        return TakeOther(Json(Shortened(str)).dump(kOneLine, ' ', true, Json::error_handler_t::replace));
    }
    bool binary(binary_t&) override { return TakeOther("bytes"); }
    bool start_array(std::size_t) override { return TakeOther("a list"); }
    bool end_array() override { return true; }
    bool parse_error(std::size_t, const std::string&, const Json::exception& t) override {
        if (t.id == 406)
            Refuse("holds a number that is too large", "");
        throw ToolError(m_strFile, fmt::format("line {}: is not JSON", m_nLine),
                        "Mind commas, quotes and brackets there; comments are // and /* */");
    }

private:
    std::string Path() const {
        std::string str;
        for (const std::string& strPart : m_aPath)
            str += (str.empty() ? "" : "/") + strPart;
        return str;
    }
    bool IsDescription() const {
        static const std::set<std::string> kDescriptions = {"default", "unit", "range", "meaning", "read_by"};
        return m_aPath.size() == 3 && kDescriptions.contains(m_aPath.back());
    }
    const ProductValue* Value() const {
        const auto p = std::ranges::find_if(ProductValues(), [&](const ProductValue& t) {
            return m_aPath.size() > 1 && m_aPath[0] == t.szSection && m_aPath[1] == t.strName;
        });
        return p == ProductValues().end() ? nullptr : &*p;
    }
    [[noreturn]] void Refuse(const std::string& strWhat, const std::string& strAllowed,
                             const std::string& strHint = "Mend that line") const {
        throw ToolError(m_strFile,
                        fmt::format("line {}: {}{}", m_nKeyLine,
                                    Path().empty() ? "" : "\"" + Shortened(Path()) + "\" ", strWhat) +
                            (strAllowed.empty() ? "" : "; allowed is " + strAllowed),
                        strHint + "; orvex-align parameters tells all names and ranges");
    }
    void CheckName() const {
        std::vector<std::string> aKnown;
        if (m_aPath.size() == 1)
            for (const ProductSection& t : kProductSections)
                aKnown.emplace_back(t.szKey);
        else if (m_aPath.size() == 2)
            for (const ProductValue& t : ProductValues()) {
                if (m_aPath[0] == t.szSection)
                    aKnown.push_back(t.strName);
            }
        else if (m_aPath.back() == "value" || IsDescription())
            return;
        if (std::ranges::find(aKnown, m_aPath.back()) != aKnown.end())
            return;
        const std::optional<std::string> oMeant = ClosestWord(m_aPath.back(), aKnown);
        Refuse("is not known", "", oMeant ? "It may be " + *oMeant : "Mend that line");
    }
    bool Take(double d, bool bFlag, const Json& tShown) {
        const ProductValue* const p = IsDescription() ? nullptr : Value();
        if (p == nullptr)
            return TakeOther(tShown.dump());
        const bool bFits = bFlag == (p->tKind == ParameterKind::kFlag) && d >= p->dLowest &&
                           d <= p->dHighest && (p->tKind != ParameterKind::kWhole || d == std::floor(d));
        if (!bFits)
            Refuse("is " + tShown.dump(), RangeOf(*p));
        p->Set(m_product, d);
        return true;
    }
    bool TakeOther(const std::string& strShown) const {
        if (IsDescription())
            return true;
        const ProductValue* const p = Value();
        Refuse("is " + strShown, p != nullptr ? RangeOf(*p) : "an object with names and values");
    }

    std::string m_strFile;
    const std::size_t& m_nLine;
    std::size_t m_nKeyLine = 1;
    std::vector<std::string> m_aPath; // the names that lead to where the parser is
    std::set<std::string> m_tSeen;
    Product m_product;
};

// Each side alone may be longer than a picture's that is as long on both.
void RefuseTooLarge(const std::string& strFile, PictureSize size) {
    if (PixelsOf(size) > kMaxGivenPixels)
        throw ToolError(
            strFile,
            fmt::format("pictures of {} are more than {} px in all", SizeText(size), kMaxGivenPixels),
            "Mend nWidth and nHeight, or nWidth_Slave and nHeight_Slave");
}

} // namespace

Product ReadProduct(const std::string& strFile) {
    const std::string strText = ReadFile(strFile, kLimit);
    std::size_t nLine = 1;
    ProductReader tReader(strFile, nLine);
    if (strText.find('\0') != strText.npos) // where the parser would end
        throw ToolError(strFile, "is not JSON: it holds a zero byte", "Save it as plain text in UTF-8");
    Json::sax_parse(CountingBytes{strText.data(), &nLine},
                    CountingBytes{strText.data() + strText.size(), &nLine}, &tReader,
                    nlohmann::detail::input_format_t::json, true, true);
    Product product = tReader.Read();
    for (const PictureSize size : {product.tSetup.tParameters.tMaster, product.tSetup.tParameters.tSlave})
        RefuseTooLarge(strFile, size);
    const chart::Chart& tChart = product.tChart;
    product.tSetup.dHorizontalBar = tChart.dHorizontalBarWidth / tChart.dFrameLineWidth;
    product.tSetup.dVerticalBar = tChart.dVerticalBarWidth / tChart.dFrameLineWidth;
    return product;
}

} // namespace tools
