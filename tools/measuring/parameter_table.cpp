#include "measuring/parameters.h"

#include <limits>

namespace tools {
namespace {

using Block = DualCamAlignParam;

constexpr double kWhole = std::numeric_limits<std::int32_t>::max();

template <auto pMember>
double Get(const Parameters& parameters) {
    return static_cast<double>(parameters.tBlock.*pMember);
}

template <auto pMember>
void Set(Parameters& parameters, double d) {
    using Value = std::remove_reference_t<decltype(parameters.tBlock.*pMember)>;
    parameters.tBlock.*pMember = static_cast<Value>(d);
}

template <std::size_t n>
double GetReserved(const Parameters& parameters) {
    return parameters.tBlock.anReservedParam[n];
}

template <std::size_t n>
void SetReserved(Parameters& parameters, double d) {
    parameters.tBlock.anReservedParam[n] = static_cast<std::int32_t>(d);
}

template <PictureSize Parameters::*pSize, int PictureSize::*pSide>
double GetSide(const Parameters& parameters) {
    return parameters.*pSize.*pSide;
}

template <PictureSize Parameters::*pSize, int PictureSize::*pSide>
void SetSide(Parameters& parameters, double d) {
    parameters.*pSize.*pSide = static_cast<int>(d);
    parameters.bSizesHold = true;
}

constexpr ParameterKind kNumber = ParameterKind::kNumber, kCount = ParameterKind::kWhole,
                        kFlag = ParameterKind::kFlag;

// clang-format off
#define FROM_TO(Name, Unit, Meaning, First, Last, Kind, Lowest, Highest) \
    {#Name, Unit, Meaning, First, Last, Kind, Lowest, Highest, Get<&Block::Name>, Set<&Block::Name>}
#define FIELD(Name, Unit, Meaning, Reader, Kind, Lowest, Highest) \
    FROM_TO(Name, Unit, Meaning, Reader, Reader, Kind, Lowest, Highest)
#define BOTH(Name, Unit, Meaning, Reader, Kind, Lowest, Highest) \
    FIELD(Name##_Master, Unit, "master: " Meaning, Reader, Kind, Lowest, Highest), \
    FIELD(Name##_Slave, Unit, "slave: " Meaning, Reader, Kind, Lowest, Highest)
#define WINDOW(Name, Meaning) \
    FROM_TO(Name##_Master, "", "master: " Meaning, Stage::kCentreSearch, Stage::kCross, kNumber, 0.01, 1), \
    FROM_TO(Name##_Slave, "", "slave: " Meaning, Stage::kCentreSearch, Stage::kCross, kNumber, 0.01, 1)
#define SIDE(Name, Camera, Side, Meaning) \
    {#Name, "px", Meaning, Stage::kEntry, Stage::kEntry, kCount, 1, kMaxSide, \
     GetSide<&Parameters::Camera, &PictureSize::Side>, SetSide<&Parameters::Camera, &PictureSize::Side>}
#define RESERVED(n) \
    {"anReservedParam[" #n "]", "", "kept for hosts; changes nothing", Stage::kComplete, Stage::kComplete, kCount, \
     -kWhole, kWhole, GetReserved<n>, SetReserved<n>}

// In the order in which a measurement reads them.
constexpr Parameter kTable[] = {
    SIDE(nWidth, tMaster, nColumns, "master: width of its pictures"),
    SIDE(nHeight, tMaster, nRows, "master: height of its pictures"),
    SIDE(nWidth_Slave, tSlave, nColumns, "slave: width of its pictures"),
    SIDE(nHeight_Slave, tSlave, nRows, "slave: height of its pictures"),
    WINDOW(dSearchWidthRatio, "width of the cross's search window over that of the picture"),
    WINDOW(dSearchHeightRatio, "its height over that of the picture"),
    FROM_TO(fSlaveShift, "px", "where the slave sees the chart, less where the master does, along one axis; it also "
            "moves the transferred centre", Stage::kCentreSearch, Stage::kCross, kNumber, -20000, 20000),
    FROM_TO(bShiftAlongY, "", "true: that axis is y, down the picture; false: x, to the right", Stage::kCentreSearch,
            Stage::kCross, kFlag, 0, 1),
    FROM_TO(bUseSlaveShift, "", "true: the slave's first search window follows the shift", Stage::kCentreSearch,
            Stage::kCross, kFlag, 0, 1),
    BOTH(dBinaryRatio, "", "the cross's threshold over the mean grey of the window's corners", Stage::kCentreSearch,
         kNumber, 0.01, 2),
    BOTH(nFrameOffsetX, "px", "from the cross's centre to the left and right to where the frame search starts",
         Stage::kFrameLocation, kCount, 1, kMaxSide),
    BOTH(nFrameOffsetY, "px", "likewise up and down", Stage::kFrameLocation, kCount, 1, kMaxSide),
    BOTH(nFrameMargin, "px", "around the frame's edges, outward and inward, what the frame's stages look at",
         Stage::kFrameLocation, kCount, 1, kMaxSide),
    BOTH(dFrameParam0, "", "share of dark pixels, top and bottom bands", Stage::kFrameBinarisation, kNumber, 0, 1),
    BOTH(dFrameParam1, "", "share of bright pixels, top and bottom bands", Stage::kFrameBinarisation, kNumber, 0, 1),
    BOTH(dFrameParam2, "", "share of dark pixels, left and right bands", Stage::kFrameBinarisation, kNumber, 0, 1),
    BOTH(dFrameParam3, "", "share of bright pixels, left and right bands", Stage::kFrameBinarisation, kNumber, 0, 1),
    BOTH(dFrameParam4, "", "the frame's threshold between dark level (0) and bright level (1)",
         Stage::kFrameBinarisation, kNumber, 0, 1),
    FIELD(nChartDistance, "units", "from the cameras to the chart, chart units", Stage::kAngles, kCount, 1, 1e6),
    FIELD(dChartHalfSpanX, "units", "half the distance of the frame's left and right middle lines, chart units",
          Stage::kAngles, kNumber, 0.1, 1e6),
    FIELD(dChartHalfSpanY, "units", "half the distance of its top and bottom ones", Stage::kAngles, kNumber, 0.1, 1e6),
    BOTH(dPixelScaleX, "", "scale of the top and bottom sides; cancels out but for its rounding", Stage::kAngles,
         kNumber, 1e-3, 1e6),
    BOTH(dPixelScaleY, "", "scale of the left and right sides; likewise", Stage::kAngles, kNumber, 1e-3, 1e6),
    BOTH(nSensorWidth, "px", "width of the sensor; likewise", Stage::kAngles, kCount, 1, 1e6),
    BOTH(nSensorHeight, "px", "height of the sensor; likewise", Stage::kAngles, kCount, 1, 1e6),
    RESERVED(0), RESERVED(1), RESERVED(2), RESERVED(3),
};
// clang-format on

} // namespace

std::span<const Parameter> ParameterTable() {
    return kTable;
}

std::vector<std::string> ChangedParameters(const Parameters& parameters) {
    Parameters tDefault = DefaultParameters();
    tDefault.tMaster = parameters.tMaster; // the host's to set, call by call
    tDefault.tSlave = parameters.tSlave;
    std::vector<std::string> a;
    for (const Parameter& t : kTable)
        if (t.Get(parameters) != t.Get(tDefault))
            a.emplace_back(t.szName);
    return a;
}

} // namespace tools
