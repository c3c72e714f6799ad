#ifndef ORVEX_TESTS_COMPARE_RECORDED_ATAN_H
#define ORVEX_TESTS_COMPARE_RECORDED_ATAN_H

#include <vector>

struct AtanCall {
    double dArgument, dResult;
};

// Every call of atan in this process, the library's among them.
inline std::vector<AtanCall> atAtanCalls;

#endif
