// The trace of an operation: one line on entry, one on a normal exit.
#pragma once

#include <qrvapi.h>

#include <exception>

namespace Pegasus {

/// Logs "-->name\n" when it is made and "<--name\n" when its scope ends without an exception.
class OperationTrace {
  public:
    /// `name` is the qualified name of the function and outlives the trace.
    explicit OperationTrace(const char* name) : OperationTrace("", "", name) {}

    /// The same for an operation of a class.
    OperationTrace(const char* className, const char* operation)
        : OperationTrace(className, "::", operation) {}

    ~OperationTrace() {
        if (std::uncaught_exceptions() == _exceptionsOnEntry) log("<--");
    }

    OperationTrace(const OperationTrace&) = delete;
    OperationTrace& operator=(const OperationTrace&) = delete;

  private:
    OperationTrace(const char* className, const char* separator, const char* name)
        : _className(className),
          _separator(separator),
          _name(name),
          _exceptionsOnEntry(std::uncaught_exceptions()) {
        log("-->");
    }

    void log(const char* arrow) const {
        log_message(4, "%s%s%s%s\n", arrow, _className, _separator, _name);
    }

    const char* _className;
    const char* _separator;
    const char* _name;
    int _exceptionsOnEntry;
};

}  // namespace Pegasus
