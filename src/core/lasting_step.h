#pragma once

#include <optional>

namespace orvex {

// Lines to visit: nCount of them from nFirst on, one line apart, nStep = +1 or -1.
struct LineWalk {
    int nFirst;
    int nStep;
    int nCount;
};

// Walks over lines and returns the first one whose value steps away from the value before it and stays away.
//
// Step(before, line) decides what a step is. A step is withdrawn when a later line is back at the value
// before it. The scan stops once the step is confirmed more often than the budget allows; a step that is
// still unwithdrawn when the lines run out counts as found. Confirmations of withdrawn steps use up the same
// budget, on purpose: after false alarms a step is accepted sooner.
template <typename Value, typename MeasureLine, typename IsStep>
std::optional<int> FindLastingStep(LineWalk tWalk, Value tPrevious, MeasureLine&& Measure, IsStep&& Step) {
    constexpr int nConfirmationBudget = 4;
    std::optional<int> oStepLine;
    Value tReference = tPrevious;
    int nConfirmations = 0;
    for (int i = 0, nLine = tWalk.nFirst; i < tWalk.nCount; ++i, nLine += tWalk.nStep) {
        const Value tLine = Measure(nLine);
        if (!oStepLine && Step(tPrevious, tLine)) {
            oStepLine = nLine;
            tReference = tPrevious;
        } else if (!oStepLine) {
            tPrevious = tLine;
        } else if (!Step(tReference, tLine)) {
            oStepLine.reset();
            tPrevious = tLine;
        } else if (nConfirmations >= nConfirmationBudget) {
            break;
        } else {
            ++nConfirmations;
        }
    }
    return oStepLine;
}

} // namespace orvex
