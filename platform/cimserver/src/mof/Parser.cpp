#include "mof/Parser.h"

#include <Pegasus/Common/Exception.h>

#include <strings.h>
#include <charconv>
#include <iterator>

using namespace Pegasus;

namespace cimserver {
namespace {

bool sameWord(const std::string& a, const char* b) {
    return strcasecmp(a.c_str(), b) == 0;
}

std::string text(const CIMName& name) {
    return std::string(name.getString().getCString());
}

template <class T>
struct Word {
    const char* word;
    T meaning;
};

template <class Table>
auto findWord(const Table& table, const std::string& word) {
    auto entry = std::begin(table);
    while (entry != std::end(table) && !sameWord(word, entry->word)) ++entry;
    return entry == std::end(table) ? nullptr : &*entry;
}

constexpr Word<CIMType> DataTypes[] = {
    {"boolean", CIMTYPE_BOOLEAN}, {"uint8", CIMTYPE_UINT8},      {"sint8", CIMTYPE_SINT8},
    {"uint16", CIMTYPE_UINT16},   {"sint16", CIMTYPE_SINT16},    {"uint32", CIMTYPE_UINT32},
    {"sint32", CIMTYPE_SINT32},   {"uint64", CIMTYPE_UINT64},    {"sint64", CIMTYPE_SINT64},
    {"real32", CIMTYPE_REAL32},   {"real64", CIMTYPE_REAL64},    {"char16", CIMTYPE_CHAR16},
    {"string", CIMTYPE_STRING},   {"datetime", CIMTYPE_DATETIME}};

// The meanings of the next two tables are objects of another library, which exist only at run time.
const Word<const CIMScope*> Scopes[] = {
    {"class", &CIMScope::CLASS},           {"association", &CIMScope::ASSOCIATION},
    {"indication", &CIMScope::INDICATION}, {"property", &CIMScope::PROPERTY},
    {"reference", &CIMScope::REFERENCE},   {"method", &CIMScope::METHOD},
    {"parameter", &CIMScope::PARAMETER},   {"any", &CIMScope::ANY}};

const Word<const CIMFlavor*> Flavors[] = {{"EnableOverride", &CIMFlavor::ENABLEOVERRIDE},
                                          {"DisableOverride", &CIMFlavor::DISABLEOVERRIDE},
                                          {"ToSubclass", &CIMFlavor::TOSUBCLASS},
                                          {"Restricted", &CIMFlavor::RESTRICTED},
                                          {"Translatable", &CIMFlavor::TRANSLATABLE}};

}  // namespace

Parser::Parser(ClassRepository& repository, const Source& source, CIMNamespaceName nameSpace,
               Include include)
    : _repository(repository),
      _source(source),
      _namespace(std::move(nameSpace)),
      _include(std::move(include)),
      _lexer(source),
      _token(_lexer.next()) {}

void Parser::parse() {
    while (_token.kind != TokenKind::End) declaration();
}

/// Runs what may throw an exception of the object model; its text is reported for `position`.
template <class Action>
auto Parser::at(Position position, Action action) const {
    try {
        return action();
    } catch (const Exception& e) {
        _source.fail(position, std::string(e.getMessage().getCString()));
    }
}

void Parser::declaration() {
    if (_token.kind == TokenKind::Pragma) return pragma();
    if (isWord("qualifier")) return qualifierDeclaration();
    const Qualifiers qualifiers = qualifierList();
    if (isWord("class")) return classDeclaration(qualifiers);
    if (qualifiers.empty() && isWord("instance")) return instance();
    unexpected("a declaration");
}

void Parser::pragma() {
    const Position start = advance().at;
    const Token directive = advance();
    expect('(');
    const std::string value = expectString("the pragma's value");
    expect(')');
    if (sameWord(directive.text, "include")) return _include(value, start, _namespace);
    if (sameWord(directive.text, "namespace")) {
        _namespace = at(start, [&] { return CIMNamespaceName(String(value.c_str())); });
        return _repository.addNamespace(_namespace);
    }
    const bool isForReaders =
        sameWord(directive.text, "locale") || sameWord(directive.text, "instancelocale");
    if (!isForReaders) _source.fail(directive.at, "unknown pragma '" + directive.text + "'");
}

void Parser::qualifierDeclaration() {
    advance();
    const Position start = _token.at;
    const CIMName qualifierName = name("a qualifier name");
    expect(':');
    const Type declared = dataType();
    const auto array = arraySuffix();
    const ValueType valueType{declared.type, array.has_value(), array.value_or(0)};
    CIMValue value(valueType.type, valueType.isArray, valueType.arraySize);
    if (accept('=')) value = toValue(_source, initializer(), valueType);
    expect(',');
    const CIMScope scope = scopes();
    const CIMFlavor flavor = declaredFlavors();
    expect(';');
    at(start, [&] {
        _repository.addQualifier(
            _namespace, CIMQualifierDecl(qualifierName, value, scope, flavor, valueType.arraySize));
    });
}

CIMScope Parser::scopes() {
    expectWord("Scope");
    expect('(');
    CIMScope result = scope();
    while (accept(',')) result.addScope(scope());
    expect(')');
    return result;
}

CIMScope Parser::scope() {
    const auto* found = findWord(Scopes, _token.text);
    if (!found) unexpected("a scope");
    advance();
    return *found->meaning;
}

/// Without other word a qualifier can be overridden and passes on to subclasses.
CIMFlavor Parser::declaredFlavors() {
    CIMFlavor result;
    if (accept(',')) {
        expectWord("Flavor");
        expect('(');
        do {
            result.addFlavor(flavor());
        } while (accept(','));
        expect(')');
    }
    if (!result.hasFlavor(CIMFlavor::DISABLEOVERRIDE)) result.addFlavor(CIMFlavor::ENABLEOVERRIDE);
    if (!result.hasFlavor(CIMFlavor::RESTRICTED)) result.addFlavor(CIMFlavor::TOSUBCLASS);
    return result;
}

CIMFlavor Parser::flavor() {
    const auto* found = findWord(Flavors, _token.text);
    if (!found) unexpected("a flavor");
    advance();
    return *found->meaning;
}

void Parser::classDeclaration(const Qualifiers& qualifiers) {
    advance();
    const Position start = _token.at;
    const CIMName className = name("a class name");
    const CIMName superClass = accept(':') ? name("a class name") : CIMName();
    CIMClass declared(className, superClass);
    addQualifiers(declared, qualifiers);
    expect('{');
    while (!accept('}')) member(declared);
    expect(';');
    at(start, [&] { _repository.addClass(_namespace, declared); });
}

void Parser::member(CIMClass& declared) {
    const Qualifiers qualifiers = qualifierList();
    const Position typeStart = _token.at;
    const Type memberType = type();
    const Position start = _token.at;
    const CIMName memberName = name("a member name");
    if (!isSymbol('(')) {
        const CIMProperty added = property(memberType, memberName, qualifiers);
        at(start, [&] { declared.addProperty(added); });
    } else {
        if (memberType.type == CIMTYPE_REFERENCE)
            _source.fail(typeStart, "a method cannot return a reference");
        const CIMMethod added = method(memberType, memberName, qualifiers);
        at(start, [&] { declared.addMethod(added); });
    }
    expect(';');
}

/// An embedded object is declared as a string; its qualifier tells what it really is.
CIMType Parser::propertyType(CIMType declared, const Qualifiers& qualifiers) {
    if (declared != CIMTYPE_STRING) return declared;
    for (const Qualifier& qualifier : qualifiers) {
        const CIMName& name = qualifier.value.getName();
        if (name.equal("EmbeddedInstance")) return CIMTYPE_INSTANCE;
        if (name.equal("EmbeddedObject") && qualifier.value.getValue() == CIMValue(true))
            return CIMTYPE_OBJECT;
    }
    return declared;
}

CIMProperty Parser::property(const Type& declared, const CIMName& propertyName,
                             const Qualifiers& qualifiers) {
    const Position start = _token.at;
    const auto array = arraySuffix();
    if (array && declared.type == CIMTYPE_REFERENCE)
        _source.fail(start, "a property cannot be an array of references");
    const ValueType valueType{propertyType(declared.type, qualifiers), array.has_value(),
                              array.value_or(0)};
    CIMValue value(valueType.type, valueType.isArray, valueType.arraySize);
    if (accept('=')) value = toValue(_source, initializer(), valueType);
    CIMProperty result(propertyName, value, valueType.arraySize, declared.referenceClass);
    addQualifiers(result, qualifiers);
    return result;
}

CIMMethod Parser::method(const Type& returned, const CIMName& methodName,
                         const Qualifiers& qualifiers) {
    CIMMethod result(methodName, returned.type);
    addQualifiers(result, qualifiers);
    expect('(');
    if (accept(')')) return result;
    do {
        const Position start = _token.at;
        const CIMParameter added = parameter();
        at(start, [&] { result.addParameter(added); });
    } while (accept(','));
    expect(')');
    return result;
}

CIMParameter Parser::parameter() {
    const Qualifiers qualifiers = qualifierList();
    const Type declared = type();
    const CIMName parameterName = name("a parameter name");
    const auto array = arraySuffix();
    CIMParameter result(parameterName, declared.type, array.has_value(), array.value_or(0),
                        declared.referenceClass);
    addQualifiers(result, qualifiers);
    return result;
}

void Parser::instance() {
    advance();
    expectWord("of");
    const Position start = _token.at;
    const CIMName className = name("a class name");
    if (isWord("as")) _source.fail(_token.at, "instance aliases are not supported");
    const CIMConstClass definition =
        at(start, [&] { return _repository.resolvedClass(_namespace, className); });
    CIMInstance result(className);
    expect('{');
    while (!accept('}')) {
        const Position propertyStart = _token.at;
        const CIMProperty added = instanceProperty(definition);
        at(propertyStart, [&] { result.addProperty(added); });
    }
    expect(';');
    at(start, [&] { _repository.addInstance(_namespace, result); });
}

CIMProperty Parser::instanceProperty(const CIMConstClass& definition) {
    const Position start = _token.at;
    const CIMName propertyName = name("a property name");
    const Uint32 index = definition.findProperty(propertyName);
    if (index == PEG_NOT_FOUND)
        _source.fail(start, "class " + text(definition.getClassName()) + " has no property " +
                                text(propertyName));
    const CIMConstProperty declared = definition.getProperty(index);
    expect('=');
    const CIMValue value = toValue(
        _source, initializer(), {declared.getType(), declared.isArray(), declared.getArraySize()});
    expect(';');
    return CIMProperty(propertyName, value, declared.getArraySize(),
                       declared.getReferenceClassName());
}

Parser::Qualifiers Parser::qualifierList() {
    Qualifiers result;
    if (!accept('[')) return result;
    do {
        result.push_back(qualifier());
    } while (accept(','));
    expect(']');
    return result;
}

Parser::Qualifier Parser::qualifier() {
    const Position start = _token.at;
    const CIMName qualifierName = name("a qualifier name");
    if (!_repository.hasQualifier(_namespace, qualifierName))
        _source.fail(start, "qualifier " + text(qualifierName) + " is not declared");
    const CIMValue value = qualifierValue(_repository.getQualifier(_namespace, qualifierName));
    CIMFlavor flavors;
    for (bool more = accept(':'); more; more = findWord(Flavors, _token.text) != nullptr)
        flavors.addFlavor(flavor());
    return {CIMQualifier(qualifierName, value, flavors), start};
}

/// A boolean qualifier without value is true, any other is null.
CIMValue Parser::qualifierValue(const CIMQualifierDecl& declaration) {
    const ValueType valueType{declaration.getType(), bool(declaration.isArray()),
                              declaration.getArraySize()};
    if (isSymbol('{')) return toValue(_source, bracedInitializer(), valueType);
    if (accept('(')) {
        const Position start = _token.at;
        CIMValue value = toValue(_source, Initializer{false, {literal()}, start}, valueType);
        expect(')');
        return value;
    }
    const bool isFlag = valueType.type == CIMTYPE_BOOLEAN && !valueType.isArray;
    return isFlag ? CIMValue(true)
                  : CIMValue(valueType.type, valueType.isArray, valueType.arraySize);
}

template <class Element>
void Parser::addQualifiers(Element& element, const Qualifiers& qualifiers) const {
    for (const Qualifier& added : qualifiers)
        at(added.at, [&] { element.addQualifier(added.value.clone()); });
}

Parser::Type Parser::type() {
    const Token word = _token;
    const CIMName typeName = name("a type");
    if (const auto* found = findWord(DataTypes, word.text)) return {found->meaning, CIMName()};
    if (!acceptWord("ref"))
        _source.fail(word.at, "'" + word.text + "' is neither a data type nor a class before REF");
    return {CIMTYPE_REFERENCE, typeName};
}

Parser::Type Parser::dataType() {
    const auto* found = findWord(DataTypes, _token.text);
    if (!found) unexpected("a data type");
    advance();
    return {found->meaning, CIMName()};
}

/// The size of an array, 0 when any; nothing when there is no suffix at all.
std::optional<Uint32> Parser::arraySuffix() {
    if (!accept('[')) return std::nullopt;
    if (accept(']')) return 0;
    const Token size = advance();
    Uint32 value = 0;
    const char* end = size.text.data() + size.text.size();
    const auto status = std::from_chars(size.text.data(), end, value);
    const bool isSize = size.kind == TokenKind::Integer && status.ec == std::errc() &&
                        status.ptr == end && value > 0;
    if (!isSize) _source.fail(size.at, "expected the size of an array");
    expect(']');
    return value;
}

Initializer Parser::initializer() {
    if (isSymbol('{')) return bracedInitializer();
    const Position start = _token.at;
    return {false, {literal()}, start};
}

Initializer Parser::bracedInitializer() {
    Initializer result{true, {}, _token.at};
    expect('{');
    if (accept('}')) return result;
    do {
        result.items.push_back(literal());
    } while (accept(','));
    expect('}');
    return result;
}

Literal Parser::literal() {
    const Token first = _token;
    if (isWord("null")) return {Literal::Kind::Null, advance().text, first.at};
    if (acceptWord("true")) return {Literal::Kind::Boolean, "TRUE", first.at};
    if (acceptWord("false")) return {Literal::Kind::Boolean, "FALSE", first.at};
    switch (first.kind) {
        case TokenKind::Integer:
            return {Literal::Kind::Integer, advance().text, first.at};
        case TokenKind::Real:
            return {Literal::Kind::Real, advance().text, first.at};
        case TokenKind::Character:
            return {Literal::Kind::Character, advance().text, first.at};
        case TokenKind::String:
            return {Literal::Kind::String, expectString("text"), first.at};
        default:
            unexpected("a value");
    }
}

Token Parser::advance() {
    Token taken = std::move(_token);
    _token = _lexer.next();
    return taken;
}

bool Parser::isSymbol(char c) const {
    return _token.kind == TokenKind::Symbol && _token.text.front() == c;
}

bool Parser::isWord(const char* word) const {
    return _token.kind == TokenKind::Identifier && sameWord(_token.text, word);
}

bool Parser::accept(char c) {
    const bool found = isSymbol(c);
    if (found) advance();
    return found;
}

bool Parser::acceptWord(const char* word) {
    const bool found = isWord(word);
    if (found) advance();
    return found;
}

void Parser::expect(char c) {
    if (!accept(c)) unexpected(std::string("'") + c + "'");
}

void Parser::expectWord(const char* word) {
    if (!acceptWord(word)) unexpected(word);
}

/// Texts that follow each other are one text.
std::string Parser::expectString(const char* what) {
    if (_token.kind != TokenKind::String) unexpected(what);
    std::string result;
    while (_token.kind == TokenKind::String) result += advance().text;
    return result;
}

CIMName Parser::name(const char* what) {
    if (_token.kind != TokenKind::Identifier) unexpected(what);
    return CIMName(advance().text.c_str());
}

void Parser::unexpected(const std::string& wanted) const {
    const std::string found = _token.kind == TokenKind::End      ? "the end of the text"
                              : _token.kind == TokenKind::String ? "\"" + _token.text + "\""
                                                                 : "'" + _token.text + "'";
    _source.fail(_token.at, "expected " + wanted + ", found " + found);
}

}  // namespace cimserver
