// Runs what a message asks for.
#pragma once

#include "cimxml/Answer.h"
#include "cimxml/Message.h"
#include "model/LocalServer.h"

namespace cimserver {

/// Decodes the message's parameters, runs the operation in the context and writes the answer into
/// the channel, errors of the operation included. Throws Refusal, before anything is sent, for a
/// message that doesn't get a CIM-XML answer, and ClientGone.
void execute(LocalServer& server, const Pegasus::OperationContext& context, const Message& message,
             AnswerChannel& channel);

}  // namespace cimserver
