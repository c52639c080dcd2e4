#include "broker/ProviderCall.h"

#include <exception>

namespace cimserver {

using Pegasus::CIM_ERR_FAILED;
using Pegasus::CIMException;
using Pegasus::Exception;
using Pegasus::String;

namespace {

const char* const unknownError = "Unknown error.";

String textOf(const std::exception& error) {
    try {
        return String(error.what());
    } catch (const Exception&) {  // not UTF-8
        return String(unknownError);
    }
}

}  // namespace

CIMException exceptionInFlight() {
    try {
        throw;
    } catch (const CIMException& error) {
        return error;
    } catch (const Exception& error) {
        return CIMException(CIM_ERR_FAILED, error.getMessage());
    } catch (const std::exception& error) {
        return CIMException(CIM_ERR_FAILED, textOf(error));
    } catch (...) {
        return CIMException(CIM_ERR_FAILED, unknownError);
    }
}

}  // namespace cimserver
