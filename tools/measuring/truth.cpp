#include "measuring/truth.h"

#include "basics/files.h"
#include "basics/tool_error.h"

#include <algorithm>

namespace tools {
namespace {

constexpr std::size_t kLimit = 1 << 20;
constexpr char kAdvice[] = "Name the truth.json that orvex-align render wrote";

CameraMeasurement TrueCamera(const CameraTruth& tTruth) {
    CameraMeasurement tCamera;
    tCamera.oCentre = tTruth.tCentre;
    std::ranges::copy(tTruth.aCorners, tCamera.aoCorners.begin());
    return tCamera;
}

Json Parsed(const std::string& strFile) {
    try {
        return Json::parse(ReadFile(strFile, kLimit));
    } catch (const Json::parse_error& t) {
        throw ToolError(strFile, "is not JSON (broken at byte " + std::to_string(t.byte) + ")", kAdvice);
    } catch (const Json::out_of_range&) {
        throw ToolError(strFile, "holds a number that is too large", kAdvice);
    }
}

double NumberAt(const Json& tJson, const Quantity& quantity, const std::string& strFile) {
    try {
        return tJson.at(PlaceOf(quantity.strKey)).get<double>();
    } catch (const Json::exception&) {
        throw ToolError(strFile, "holds no number \"" + quantity.strKey + "\"", kAdvice);
    }
}

} // namespace

Truth ReadTruth(const std::string& strFile) {
    const Json tJson = Parsed(strFile);
    Truth tTruth = {strFile, TrueQuantities({}, {}, {})};
    for (Quantity& t : tTruth.aTrue)
        t.oValue = NumberAt(tJson, t, strFile);
    return tTruth;
}

Quantities TrueQuantities(const Angles& tRelative, const CameraTruth& tMaster, const CameraTruth& tSlave) {
    Quantities a = QuantitiesOf(tRelative, TrueCamera(tMaster), TrueCamera(tSlave));
    std::erase_if(a, [](const Quantity& tQuantity) { return !tQuantity.oValue; });
    return a;
}

std::vector<Comparison> Compare(const Quantities& aMeasured, const Truth& tTruth) {
    std::vector<Comparison> a;
    for (const Quantity& tTrue : tTruth.aTrue) {
        const Quantity& tMeasured = *std::ranges::find(aMeasured, tTrue.strKey, &Quantity::strKey);
        Quantity tDifference = tMeasured;
        if (tDifference.oValue)
            *tDifference.oValue -= *tTrue.oValue;
        a.push_back({tMeasured, tTrue, tDifference});
    }
    return a;
}

} // namespace tools
