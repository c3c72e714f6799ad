#include "measuring/quantities.h"

#include "basics/text_table.h"

#include <cmath>

namespace tools {
namespace {

constexpr int kAngleDecimals = 4;
constexpr int kPixelDecimals = 3;

using Value = std::optional<double>;

bool HasNumber(const Quantity& t) {
    return t.oValue && std::isfinite(*t.oValue);
}

Quantity Angle(const std::string& strKey, const std::string& strLabel, Value oValue) {
    return {strKey, strLabel, "deg", kAngleDecimals, oValue};
}

Quantity Pixels(const std::string& strKey, const std::string& strLabel, Value oValue) {
    return {strKey, strLabel, "px", kPixelDecimals, oValue};
}

void AddUnder(Quantities& a, const std::string& strPath, const std::string& strOwner,
              const Quantities& aAdded) {
    for (Quantity t : aAdded) {
        t.strKey = strPath + "/" + t.strKey;
        t.strLabel = strOwner + t.strLabel;
        a.push_back(t);
    }
}

} // namespace

void AddPoint(Quantities& a, const std::string& strKey, const std::string& strLabel,
              const std::optional<Point>& oPoint) {
    a.push_back(Pixels(strKey + "/x", strLabel + " x", oPoint ? Value(oPoint->dX) : Value()));
    a.push_back(Pixels(strKey + "/y", strLabel + " y", oPoint ? Value(oPoint->dY) : Value()));
}

Quantities QuantitiesOf(const std::optional<Angles>& oAngles) {
    Quantities a;
    for (const AxisName& t : kAxes)
        a.push_back(Angle(t.szKey, t.szLabel, oAngles ? Value((*oAngles).*t.pAngle) : Value()));
    return a;
}

Quantities QuantitiesOf(const std::optional<UncertainAngles>& oAngles) {
    Quantities a;
    for (const bool bUncertainty : {false, true})
        for (std::size_t i = 0; i < kAxes.size(); ++i) {
            const UncertainNumber t = oAngles ? oAngles->aRaw[i] : UncertainNumber{};
            const double dValue = bUncertainty ? std::sqrt(t.dVariance) : t.dValue;
            a.push_back(
                Angle((bUncertainty ? "second_reading_standard_uncertainty_deg/" : "second_reading_deg/") +
                          std::string(kAxes[i].szKey),
                      kAxes[i].szLabel + std::string(bUncertainty ? " second reading, standard uncertainty"
                                                                  : " second reading"),
                      oAngles ? Value(dValue) : Value()));
        }
    return a;
}

Quantities QuantitiesOf(const CameraMeasurement& measured) {
    Quantities a;
    AddPoint(a, "cross_centre_px", "cross centre", measured.oCentre);
    a.push_back(Angle("cross_angle_deg", "cross angle", measured.oCrossAngle));
    a.push_back({"bar_span_px", "bar span", "px", 0, measured.oBarSpan});
    for (std::size_t i = 0; i < kCorners.size(); ++i)
        AddPoint(a, std::string("corners_px/") + kCorners[i].szKey,
                 std::string("corner ") + kCorners[i].szLabel, measured.aoCorners[i]);
    for (std::size_t i = 0; i < kSides.size(); ++i)
        a.push_back(Pixels(std::string("side_lengths_px/") + kSides[i].szKey,
                           std::string("side ") + kSides[i].szKey,
                           measured.oSides ? Value((*measured.oSides)[i]) : Value()));
    a.push_back(Angle("tilt_x_deg", "own tilt x", measured.oTiltX));
    a.push_back(Angle("tilt_y_deg", "own tilt y", measured.oTiltY));
    return a;
}

Quantities QuantitiesOf(const std::optional<Angles>& oAngles, const CameraMeasurement& tMaster,
                        const CameraMeasurement& tSlave) {
    Quantities a;
    AddUnder(a, "relative_deg", "", QuantitiesOf(oAngles));
    AddUnder(a, "master", "master ", QuantitiesOf(tMaster));
    AddUnder(a, "slave", "slave ", QuantitiesOf(tSlave));
    return a;
}

std::string Shown(const Quantity& quantity) {
    return HasNumber(quantity) ? Fixed(*quantity.oValue, quantity.nDecimals) : "-";
}

std::string LabelWithUnit(const Quantity& quantity) {
    return quantity.strLabel + ", " + quantity.szUnit;
}

Json JsonOf(const Quantity& quantity) {
    if (!HasNumber(quantity))
        return nullptr;
    return quantity.nDecimals == 0 ? Json(std::llround(*quantity.oValue)) : Json(*quantity.oValue);
}

Json JsonOf(const Quantities& a) {
    Json tJson;
    for (const Quantity& t : a)
        tJson[PlaceOf(t.strKey)] = JsonOf(t);
    return tJson;
}

Json::json_pointer PlaceOf(const std::string& strKey) {
    return Json::json_pointer("/" + strKey);
}

} // namespace tools
