// The classes, qualifier declarations and static instances of all namespaces.
#pragma once

#include "broker/FoldedName.h"
#include "model/LocalServer.h"

#include <Pegasus/Common/CIMQualifierDecl.h>

#include <memory>
#include <vector>

namespace cimserver {

/// Filled once at start-up from MOF, then only read: the const functions may be called on any
/// thread. Names ignore case. Functions that take a namespace throw CIMException
/// CIM_ERR_INVALID_NAMESPACE with the namespace's name when it does not exist; those that take a
/// class throw CIM_ERR_INVALID_CLASS with the class's name when it does not (getClass:
/// CIM_ERR_NOT_FOUND).
class ClassRepository {
  public:
    ClassRepository();
    ~ClassRepository();
    ClassRepository(const ClassRepository&) = delete;
    ClassRepository& operator=(const ClassRepository&) = delete;

    /// Adds a namespace; one that exists already stays as it is.
    void addNamespace(const Pegasus::CIMNamespaceName&);

    /// Adds a qualifier declaration; the same declaration twice is accepted, another of its name
    /// not.
    void addQualifier(const Pegasus::CIMNamespaceName&, const Pegasus::CIMQualifierDecl&);

    /// Adds a class as MOF declares it (local members only) and resolves it: inherited members are
    /// copied in with class origin and propagated flag set, those that are not overridden in front
    /// of the class's own; qualifiers take the flavour of their declaration and pass on to
    /// subclasses as it says. Superclass, qualifier declarations and the classes named by reference
    /// properties must be there already. Throws CIMException with a text that names what is missing
    /// or clashes.
    void addClass(const Pegasus::CIMNamespaceName&, const Pegasus::CIMClass&);

    /// Adds a static instance. Its class and properties must exist; defaults of the class fill in,
    /// and the path is built from the class's keys.
    void addInstance(const Pegasus::CIMNamespaceName&, const Pegasus::CIMInstance&);

    bool hasNamespace(const Pegasus::CIMNamespaceName&) const;
    bool hasClass(const Pegasus::CIMNamespaceName&, const Pegasus::CIMName&) const;
    bool hasQualifier(const Pegasus::CIMNamespaceName&, const Pegasus::CIMName&) const;
    Pegasus::CIMQualifierDecl getQualifier(const Pegasus::CIMNamespaceName&,
                                           const Pegasus::CIMName&) const;

    /// A copy of the class, reduced to what is asked for.
    Pegasus::CIMClass getClass(const Pegasus::CIMNamespaceName&, const Pegasus::CIMName&,
                               bool localOnly, const Selection&) const;

    /// The resolved class itself, shared: callers only read it.
    Pegasus::CIMConstClass resolvedClass(const Pegasus::CIMNamespaceName&,
                                         const Pegasus::CIMName&) const;

    /// The class followed by all that descend from it, parents before children, in order of
    /// declaration.
    std::vector<Pegasus::CIMName> classAndDescendants(const Pegasus::CIMNamespaceName&,
                                                      const Pegasus::CIMName&) const;

    /// The direct children of a class (all root classes when the name is null), in order of
    /// declaration.
    std::vector<Pegasus::CIMName> children(const Pegasus::CIMNamespaceName&,
                                           const Pegasus::CIMName&) const;

    /// Whether `derived` is `base` or descends from it. Unknown names are nobody's relatives.
    bool isA(const Pegasus::CIMNamespaceName&, const Pegasus::CIMName& derived,
             const Pegasus::CIMName& base) const;

    /// The association classes a request from an object of class `source` is about: each is
    /// `associationClass` or a descendant of it (all associations when that is null) and has a
    /// reference whose declared class is `source` or an ancestor of it.
    std::vector<Pegasus::CIMName> associationsOf(const Pegasus::CIMNamespaceName&,
                                                 const Pegasus::CIMName& source,
                                                 const Pegasus::CIMName& associationClass) const;

    /// The static instances of exactly this class.
    const std::vector<Pegasus::CIMInstance>& instances(const Pegasus::CIMNamespaceName&,
                                                       const Pegasus::CIMName&) const;

  private:
    struct ClassEntry;
    struct Namespace;

    Namespace& at(const Pegasus::CIMNamespaceName&) const;

    FoldedMap<Pegasus::CIMNamespaceName, std::unique_ptr<Namespace>> _namespaces;
};

}  // namespace cimserver
