// Texts as values of a type.
#include "model/TextConversion.h"

#include <Pegasus/Common/CIMType.h>

#include <gtest/gtest.h>

#include <string>

using namespace Pegasus;

namespace cimserver::test {
namespace {

/// The value as text, or "none".
std::string read(const char* text, CIMType type) {
    const auto value = valueFromText(text, type);
    if (!value) return "none";
    EXPECT_EQ(value->getType(), type);
    return std::string(value->toString().getCString());
}

TEST(TextConversionTest, TextsAreValuesOfTheirTypeOrNone) {
    struct Case {
        CIMType type;
        const char* text;
        const char* value;
    };
    const Case cases[] = {
        {CIMTYPE_BOOLEAN, "TrUe", "TRUE"},
        {CIMTYPE_BOOLEAN, "false", "FALSE"},
        {CIMTYPE_BOOLEAN, "1", "none"},
        {CIMTYPE_UINT8, "0", "0"},
        {CIMTYPE_UINT8, "255", "255"},
        {CIMTYPE_UINT8, "256", "none"},
        {CIMTYPE_UINT8, "-1", "none"},
        {CIMTYPE_UINT16, "+5", "none"},
        {CIMTYPE_UINT16, "05", "none"},
        {CIMTYPE_UINT16, "0xfF", "255"},
        {CIMTYPE_UINT16, "0x", "none"},
        {CIMTYPE_UINT16, "0x-1", "none"},
        {CIMTYPE_UINT32, "", "none"},
        {CIMTYPE_UINT32, "5 ", "none"},
        {CIMTYPE_UINT32, "4294967296", "none"},
        {CIMTYPE_UINT64, "18446744073709551615", "18446744073709551615"},
        {CIMTYPE_UINT64, "18446744073709551616", "none"},
        {CIMTYPE_SINT8, "-128", "-128"},
        {CIMTYPE_SINT8, "-129", "none"},
        {CIMTYPE_SINT8, "128", "none"},
        {CIMTYPE_SINT16, "+5", "5"},
        {CIMTYPE_SINT16, "--5", "none"},
        {CIMTYPE_SINT32, "-0x10", "-16"},
        {CIMTYPE_SINT64, "-9223372036854775808", "-9223372036854775808"},
        {CIMTYPE_SINT64, "9223372036854775808", "none"},
        {CIMTYPE_REAL64, "+1.5e2", "1.5000000000000000e+02"},
        {CIMTYPE_REAL64, "-.5", "-5.0000000000000000e-01"},
        {CIMTYPE_REAL64, "1", "none"},
        {CIMTYPE_REAL64, "1.", "none"},
        {CIMTYPE_REAL64, "+-1.5", "none"},
        {CIMTYPE_REAL64, "inf", "none"},
        {CIMTYPE_REAL64, "1.0e999", "none"},
        {CIMTYPE_REAL32, "1.5", "1.5000000000000000e+00"},
        {CIMTYPE_REAL32, "1.0e300", "none"},
        {CIMTYPE_CHAR16, "\xc3\xa9", "\xc3\xa9"},
        {CIMTYPE_CHAR16, "ab", "none"},
        {CIMTYPE_STRING, " a ", " a "},
        {CIMTYPE_DATETIME, "20240229120000.000000+000", "20240229120000.000000+000"},
        {CIMTYPE_DATETIME, "", "00000000000000.000000:000"},
        {CIMTYPE_DATETIME, "20240231120000.000000+000", "none"},
        {CIMTYPE_REFERENCE, "A.b=1", "none"},
    };
    for (const Case& row : cases)
        EXPECT_EQ(read(row.text, row.type), row.value)
            << '"' << row.text << "\" as " << cimTypeToString(row.type);
}

TEST(TextConversionTest, AnArrayNeedsAllItsElements) {
    Array<String> texts;
    texts.append("1");
    texts.append("2");
    EXPECT_EQ(std::string(valueFromTexts(texts, CIMTYPE_UINT8)->toString().getCString()), "1 2 ");
    texts.append("x");
    EXPECT_FALSE(valueFromTexts(texts, CIMTYPE_UINT8));
    EXPECT_TRUE(valueFromTexts(Array<String>(), CIMTYPE_UINT8)->isArray());
}

}  // namespace
}  // namespace cimserver::test
