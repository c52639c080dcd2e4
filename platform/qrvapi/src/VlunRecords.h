#pragma once

#include "Model.h"
#include "qrvapi/vluns.h"

namespace qrvapi {

/// What names the protocol controller of a VLUN.
std::string deviceIdOf(const Vlun& vlun);

/// Fills a zeroed record.
void fillVlun(api_vlun_t& record, const Vlun& vlun, bool isTemplate, qrv_u32 hostIndex);

}  // namespace qrvapi
