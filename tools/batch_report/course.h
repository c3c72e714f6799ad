#pragma once

#include "batch/list.h"
#include "batch_report/chart.h"

namespace tools {

// Where each row stands along the run charts: by the list's column "time", or else in the list's order.
struct Course {
    std::vector<double> adAt;
    Scale tScale;
    std::string strWords; // "the list's order"
};

Course CourseOf(const BatchList& tList);

} // namespace tools
