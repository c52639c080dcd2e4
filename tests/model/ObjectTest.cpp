// Classes, instances and their parts: what handles share and what copies do not.
#include "Support.h"

#include <Pegasus/Common/CIMClass.h>
#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMParamValue.h>
#include <Pegasus/Common/CIMQualifierDecl.h>

// OpenPegasus' InternalException.h needs this header and does not include it.
#if __has_include(<Pegasus/Common/MessageLoader.h>)
#include <Pegasus/Common/MessageLoader.h>
#endif
#include <Pegasus/Common/InternalException.h>

#include <gtest/gtest.h>

#include <functional>
#include <thread>
#include <vector>

using namespace Pegasus;
using model_tests::text;
using model_tests::thrownBy;

namespace {

const char* const uninitialized = "uninitialized object";
const char* const outOfBounds = "index out of bounds";
const char* const mismatch = "type mismatch";

CIMQualifier qualifier(const char* name, const CIMValue& value) {
    return CIMQualifier(CIMName(name), value);
}

CIMProperty property(const char* name, const CIMValue& value) {
    return CIMProperty(CIMName(name), value);
}

/// Disk { [Key] string Id; [Key, MaxLen(8)] uint16 Bus; uint32 Size = 7; } with the qualifier
/// Version.
CIMClass diskClass() {
    const CIMName origin("Device");
    CIMProperty id(CIMName("Id"), CIMValue(CIMTYPE_STRING, false), 0, CIMName(), origin, true);
    id.addQualifier(qualifier("Key", CIMValue(true)));
    CIMProperty bus(CIMName("Bus"), CIMValue(CIMTYPE_UINT16, false), 0, CIMName(), origin, true);
    bus.addQualifier(qualifier("Key", CIMValue(true)));
    bus.addQualifier(qualifier("MaxLen", CIMValue(Uint32(8))));
    CIMClass disk(CIMName("Disk"), CIMName("Device"));
    disk.addQualifier(qualifier("Version", CIMValue(String("1"))));
    disk.addProperty(id).addProperty(bus).addProperty(property("Size", CIMValue(Uint32(7))));
    return disk;
}

CIMInstance buildAll(const CIMClass& from) {
    return from.buildInstance(true, true, CIMPropertyList());
}

std::string propertiesOf(const CIMConstInstance& instance) {
    std::string names;
    for (Uint32 i = 0; i < instance.getPropertyCount(); ++i) {
        names += text(instance.getProperty(i).getName().getString()) + " ";
    }
    return names;
}

std::string valueOf(const CIMConstInstance& instance, const char* name) {
    return text(instance.getProperty(instance.findProperty(CIMName(name))).getValue().toString());
}

TEST(Handles, AreUninitializedByDefault) {
    const std::function<void()> uses[] = {
        [] { CIMQualifier().getName(); },
        [] { CIMConstProperty().getValue(); },
        [] { CIMProperty().setValue(CIMValue()); },
        [] { CIMMethod().getParameterCount(); },
        [] { CIMParameter().isArray(); },
        [] { CIMInstance().getPath(); },
        [] { CIMInstance().findProperty(CIMName("a")); },
        [] { CIMClass().getSuperClassName(); },
        [] { CIMClass().buildInstance(true, true, CIMPropertyList()); },
        [] { CIMObject().clone(); },
        [] { CIMConstObject().toString(); },
        [] { CIMParamValue().getValue(); },
        [] { CIMParamValue().clone(); },
        [] { CIMQualifierDecl().getScope(); },
        [] { CIMInstance(CIMName("A")).identical(CIMInstance()); },
        [] { CIMInstance(CIMName("A")).addProperty(CIMProperty()); },
        [] { CIMClass(CIMName("A")).addMethod(CIMMethod()); },
        [] { CIMInstance{CIMName()}; },
        [] { CIMProperty(CIMName(), CIMValue()); },
        [] { CIMQualifier(CIMName(), CIMValue()); },
        [] { CIMMethod(CIMName(), CIMTYPE_UINT8); },
        [] { CIMParameter(CIMName(), CIMTYPE_UINT8); },
        [] { CIMParamValue("", CIMValue()); },
    };
    for (const auto& use : uses) {
        EXPECT_EQ(thrownBy<UninitializedObjectException>(use), uninitialized) << &use - uses;
    }
    EXPECT_TRUE(CIMInstance().isUninitialized());
    EXPECT_FALSE(CIMObject().isClass() || CIMObject().isInstance());
}

TEST(Handles, ShareWhatTheyName) {
    CIMInstance instance = buildAll(diskClass());
    CIMObject object(instance);
    const CIMConstInstance watched = instance;
    const CIMConstProperty size = watched.getProperty(2);
    object.getProperty(2).setValue(CIMValue(Uint32(8)));
    EXPECT_EQ(text(size.getValue().toString()), "8");
    CIMInstance(object).removeProperty(0);
    EXPECT_EQ(propertiesOf(watched), "Bus Size ");
    EXPECT_TRUE(object.isInstance());
    EXPECT_EQ(thrownBy<DynamicCastFailedException>([&] { CIMClass{object}; }),
              "dynamic cast failed");
    EXPECT_EQ(thrownBy<DynamicCastFailedException>([] { CIMInstance{CIMObject()}; }),
              "dynamic cast failed");
    EXPECT_TRUE(CIMClass(CIMObject(diskClass())).identical(diskClass()));
}

TEST(Handles, OutliveWhatTheyCameFrom) {
    CIMProperty size;
    CIMConstQualifier key;
    {
        CIMInstance instance = buildAll(diskClass());
        size = instance.getProperty(2);
        key = static_cast<const CIMInstance&>(instance).getProperty(0).getQualifier(0);
    }
    size.setName(CIMName("Bytes"));
    size.setValue(CIMValue(Uint32(9)));
    EXPECT_EQ(text(size.getValue().toString()), "9");
    EXPECT_TRUE(key.identical(qualifier("Key", CIMValue(true))));
}

TEST(Handles, CloneDeeply) {
    CIMInstance instance = buildAll(diskClass());
    CIMInstance copy = instance.clone();
    EXPECT_TRUE(copy.identical(instance));
    CIMProperty property = copy.getProperty(1).clone();
    property.getQualifier(0).setValue(CIMValue(false));
    EXPECT_TRUE(copy.identical(instance));
    copy.getProperty(1).getQualifier(0).setValue(CIMValue(false));
    EXPECT_FALSE(copy.identical(instance));
    EXPECT_TRUE(instance.identical(buildAll(diskClass())));
}

TEST(CIMInstance, KeepsPropertiesOnceAndInOrder) {
    CIMInstance instance(CIMName("A"));
    CIMProperty b = property("b", CIMValue(Uint8(1)));
    instance.addProperty(b).addProperty(property("a", CIMValue(true)));
    b.setValue(CIMValue(Uint8(2)));
    EXPECT_EQ(valueOf(instance, "B"), "2");
    EXPECT_EQ(propertiesOf(instance), "b a ");
    EXPECT_EQ(thrownBy<AlreadyExistsException>(
                  [&] { instance.addProperty(property("B", CIMValue(true))); }),
              "already exists: property \"B\"");
    EXPECT_EQ(instance.findProperty(CIMName("c")), PEG_NOT_FOUND);
    EXPECT_EQ(instance.findProperty(CIMName()), PEG_NOT_FOUND);
    for (const Uint32 index : {Uint32(2), PEG_NOT_FOUND}) {
        using Refused = IndexOutOfBoundsException;
        EXPECT_EQ(thrownBy<Refused>([&] { instance.getProperty(index); }), outOfBounds);
        EXPECT_EQ(thrownBy<Refused>([&] { instance.removeProperty(index); }), outOfBounds);
        EXPECT_EQ(thrownBy<Refused>([&] { instance.getQualifier(index); }), outOfBounds);
        EXPECT_EQ(thrownBy<Refused>([&] { b.removeQualifier(index); }), outOfBounds);
    }
    EXPECT_FALSE(instance.identical(
        CIMInstance(CIMName("A")).addProperty(property("a", CIMValue(true))).addProperty(b)));
}

TEST(CIMInstance, TellsNamesApartThatLookAlike) {
    // Same length and same first, middle and last letter.
    CIMInstance instance(CIMName("A"));
    for (const char* name : {"Port01x", "Port10x", "PORT11X", "Pxrt01x"}) {
        instance.addProperty(property(name, CIMValue(String(name))));
    }
    EXPECT_EQ(instance.findProperty(CIMName("pORT10X")), 1u);
    EXPECT_EQ(instance.findProperty(CIMName("port11x")), 2u);
    EXPECT_EQ(instance.findProperty(CIMName("Port00x")), PEG_NOT_FOUND);
}

TEST(CIMInstance, SetsPathsOfItsClassOnly) {
    CIMInstance instance(CIMName("Disk"));
    instance.setPath(CIMObjectPath(String("root:DISK.Id=\"1\"")));
    EXPECT_EQ(text(instance.getClassName().getString()), "DISK");
    EXPECT_EQ(text(instance.getPath().toString()), "root:DISK.Id=\"1\"");
    EXPECT_EQ(thrownBy<UninitializedObjectException>([&] { instance.setPath(CIMObjectPath()); }),
              uninitialized);
    EXPECT_EQ(
        thrownBy<TypeMismatchException>([&] { instance.setPath(CIMObjectPath(String("Tape"))); }),
        mismatch);
}

TEST(CIMInstance, BuildsItsPathFromTheKeysOfTheClass) {
    const CIMClass disk = diskClass();
    CIMInstance instance = buildAll(disk);
    instance.getProperty(0).setValue(CIMValue(String("d\"1")));
    EXPECT_EQ(text(instance.buildPath(disk).toString()), "Disk.Bus=,Id=\"d\\\"1\"");
    instance.removeProperty(1);
    EXPECT_EQ(thrownBy<NoSuchProperty>([&] { instance.buildPath(disk); }), "no such property: Bus");
    EXPECT_EQ(instance.buildPath(CIMClass(CIMName("Disk"))).toString(), "Disk");
}

TEST(CIMInstance, InstanceFilterDropsWhatIsNotAskedFor) {
    CIMInstance instance = buildAll(diskClass());
    CIMInstance untouched = buildAll(diskClass());
    Array<CIMName> names;
    names.append(CIMName("SIZE"));
    names.append(CIMName("bus"));
    instance.instanceFilter(false, false, CIMPropertyList(names));
    EXPECT_EQ(propertiesOf(instance), "Bus Size ");
    EXPECT_EQ(instance.getQualifierCount(), 0u);
    EXPECT_EQ(instance.getProperty(0).getQualifierCount(), 0u);
    EXPECT_TRUE(instance.getProperty(0).getClassOrigin().isNull());
    EXPECT_TRUE(instance.getProperty(0).getPropagated());
    instance.instanceFilter(true, true, CIMPropertyList(Array<CIMName>()));
    EXPECT_EQ(propertiesOf(instance), "");
    untouched.instanceFilter(true, true, CIMPropertyList());
    EXPECT_TRUE(untouched.identical(buildAll(diskClass())));
}

TEST(CIMClass, BuildsInstancesAsAsked) {
    const CIMClass disk = diskClass();
    Array<CIMName> some;
    some.append(CIMName("size"));
    some.append(CIMName("NoSuch"));
    some.append(CIMName("Bus"));
    const struct {
        bool qualifiers;
        bool origin;
        CIMPropertyList list;
        const char* properties;
    } cases[] = {
        {true, true, CIMPropertyList(), "Id Bus Size "},
        {true, false, CIMPropertyList(), "Id Bus Size "},
        {false, true, CIMPropertyList(some), "Bus Size "},
        {false, false, CIMPropertyList(Array<CIMName>()), ""},
    };
    for (const auto& c : cases) {
        for (int again = 0; again < 2; ++again) {
            const CIMInstance instance = disk.buildInstance(c.qualifiers, c.origin, c.list);
            EXPECT_EQ(propertiesOf(instance), c.properties);
            EXPECT_EQ(text(instance.getPath().toString()), "Disk");
            EXPECT_EQ(instance.getQualifierCount(), c.qualifiers ? 1u : 0u);
            const Uint32 bus = instance.findProperty(CIMName("Bus"));
            if (bus == PEG_NOT_FOUND) continue;
            const CIMConstProperty built = instance.getProperty(bus);
            EXPECT_EQ(built.getQualifierCount(), c.qualifiers ? 2u : 0u);
            EXPECT_EQ(built.getClassOrigin().isNull(), !c.origin);
            EXPECT_TRUE(built.getPropagated());
            EXPECT_TRUE(built.getValue() == CIMValue(CIMTYPE_UINT16, false));
            EXPECT_EQ(valueOf(instance, "Size"), "7");
        }
    }
}

TEST(CIMClass, IsNotChangedThroughItsInstances) {
    const CIMClass disk = diskClass();
    CIMInstance instance = buildAll(disk);
    CIMInstance sibling = buildAll(disk);
    CIMProperty bus = instance.getProperty(1);
    bus.setValue(CIMValue(Uint16(3)));
    bus.setClassOrigin(CIMName("Elsewhere"));
    bus.setPropagated(false);
    bus.getQualifier(1).setValue(CIMValue(Uint32(9)));
    bus.removeQualifier(0);
    bus.addQualifier(qualifier("New", CIMValue(true)));
    instance.getQualifier(0).setValue(CIMValue(String("2")));
    instance.removeProperty(0);
    EXPECT_TRUE(disk.identical(diskClass()));
    EXPECT_TRUE(sibling.identical(buildAll(diskClass())));
}

TEST(CIMClass, BuildsFromWhatItIsNow) {
    // Each change comes right after an instance was built, and the last through a handle from
    // before.
    CIMClass disk = diskClass();
    CIMProperty size = disk.getProperty(2);
    CIMQualifier maxLength = disk.getProperty(1).getQualifier(1);
    const auto qualifierText = [&] {
        const CIMInstance built = buildAll(disk);
        return text(built.getProperty(1).getQualifier(1).getValue().toString());
    };
    EXPECT_EQ(valueOf(buildAll(disk), "Size"), "7");
    size.setValue(CIMValue(Uint32(8)));
    EXPECT_EQ(valueOf(buildAll(disk), "Size"), "8");
    EXPECT_EQ(qualifierText(), "8");
    maxLength.setValue(CIMValue(Uint32(16)));
    EXPECT_EQ(qualifierText(), "16");
    maxLength = CIMQualifier();
    EXPECT_EQ(qualifierText(), "16");
    disk.getProperty(1).getQualifier(1).setValue(CIMValue(Uint32(32)));
    EXPECT_EQ(qualifierText(), "32");
    disk.addProperty(property("Extra", CIMValue(true)));
    EXPECT_EQ(propertiesOf(buildAll(disk)), "Id Bus Size Extra ");
    disk.removeProperty(3);
    EXPECT_EQ(propertiesOf(buildAll(disk)), "Id Bus Size ");
    disk.getQualifier(0).setValue(CIMValue(String("2")));
    EXPECT_EQ(text(buildAll(disk).getQualifier(0).getValue().toString()), "2");
    disk.setPath(CIMObjectPath(String("DISK")));
    EXPECT_EQ(text(buildAll(disk).getClassName().getString()), "DISK");
}

TEST(CIMClass, BuildsInstancesOnManyThreads) {
    const CIMClass disk = diskClass();
    const auto work = [&disk](Uint16 number) {
        for (int i = 0; i < 500; ++i) {
            CIMInstance instance = buildAll(disk);
            instance.getProperty(1).setValue(CIMValue(number));
            instance.getProperty(1).getQualifier(1).setValue(CIMValue(Uint32(number)));
            instance.setPath(instance.buildPath(disk));
            EXPECT_EQ(valueOf(instance, "Bus"), text(CIMValue(number).toString()));
        }
    };
    std::vector<std::thread> threads;
    for (Uint16 number = 1; number <= 4; ++number) threads.emplace_back(work, number);
    for (auto& thread : threads) thread.join();
    EXPECT_TRUE(disk.identical(diskClass()));
}

TEST(CIMClass, KnowsItsKeysAndItsKind) {
    CIMClass disk = diskClass();
    Array<CIMName> names(1, CIMName("Old"));
    disk.getKeyNames(names);
    ASSERT_EQ(names.size(), 2u);
    EXPECT_TRUE(names[0] == CIMName("Id") && names[1] == CIMName("Bus"));
    EXPECT_TRUE(disk.hasKeys());
    EXPECT_FALSE(CIMClass(CIMName("A")).hasKeys());
    EXPECT_FALSE(disk.isAssociation() || disk.isAbstract());
    disk.addQualifier(qualifier("ASSOCIATION", CIMValue(true)));
    disk.addQualifier(qualifier("Abstract", CIMValue(false)));
    EXPECT_TRUE(disk.isAssociation());
    EXPECT_FALSE(disk.isAbstract());
    EXPECT_EQ(thrownBy<TypeMismatchException>(
                  [&] { disk.addProperty(property("Ref", CIMValue(CIMTYPE_REFERENCE, false))); }),
              mismatch);
}

TEST(CIMClass, IsIdenticalWithEqualParts) {
    const auto changed = [](const std::function<void(CIMClass&)>& change) {
        CIMClass disk = diskClass();
        disk.addMethod(CIMMethod(CIMName("Spin"), CIMTYPE_UINT32, CIMName("Disk")));
        change(disk);
        return disk;
    };
    const CIMClass base = changed([](CIMClass&) {});
    EXPECT_TRUE(base.identical(changed([](CIMClass&) {})));
    EXPECT_TRUE(base.identical(base.clone()));
    const std::function<void(CIMClass&)> changes[] = {
        [](CIMClass& c) { c.setSuperClassName(CIMName("Other")); },
        [](CIMClass& c) { c.removeMethod(0); },
        [](CIMClass& c) { c.getMethod(0).setType(CIMTYPE_STRING); },
        [](CIMClass& c) { c.getMethod(0).setClassOrigin(CIMName("Device")); },
        [](CIMClass& c) {
            c.getMethod(0).addParameter({CIMName("p"), CIMTYPE_UINT8});
        },
        [](CIMClass& c) { c.getProperty(0).setPropagated(false); },
        [](CIMClass& c) { c.getProperty(0).getQualifier(0).setFlavor(CIMFlavor::TOINSTANCE); },
        [](CIMClass& c) { c.setPath(CIMObjectPath(String("root:Disk"))); },
    };
    for (const auto& change : changes) {
        EXPECT_FALSE(base.identical(changed(change))) << &change - changes;
    }
}

TEST(CIMProperty, ChecksItsValue) {
    const CIMValue two{Array<Uint8>(2)};
    const CIMValue references(CIMTYPE_REFERENCE, true);
    const CIMName name("p");
    const std::function<void()> refused[] = {
        [&] { CIMProperty(name, CIMValue(Uint8(1)), 2); },
        [&] { CIMProperty(name, two, 3); },
        [&] { CIMProperty(name, references); },
        [&] { CIMProperty(name, CIMValue(String()), 0, CIMName("A")); },
        [&] { CIMProperty(name, CIMValue(Uint8(1))).setValue(CIMValue(Uint16(1))); },
        [&] { CIMProperty(name, CIMValue(Uint8(1))).setValue(CIMValue()); },
        [&] { CIMProperty(name, CIMValue(Uint8(1))).setValue(two); },
        [&] { CIMProperty(name, two, 2).setValue(CIMValue(Array<Uint8>(3))); },
    };
    for (const auto& action : refused) {
        EXPECT_EQ(thrownBy<TypeMismatchException>(action), mismatch) << &action - refused;
    }
    CIMProperty sized(name, two, 2);
    sized.setValue(CIMValue(CIMTYPE_UINT8, true, 2));
    EXPECT_TRUE(sized.getValue().isNull());
    CIMProperty plain(name, CIMValue(Uint8(1)));
    plain.setValue(CIMValue(CIMTYPE_UINT8, false));
    EXPECT_TRUE(plain.getValue().isNull());
    EXPECT_EQ(CIMProperty(name, CIMValue(CIMTYPE_REFERENCE, false), 0, CIMName("A"))
                  .getReferenceClassName()
                  .getString(),
              "A");
}

/// Renames a member before, while and after it is in a container.
template <class Member>
void checkRenaming(Member member, const char* kind, const std::function<void()>& add,
                   const std::function<void()>& remove) {
    member.setName(CIMName("free"));
    add();
    member.setName(CIMName("FREE"));
    EXPECT_EQ(
        thrownBy<Exception>([&] { member.setName(CIMName("other")); }),
        std::string("Attempted to change the name of a ") + kind + " already in a container.");
    EXPECT_EQ(thrownBy<UninitializedObjectException>([&] { member.setName(CIMName()); }),
              uninitialized);
    remove();
    member.setName(CIMName("other"));
    EXPECT_EQ(text(member.getName().getString()), "other");
}

TEST(Members, KeepTheirNamesInContainers) {
    CIMClass owner(CIMName("A"));
    CIMMethod method(CIMName("m"), CIMTYPE_UINT8);
    CIMProperty prop = property("p", CIMValue(true));
    CIMQualifier qual = qualifier("q", CIMValue(true));
    CIMParameter parameter(CIMName("x"), CIMTYPE_UINT8);
    checkRenaming(
        prop, "property", [&] { owner.addProperty(prop); }, [&] { owner.removeProperty(0); });
    checkRenaming(
        qual, "qualifier", [&] { prop.addQualifier(qual); }, [&] { prop.removeQualifier(0); });
    checkRenaming(
        parameter, "parameter", [&] { method.addParameter(parameter); },
        [&] { method.removeParameter(0); });
    checkRenaming(
        method, "method", [&] { owner.addMethod(method); }, [&] { owner.removeMethod(0); });
}

TEST(Members, AreUniqueByName) {
    CIMClass owner(CIMName("A"));
    CIMMethod method(CIMName("m"), CIMTYPE_UINT8);
    owner.addMethod(method).addQualifier(qualifier("d", CIMValue(true)));
    method.addParameter({CIMName("x"), CIMTYPE_UINT8});
    EXPECT_EQ(owner.findMethod(CIMName("M")), 0u);
    EXPECT_EQ(owner.getMethod(0).findParameter(CIMName("X")), 0u);
    EXPECT_EQ(thrownBy<AlreadyExistsException>([&] { owner.addMethod(method); }),
              "already exists: method \"m\"");
    EXPECT_EQ(thrownBy<AlreadyExistsException>(
                  [&] { owner.addQualifier(qualifier("D", CIMValue(true))); }),
              "already exists: qualifier \"D\"");
    EXPECT_EQ(thrownBy<AlreadyExistsException>([&] {
                  method.addParameter({CIMName("x"), CIMTYPE_STRING});
              }),
              "already exists: parameter \"x\"");
}

TEST(CIMParameter, ChecksItsType) {
    const CIMName name("p");
    const std::function<void()> refused[] = {
        [&] { CIMParameter(name, CIMTYPE_REFERENCE); },
        [&] { CIMParameter(name, CIMTYPE_UINT8, false, 0, CIMName("A")); },
        [&] { CIMParameter(name, CIMTYPE_UINT8, false, 2); },
    };
    for (const auto& action : refused) {
        EXPECT_EQ(thrownBy<TypeMismatchException>(action), mismatch) << &action - refused;
    }
    EXPECT_TRUE(CIMParameter(name, CIMTYPE_REFERENCE, true, 2, CIMName("A")).isArray());
}

TEST(CIMQualifier, CombinesFlavors) {
    CIMQualifier q(CIMName("q"), CIMValue(true), CIMFlavor::TOSUBCLASS, true);
    q.setFlavor(CIMFlavor::TRANSLATABLE);
    q.unsetFlavor(CIMFlavor::TOSUBCLASS);
    EXPECT_TRUE(q.getFlavor().equal(CIMFlavor::TRANSLATABLE));
    EXPECT_EQ(q.getPropagated(), 1u);
    const CIMQualifierDecl declared(CIMName("q"), CIMValue(true), CIMScope::CLASS,
                                    CIMFlavor::RESTRICTED);
    EXPECT_FALSE(declared.getFlavor().hasFlavor(CIMFlavor::TOSUBCLASS));
    EXPECT_TRUE(declared.getFlavor().hasFlavor(CIMFlavor::ENABLEOVERRIDE));
    EXPECT_TRUE(declared.clone().identical(declared));
}

TEST(CIMParamValue, IsASharedHandle) {
    CIMParamValue parameter("any text", CIMValue(Uint8(1)), false);
    CIMParamValue same = parameter;
    const CIMParamValue copy = parameter.clone();
    CIMValue two(Uint8(2));
    String name("x");
    String none;
    same.setValue(two);
    same.setParameterName(name);
    same.setIsTyped(true);
    EXPECT_EQ(parameter.getParameterName(), "x");
    EXPECT_TRUE(parameter.getValue() == two && parameter.isTyped());
    EXPECT_TRUE(copy.getValue() == CIMValue(Uint8(1)) && !copy.isTyped());
    EXPECT_EQ(thrownBy<UninitializedObjectException>([&] { same.setParameterName(none); }),
              uninitialized);
}

}  // namespace
