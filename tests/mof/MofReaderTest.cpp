#include "Support.h"

#include <Pegasus/Common/CIMDateTime.h>
#include <Pegasus/Common/CIMObjectPath.h>

#include <filesystem>
#include <fstream>

using namespace Pegasus;

namespace cimserver::test {
namespace {

struct ErrorCase {
    const char* name;
    const char* text;
    const char* error;
};

void PrintTo(const ErrorCase& c, std::ostream* out) {
    *out << c.name;
}

class MofErrors : public RepositoryTest, public testing::WithParamInterface<ErrorCase> {};

TEST_P(MofErrors, NameThePlaceAndTheFault) {
    EXPECT_EQ(errorIn(GetParam().text), std::string("t.mof:") + GetParam().error);
}

INSTANTIATE_TEST_SUITE_P(
    Lexer, MofErrors,
    testing::Values(
        ErrorCase{"comment", "/* x", "2:1: comment without end"},
        ErrorCase{"string", "class A { string B = \"x\n\"; };", "2:22: text without closing \""},
        ErrorCase{"escape", R"(class A { string B = "\q"; };)", "2:23: unknown escape sequence"},
        ErrorCase{"nul", R"(class A { string B = "\x0"; };)",
                  "2:23: escape sequence names no character"},
        ErrorCase{"surrogate", R"(class A { string B = "\xD800"; };)",
                  "2:23: escape sequence names no character"},
        ErrorCase{
            "utf8", "class A { string B = \"ab\xFF\"; };",
            "2:22: The byte sequence starting at index 2 is not valid UTF-8 encoding: ab 0xFF"},
        ErrorCase{"number", "class A { uint8 B = 12ab; };", "2:21: malformed number 12ab"},
        ErrorCase{"character", "class A { @ };", "2:11: unexpected character"},
        ErrorCase{"hash", "#include(\"x\")", "2:1: expected #pragma"}));

INSTANTIATE_TEST_SUITE_P(
    Grammar, MofErrors,
    testing::Values(
        ErrorCase{"keyword", "clas A {};", "2:1: expected a declaration, found 'clas'"},
        ErrorCase{"semicolon", "class A {}", "2:11: expected ';', found the end of the text"},
        ErrorCase{"member", "class A { uint32 ; };", "2:18: expected a member name, found ';'"},
        ErrorCase{"type", "class A { int B; };",
                  "2:11: 'int' is neither a data type nor a class before REF"},
        ErrorCase{"returned reference", "class A { A REF f(); };",
                  "2:11: a method cannot return a reference"},
        ErrorCase{"reference array", "class A { A REF B[]; };",
                  "2:18: a property cannot be an array of references"},
        ErrorCase{"array size", "class A { uint8 B[0]; };", "2:19: expected the size of an array"},
        ErrorCase{"alias", "class A { [Key] uint8 B; };\ninstance of A as $x {};",
                  "3:15: instance aliases are not supported"},
        ErrorCase{"scope", "Qualifier Q : string, Scope(thing);",
                  "2:29: expected a scope, found 'thing'"},
        ErrorCase{"no scope", "Qualifier Q : string;", "2:21: expected ',', found ';'"},
        ErrorCase{"flavor", "Qualifier Q : string, Scope(any), Flavor(sour);",
                  "2:42: expected a flavor, found 'sour'"},
        ErrorCase{"pragma", "#pragma once(\"x\")", "2:9: unknown pragma 'once'"},
        ErrorCase{"namespace", "#pragma namespace(\"a b\")",
                  "2:1: invalid CIM namespace name: a b"},
        ErrorCase{"include", "#pragma include(\"x.mof\")", "2:1: a text cannot include files"}));

INSTANTIATE_TEST_SUITE_P(
    Values, MofErrors,
    testing::Values(
        ErrorCase{"uint8", "class A { uint8 B = 256; };", "2:21: 256 is out of range for uint8"},
        ErrorCase{"negative", "class A { uint8 B = -1; };", "2:21: -1 is out of range for uint8"},
        ErrorCase{"sint8", "class A { sint8 B = -129; };", "2:21: -129 is out of range for sint8"},
        ErrorCase{"uint64", "class A { uint64 B = 0x10000000000000000; };",
                  "2:22: 0x10000000000000000 is out of range for uint64"},
        ErrorCase{"real32", "class A { real32 B = 1.0e99; };",
                  "2:22: 1.0e99 is out of range for real32"},
        ErrorCase{"integer real", "class A { real64 B = 3; };", "2:22: 3 is not a real64"},
        ErrorCase{"hexadecimal real", "class A { real32 B = 0x10; };",
                  "2:22: 0x10 is not a real32"},
        ErrorCase{"string", "class A { string B = 1; };", "2:22: 1 is not a string"},
        ErrorCase{"boolean", "class A { boolean B = \"true\"; };",
                  "2:23: \"true\" is not a boolean"},
        ErrorCase{"char16", "class A { char16 B = 'ab'; };", "2:22: 'ab' is not a char16"},
        ErrorCase{"datetime", "class A { datetime B = \"now\"; };",
                  "2:24: invalid datetime format"},
        ErrorCase{"null in array", "class A { uint8 B[] = { 1, NULL }; };",
                  "2:28: NULL is not a uint8"},
        ErrorCase{"scalar for array", "class A { uint8 B[] = 1; };",
                  "2:23: expected an array in braces"},
        ErrorCase{"array for scalar", "class A { uint8 B = { 1 }; };",
                  "2:21: an array does not fit a scalar"},
        ErrorCase{"fixed array", "class A { uint8 B[2] = { 1 }; };",
                  "2:24: the array must have 2 elements"},
        ErrorCase{"embedded",
                  "class A {}; class B { [EmbeddedInstance(\"A\")] string C = \"x\"; };",
                  "2:58: an embedded object can only be NULL"},
        ErrorCase{"qualifier", "class A { [Max(\"x\")] A REF B; };", "2:16: \"x\" is not a uint32"},
        ErrorCase{"undeclared qualifier", "[Fast] class A {};",
                  "2:2: qualifier Fast is not declared"}));

INSTANTIATE_TEST_SUITE_P(
    Repository, MofErrors,
    testing::Values(
        ErrorCase{"class twice", "class A {}; class a {};", "2:19: class a is already declared"},
        ErrorCase{"member twice", "class A { uint8 B; uint8 b; };",
                  "2:26: already exists: property \"b\""},
        ErrorCase{"qualifier twice", "[Key, key] class A {};",
                  "2:7: already exists: qualifier \"key\""},
        ErrorCase{"other qualifier", "Qualifier Key : string, Scope(any);",
                  "2:11: qualifier Key is already declared otherwise"},
        ErrorCase{"no superclass", "class A : B {};", "2:7: class A: superclass B is not declared"},
        ErrorCase{"scope", "[Key] class A {};",
                  "2:13: class A: qualifier Key is not for this kind of element"},
        ErrorCase{"reference outside", "class A { A REF B; };",
                  "2:7: property A.B: only an association has references"},
        ErrorCase{"reference to nobody", "[Association] class A { B REF C; };",
                  "2:21: property A.C: class B is not declared"},
        ErrorCase{"embedded nobody", "class A { [EmbeddedInstance(\"B\")] string C; };",
                  "2:7: property A.C: embedded class \"B\" is not declared"},
        ErrorCase{"other type", "class A { uint8 P[]; }; class B : A { uint8 P; };",
                  "2:31: property B.P: the inherited property is of type uint8[]"},
        ErrorCase{"other return", "class A { uint8 f(); }; class B : A { sint8 f(); };",
                  "2:31: method B.f: the inherited method returns uint8"},
        ErrorCase{"other reference",
                  "class A {}; [Association] class R { A REF P; };"
                  "class C {}; [Association] class S : R { C REF P; };",
                  "2:80: property S.P: class C does not descend from A, which the inherited "
                  "reference names"},
        ErrorCase{"key array", "class A { [Key] uint8 P[]; };",
                  "2:7: property A.P: an array cannot be a key"},
        ErrorCase{"key below keys", "class A { [Key] uint8 P; }; class B : A { [Key] uint8 Q; };",
                  "2:35: property B.Q: a key cannot be added, superclass A has its keys already"},
        ErrorCase{"fixed qualifier",
                  "class A { [Key] uint8 P; }; class B : A { [Key(false)] uint8 P; };",
                  "2:35: property B.P: qualifier Key cannot change its inherited value"},
        ErrorCase{"loosened qualifier", "class A { [Key : EnableOverride] uint8 P; };",
                  "2:7: property A.P: qualifier Key cannot be made overridable"},
        ErrorCase{"instance of nobody", "instance of A {};", "2:13: A"},
        ErrorCase{"instance of abstract", "[Abstract] class A {}; instance of A {};",
                  "2:36: class A is abstract"},
        ErrorCase{"instance without keys", "class A {}; instance of A {};",
                  "2:25: class A has no keys"},
        ErrorCase{"instance without key", "class A { [Key] uint8 P; }; instance of A {};",
                  "2:41: property A.P is a key without a value"},
        ErrorCase{"instance property", "class A { [Key] uint8 P; }; instance of A { Q = 1; };",
                  "2:45: class A has no property Q"},
        ErrorCase{"instance twice",
                  "class A { [Key] uint8 P; }; instance of A { P = 1; }; instance of A { P = 1; };",
                  "2:67: instance A.P=1 exists already"}));

struct ValueCase {
    const char* declaration;  ///< of property P
    CIMValue value;
};

void PrintTo(const ValueCase& c, std::ostream* out) {
    *out << c.declaration;
}

class MofValues : public RepositoryTest, public testing::WithParamInterface<ValueCase> {};

TEST_P(MofValues, BecomeTypedValues) {
    read(std::string("class E {}; class A {") + GetParam().declaration + "};");
    const CIMConstClass declared = repository.resolvedClass(Root, "A");
    const CIMValue value = declared.getProperty(declared.findProperty("P")).getValue();
    EXPECT_EQ(value.getType(), GetParam().value.getType());
    EXPECT_TRUE(value == GetParam().value) << utf8(value.toString());
}

template <class T>
CIMValue arrayOf(std::initializer_list<T> values) {
    Array<T> array;
    for (const T& value : values) array.append(value);
    return CIMValue(array);
}

INSTANTIATE_TEST_SUITE_P(
    All, MofValues,
    testing::Values(
        ValueCase{"boolean P = True;", true}, ValueCase{"uint8 P = 255;", Uint8(255)},
        ValueCase{"sint8 P = -128;", Sint8(-128)}, ValueCase{"uint16 P = 0xFfFf;", Uint16(65535)},
        ValueCase{"sint16 P = +077;", Sint16(63)}, ValueCase{"uint32 P = 101b;", Uint32(5)},
        ValueCase{"sint32 P = -2147483648;", Sint32(-2147483647 - 1)},
        ValueCase{"uint64 P = 18446744073709551615;", Uint64(18446744073709551615U)},
        ValueCase{"sint64 P = -9223372036854775808;", Sint64(-9223372036854775807 - 1)},
        ValueCase{"real32 P = +1.5;", Real32(1.5)}, ValueCase{"real64 P = -.25e+2;", Real64(-25)},
        ValueCase{"char16 P = '\\x20AC';", Char16(0x20AC)},
        ValueCase{R"(string P = "a\"b" /* and */ "\t\x41";)", String("a\"b\tA")},
        ValueCase{"string P = \"\";", String()}, ValueCase{"string P;", {CIMTYPE_STRING, false}},
        ValueCase{"string P = null;", {CIMTYPE_STRING, false}},
        ValueCase{"datetime P = \"20240229123000.000000+060\";",
                  CIMDateTime("20240229123000.000000+060")},
        ValueCase{"uint16 P[] = { 1, 2 };", arrayOf<Uint16>({1, 2})},
        ValueCase{"uint16 P[] = {};", arrayOf<Uint16>({})},
        ValueCase{"uint16 P[2] = { 1, 2 };", arrayOf<Uint16>({1, 2})},
        ValueCase{"string P[3];", {CIMTYPE_STRING, true, 3}},
        ValueCase{"[EmbeddedInstance(\"E\")] string P;", {CIMTYPE_INSTANCE, false}},
        ValueCase{"[EmbeddedObject] string P[];", {CIMTYPE_OBJECT, true}}));

TEST_F(RepositoryTest, ReadsReferencesAndDefaultsOfInstances) {
    read(
        "class A { [Key] string K; uint8 D = 7; uint8 N; };"
        "[Association] class L { [Key] A REF From; [Key] A REF To; };"
        "instance of A { K = \"x\"; };"
        "instance of L { To = \"A.K=\\\"y\\\"\"; From = \"A.K=\\\"x\\\"\"; };");
    const CIMInstance& a = repository.instances(Root, "A").at(0);
    EXPECT_EQ(utf8(a.getPath().toString()), "A.K=\"x\"");
    EXPECT_TRUE(a.getProperty(1).getValue() == CIMValue(Uint8(7)));
    EXPECT_TRUE(a.getProperty(2).getValue().isNull());
    CIMObjectPath to;
    repository.instances(Root, "L").at(0).getProperty(1).getValue().get(to);
    EXPECT_EQ(utf8(to.toString()), "A.K=\"y\"");
}

TEST_F(RepositoryTest, QualifiersWithoutValueAreTrueOrNull) {
    read(
        "Qualifier W : string = \"w\", Scope(class); Qualifier B : boolean = false, Scope(class);"
        "[W, B] class A {};");
    const CIMConstClass a = repository.resolvedClass(Root, "A");
    EXPECT_EQ(a.getQualifier(a.findQualifier("W")).getValue(), CIMValue(CIMTYPE_STRING, false));
    EXPECT_EQ(a.getQualifier(a.findQualifier("B")).getValue(), CIMValue(true));
}

/// A directory of its own that is gone after the test.
class MofFiles : public RepositoryTest {
  protected:
    MofFiles() { std::filesystem::create_directories(_directory / "sub"); }
    ~MofFiles() override { std::filesystem::remove_all(_directory); }

    void write(const std::string& name, const std::string& text) {
        std::ofstream(_directory / name) << text;
    }
    void readFile(const std::string& name) {
        MofReader(repository).readFile((_directory / name).string(), Root);
    }
    std::string errorOfFile(const std::string& name) {
        std::string error = errorOf([&] { readFile(name); });
        const std::string prefix = _directory.string() + "/";
        for (auto at = error.find(prefix); at != std::string::npos; at = error.find(prefix))
            error.erase(at, prefix.size());
        return error;
    }

  private:
    std::filesystem::path _directory =
        std::filesystem::temp_directory_path() /
        ("mof" + std::to_string(testing::UnitTest::GetInstance()->random_seed()) +
         testing::UnitTest::GetInstance()->current_test_info()->name());
};

TEST_F(MofFiles, AreIncludedRelativeToTheIncludingFile) {
    write("a.mof", "#pragma include(\"sub/b.mof\")\nclass A : B {};");
    write("sub/b.mof", "#pragma include(\"c.mof\")\n#pragma locale(\"en_US\")\nclass B : C {};");
    write("sub/c.mof",
          "#pragma namespace(\"root/other\")\nclass X {};\n"
          "#pragma namespace(\"root/test\")\nclass C {};");
    readFile("a.mof");
    EXPECT_EQ(joined(repository.classAndDescendants(Root, "C")), "C B A");
    EXPECT_TRUE(repository.hasClass("root/other", "X"));
}

TEST_F(MofFiles, AreNamedInErrors) {
    write("a.mof", "\n#pragma include(\"sub/b.mof\")");
    write("sub/b.mof", "class B : C {};");
    write("missing.mof", "#pragma include(\"nowhere.mof\")");
    write("loop.mof", "#pragma include(\"loop.mof\")");
    EXPECT_EQ(errorOfFile("a.mof"), "sub/b.mof:1:7: class B: superclass C is not declared");
    EXPECT_EQ(errorOfFile("missing.mof"),
              "missing.mof:1:1: cannot read nowhere.mof: No such file or directory");
    EXPECT_EQ(errorOfFile("loop.mof"), "loop.mof:1:1: files include each other deeper than 16");
    EXPECT_EQ(errorOfFile("none.mof"),
              "none.mof:1:1: cannot read none.mof: No such file or directory");
}

}  // namespace
}  // namespace cimserver::test
