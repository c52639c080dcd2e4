// A repository filled from MOF texts, and its content as readable text.
#pragma once

#include "broker/ClassRepository.h"
#include "mof/MofReader.h"

#include <Pegasus/Common/Exception.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace cimserver::test {

inline const Pegasus::CIMNamespaceName Root("root/test");

/// The qualifiers that the tests use, in one line so that the errors of a text stand in line 2.
inline const std::string Qualifiers =
    "Qualifier Association : boolean = false, Scope(association), Flavor(DisableOverride);"
    "Qualifier Abstract : boolean = false, Scope(class, association), Flavor(Restricted);"
    "Qualifier Description : string = null, Scope(any), Flavor(Translatable);"
    "Qualifier EmbeddedInstance : string = null, Scope(property);"
    "Qualifier EmbeddedObject : boolean = false, Scope(property), Flavor(DisableOverride);"
    "Qualifier Key : boolean = false, Scope(property, reference), Flavor(DisableOverride);"
    "Qualifier Max : uint32 = null, Scope(reference);"
    "Qualifier Out : boolean = false, Scope(parameter), Flavor(DisableOverride);"
    "Qualifier ValueMap : string[], Scope(property, method, parameter);\n";

inline std::string utf8(const Pegasus::String& text) {
    return std::string(text.getCString());
}

/// What `action` throws, or "nothing".
template <class Action>
std::string errorOf(Action action) {
    try {
        action();
    } catch (const MofError& e) {
        return e.what();
    } catch (const Pegasus::CIMException& e) {
        return std::to_string(e.getCode()) + " " + utf8(e.getMessage());
    }
    return "nothing";
}

class RepositoryTest : public testing::Test {
  protected:
    void read(const std::string& text) {
        MofReader(repository).readText(Qualifiers + text, "t.mof", Root);
    }
    std::string errorIn(const std::string& text) {
        return errorOf([&] { read(text); });
    }
    static std::string joined(const std::vector<Pegasus::CIMName>& names) {
        std::string result;
        for (const auto& name : names)
            result += (result.empty() ? "" : " ") + utf8(name.getString());
        return result;
    }

    ClassRepository repository;
};

/// " [Key Override*=x]": the qualifiers with their values unless TRUE, `*` where propagated.
template <class Element>
std::string qualifiersOf(const Element& element) {
    std::string result;
    for (Pegasus::Uint32 i = 0; i < element.getQualifierCount(); ++i) {
        const auto qualifier = element.getQualifier(i);
        const std::string value = utf8(qualifier.getValue().toString());
        result += (i ? " " : " [") + utf8(qualifier.getName().getString()) +
                  (qualifier.getPropagated() ? "*" : "") + (value == "TRUE" ? "" : "=" + value);
    }
    return result.empty() ? result : result + "]";
}

/// "A.Id*": a member's origin and name, `*` where propagated.
template <class Member>
std::string memberName(const Member& member) {
    return utf8(member.getClassOrigin().getString()) + "." + utf8(member.getName().getString()) +
           (member.getPropagated() ? "*" : "");
}

inline std::string show(const Pegasus::CIMConstProperty& property) {
    const std::string value = utf8(property.getValue().toString());
    const std::string target = utf8(property.getReferenceClassName().getString());
    return memberName(property) + " " + Pegasus::cimTypeToString(property.getType()) +
           (property.isArray() ? "[]" : "") + (target.empty() ? "" : " " + target) +
           (value.empty() ? "" : " = " + value) + qualifiersOf(property);
}

inline std::string show(const Pegasus::CIMConstMethod& method) {
    std::string parameters;
    for (Pegasus::Uint32 i = 0; i < method.getParameterCount(); ++i) {
        const auto parameter = method.getParameter(i);
        parameters += (i ? ", " : "") + std::string(Pegasus::cimTypeToString(parameter.getType())) +
                      (parameter.isArray() ? "[] " : " ") + utf8(parameter.getName().getString()) +
                      qualifiersOf(parameter);
    }
    return memberName(method) + "(" + parameters + ") " +
           Pegasus::cimTypeToString(method.getType()) + qualifiersOf(method);
}

/// A class in one line per member.
inline std::string show(const Pegasus::CIMConstClass& shown) {
    std::string result = utf8(shown.getClassName().getString()) + " : " +
                         utf8(shown.getSuperClassName().getString()) + qualifiersOf(shown) + "\n";
    for (Pegasus::Uint32 i = 0; i < shown.getPropertyCount(); ++i)
        result += show(shown.getProperty(i)) + "\n";
    for (Pegasus::Uint32 i = 0; i < shown.getMethodCount(); ++i)
        result += show(shown.getMethod(i)) + "\n";
    return result;
}

}  // namespace cimserver::test
