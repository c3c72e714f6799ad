#pragma once

#include <ostream>

namespace digests {

// Cases whose lines (compare/bit_lines.h) are kept in tests/data/digests.txt. Their names begin with the
// group's.
struct Group {
    const char* szName;
    void (*Write)(std::ostream& tOut);

    friend void PrintTo(const Group& t, std::ostream* pOut) { *pOut << t.szName; }
};

// Whole measurements.
void WriteDrawnPairs(
    std::ostream& tOut); // drawn charts, changed parameters, the pipeline between the entry's ends
void WriteFailingPairs(std::ostream& tOut);  // each failure point with either camera
void WriteRenderedPairs(std::ostream& tOut); // rendered charts, angles in and out of the range

// Single steps with random arguments.
void WriteStages(std::ostream& tOut); // the exported ones
void WriteImage(std::ostream& tOut);  // those inside src/image
void WriteGeometry(std::ostream& tOut);
void WriteCorners(std::ostream& tOut);
void WriteEntry(std::ostream& tOut);

constexpr Group atGroups[] = {
    {"drawn", WriteDrawnPairs}, {"failing", WriteFailingPairs}, {"rendered", WriteRenderedPairs},
    {"stage", WriteStages},     {"image", WriteImage},          {"geometry", WriteGeometry},
    {"corners", WriteCorners},  {"entry", WriteEntry}};

} // namespace digests
