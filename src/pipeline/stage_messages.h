#pragma once

namespace orvex {

// One stage's diagnostic: its text and the line number that goes with it, a fixed literal.
struct StageMessage {
    const char* szText;
    int nLine;
};

// What a failing stage prints, and the status of the one stage that has none of its own.
struct CameraMessages {
    unsigned int nCentreSearchStatus;
    StageMessage tCentreSearch;
    StageMessage tCross;
    StageMessage tFrame;
    StageMessage tFrameBinary;
    StageMessage tCorners;
    StageMessage tSides;
};

const CameraMessages& MessagesOf(bool bMaster);

} // namespace orvex
