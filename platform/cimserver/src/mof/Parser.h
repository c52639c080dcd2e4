// Reads the declarations of one MOF text.
#pragma once

#include "mof/Lexer.h"
#include "mof/Literal.h"

#include <Pegasus/Common/CIMClass.h>
#include <Pegasus/Common/CIMFlavor.h>
#include <Pegasus/Common/CIMScope.h>

#include <functional>
#include <optional>
#include <vector>

namespace cimserver {

/// Recursive descent with one token of look-ahead. MOF nests in brackets of fixed kinds only, so
/// the depth of the calls does not depend on the text.
class Parser {
  public:
    /// Reads the file that an include pragma at `at` names, into the namespace that holds there.
    using Include =
        std::function<void(const std::string& file, Position at, const Pegasus::CIMNamespaceName&)>;

    /// The repository and the source must outlive the parser; the namespace must exist.
    Parser(ClassRepository& repository, const Source& source, Pegasus::CIMNamespaceName nameSpace,
           Include include);

    /// Reads everything. Throws MofError; what was read before stays in the repository.
    void parse();

  private:
    struct Type {
        Pegasus::CIMType type;
        Pegasus::CIMName referenceClass;  ///< of a reference
    };
    struct Qualifier {
        Pegasus::CIMQualifier value;
        Position at;
    };
    using Qualifiers = std::vector<Qualifier>;

    void declaration();
    void pragma();
    void qualifierDeclaration();
    Pegasus::CIMScope scopes();
    Pegasus::CIMScope scope();
    Pegasus::CIMFlavor declaredFlavors();
    Pegasus::CIMFlavor flavor();
    void classDeclaration(const Qualifiers&);
    void member(Pegasus::CIMClass&);
    static Pegasus::CIMType propertyType(Pegasus::CIMType declared, const Qualifiers&);
    Pegasus::CIMProperty property(const Type&, const Pegasus::CIMName&, const Qualifiers&);
    Pegasus::CIMMethod method(const Type&, const Pegasus::CIMName&, const Qualifiers&);
    Pegasus::CIMParameter parameter();
    void instance();
    Pegasus::CIMProperty instanceProperty(const Pegasus::CIMConstClass& definition);

    Qualifiers qualifierList();
    Qualifier qualifier();
    Pegasus::CIMValue qualifierValue(const Pegasus::CIMQualifierDecl&);
    template <class Element>
    void addQualifiers(Element& element, const Qualifiers& qualifiers) const;

    Type type();
    Type dataType();
    std::optional<Pegasus::Uint32> arraySuffix();
    Initializer initializer();
    Initializer bracedInitializer();
    Literal literal();

    Token advance();
    bool isSymbol(char c) const;
    bool isWord(const char* word) const;
    bool accept(char c);
    bool acceptWord(const char* word);
    void expect(char c);
    void expectWord(const char* word);
    std::string expectString(const char* what);
    Pegasus::CIMName name(const char* what);
    [[noreturn]] void unexpected(const std::string& wanted) const;
    template <class Action>
    auto at(Position position, Action action) const;

    ClassRepository& _repository;
    const Source& _source;
    Pegasus::CIMNamespaceName _namespace;
    Include _include;
    Lexer _lexer;
    Token _token;  ///< the next one
};

}  // namespace cimserver
