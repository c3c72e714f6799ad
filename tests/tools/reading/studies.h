#pragma once

namespace reading {

// Whole studies that print what they find; the exit code says whether it is good enough.
int StudyClean(unsigned int nFirst, unsigned int nPairs);
int StudyDirt(unsigned int nFirst, unsigned int nPairs);

} // namespace reading
