// The outcome of an operation that several responders answer.
#pragma once

#include <Pegasus/Common/Exception.h>

#include <optional>

namespace cimserver {

/// CIM_ERR_NOT_SUPPORTED of a provider counts only when nobody answered; any other error ends the
/// operation at once.
class FanOut {
  public:
    void answered() { _answered = true; }

    /// Takes how the call of one provider ended.
    void take(const Pegasus::CIMException& outcome) {
        if (outcome.getCode() == Pegasus::CIM_ERR_SUCCESS)
            answered();
        else if (outcome.getCode() == Pegasus::CIM_ERR_NOT_SUPPORTED)
            _refusal = outcome;
        else
            throw outcome;
    }

    /// Throws the last refusal when there was nothing else.
    void finish() const {
        if (_refusal && !_answered) throw *_refusal;
    }

  private:
    bool _answered = false;
    std::optional<Pegasus::CIMException> _refusal;
};

}  // namespace cimserver
