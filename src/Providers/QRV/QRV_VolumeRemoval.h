// Removing volumes that other operations may keep locked for a while.
#pragma once

#include <chrono>
#include <optional>

#include "QRV_ArrayGate.h"
#include "QRV_ArrayRecords.h"
#include "QRV_Common.h"

namespace Pegasus {

/// What the volume functions of QRV_Common answer.
enum VolumeResult {
    VOLUMES_DONE = 0,
    VOLUMES_FAILED = 4,      ///< no memory, or the array refused or found nothing
    VOLUMES_NONE_GIVEN = 5,  ///< the list of volumes is empty
    VOLUMES_PARTLY = 32768   ///< those that the array knows are gone; it doesn't know them all
};

/// How often locked volumes are tried again, and how long after the try before.
constexpr unsigned VOLUME_REMOVAL_RETRIES = 10;
constexpr std::chrono::seconds VOLUME_REMOVAL_PAUSE{2};

/// Logs an error and gives the result that goes with it.
inline int volumesFailed(const char* text) {
    log_message(2, "%s\n", text);
    return VOLUMES_FAILED;
}

/// One try to remove volumes: the result of the removal, or none while one of them is locked. The
/// names are looked up anew each time, so that they follow the array.
inline std::optional<int> tryToRemoveVolumes(api_evtparam_t* event, Array<CIMObjectPath>& volumes,
                                             Uint32 noWait) {
    api_name_t* found = nullptr;
    unsigned int count = 0;
    const int failure =
        volumes.size() == 0 ? 0 : QRV_Common::fillInVVNames(volumes, &found, &count);
    const VolumeNames names(found, static_cast<int>(count));
    if (failure != 0) {
        log_message(2, "Cannot find the volume\n");
        return failure;
    }
    const int answer = callArray(
        [&] { return api_removeVVs(event, names.begin(), count, static_cast<qrv_u8>(noWait), 0); });
    if (answer == ERR_API_VV_LOCKED_ERROR) return std::nullopt;
    if (answer != 0 && answer != API_VV_SOME_NOTFOUND)
        return volumesFailed("Volume deletion failed");
    return answer == 0 && count >= volumes.size() ? VOLUMES_DONE : VOLUMES_PARTLY;
}

/// QRV_Common::removeVVs() as far as it doesn't wait: `pause` is called between two tries with the
/// time to let pass, while neither the access semaphore nor a record of the array is held.
template <class Pause>
int removeVolumes(api_evtparam_t* event, Array<CIMObjectPath>& volumes, Uint32 noWait,
                  Pause pause) {
    for (unsigned retries = 0;; ++retries) {
        const std::optional<int> result = tryToRemoveVolumes(event, volumes, noWait);
        if (result) return *result;
        if (retries == VOLUME_REMOVAL_RETRIES)
            return volumesFailed("Volumes are busy, cannot be removed");
        pause(VOLUME_REMOVAL_PAUSE);
    }
}

}  // namespace Pegasus
