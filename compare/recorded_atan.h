#pragma once

#include <vector>

struct AtanCall {
    double dArgument, dResult;
};

// Every call of atan in this process, the library's among them.
inline std::vector<AtanCall> atAtanCalls;
