#include "batch_report/course.h"

#include "batch/list_head.h"

#include <algorithm>
#include <cmath>
#include <ctime>
#include <fmt/chrono.h>
#include <fmt/format.h>
#include <numeric>
#include <optional>

namespace tools {
namespace {

constexpr int kMostTicks = 8;

// "2026-11-16 08:30:00", also with a T between, without seconds or without a time of day; what follows, as a
// zone, is not looked at.
std::optional<double> SecondsOf(const std::string& str) {
    std::tm t = {};
    const char* p = strptime(str.c_str(), "%Y-%m-%d", &t);
    if (p != nullptr && (*p == 'T' || *p == ' '))
        p = strptime(p + 1, "%H:%M", &t);
    if (p != nullptr && *p == ':')
        p = strptime(p + 1, "%S", &t);
    if (p == nullptr || (*p != '\0' && *p != '.' && *p != 'Z' && *p != '+' && *p != '-'))
        return std::nullopt; // as AM or PM behind it
    const int nDay = t.tm_mday;
    const std::time_t tSeconds = timegm(&t);
    return t.tm_mday == nDay ? std::optional(static_cast<double>(tSeconds)) : std::nullopt;
}

Course InListsOrder(std::size_t nRows, const std::string& strWhy) {
    Course t = {std::vector<double>(nRows), {}, "the list's order" + strWhy};
    std::iota(t.adAt.begin(), t.adAt.end(), 1.0);
    t.tScale = ScaleOf(0, static_cast<double>(nRows + 1), kMostTicks);
    return t;
}

Scale TimeScale(double dFirst, double dLast) {
    Scale t = {dFirst, std::max(dLast, dFirst + 60)};
    const double dStep = TimeStep(t.dHighest - t.dLowest, kMostTicks);
    for (double d = std::ceil(t.dLowest / dStep) * dStep; d <= t.dHighest; d += dStep) {
        const std::tm tTime = fmt::gmtime(static_cast<std::time_t>(d));
        t.aTicks.push_back(
            {d, dStep < 86400 ? fmt::format("{:%H:%M}", tTime) : fmt::format("{:%m-%d}", tTime)});
    }
    return t;
}

} // namespace

Course CourseOf(const BatchList& tList) {
    const std::size_t nRows = tList.aItems.size();
    const auto pTime = std::ranges::find_if(tList.aFurtherNames,
                                            [](const std::string& str) { return IsSameColumn(str, "time"); });
    if (pTime == tList.aFurtherNames.end())
        return InListsOrder(nRows, "");
    Course t = {{}, {}, "time"};
    for (const BatchItem& tItem : tList.aItems) {
        const std::string& str =
            tItem.aFurther[static_cast<std::size_t>(pTime - tList.aFurtherNames.begin())];
        if (const std::optional<double> o = SecondsOf(str))
            t.adAt.push_back(*o);
        else
            return InListsOrder(nRows, ", since line " + std::to_string(tItem.nLine) + " has the time \"" +
                                           str + "\", not one as 2026-11-16 08:30");
    }
    const auto [pFirst, pLast] = std::ranges::minmax_element(t.adAt);
    t.tScale = TimeScale(*pFirst, *pLast);
    return t;
}

} // namespace tools
