#include "pipeline/stage_messages.h"

#include "Orvex_Alignment.h"

namespace orvex {
namespace {

constexpr CameraMessages tMaster = {
    ORVEX_CENTRE_SEARCH_MASTER,
    {"Get center of binary image fail for Master !!.", 306},
    {"Calculation of intersection and slope fail for Master.", 349},
    {"Calculation of Master Frame fail.", 365},
    {"Calculation of binary frame fail for Master.", 382},
    {"Calculation of corner point fail for Master.", 407},
    {"Calculation of distance fail between corner point(Master).", 423},
};

constexpr CameraMessages tSlave = {
    ORVEX_CENTRE_SEARCH_SLAVE,
    {"Get center of binary image fail from Slave image  !!.", 444},
    {"Calculation of intersection and slope fail for Slave.", 478},
    {"Calculation of Slave Frame fail.", 494},
    {"Calculation of binary frame fail for Slave.", 508},
    {"Calculation of corner point fail for Slave.", 532},
    {"Calculation of distance fail between corner point(Slave).", 546},
};

} // namespace

const CameraMessages& MessagesOf(bool bMaster) {
    return bMaster ? tMaster : tSlave;
}

} // namespace orvex
