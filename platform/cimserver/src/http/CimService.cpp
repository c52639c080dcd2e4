#include "http/CimService.h"

#include "cimxml/Executor.h"
#include "cimxml/Utf8.h"
#include "http/PercentCode.h"

#include <charconv>
#include <exception>
#include <utility>

namespace cimserver {

using namespace Pegasus;

namespace {

/// Sends an answer as one HTTP response: with its length when it is finished before any of it was
/// sent, else in chunks.
class HttpAnswer final : public AnswerChannel {
  public:
    HttpAnswer(ByteSink& out, ResponseStyle style)
        : _out(out),
          _style(std::move(style)),
          _ending(_style.close ? Ending::Close : Ending::KeepAlive) {}

    Ending ending() const { return _ending; }
    bool started() const { return _started; }

    bool takesTrailers() const override { return _style.trailers; }

    void send(std::string& part) override { _out.write(streamed(part)); }

    void finish(std::string& part) override {
        if (_started) return finishStream(part, {});
        _started = true;
        std::string head = answerHead(_style, part.size());
        _out.write({std::move(head), std::exchange(part, {}), {}});
    }

    void finish(std::string& part, Uint32 code, const std::string& description) override {
        const std::string& prefix = _style.extensionPrefix;
        finishStream(part, prefix + "CIMStatusCode: " + std::to_string(code) + "\r\n" + prefix +
                               "CIMStatusCodeDescription: " + percentEncoded(description) + "\r\n");
    }

    void breakOff() override { _ending = chunked() ? Ending::Close : Ending::Reset; }

  private:
    bool chunked() const { return _style.version >= 11; }

    void finishStream(std::string& part, const std::string& trailers) {
        Frame frame = streamed(part);
        if (chunked()) frame.tail += "0\r\n" + trailers + "\r\n";
        _out.write(std::move(frame));
    }

    // The next part; never empty, for an empty chunk would be the end.
    Frame streamed(std::string& part) {
        Frame frame{{}, std::exchange(part, {}), {}};
        if (!std::exchange(_started, true)) frame.head = streamedAnswerHead(_style);
        if (!chunked()) return frame;
        char size[16];
        frame.head.append(size,
                          std::to_chars(size, size + sizeof(size), frame.body.size(), 16).ptr);
        frame.head += "\r\n";
        frame.tail = "\r\n";
        return frame;
    }

    ByteSink& _out;
    ResponseStyle _style;
    Ending _ending;
    bool _started = false;
};

OperationContext contextOf(const Caller& caller) {
    OperationContext context;
    context.insert(IdentityContainer(toString(caller.user), toString(caller.address)));
    return context;
}

Ending refuse(ByteSink& out, const Refusal& refusal, bool close) {
    out.write({refusalText(refusal, close), {}, {}});
    return close ? Ending::Close : Ending::KeepAlive;
}

}  // namespace

Ending CimService::serve(const HttpRequest& request, const Caller& caller, ByteSink& out,
                         bool close) const {
    const bool last = close || endsConnection(request);
    try {
        return answer(request, caller, out, last);
    } catch (const Refusal& refusal) {
        return refuse(out, refusal, last);
    }
}

Ending CimService::answer(const HttpRequest& request, const Caller& caller, ByteSink& out,
                          bool close) const {
    CallHead head = readCallHead(request);
    head.style.close = close;
    HttpAnswer answer(out, head.style);
    try {
        const Message message(request.body(), head.call, _limits);
        execute(_server, contextOf(caller), message, answer);
    } catch (const Refusal&) {
        throw;
    } catch (const ClientGone&) {
        throw;
    } catch (...) {  // out of memory, most likely: the request fails, the server stays
        if (answer.started()) return Ending::Reset;
        throw Refusal(500, "", "Internal error.");
    }
    return answer.ending();
}

}  // namespace cimserver
