#pragma once

#include "basics/json.h"
#include "measuring/camera_measurement.h"
#include "reading/angles.h"

#include <string>
#include <vector>

namespace tools {

// One number as every output shows it. Text, JSON and truth files go through this list, so that they agree.
struct Quantity {
    std::string strKey;   // path in JSON; a name on it tells the unit: "cross_centre_px/x"
    std::string strLabel; // for people
    const char* szUnit;
    int nDecimals;
    std::optional<double> oValue;
    std::string strLimit = {}; // for people: "at most 0.3"
    bool bBeyond = false;      // it is not within the limit
};

using Quantities = std::vector<Quantity>;

Quantities QuantitiesOf(const std::optional<Angles>& oAngles);
// The second reading's angles and their standard uncertainties.
Quantities QuantitiesOf(const std::optional<UncertainAngles>& oAngles);
Quantities QuantitiesOf(const CameraMeasurement& measured);

// The relative rotation and both cameras in one list, told apart by keys and labels.
Quantities QuantitiesOf(const std::optional<Angles>& oAngles, const CameraMeasurement& tMaster,
                        const CameraMeasurement& tSlave);

// A point's two coordinates; without numbers if it was not measured.
void AddPoint(Quantities& a, const std::string& strKey, const std::string& strLabel,
              const std::optional<Point>& oPoint);

// The value with its decimals; a dash if it was not measured.
std::string Shown(const Quantity& quantity);

// "cross centre x, px"
std::string LabelWithUnit(const Quantity& quantity);

// A number, whole where it counts something; null if it was not measured.
Json JsonOf(const Quantity& quantity);

// One object, nested as the keys say.
Json JsonOf(const Quantities& a);

// The place of a key in an object.
Json::json_pointer PlaceOf(const std::string& strKey);

} // namespace tools
