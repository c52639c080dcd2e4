// A broker over a small schema and providers that do what they are told.
#pragma once

#include "Journal.h"
#include "broker/Broker.h"

#include <Pegasus/Common/Exception.h>

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>

namespace cimserver::test {

/// What a client throws that went away.
struct HangUp {};

std::string text(const Pegasus::String& string);

/// The context of a user; the providers take his name as their script.
Pegasus::OperationContext contextOf(const std::string& script);

class BrokerTest : public testing::Test {
  protected:
    BrokerTest();
    ~BrokerTest() override;

    /// Runs an operation and tells what came of it: results separated by blanks ("n results" when
    /// there are many), after "; " the code and text of a failure or "hung up". `request` is the
    /// operation and what it is about, as in "getInstance T_Other.Id=\"1\"".
    std::string run(const std::string& request, const std::string& script);

    void startBroker();

    const Pegasus::CIMNamespaceName nameSpace{"root/t"};
    ClassRepository repository;
    std::unique_ptr<Broker> broker;
    Selection selection;
    AssociationFilter filter;
    Pegasus::Array<Pegasus::CIMParamValue> parameters;
    std::size_t resultsUntilHangUp = 1000000;

  private:
    class Results;
    using Operation = std::function<void(const Pegasus::OperationContext&, const std::string& about,
                                         Results& results)>;
    void addInstanceOperations();
    void addAssociationOperations();
    void addOtherOperations();

    std::map<std::string, Operation> _operations;
};

}  // namespace cimserver::test
