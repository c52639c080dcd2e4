// What the tests of the object model share. Builds against OpenPegasus as well.
#pragma once

#include <Pegasus/Common/Exception.h>
#include <Pegasus/Common/String.h>

#include <string>
#include <typeinfo>

namespace model_tests {

inline std::string text(const Pegasus::String& string) {
    return static_cast<const char*>(string.getCString());
}

/// The message of the exception of exactly this type that `action` throws; what happened instead
/// otherwise.
template <class Expected, class Action>
std::string thrownBy(Action action) {
    try {
        action();
    } catch (const Pegasus::Exception& e) {
        const std::string message = text(e.getMessage());
        return typeid(e) == typeid(Expected) ? message : "another exception: " + message;
    }
    return "no exception";
}

}  // namespace model_tests
