// CIMInstance::filter, which does something only in the embedded server, and the text of objects.
#include "Support.h"

#include <Pegasus/Common/CIMClass.h>
#include <Pegasus/Common/CIMInstance.h>

#include <gtest/gtest.h>

#include <algorithm>

using namespace Pegasus;
using model_tests::text;

namespace {

std::string onOneLine(const CIMObject& object) {
    std::string lines = text(object.toString());
    lines.erase(std::remove(lines.begin(), lines.end(), '\n'), lines.end());
    return lines;
}

CIMInstance disk() {
    CIMProperty id(CIMName("Id"), CIMValue(String("<1>")), 0, CIMName(), CIMName("Device"));
    id.addQualifier(CIMQualifier(CIMName("Key"), CIMValue(true), CIMFlavor::DEFAULTS));
    CIMInstance instance(CIMName("Disk"));
    instance.addQualifier(CIMQualifier(CIMName("Q"), CIMValue(Uint8(1)), CIMFlavor::DEFAULTS));
    instance.addProperty(id).addProperty(CIMProperty(CIMName("Size"), CIMValue(Array<Uint8>(2))));
    return instance;
}

TEST(Filter, RemovesWhatIsNotAskedFor) {
    const char* const quals = "<QUALIFIER NAME=\"Q\" TYPE=\"uint8\"><VALUE>1</VALUE></QUALIFIER>";
    const char* const key =
        "<QUALIFIER NAME=\"Key\" TYPE=\"boolean\"><VALUE>TRUE</VALUE></QUALIFIER>";
    const char* const size =
        "<PROPERTY.ARRAY NAME=\"Size\" TYPE=\"uint8\"><VALUE.ARRAY><VALUE>0</VALUE><VALUE>0</VALUE>"
        "</VALUE.ARRAY></PROPERTY.ARRAY>";
    const std::string id = "<PROPERTY NAME=\"Id\" TYPE=\"string\"";
    const std::string value = "<VALUE>&lt;1&gt;</VALUE></PROPERTY>";
    const std::string origin = " CLASSORIGIN=\"Device\">";
    Array<CIMName> onlyId(1, CIMName("id"));
    const struct {
        bool qualifiers;
        bool origin;
        CIMPropertyList list;
        std::string content;
    } cases[] = {
        {true, true, CIMPropertyList(), quals + id + origin + key + value + size},
        {true, false, CIMPropertyList(onlyId), quals + id + ">" + key + value},
        {false, true, CIMPropertyList(), id + origin + value + size},
        {false, false, CIMPropertyList(Array<CIMName>()), ""},
    };
    for (const auto& c : cases) {
        CIMInstance instance = disk();
        instance.instanceFilter(c.qualifiers, c.origin, c.list);
        EXPECT_EQ(onOneLine(CIMObject(instance)),
                  "<INSTANCE CLASSNAME=\"Disk\">" + c.content + "</INSTANCE>");
    }
}

TEST(ObjectText, ShowsPathsAndMethods) {
    CIMClass user(CIMName("User"), CIMName("Base"));
    CIMMethod method(CIMName("Find"), CIMTYPE_UINT32);
    method.addParameter(CIMParameter(CIMName("In"), CIMTYPE_REFERENCE, false, 0, CIMName("A")));
    user.addMethod(method).addProperty(CIMProperty(
        CIMName("Ref"), CIMValue(CIMObjectPath(String("//h/a/b:A.k=1"))), 0, CIMName("A")));
    EXPECT_EQ(
        onOneLine(CIMObject(user)),
        "<CLASS NAME=\"User\" SUPERCLASS=\"Base\">"
        "<PROPERTY.REFERENCE NAME=\"Ref\" REFERENCECLASS=\"A\"><VALUE.REFERENCE><INSTANCEPATH>"
        "<NAMESPACEPATH><HOST>h</HOST><LOCALNAMESPACEPATH><NAMESPACE NAME=\"a\"/>"
        "<NAMESPACE NAME=\"b\"/></LOCALNAMESPACEPATH></NAMESPACEPATH>"
        "<INSTANCENAME CLASSNAME=\"A\"><KEYBINDING NAME=\"k\"><KEYVALUE VALUETYPE=\"numeric\">1"
        "</KEYVALUE></KEYBINDING></INSTANCENAME></INSTANCEPATH></VALUE.REFERENCE>"
        "</PROPERTY.REFERENCE>"
        "<METHOD NAME=\"Find\" TYPE=\"uint32\"><PARAMETER.REFERENCE NAME=\"In\" "
        "REFERENCECLASS=\"A\"></PARAMETER.REFERENCE></METHOD></CLASS>");
}

}  // namespace
