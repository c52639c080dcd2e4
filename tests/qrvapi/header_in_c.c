#include "qrvapi.h"

int readAll(api_HostsInfo_t* info);

int readAll(api_HostsInfo_t* info) {
    api_Status_t status = api_getHosts(NULL, QRV_NO_WWN, NULL, info, 1, 0);
    return status.code == ERR_UNKNOWN;
}
