#include "reading/camera_reading.h"

namespace tools {

const char* DescribeNoReading(NoReading tReason) {
    switch (tReason) {
    case NoReading::kNoContrast:
        return "the picture is blank, or so pale that noise hides the chart";
    case NoReading::kInverted:
        return "the picture is inverted, with bright lines on dark paper";
    case NoReading::kNoFrame:
        return "no rectangle of the chart's shape is in view";
    case NoReading::kFrameOnSide:
        return "the frame stands on its side: the picture is turned by a quarter";
    case NoReading::kSideHidden:
        return "too little of one side of the frame is to be seen";
    case NoReading::kNoCross:
        return "there is no cross in the middle of the frame, or too little of it is to be seen";
    }
    return "";
}

} // namespace tools
