#pragma once

#include <atomic>
#include <cstdint>
#include <memory>
#include <mutex>
#include <utility>

#include "Guarded.h"
#include "Model.h"

namespace qrvapi {

/// The one array of the process. Unless the program puts one in before, the first use finds one:
/// the scenario that QRVAPI_SCENARIO names, else the installed sample, else an empty array.
class Simulator {
  public:
    static Simulator& instance();

    template <class Visitor>
    auto read(Visitor&& visit) {
        findFirst();
        return model_.read([&](const auto& model) { return visit(std::as_const(*model)); });
    }

    template <class Change>
    auto change(Change&& change) {
        findFirst();
        return model_.write([&](auto& model) { return change(*model); });
    }

    void replace(std::unique_ptr<Model> model);
    /// How often that has happened.
    std::uint64_t replacements() const { return replacements_; }

  private:
    void findFirst();

    std::once_flag first_;
    std::atomic<std::uint64_t> replacements_{0};
    Guarded<std::unique_ptr<Model>> model_;
};

}  // namespace qrvapi
