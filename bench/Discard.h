// Response handlers that forget what they are given.
#pragma once

#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMObject.h>
#include <Pegasus/Common/ResponseHandler.h>
#include <benchmark/benchmark.h>

namespace qrvbench {

/// Counts what it takes.
template <class Base, class Result>
class Discard : public Base {
  public:
    void processing() override {}
    void complete() override {}
    void deliver(const Result& result) override {
        ++delivered;
        benchmark::DoNotOptimize(&result);
    }
    void deliver(const Pegasus::Array<Result>& results) override {
        for (Pegasus::Uint32 i = 0; i < results.size(); ++i) deliver(results[i]);
    }

    std::int64_t delivered = 0;
};

using DiscardInstances = Discard<Pegasus::InstanceResponseHandler, Pegasus::CIMInstance>;
using DiscardPaths = Discard<Pegasus::ObjectPathResponseHandler, Pegasus::CIMObjectPath>;
using DiscardObjects = Discard<Pegasus::ObjectResponseHandler, Pegasus::CIMObject>;

}  // namespace qrvbench
