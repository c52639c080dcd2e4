// Reading and writing properties, keys and parameters.
#include <QRV_Common.h>
#include <gmock/gmock.h>

#include "Handlers.h"

using namespace Pegasus;

namespace {

CIMInstance instanceWith(const CIMValue& value) {
    CIMInstance instance(CIMName("Sample"));
    instance.addProperty(CIMProperty(CIMName("Given"), value));
    return instance;
}

/// Writes `value` with the setter and reads it back with the getter, then meets null and missing.
template <class T>
void expectRoundTrip(const T& value, const T& untouched) {
    const CIMValue stored(value);
    const CIMValue null(stored.getType(), stored.isArray());
    CIMInstance instance = instanceWith(null);

    T read = untouched;
    EXPECT_EQ(QRV_Common::getProperty(instance, "Given", read), 4);
    EXPECT_EQ(QRV_Common::getProperty(instance, "Other", read), 3);
    EXPECT_EQ(CIMValue(read), CIMValue(untouched));

    QRV_Common::setPropertyValue(instance, CIMName("gIVEN"), value);
    EXPECT_EQ(QRV_Common::getProperty(instance, "given", read), 0);
    EXPECT_EQ(CIMValue(read), stored);
}

template <class T>
Array<T> arrayOf(T first, T second) {
    Array<T> values;
    values.append(first);
    values.append(second);
    return values;
}

TEST(Properties, everyTypeIsWrittenAndReadBack) {
    expectRoundTrip(CIMObjectPath("Sample.Key=\"1\""), CIMObjectPath());
    expectRoundTrip(arrayOf(String("a"), String("b")), Array<String>());
    expectRoundTrip(arrayOf(Sint32(-1), Sint32(2)), Array<Sint32>());
    expectRoundTrip(arrayOf(Uint16(1), Uint16(2)), Array<Uint16>());
    expectRoundTrip(Uint64(1) << 40, Uint64(7));
    expectRoundTrip(Uint32(1) << 20, Uint32(7));
    expectRoundTrip(Uint16(300), Uint16(7));
    expectRoundTrip(Uint8(200), Uint8(7));
    expectRoundTrip(Boolean(true), Boolean(false));
    expectRoundTrip(CIMDateTime("20260102030405.000006+060"), CIMDateTime());
}

TEST(Properties, aPropertyOutsideTheInstanceIsLeftOut) {
    CIMInstance instance = instanceWith(CIMValue(String("kept")));
    QRV_Common::setPropertyValue(instance, CIMName("Other"), String("new"));
    QRV_Common::setPropertyValueToNull(instance, CIMName("Other"), CIMTYPE_STRING);
    QRV_Common::setPropertyValue(instance, CIMName("Other"), CIMInstance(CIMName("Inner")));
    EXPECT_EQ(qrvtest::textOf(instance), "Sample\nGiven=kept");
}

TEST(Properties, anotherTypeIsRefused) {
    CIMInstance instance = instanceWith(CIMValue(String("text")));
    Uint32 number = 7;
    EXPECT_THROW(QRV_Common::getProperty(instance, "Given", number), TypeMismatchException);
    EXPECT_THROW(QRV_Common::setPropertyValue(instance, CIMName("Given"), number),
                 TypeMismatchException);
    EXPECT_THROW(QRV_Common::getStringProperty(instanceWith(CIMValue(number)), "Given"),
                 TypeMismatchException);
    EXPECT_EQ(number, 7U);
}

TEST(Properties, nullAndEmbeddedValues) {
    CIMInstance instance = instanceWith(CIMValue(Uint16(5)));
    QRV_Common::setPropertyValueToNull(instance, CIMName("Given"), CIMTYPE_UINT16);
    EXPECT_TRUE(instance.getProperty(0).getValue().isNull());

    CIMInstance outer = instanceWith(CIMValue(CIMTYPE_INSTANCE, false));
    outer.addProperty(CIMProperty(CIMName("Last"), CIMValue(Boolean(true))));
    QRV_Common::setPropertyValue(outer, CIMName("Given"), instanceWith(CIMValue(String("in"))));
    ASSERT_EQ(outer.findProperty(CIMName("Given")), 1U) << "it moves to the end";
    CIMInstance inner;
    outer.getProperty(1).getValue().get(inner);
    EXPECT_EQ(qrvtest::textOf(inner), "Sample\nGiven=in");
}

TEST(Properties, textsOfInstancesAndKeys) {
    const CIMInstance named = instanceWith(CIMValue(String("text")));
    const CIMInstance null = instanceWith(CIMValue(CIMTYPE_STRING, false));
    EXPECT_EQ(QRV_Common::getStringProperty(named, "given"), String("text"));
    EXPECT_EQ(QRV_Common::getPropertyValue(named, "given"), CIMValue(String("text")));
    EXPECT_TRUE(QRV_Common::getPropertyValue(named, "Other").isNull());
    for (const auto& [instance, name] : {std::pair(null, "Given"), std::pair(named, "Other"),
                                         std::pair(named, ""), std::pair(CIMInstance(), "Given")})
        EXPECT_EQ(QRV_Common::getStringProperty(instance, name), String());
    EXPECT_EQ(QRV_Common::getPropertyValue(CIMInstance(), "Given"), CIMValue(String()));

    const CIMObjectPath path("Sample.Name=\"n\",Number=5,Flag=TRUE");
    EXPECT_EQ(QRV_Common::getStringProperty(path, "NAME"), String("n"));
    EXPECT_EQ(QRV_Common::getStringProperty(path, "Number"), String("5"));
    EXPECT_EQ(QRV_Common::getStringProperty(path, "Flag"), String("TRUE"));
    EXPECT_EQ(QRV_Common::getStringProperty(path, "Other"), String());
}

Array<CIMParamValue> parameters(std::initializer_list<std::pair<const char*, CIMValue>> list) {
    Array<CIMParamValue> result;
    for (const auto& [name, value] : list) result.append(CIMParamValue(name, value));
    return result;
}

TEST(Parameters, theFirstWithAValueCounts) {
    const CIMValue null(CIMTYPE_UINT32, false);
    const struct {
        Array<CIMParamValue> given;
        int result;
        Uint32 value;
    } cases[] = {
        {parameters({}), 3, 7},
        {parameters({{"other", CIMValue(Uint32(1))}}), 3, 7},
        {parameters({{"WANTED", CIMValue(Uint32(1))}, {"wanted", CIMValue(Uint32(2))}}), 0, 1},
        {parameters({{"wanted", null}}), 3, 7},
        {parameters({{"wanted", null}, {"wanted", CIMValue(Uint32(2))}}), 4, 2},
        {parameters({{"wanted", CIMValue(Uint32(1))}, {"wanted", null}}), 0, 1},
    };
    for (const auto& each : cases) {
        Uint32 value = 7;
        EXPECT_EQ(QRV_Common::getParameter(each.given, "Wanted", value), each.result);
        EXPECT_EQ(value, each.value);
    }
    String text;
    EXPECT_THROW(QRV_Common::getParameter(cases[2].given, "Wanted", text), TypeMismatchException);
}

TEST(Handlers, eachKindDeliversItsOwnForm) {
    const CIMInstance instance = instanceWith(CIMValue(String("v")));
    qrvtest::Recording recording;
    qrvtest::InstanceRecorder instances(recording);
    qrvtest::PathRecorder paths(recording);
    qrvtest::ObjectRecorder objects(recording);

    cim_handler_u handler;
    const auto run = [&](cim_method_e kind) {
        QRV_Common::handleProcessing(handler, kind);
        QRV_Common::handleDeliver(handler, kind, instance);
        QRV_Common::handleComplete(handler, kind);
    };
    handler.instanceResponse = &instances;
    for (const auto kind : {QRVCIM_GETINSTANCE, QRVCIM_ENUMERATEINSTANCES}) run(kind);
    handler.objectResponse = &objects;
    for (const auto kind : {QRVCIM_ASSOCIATORS, QRVCIM_REFERENCES}) run(kind);
    handler.objectPathResponse = &paths;
    for (const auto kind :
         {QRVCIM_ASSOCIATORNAMES, QRVCIM_REFERENCENAMES, QRVCIM_ENUMERATEINSTANCENAMES})
        run(kind);
    run(static_cast<cim_method_e>(7));

    std::vector<std::string> expected;
    for (const char* delivered : {"Sample\nGiven=v", "Sample\nGiven=v", "Sample\nGiven=v",
                                  "Sample\nGiven=v", "Sample", "Sample", "Sample"})
        expected.insert(expected.end(), {"processing", delivered, "complete"});
    EXPECT_EQ(recording.events(), expected);
}

}  // namespace
