// Answers of a server that a client cannot use.
#pragma once

#include <Pegasus/Client/Linkage.h>
#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/Exception.h>
#include <Pegasus/Common/String.h>

PEGASUS_NAMESPACE_BEGIN

/// An answer that is no HTTP.
class PEGASUS_CLIENT_LINKAGE CIMClientMalformedHTTPException : public Exception {
  public:
    CIMClientMalformedHTTPException(const String& message);
};

/// An answer with another HTTP status than 200.
class PEGASUS_CLIENT_LINKAGE CIMClientHTTPErrorException : public Exception {
  public:
    CIMClientHTTPErrorException(Uint32 httpStatusCode, const String& reasonPhrase,
                                const String& cimError, const String& cimErrorDetail);
    CIMClientHTTPErrorException(Uint32 httpStatusCode, const String& cimError,
                                const String& cimErrorDetail);

    /// The HTTP status.
    Uint32 getCode() const { return _httpStatusCode; }

    /// What the headers CIMError and PGErrorDetail said; empty without the header.
    String getCIMError() const { return _cimError; }
    String getCIMErrorDetail() const { return _cimErrorDetail; }

  private:
    Uint32 _httpStatusCode;
    String _cimError;
    String _cimErrorDetail;
};

/// An answer that does not hold what its operation returns.
class PEGASUS_CLIENT_LINKAGE CIMClientXmlException : public Exception {
  public:
    CIMClientXmlException(const String& message);
};

PEGASUS_NAMESPACE_END
