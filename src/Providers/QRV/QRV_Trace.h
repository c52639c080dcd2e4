// The trace of an operation: one line on entry, one on a normal exit.
#pragma once

#include <qrvapi.h>

#include <exception>

namespace Pegasus {

/// Logs "-->name\n" when it is made and "<--name\n" when its scope ends without an exception.
class OperationTrace {
  public:
    /// `name` is the qualified name of the function and outlives the trace.
    explicit OperationTrace(const char* name)
        : _name(name), _exceptionsOnEntry(std::uncaught_exceptions()) {
        log_message(4, "-->%s\n", _name);
    }

    ~OperationTrace() {
        if (std::uncaught_exceptions() == _exceptionsOnEntry) log_message(4, "<--%s\n", _name);
    }

    OperationTrace(const OperationTrace&) = delete;
    OperationTrace& operator=(const OperationTrace&) = delete;

  private:
    const char* _name;
    int _exceptionsOnEntry;
};

}  // namespace Pegasus
