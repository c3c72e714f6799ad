#pragma once

#include "chart/pair.h"
#include "measuring/parameters.h"

namespace tools {

// A module and its chart, where they differ from those that the library is made for.
struct Product {
    MeasuringSetup tSetup;
    chart::Chart tChart; // what its parameters tell of it aside: see ChartOf
    double dUnit = 1.0;  // mm of a printed chart unit
    double dMasterFocal = chart::Camera().dFocal, dSlaveFocal = chart::Camera().dFocal; // px
};

// The whole chart, as far away as the product has it.
chart::Chart ChartOf(const Product& product);

// Both cameras as the product expects them: each looks at the middle of the chart, the slave aside by the
// shift.
chart::Camera MasterOf(const Product& product);
chart::Camera SlaveOf(const Product& product);

} // namespace tools
