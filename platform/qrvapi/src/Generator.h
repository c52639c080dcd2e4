#pragma once

#include <memory>

#include "Model.h"
#include "qrvapi_control.h"

namespace qrvapi {

std::unique_ptr<Model> generate(const control::ArraySize& size);

}  // namespace qrvapi
