// Values of all types.
#include "Support.h"

#include <Pegasus/Common/CIMClass.h>
#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMValue.h>

#include <gtest/gtest.h>

#include <limits>

using namespace Pegasus;
using model_tests::text;
using model_tests::thrownBy;

namespace {

CIMInstance instanceWith(Uint32 size) {
    CIMInstance instance(CIMName("Disk"));
    instance.addProperty(CIMProperty(CIMName("Size"), CIMValue(size)));
    return instance;
}

void setSize(CIMInstance& instance, Uint32 size) {
    instance.getProperty(0).setValue(CIMValue(size));
}

/// One type: two different values of it, and the text of the first.
template <class T>
struct Sample {
    CIMType type;
    T value;
    T other;
    std::string asText;
};

template <class T>
void checkScalar(const Sample<T>& sample) {
    const CIMValue value(sample.value);
    EXPECT_EQ(value.getType(), sample.type);
    EXPECT_FALSE(value.isArray());
    EXPECT_FALSE(value.isNull());
    EXPECT_EQ(value.getArraySize(), 0u);
    EXPECT_EQ(text(value.toString()), sample.asText);
    EXPECT_TRUE(value == CIMValue(sample.value));
    EXPECT_TRUE(value != CIMValue(sample.other));
    EXPECT_TRUE(value != CIMValue(sample.type, false));
    T got = sample.other;
    value.get(got);
    EXPECT_TRUE(CIMValue(got) == value);
}

template <class T>
void checkArray(const Sample<T>& sample) {
    Array<T> elements;
    elements.append(sample.value);
    elements.append(sample.other);
    CIMValue value;
    value.set(elements);
    EXPECT_EQ(value.getType(), sample.type);
    EXPECT_TRUE(value.isArray());
    EXPECT_EQ(value.getArraySize(), 2u);
    const String firstText = CIMValue(sample.value).toString();
    EXPECT_EQ(value.toString(), firstText + " " + CIMValue(sample.other).toString() + " ");
    elements.remove(1);
    EXPECT_TRUE(value != CIMValue(elements));
    EXPECT_TRUE(CIMValue(Array<T>()) != CIMValue(sample.type, true));
    Array<T> got;
    value.get(got);
    ASSERT_EQ(got.size(), 2u);
    EXPECT_TRUE(CIMValue(got[1]) == CIMValue(sample.other));
}

template <class T>
void checkNull(const Sample<T>& sample) {
    CIMValue null(sample.type, false);
    EXPECT_TRUE(null.isNull());
    EXPECT_EQ(null.toString(), "");
    EXPECT_TRUE(null == CIMValue(sample.type, false));
    EXPECT_TRUE(null.typeCompatible(CIMValue(sample.value)));
    EXPECT_FALSE(null.typeCompatible(CIMValue(Array<T>())));
    T untouched = sample.value;
    null.get(untouched);
    EXPECT_TRUE(CIMValue(untouched) == CIMValue(sample.value));
    Array<T> array;
    EXPECT_EQ(thrownBy<TypeMismatchException>([&] { null.get(array); }), "type mismatch");
    null.setNullValue(sample.type, true, 7);
    EXPECT_EQ(null.getArraySize(), 7u);
    EXPECT_EQ(thrownBy<TypeMismatchException>([&] { null.get(untouched); }), "type mismatch");
}

template <class T>
void check(CIMType type, const T& value, const T& other, const std::string& asText) {
    SCOPED_TRACE(cimTypeToString(type));
    const Sample<T> sample{type, value, other, asText};
    checkScalar(sample);
    checkArray(sample);
    checkNull(sample);
}

TEST(CIMValue, HoldsEveryType) {
    check<Boolean>(CIMTYPE_BOOLEAN, true, false, "TRUE");
    check<Uint8>(CIMTYPE_UINT8, 255, 0, "255");
    check<Sint8>(CIMTYPE_SINT8, -128, 127, "-128");
    check<Uint16>(CIMTYPE_UINT16, 65535, 1, "65535");
    check<Sint16>(CIMTYPE_SINT16, -32768, 1, "-32768");
    check<Uint32>(CIMTYPE_UINT32, 4294967295u, 1, "4294967295");
    check<Sint32>(CIMTYPE_SINT32, -2147483647 - 1, 1, "-2147483648");
    check<Uint64>(CIMTYPE_UINT64, ~0ull, 1, "18446744073709551615");
    check<Sint64>(CIMTYPE_SINT64, std::numeric_limits<Sint64>::min(), 1, "-9223372036854775808");
    check<Real32>(CIMTYPE_REAL32, 1.5f, -1.5f, "1.5000000000000000e+00");
    check<Real64>(CIMTYPE_REAL64, -0.25, 1e300, "-2.5000000000000000e-01");
    check<Char16>(CIMTYPE_CHAR16, Char16(0xE9), Char16('e'), "\xC3\xA9");
    check<String>(CIMTYPE_STRING, "a \"b\"", "A \"b\"", "a \"b\"");
    check<CIMDateTime>(CIMTYPE_DATETIME, String("20240229120000.000000+060"),
                       String("20240229120000.000001+060"), "20240229120000.000000+060");
    check<CIMObjectPath>(CIMTYPE_REFERENCE, String("A.k=1"), String("A.k=2"), "A.k=1");
}

TEST(CIMValue, WritesRealsThatAreNoNumbers) {
    const Real64 infinity = std::numeric_limits<Real64>::infinity();
    EXPECT_EQ(CIMValue(infinity).toString(), "inf");
    EXPECT_EQ(CIMValue(-infinity).toString(), "-inf");
    EXPECT_EQ(CIMValue(std::numeric_limits<Real32>::quiet_NaN()).toString(), "nan");
}

TEST(CIMValue, IsANullBooleanByDefault) {
    CIMValue value(String("x"));
    value.clear();
    for (const CIMValue& null : {CIMValue(), value}) {
        EXPECT_EQ(null.getType(), CIMTYPE_BOOLEAN);
        EXPECT_TRUE(null.isNull());
        EXPECT_FALSE(null.isArray());
    }
}

TEST(CIMValue, DoesNotConvert) {
    Uint32 wide = 7;
    EXPECT_EQ(thrownBy<TypeMismatchException>([&] { CIMValue(Uint16(1)).get(wide); }),
              "type mismatch");
    EXPECT_EQ(wide, 7u);
    EXPECT_TRUE(CIMValue(Uint32(1)) != CIMValue(Uint64(1)));
}

TEST(CIMValue, CopiesAreIndependent) {
    Array<String> names(1, String("a"));
    const CIMValue value(names);
    CIMValue copy(value);
    names[0] = "changed";
    copy.set(String("b"));
    EXPECT_EQ(value.toString(), "a ");
    EXPECT_EQ(copy.toString(), "b");
    copy = value;
    const CIMValue& self = copy;
    copy = self;
    EXPECT_TRUE(copy == value);
}

TEST(CIMValue, ClonesEmbeddedInstances) {
    CIMInstance instance = instanceWith(1);
    const CIMValue value(instance);
    const CIMValue array(Array<CIMInstance>(1, instance));
    setSize(instance, 2);
    CIMInstance out;
    value.get(out);
    EXPECT_TRUE(out.identical(instanceWith(1)));
    setSize(out, 3);
    EXPECT_TRUE(value == CIMValue(instanceWith(1)));
    EXPECT_TRUE(value != CIMValue(instanceWith(2)));
    Array<CIMInstance> outs;
    array.get(outs);
    setSize(outs[0], 3);
    EXPECT_TRUE(array == CIMValue(Array<CIMInstance>(1, instanceWith(1))));
}

TEST(CIMValue, KeepsObjectsAndInstancesApart) {
    const CIMValue object{CIMObject(instanceWith(1))};
    const CIMValue instance(instanceWith(1));
    EXPECT_EQ(object.getType(), CIMTYPE_OBJECT);
    EXPECT_EQ(instance.getType(), CIMTYPE_INSTANCE);
    EXPECT_TRUE(object != instance);
    CIMObject out;
    EXPECT_EQ(thrownBy<TypeMismatchException>([&] { instance.get(out); }), "type mismatch");
    object.get(out);
    EXPECT_TRUE(out.identical(CIMObject(instanceWith(1))));
    EXPECT_NE(object.toString().find("Size"), PEG_NOT_FOUND);
}

TEST(CIMValue, RefusesUninitializedObjects) {
    using Refused = UninitializedObjectException;
    const char* const message = "uninitialized object";
    CIMValue value(Uint8(1));
    EXPECT_EQ(thrownBy<Refused>([&] { value.set(CIMInstance()); }), message);
    EXPECT_EQ(thrownBy<Refused>([&] { value.set(CIMObject()); }), message);
    EXPECT_EQ(thrownBy<Refused>([&] { value.set(Array<CIMInstance>(1)); }), message);
    EXPECT_EQ(thrownBy<Refused>([&] { CIMValue{CIMObject()}; }), message);
}

}  // namespace
