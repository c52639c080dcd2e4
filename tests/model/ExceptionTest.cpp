#include "Support.h"

#include <Pegasus/Common/Exception.h>

#if __has_include(<Pegasus/Common/MessageLoader.h>)
#include <Pegasus/Common/MessageLoader.h>
#endif
#include <Pegasus/Common/InternalException.h>
#include <Pegasus/Provider/ProviderException.h>

#include <gtest/gtest.h>

#include <vector>

using namespace Pegasus;
using model_tests::text;
using model_tests::thrownBy;

namespace {

TEST(Exception, HasTheTextOfItsKind) {
    const auto message = [](const Exception& e) { return text(e.getMessage()); };
    const String m("m");
    const std::vector<std::pair<std::string, const char*>> cases = {
        {message(Exception(m)), "m"},
        {message(AlreadyExistsException(m)), "already exists: m"},
        {message(UninitializedObjectException()), "uninitialized object"},
        {message(TypeMismatchException()), "type mismatch"},
        {message(TypeMismatchException(m)), "type mismatch: m"},
        {message(DynamicCastFailedException()), "dynamic cast failed"},
        {message(MalformedObjectNameException(m)), "malformed object name: m"},
        {message(BindFailedException(m)), "Bind failed: m"},
        {message(InvalidLocatorException(m)), "Invalid locator: m"},
        {message(CannotCreateSocketException()), "Cannot create socket"},
        {message(CannotConnectException(m)), "m"},
        {message(AlreadyConnectedException()), "already connected"},
        {message(NotConnectedException()), "not connected"},
        {message(ConnectionTimeoutException()), "connection timed out"},
        {message(SSLException(m)), "SSL Exception: m"},
        {message(NoSuchProperty(m)), "no such property: m"},
        {message(NoSuchFile(m)), "no such file: m"}};
    for (const auto& [actual, expected] : cases) {
        EXPECT_EQ(actual, expected);
    }
}

template <class Thrown>
CIMStatusCode codeOf() {
    try {
        throw Thrown(String("m"));
    } catch (const CIMOperationFailedException& e) {
        EXPECT_EQ(text(e.getMessage()), "m");
        return e.getCode();
    }
}

TEST(ProviderException, CarriesItsCode) {
    EXPECT_EQ(codeOf<CIMOperationFailedException>(), CIM_ERR_FAILED);
    EXPECT_EQ(codeOf<CIMAccessDeniedException>(), CIM_ERR_ACCESS_DENIED);
    EXPECT_EQ(codeOf<CIMInvalidParameterException>(), CIM_ERR_INVALID_PARAMETER);
    EXPECT_EQ(codeOf<CIMObjectNotFoundException>(), CIM_ERR_NOT_FOUND);
    EXPECT_EQ(codeOf<CIMNotSupportedException>(), CIM_ERR_NOT_SUPPORTED);
    EXPECT_EQ(codeOf<CIMObjectAlreadyExistsException>(), CIM_ERR_ALREADY_EXISTS);
    EXPECT_EQ(codeOf<CIMPropertyNotFoundException>(), CIM_ERR_NO_SUCH_PROPERTY);
    EXPECT_EQ(codeOf<CIMMethodNotFoundException>(), CIM_ERR_METHOD_NOT_FOUND);
}

TEST(CIMException, MessageIsBare) {
    EXPECT_EQ(CIMException().getCode(), CIM_ERR_SUCCESS);
    const CIMException exception(CIMStatusCode(4096), "m");
    EXPECT_EQ(int(exception.getCode()), 4096);
    EXPECT_EQ(text(exception.getMessage()), "m");
}

TEST(TraceableCIMException, DescribesItself) {
    struct Case {
        int code;
        const char *message, *description, *trace;
    };
    for (const auto& [code, message, description, trace] :
         {Case{1, "m", "CIM_ERR_FAILED: m", "f.cpp(12): CIM_ERR_FAILED: m"},
          Case{6, "", "CIM_ERR_NOT_FOUND", "f.cpp(12): CIM_ERR_NOT_FOUND"},
          Case{18, "m", "empty: m", "f.cpp(12): empty: m"},
          Case{-3, "", "Unrecognized CIM status code \"4294967293\"",
               "f.cpp(12): Unrecognized CIM status code"},
          Case{4096, "m", "Unrecognized CIM status code \"4096\": m",
               "f.cpp(12): Unrecognized CIM status code: m"}}) {
        const TraceableCIMException exception(CIMStatusCode(code), message, "f.cpp", 12);
        EXPECT_EQ(text(exception.getMessage()), message);
        EXPECT_EQ(text(exception.getDescription()), description);
        EXPECT_EQ(text(exception.getTraceDescription()), trace);
    }
}

TEST(TraceableCIMException, KeepsItsPlaceAsCIMException) {
    const CIMException sliced = TraceableCIMException(CIM_ERR_FAILED, "m", "f.cpp", 12);
    EXPECT_EQ(text(TraceableCIMException(sliced).getTraceDescription()),
              "f.cpp(12): CIM_ERR_FAILED: m");
}

TEST(CIMStatusCode, HasNames) {
    EXPECT_STREQ(cimStatusCodeToString(CIM_ERR_METHOD_NOT_FOUND), "CIM_ERR_METHOD_NOT_FOUND");
    EXPECT_STREQ(cimStatusCodeToString(CIMStatusCode(19)), "empty");
    EXPECT_STREQ(cimStatusCodeToString(CIMStatusCode(29)), "Unrecognized CIM status code");
}

}  // namespace
