// What the broker sees of a response handler that it hands to a provider.
#pragma once

#include <exception>

namespace cimserver {

/// The results of one call of a provider on their way to the one who asked.
class Delivery {
  public:
    virtual ~Delivery() = default;

    /// Passes on what the provider has released and is still held back. For providers that returned
    /// without an exception; throws what the receiver throws, also when the provider has swallowed
    /// it.
    virtual void finish() {}

    /// Throws again what the receiver of results threw; does nothing when it threw nothing.
    void rethrowSinkFailure() const {
        if (_sinkFailure) std::rethrow_exception(_sinkFailure);
    }

  protected:
    Delivery() = default;
    Delivery(const Delivery&) = delete;
    Delivery& operator=(const Delivery&) = delete;

    void keepSinkFailure() { _sinkFailure = std::current_exception(); }

  private:
    std::exception_ptr _sinkFailure;
};

}  // namespace cimserver
