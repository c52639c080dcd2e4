// Which provider of which library answers for which class.
#pragma once

#include "broker/ClassRepository.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace cimserver {

/// One provider as registered: the name PegasusCreateProvider is asked for and where its code is.
struct ProviderId {
    std::string module;    ///< PG_ProviderModule.Name
    std::string location;  ///< PG_ProviderModule.Location: the library is lib<location>.so
    std::string provider;  ///< PG_Provider.Name
};

/// The registration instances (PG_ProviderModule, PG_Provider, PG_ProviderCapabilities) of the
/// interop namespace as a lookup table. A registration is for exactly one class; the first for a
/// class wins.
class ProviderRegistry {
  public:
    enum class Kind { Instance = 2, Association = 3, Method = 5 };

    /// Reads the instances from `interop`. Throws CIMException with a text that names the instance
    /// whose module, provider or value is missing or wrong.
    ProviderRegistry(const ClassRepository& repository, const Pegasus::CIMNamespaceName& interop);

    /// The provider of a class, or nothing. For methods see methodProvider.
    std::optional<ProviderId> find(Kind kind, const Pegasus::CIMNamespaceName&,
                                   const Pegasus::CIMName& className) const;

    /// The method provider of a class whose SupportedMethods are null or name `method`.
    std::optional<ProviderId> methodProvider(const Pegasus::CIMNamespaceName&,
                                             const Pegasus::CIMName& className,
                                             const Pegasus::CIMName& method) const;

  private:
    class Reader;

    struct Entry {
        ProviderId id;
        std::optional<std::vector<Pegasus::CIMName>> methods;  ///< none: all methods
    };
    using ByClass = FoldedMap<Pegasus::CIMName, std::map<Kind, std::vector<Entry>>>;

    const std::vector<Entry>& entries(Kind, const Pegasus::CIMNamespaceName&,
                                      const Pegasus::CIMName& className) const;

    FoldedMap<Pegasus::CIMNamespaceName, ByClass> _entries;
};

}  // namespace cimserver
