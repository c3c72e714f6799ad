#include "product/values.h"

#include "basics/text_table.h"
#include "trust/numbers.h"

#include <cmath>
#include <fmt/format.h>

namespace tools {
namespace {

std::string ReaderOf(const Parameter& t) {
    if (t.tStage == Stage::kEntry || t.tStage == Stage::kComplete)
        return t.tStage == Stage::kEntry ? "every stage" : "no stage";
    const std::string strFirst = DescribeStage(t.tStage).szName;
    return t.tLast == t.tStage ? strFirst : strFirst + ", " + DescribeStage(t.tLast).szName;
}

void AddParameters(std::vector<ProductValue>& a) {
    for (const Parameter& t : ParameterTable())
        a.push_back({"parameters", t.szName, t.szUnit, t.szMeaning, ReaderOf(t), t.tKind, t.dLowest,
                     t.dHighest, [&t](const Product& product) { return t.Get(product.tSetup.tParameters); },
                     [&t](Product& product, double d) { t.Set(product.tSetup.tParameters, d); }});
}

void AddLimit(const char* szName, const char* szMeaning, double Limits::*pLimit, double dHighest,
              std::vector<ProductValue>& a) {
    a.push_back({"limits", szName, "degrees", szMeaning, "verdict", ParameterKind::kNumber, 0.001, dHighest,
                 [=](const Product& product) { return product.tSetup.tLimits.*pLimit; },
                 [=](Product& product, double d) { product.tSetup.tLimits.*pLimit = d; }});
}

// Limits that follow from the parameters are not set apart from them.
void AddTrustLimits(std::vector<ProductValue>& a) {
    for (const TrustNumber& tNumber : TrustNumbers()) {
        const std::string strKey = tNumber.szKey != nullptr ? tNumber.szKey : "";
        const TrustLimit* const p = LimitOf(strKey);
        if (p == nullptr || p->FollowsFrom != nullptr)
            continue;
        a.push_back({"limits", strKey, tNumber.szUnit, fmt::format("{}: {}", tNumber.szWords, BoundOf(*p)),
                     "verdict", ParameterKind::kNumber, 0, std::string(tNumber.szUnit) == "%" ? 100 : 1e6,
                     [=](const Product& product) {
                         const auto& tTrust = product.tSetup.tLimits.tTrust;
                         const auto pOwn = tTrust.find(strKey);
                         return pOwn != tTrust.end() ? pOwn->second : UsualLimit(*p);
                     },
                     [=](Product& product, double d) {
                         auto& tTrust = product.tSetup.tLimits.tTrust;
                         tTrust.erase(strKey);
                         if (d != UsualLimit(*p)) // which differs for a pair that failed
                             tTrust[strKey] = d;
                     }});
    }
}

void AddLength(const char* szName, const char* szMeaning, double chart::Chart::*pLength, const char* szUnit,
               double dLowest, double dHighest, std::vector<ProductValue>& a) {
    a.push_back({"chart", szName, szUnit, szMeaning, "render, chart", ParameterKind::kNumber, dLowest,
                 dHighest, [=](const Product& product) { return product.tChart.*pLength; },
                 [=](Product& product, double d) { product.tChart.*pLength = d; }});
}

void AddChart(std::vector<ProductValue>& a) {
    using chart::Chart;
    a.push_back({"chart", "unit_mm", "mm", "a printed chart unit", "chart", ParameterKind::kNumber, 0.001,
                 1000, [](const Product& product) { return product.dUnit; },
                 [](Product& product, double d) { product.dUnit = d; }});
    const auto Add = [&](const char* szName, const char* szMeaning, double Chart::*pLength) {
        AddLength(szName, szMeaning, pLength, "units", 0.01, 1e6, a);
    };
    Add("frame_line_width_units", "width of the frame's line", &Chart::dFrameLineWidth);
    Add("horizontal_bar_half_length_units", "from the cross's middle to the horizontal bar's end",
        &Chart::dHorizontalBarHalfLength);
    Add("horizontal_bar_width_units", "its width", &Chart::dHorizontalBarWidth);
    Add("vertical_bar_half_length_units", "from the cross's middle to the vertical bar's end",
        &Chart::dVerticalBarHalfLength);
    Add("vertical_bar_width_units", "its width", &Chart::dVerticalBarWidth);
    AddLength("ink_grey", "what is printed, as the camera sees it", &Chart::dInk, "grey levels", 0, 255, a);
    AddLength("paper_grey", "what is not", &Chart::dPaper, "grey levels", 0, 255, a);
}

void AddCamera(const char* szName, const char* szMeaning, double Product::*pFocal,
               std::vector<ProductValue>& a) {
    a.push_back({"cameras", szName, "px", szMeaning, "render", ParameterKind::kNumber, 1, 1e6,
                 [=](const Product& product) { return product.*pFocal; },
                 [=](Product& product, double d) { product.*pFocal = d; }});
}

std::vector<ProductValue> MakeValues() {
    std::vector<ProductValue> a;
    AddParameters(a);
    AddLimit("rescaled_limit_deg", "largest magnitude of a rescaled angle", &Limits::dRescaled, 45, a);
    AddLimit("max_difference_deg", "between the two readings of an angle", &Limits::dMaxDifference, 90, a);
    AddLimit("max_uncertainty_deg", "of the second reading's angle", &Limits::dMaxUncertainty, 90, a);
    AddTrustLimits(a);
    AddChart(a);
    AddCamera("master_focal_length_px", "master: focal length over the size of a pixel",
              &Product::dMasterFocal, a);
    AddCamera("slave_focal_length_px", "slave: likewise", &Product::dSlaveFocal, a);
    return a;
}

Json JsonOfNumber(ParameterKind tKind, double d) {
    switch (tKind) {
    case ParameterKind::kFlag:
        return d != 0;
    case ParameterKind::kWhole:
        return std::llround(d);
    case ParameterKind::kNumber:
        break;
    }
    return d;
}

} // namespace

const std::vector<ProductValue>& ProductValues() {
    static const std::vector<ProductValue> kValues = MakeValues();
    return kValues;
}

Json JsonOf(const ProductValue& value, const Product& product) {
    return JsonOfNumber(value.tKind, value.Get(product));
}

std::string RangeOf(const ProductValue& value) {
    return value.tKind == ParameterKind::kFlag
               ? "true or false"
               : fmt::format("{}{:.10g} to {:.10g}", value.tKind == ParameterKind::kWhole ? "whole, " : "",
                             value.dLowest, value.dHighest);
}

std::string TextOf(const Product& product) {
    const Product tUsual;
    std::string str;
    for (const ProductSection& tSection : kProductSections) {
        str += fmt::format("{}{}\n", str.empty() ? "" : "\n", tSection.szWords);
        for (const ProductValue& t : ProductValues())
            if (std::string(t.szSection) == tSection.szKey) {
                const Json tValue = JsonOf(t, product), tDefault = JsonOf(t, tUsual);
                str += fmt::format(
                    "  {} = {}{}{}\n      {}\n", t.strName, tValue.dump(),
                    t.strUnit.empty() ? "" : " " + t.strUnit,
                    tValue == tDefault ? "" : "   ! default " + tDefault.dump(),
                    Wrapped(fmt::format("{} (read by: {}; {})", t.strMeaning, t.strReader, RangeOf(t)), 6));
            }
    }
    return str;
}

std::string JsonTextOf(const Product& product) {
    const Product tUsual;
    std::string str = "{\n";
    for (const ProductSection& tSection : kProductSections) {
        str += fmt::format("{}  \"{}\": {{", str.size() > 2 ? ",\n" : "", tSection.szKey);
        const char* szBefore = "\n";
        for (const ProductValue& t : ProductValues())
            if (std::string(t.szSection) == tSection.szKey) {
                const Json tValue = {{"value", JsonOf(t, product)}, {"default", JsonOf(t, tUsual)},
                                     {"unit", t.strUnit},           {"range", RangeOf(t)},
                                     {"meaning", t.strMeaning},     {"read_by", t.strReader}};
                str +=
                    fmt::format("{}    \"{}\": {}", std::exchange(szBefore, ",\n"), t.strName, tValue.dump());
            }
        str += "\n  }";
    }
    return str + "\n}\n";
}

} // namespace tools
