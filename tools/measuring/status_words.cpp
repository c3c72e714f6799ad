#include "measuring/status_words.h"

#include "Orvex_Alignment.h"

#include <algorithm>
#include <array>
#include <fmt/format.h>

namespace tools {
namespace {

// By Stage.
constexpr std::array<StageWords, 9> kStages = {{
    {"entry check", "two pictures of a usable size and the calibration memory"},
    {"centre search", "dark pixels in a window around the picture's centre"},
    {"centre cross", "the two dark bars of the cross near the picture's centre"},
    {"frame location",
     "the dark frame's edges, outward from the search's start beside, above and below the cross"},
    {"frame binarisation", "the frame's dark line on bright paper all around"},
    {"corner points", "the frame's sides next to each corner, as straight dark lines"},
    {"angles", "the rotation from the frames' sides and the crosses' roll"},
    {"angle range", ""},
    {"complete", ""},
}};

constexpr char kMemory[] = "Close other programs; use pictures of the sensor's own size";
constexpr char kCrossAdvice[] = "Bring the chart into view with its cross in the middle of the picture; "
                                "check that it is sharp, evenly lit and darker than its paper";
constexpr char kCentre[] = "Move the module or the chart until the cross lies in the middle of the picture, "
                           "and remove other dark things from there";
constexpr char kBar[] = "Remove what covers the cross, and check for reflections and shadows on its bars; "
                        "check that the chart is not rolled by more than a few degrees";
constexpr char kRoll[] =
    "Check that the picture is upright and the chart not rolled by more than a few degrees";
constexpr char kFrame[] = "Bring the whole frame into view: check distance and aim, remove what covers the "
                          "frame, and light the chart evenly";
constexpr char kLight[] =
    "Light the chart evenly, avoid over- and underexposure, and keep the whole frame inside the picture";
constexpr char kCorner[] =
    "Remove what covers the frame near this corner, keep the corner inside the picture, and check sharpness "
    "and light there; check that the chart is not rolled by more than 3 degrees";
constexpr char kInput[] = "Name two pictures and a calibration image that fit";
constexpr char kMount[] = "Check that module and chart are seated properly and measure again; if the angle "
                          "stays, the slave camera is mounted askew";

// The status and its name in the library's header.
#define ROW(Name) ORVEX_##Name, "ORVEX_" #Name

constexpr auto kStatuses = std::to_array<StatusWords>({
    {ROW(OK), Stage::kComplete, "all stages ran on both cameras", ""},
    {ROW(CENTRE_SEARCH_MASTER), Stage::kCentreSearch, "no usable picture buffer or not enough memory",
     kMemory},
    {ROW(CENTRE_SEARCH_SLAVE), Stage::kCentreSearch, "no usable picture buffer or not enough memory",
     kMemory},

    {ROW(CROSS_NO_COLUMN_RUN), Stage::kCross,
     "no horizontal bar (no dense run of dark columns), a blank picture, or not enough memory", kCrossAdvice},
    {ROW(CROSS_NO_COLUMN_START), Stage::kCross, "no left end of the horizontal bar", kCrossAdvice},
    {ROW(CROSS_NO_ROW_BAND), Stage::kCross,
     "no horizontal bar (no row near the centre holds more than 20 dark pixels)", kCrossAdvice},
    {ROW(CROSS_COLUMNS_OFF_CENTRE), Stage::kCross,
     "the centre lies to the left or right of the horizontal bar", kCentre},
    {ROW(CROSS_LEFT_SAMPLE), Stage::kCross, "the horizontal bar is interrupted near its left end", kBar},
    {ROW(CROSS_RIGHT_SAMPLE), Stage::kCross, "the horizontal bar is interrupted near its right end", kBar},
    {ROW(CROSS_NO_COLUMN_SAMPLES), Stage::kCross, "no column to sample on the horizontal bar", kBar},
    {ROW(CROSS_COLUMNS_COINCIDE), Stage::kCross, "both ends of the horizontal bar lie in one column", kRoll},
    {ROW(CROSS_ROW_BAR_OUTSIDE), Stage::kCross, "the horizontal bar reaches out of the picture", kCentre},

    {ROW(CROSS_NO_ROW_RUN), Stage::kCross, "no vertical bar (no dense run of dark rows)", kCrossAdvice},
    {ROW(CROSS_NO_ROW_START), Stage::kCross, "no upper end of the vertical bar", kCrossAdvice},
    {ROW(CROSS_NO_COLUMN_BAND), Stage::kCross,
     "no vertical bar (no column near the centre holds more than 20 dark pixels)", kCrossAdvice},
    {ROW(CROSS_ROWS_OFF_CENTRE), Stage::kCross, "the centre lies above or below the vertical bar", kCentre},
    {ROW(CROSS_UPPER_SAMPLE), Stage::kCross, "the vertical bar is interrupted near its upper end", kBar},
    {ROW(CROSS_LOWER_SAMPLE), Stage::kCross, "the vertical bar is interrupted near its lower end", kBar},
    {ROW(CROSS_NO_ROW_SAMPLES), Stage::kCross, "no row to sample on the vertical bar", kBar},
    {ROW(CROSS_COLUMN_BAR_OUTSIDE), Stage::kCross, "the vertical bar reaches out of the picture", kCentre},

    {ROW(FRAME_UPPER_LEFT), Stage::kFrameLocation, "no edge of the frame in the upper left quarter", kFrame},
    {ROW(FRAME_LOWER_LEFT), Stage::kFrameLocation, "no edge of the frame in the lower left quarter", kFrame},
    {ROW(FRAME_UPPER_RIGHT), Stage::kFrameLocation, "no edge of the frame in the upper right quarter",
     kFrame},
    {ROW(FRAME_LOWER_RIGHT), Stage::kFrameLocation, "no edge of the frame in the lower right quarter",
     kFrame},
    {ROW(FRAME_THRESHOLD), Stage::kFrameBinarisation,
     "a piece of the frame's surroundings is empty or has no dark and bright levels", kLight},

    {ROW(CORNER_LEFT_TOP), Stage::kCornerPoints, "the frame's line is not found or is interrupted", kCorner},
    {ROW(CORNER_RIGHT_TOP), Stage::kCornerPoints, "the frame's line is not found", kCorner},
    {ROW(CORNER_LEFT_DOWN), Stage::kCornerPoints, "the frame's line is not found", kCorner},
    {ROW(CORNER_RIGHT_DOWN), Stage::kCornerPoints, "the frame's line is not found", kCorner},

    {ROW(ENTRY_NULL_POINTER), Stage::kEntry, "a picture or the calibration is missing", kInput},
    {ROW(ENTRY_PICTURE_SIZE), Stage::kEntry,
     "a picture's size is not within 1 to 65535 px per side and 2147483647 px in all", kInput},
    {ROW(ANGLE_OUT_OF_RANGE), Stage::kAngleRange, "both cameras were measured, but an angle is out of range",
     kMount},
});

#undef ROW

constexpr StatusWords kUnknown = {0, "unknown", Stage::kEntry, "a status that this tool has no words for",
                                  "Check that tool and library belong together"};

} // namespace

const StageWords& DescribeStage(Stage tStage) {
    return kStages[static_cast<std::size_t>(tStage)];
}

const StatusWords& DescribeStatus(unsigned int nStatus) {
    const auto pWords = std::ranges::find(kStatuses, nStatus, &StatusWords::nStatus);
    return pWords != kStatuses.end() ? *pWords : kUnknown;
}

std::string HexOf(unsigned int nStatus) {
    return fmt::format("0x{:X}", nStatus);
}

} // namespace tools
