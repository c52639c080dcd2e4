// CIM-XML over HTTP, without the sockets.
#pragma once

#include "cimxml/XmlDocument.h"
#include "http/CallHead.h"
#include "http/Frame.h"
#include "model/LocalServer.h"

#include <string>

namespace cimserver {

/// Who sends a request.
struct Caller {
    std::string user;     ///< as authenticated; empty when everybody may call
    std::string address;  ///< the client's IP address
};

/// Answers HTTP requests. May be called on any number of threads at once.
class CimService {
  public:
    /// `server` must outlive the service.
    CimService(LocalServer& server, const XmlLimits& limits) : _server(server), _limits(limits) {}

    /// Runs the request and writes the whole response to `out`. `close` announces that the
    /// connection ends with it. Throws ClientGone, and std::bad_alloc when there is no
    /// memory even for a refusal.
    Ending serve(const HttpRequest& request, const Caller& caller, ByteSink& out, bool close) const;

  private:
    Ending answer(const HttpRequest& request, const Caller& caller, ByteSink& out,
                  bool close) const;

    LocalServer& _server;
    XmlLimits _limits;
};

}  // namespace cimserver
