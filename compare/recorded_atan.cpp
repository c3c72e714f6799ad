// Stands before the C library's atan, whose last bit is its own, and keeps what went in and what came out.
#include "compare/recorded_atan.h"

#include <cmath>
#include <dlfcn.h>

extern "C" [[gnu::visibility("default")]] double atan(double dArgument) noexcept {
    static const auto pAtan = reinterpret_cast<double (*)(double)>(dlsym(RTLD_NEXT, "atan"));
    const double dResult = pAtan(dArgument);
    atAtanCalls.push_back({dArgument, dResult});
    return dResult;
}
