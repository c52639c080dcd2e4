#pragma once

#include <string>

#include "Call.h"
#include "Simulator.h"
#include "qrvapi/events.h"

namespace qrvapi {

/// Makes a change on behalf of a client. `body` gets the model, makes the change and tells it in
/// words, which go into the event log with the client's record; no words are no change.
template <class Body>
void changeWithEvent(Function function, const api_evtparam_t* event, Body&& body) {
    if (event == nullptr) throw Refusal(ERR_API_INVALID_ARGUMENT, {"event"});
    Simulator::instance().change([&](Model& model) {
        std::string words = body(model);
        if (words.empty()) return;
        model.eventLog().enter({std::string(describe(function).name), *event, std::move(words)});
    });
}

}  // namespace qrvapi
