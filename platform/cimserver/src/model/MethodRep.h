// Methods and their parameters.
#pragma once

#include "model/Counted.h"
#include "model/NamedSet.h"
#include "model/QualifierRep.h"

#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/CIMType.h>

namespace cimserver {

class ParameterRep : public Counted<ParameterRep>, public Member {
  public:
    static constexpr const char* kind = "parameter";

    ParameterRep(const Pegasus::CIMName& name, Pegasus::CIMType type, bool isArray,
                 Pegasus::Uint32 arraySize, const Pegasus::CIMName& referenceClass);

    const Pegasus::CIMName& name() const noexcept { return _name; }
    void setName(const Pegasus::CIMName& name);
    bool identical(const ParameterRep& other) const;
    Ref<ParameterRep> clone() const;

    const Pegasus::CIMType type;
    const bool isArray;
    const Pegasus::Uint32 arraySize;
    const Pegasus::CIMName referenceClass;
    QualifierList qualifiers;

  private:
    Pegasus::CIMName _name;
};

class MethodRep : public Counted<MethodRep>, public Member {
  public:
    static constexpr const char* kind = "method";

    MethodRep(const Pegasus::CIMName& name, Pegasus::CIMType type,
              const Pegasus::CIMName& classOrigin, bool propagated);
    MethodRep(const MethodRep& other);

    const Pegasus::CIMName& name() const noexcept { return _name; }
    void setName(const Pegasus::CIMName& name);

    /// Class origin and propagated flag do not matter.
    bool identical(const MethodRep& other) const;
    Ref<MethodRep> clone() const;

    Pegasus::CIMType type;
    Pegasus::CIMName classOrigin;
    bool propagated;
    QualifierList qualifiers;
    NamedSet<ParameterRep> parameters;

  private:
    Pegasus::CIMName _name;
};

}  // namespace cimserver
