#pragma once

#include <exception>
#include <initializer_list>
#include <string>
#include <string_view>

#include "qrvapi/status.h"

namespace qrvapi {

api_Status_t makeStatus(api_ErrorCode_t code, std::initializer_list<std::string_view> words = {});

/// The text of the error table for a status, with its words in place.
std::string errorText(const api_Status_t& status);

/// The array says no. Thrown before anything has changed.
class Refusal : public std::exception {
  public:
    explicit Refusal(api_ErrorCode_t code, std::initializer_list<std::string_view> words = {});

    const api_Status_t& status() const noexcept { return status_; }
    const char* what() const noexcept override { return text_.c_str(); }

  private:
    api_Status_t status_;
    std::string text_;
};

/// What the exception in flight means to the caller of the library. Only for use in a handler.
api_Status_t statusOfCurrentException() noexcept;

}  // namespace qrvapi
