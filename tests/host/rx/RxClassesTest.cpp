// Runtime classes: hierarchy, casts, registration through the macros, protocol extensions.
#include <gtest/gtest.h>

#include <memory>
#include <typeinfo>
#include <string>
#include <vector>

#include "host/rx/AcRxBoiler.h"
#include "host/rx/AcRxService.h"

namespace {

class RxTestBase : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(RxTestBase);
    int value = 0;
    Acad::ErrorStatus copyFrom(const AcRxObject* other) override
    {
        const RxTestBase* source = RxTestBase::cast(other);
        if (!source)
            return Acad::eWrongObjectType;
        value = source->value;
        return Acad::eOk;
    }
};
class RxTestMid : public RxTestBase {
public:
    ACRX_DECLARE_MEMBERS(RxTestMid);
};
class RxTestLeaf : public RxTestMid {
public:
    ACRX_DECLARE_MEMBERS(RxTestLeaf);
};
class RxTestSibling : public RxTestBase {
public:
    ACRX_DECLARE_MEMBERS(RxTestSibling);
};
class RxTestPlain : public AcRxObject {  // constructible, but cannot copy itself
public:
    ACRX_DECLARE_MEMBERS(RxTestPlain);
};
class RxTestProtocol : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(RxTestProtocol);
    explicit RxTestProtocol(int id = 0) : id(id) {}
    int id;
};
class RxTestClash : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(RxTestClash);
};
class RxTestTemp : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(RxTestTemp);
};

}  // namespace

ACRX_DXF_DEFINE_MEMBERS(RxTestBase, AcRxObject, 33, 228, 3071, RXTEST_BASE,
                        RxTest|Product Desc: test entity|Company: none|WEB Address: none)
ACRX_DXF_DEFINE_MEMBERS(RxTestMid, RxTestBase, 27, 1, 1, "RXTEST_MID", "RxTest app")
ACRX_CONS_DEFINE_MEMBERS(RxTestLeaf, RxTestMid, 5)
ACRX_NO_CONS_DEFINE_MEMBERS(RxTestSibling, RxTestBase)
ACRX_CONS_DEFINE_MEMBERS(RxTestPlain, AcRxObject, 0)
ACRX_NO_CONS_DEFINE_MEMBERS(RxTestProtocol, AcRxObject)
ACRX_NO_CONS_DEFINE_MEMBERS(RxTestClash, AcRxObject)
ACRX_CONS_DEFINE_MEMBERS(RxTestTemp, AcRxObject, 0)

namespace {

// Deletes classes a test registered by hand, also when an assertion ends the test early,
// so that a later acrxBuildClassHierarchy never trips over them.
struct ClassCleanup {
    std::vector<std::wstring> names;
    ~ClassCleanup()
    {
        for (const auto& name : names)
            deleteAcRxClass(acrxFindAcRxClass(name.c_str()));
    }
};

std::wstring abortMessage(void (*action)())
{
    AcRxThrowOnAbort guard;
    try {
        action();
    } catch (const AcRxAbort& e) {
        return e.message();
    }
    return L"(no abort)";
}

TEST(RxClasses, KindOfAcrossThreeLevels)
{
    RxTestBase base;
    RxTestMid mid;
    RxTestLeaf leaf;
    RxTestSibling sibling;
    struct Case {
        const AcRxObject* object;
        AcRxClass* cls;
        bool kindOf;
    };
    const Case cases[] = {
        {&leaf, RxTestLeaf::desc(), true},      {&leaf, RxTestMid::desc(), true},
        {&leaf, RxTestBase::desc(), true},      {&leaf, AcRxObject::desc(), true},
        {&leaf, RxTestSibling::desc(), false},  {&mid, RxTestLeaf::desc(), false},
        {&mid, RxTestBase::desc(), true},       {&base, RxTestMid::desc(), false},
        {&sibling, RxTestMid::desc(), false},   {&sibling, RxTestBase::desc(), true},
        {&leaf, nullptr, false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(typeid(*c.object).name()));
        EXPECT_EQ(c.object->isKindOf(c.cls), c.kindOf);
    }
    EXPECT_EQ(leaf.isA(), RxTestLeaf::desc());
    EXPECT_STREQ(leaf.isA()->name(), L"RxTestLeaf");
    EXPECT_EQ(RxTestLeaf::desc()->myParent(), RxTestMid::desc());
    EXPECT_EQ(RxTestMid::desc()->myParent(), RxTestBase::desc());
    EXPECT_EQ(RxTestBase::desc()->myParent(), AcRxObject::desc());
    EXPECT_EQ(AcRxObject::desc()->myParent(), nullptr);

    const AcRxObject* asRoot = &leaf;
    EXPECT_EQ(RxTestMid::cast(asRoot), &leaf);
    EXPECT_EQ(RxTestLeaf::cast(&mid), nullptr);
    EXPECT_EQ(RxTestSibling::cast(asRoot), nullptr);
    EXPECT_EQ(RxTestLeaf::cast(nullptr), nullptr);
}

TEST(RxClasses, MacrosRecordClassData)
{
    const AcRxClass* base = RxTestBase::desc();
    int dwg = -1;
    int maint = -1;
    EXPECT_EQ(base->getClassVersion(dwg, maint), Acad::eOk);
    EXPECT_EQ(dwg, 33);
    EXPECT_EQ(maint, 228);
    EXPECT_EQ(base->proxyFlags(), 3071);
    EXPECT_STREQ(base->dxfName(), L"RXTEST_BASE");
    EXPECT_STREQ(base->appName(), L"RxTest|Product Desc: test entity|Company: none|WEB Address: none");
    // String literals given to the macro lose their quotes.
    EXPECT_STREQ(RxTestMid::desc()->dxfName(), L"RXTEST_MID");
    EXPECT_STREQ(RxTestMid::desc()->appName(), L"RxTest app");
    RxTestLeaf::desc()->getClassVersion(dwg, maint);
    EXPECT_EQ(dwg, 5);
    EXPECT_STREQ(RxTestLeaf::desc()->dxfName(), L"");
    EXPECT_STREQ(RxTestLeaf::desc()->parentName(), L"RxTestMid");

    std::unique_ptr<AcRxObject> made(RxTestLeaf::desc()->create());
    ASSERT_NE(made, nullptr);
    EXPECT_EQ(made->isA(), RxTestLeaf::desc());
    EXPECT_EQ(RxTestSibling::desc()->create(), nullptr);
}

TEST(RxClasses, CloneCopiesThroughCopyFrom)
{
    RxTestMid original;
    original.value = 42;
    std::unique_ptr<AcRxObject> copy(original.clone());
    ASSERT_NE(copy, nullptr);
    EXPECT_EQ(copy->isA(), RxTestMid::desc());
    EXPECT_EQ(RxTestMid::cast(copy.get())->value, 42);

    RxTestPlain plain;  // no copyFrom of its own
    EXPECT_EQ(plain.clone(), nullptr);
    EXPECT_EQ(plain.copyFrom(nullptr), Acad::eNullObjectPointer);
    RxTestSibling sibling;  // no constructor
    EXPECT_EQ(sibling.clone(), nullptr);
    EXPECT_TRUE(plain.isEqualTo(&plain));
    EXPECT_FALSE(plain.isEqualTo(&sibling));
}

TEST(RxClasses, RxInitTwiceKeepsTheClass)
{
    AcRxClass* before = RxTestLeaf::desc();
    RxTestLeaf::rxInit();
    RxTestLeaf::rxInit();
    EXPECT_EQ(RxTestLeaf::desc(), before);
    EXPECT_EQ(acrxFindAcRxClass(L"RxTestLeaf"), before);
}

TEST(RxClasses, RxInitAgainstAForeignClassAborts)
{
    ClassCleanup cleanup{{L"RxTestClash"}};
    AcRxClass* foreign = newAcRxClass(L"RxTestClash", L"AcRxObject");
    EXPECT_EQ(abortMessage([] { RxTestClash::rxInit(); }), L"Class mismatch: RxTestClash");
    EXPECT_EQ(acrxFindAcRxClass(L"RxTestClash"), foreign);  // the registered class stays

    deleteAcRxClass(foreign);
    cleanup.names.clear();
    RxTestClash::rxInit();
    RxTestClash clash;
    EXPECT_STREQ(clash.isA()->name(), L"RxTestClash");
    deleteAcRxClass(RxTestClash::desc());
}

TEST(RxClasses, DeleteUnregistersAndDetachesChildren)
{
    ClassCleanup cleanup{{L"RxTestTempChild"}};
    AcRxClass* temp = RxTestTemp::desc();
    AcRxClass* child = newAcRxClass(L"RxTestTempChild", L"RxTestTemp");
    EXPECT_EQ(child->myParent(), temp);
    RxTestProtocol extension;
    RxTestBase::desc()->addX(temp, &extension);  // keyed by the class about to go

    deleteAcRxClass(temp);
    EXPECT_EQ(acrxFindAcRxClass(L"RxTestTemp"), nullptr);
    EXPECT_EQ(RxTestTemp::gpDesc, nullptr);
    EXPECT_EQ(child->myParent(), nullptr);
    EXPECT_STREQ(child->parentName(), L"RxTestTemp");
    EXPECT_EQ(RxTestBase::desc()->getX(temp), nullptr);

    RxTestTemp::rxInit();  // a module loaded again registers afresh
    acrxBuildClassHierarchy();
    EXPECT_EQ(child->myParent(), RxTestTemp::desc());
    RxTestTemp again;
    EXPECT_TRUE(again.isKindOf(RxTestTemp::desc()));
}

TEST(RxClasses, NewClassRejectsDuplicateAndEmptyNames)
{
    RxTestBase::desc();
    EXPECT_EQ(abortMessage([] { newAcRxClass(L"RxTestBase", L"AcRxObject"); }),
              L"newAcRxClass: class RxTestBase is already registered");
    EXPECT_EQ(abortMessage([] { newAcRxClass(L"", L"AcRxObject"); }), L"newAcRxClass: a class needs a name");
    EXPECT_EQ(abortMessage([] { newAcRxClass(nullptr, nullptr); }), L"newAcRxClass: a class needs a name");
}

TEST(RxClasses, BuildHierarchyLinksLateParents)
{
    ClassCleanup cleanup{{L"RxLateChild", L"RxLateParent"}};
    AcRxClass* child = newAcRxClass(L"RxLateChild", L"RxLateParent", 0, 0, 0, nullptr, L"LATE", L"app");
    EXPECT_EQ(child->myParent(), nullptr);
    AcRxClass* parent = newAcRxClass(L"RxLateParent", L"AcRxObject");
    acrxBuildClassHierarchy();
    EXPECT_EQ(child->myParent(), parent);
    EXPECT_TRUE(child->isDerivedFrom(AcRxObject::desc()));
}

TEST(RxClasses, BuildHierarchyAbortsOnMissingParent)
{
    ClassCleanup cleanup{{L"RxOrphan", L"RxOrphan2"}};
    newAcRxClass(L"RxOrphan", L"RxNoSuchParent");
    EXPECT_EQ(abortMessage(acrxBuildClassHierarchy),
              L"acrxBuildClassHierarchy: parent class RxNoSuchParent of RxOrphan is not registered");
    newAcRxClass(L"RxOrphan2", L"RxNoSuchParent");
    EXPECT_EQ(abortMessage(acrxBuildClassHierarchy),
              L"acrxBuildClassHierarchy: parent class RxNoSuchParent of RxOrphan is not registered (and 1 more)");
    // The healthy classes are linked all the same.
    EXPECT_EQ(RxTestLeaf::desc()->myParent(), RxTestMid::desc());
}

TEST(RxClasses, BuildHierarchyRefusesACycle)
{
    ClassCleanup cleanup{{L"RxCycleA", L"RxCycleB"}};
    AcRxClass* a = newAcRxClass(L"RxCycleA", L"RxCycleB");
    AcRxClass* b = newAcRxClass(L"RxCycleB", L"RxCycleA");
    EXPECT_EQ(b->myParent(), a);
    EXPECT_EQ(abortMessage(acrxBuildClassHierarchy),
              L"acrxBuildClassHierarchy: parent class RxCycleB of RxCycleA derives from it");
    EXPECT_EQ(a->myParent(), nullptr);
}

TEST(RxProtocol, ExtensionFoundThroughParentsAndRemovedByDelX)
{
    RxTestProtocol onBase(1);
    RxTestProtocol onMid(2);
    AcRxClass* protocol = RxTestProtocol::desc();
    RxTestLeaf leaf;
    RxTestSibling sibling;

    EXPECT_EQ(RxTestBase::desc()->addX(protocol, &onBase), nullptr);
    EXPECT_EQ(leaf.queryX(protocol), &onBase);
    EXPECT_EQ(sibling.queryX(protocol), &onBase);
    EXPECT_EQ(RxTestLeaf::desc()->getX(protocol), nullptr);

    EXPECT_EQ(RxTestMid::desc()->addX(protocol, &onBase), nullptr);
    EXPECT_EQ(RxTestMid::desc()->addX(protocol, &onMid), &onBase);  // the nearer class wins
    EXPECT_EQ(leaf.x(protocol), &onMid);
    EXPECT_EQ(sibling.queryX(protocol), &onBase);

    EXPECT_EQ(RxTestMid::desc()->delX(protocol), &onMid);
    EXPECT_EQ(leaf.queryX(protocol), &onBase);
    EXPECT_EQ(RxTestMid::desc()->delX(protocol), nullptr);
    EXPECT_EQ(RxTestMid::desc()->addX(nullptr, &onMid), nullptr);
    // addX with no object removes, and hands back what was there.
    EXPECT_EQ(RxTestBase::desc()->addX(protocol, nullptr), &onBase);
    EXPECT_EQ(leaf.queryX(protocol), nullptr);
    EXPECT_EQ(abortMessage([] { RxTestLeaf().x(RxTestProtocol::desc()); }),
              L"No protocol extension for RxTestProtocol on class RxTestLeaf");
}

TEST(RxRegistry, ClassAndServiceDictionariesAreDistinct)
{
    AcRxDictionary* classes = acrxClassDictionary;
    AcRxDictionary* services = acrxServiceDictionary;
    ASSERT_NE(classes, nullptr);
    ASSERT_NE(services, nullptr);
    EXPECT_NE(classes, services);
    EXPECT_EQ(acrxSysRegistry()->at(ACRX_CLASS_DICTIONARY), classes);
    EXPECT_EQ(acrxSysRegistry()->at(ACRX_SERVICE_DICTIONARY), services);
    RxTestBase::desc();
    EXPECT_TRUE(classes->has(L"RxTestBase"));
    EXPECT_FALSE(services->has(L"RxTestBase"));
    EXPECT_TRUE(classes->has(L"AcRxObject"));
    EXPECT_TRUE(classes->isCaseSensitive());
    EXPECT_EQ(acrxFindAcRxClass(L"rxtestbase"), nullptr);
    EXPECT_EQ(AcRxDictionary::cast(classes), classes);
    EXPECT_TRUE(classes->isKindOf(AcRxDictionary::desc()));
}

TEST(RxRegistry, ServiceRegistrationAndDependencies)
{
    EXPECT_FALSE(acrxServiceIsRegistered(L"RXTEST_SERVICE"));
    AcRxService* service = AcRxService::cast(acrxRegisterService(L"RXTEST_SERVICE"));
    ASSERT_NE(service, nullptr);
    EXPECT_TRUE(acrxServiceIsRegistered(L"RXTEST_SERVICE"));
    EXPECT_FALSE(acrxServiceIsRegistered(L"rxtest_service"));
    EXPECT_EQ(acrxRegisterService(L"RXTEST_SERVICE"), service);  // no second object
    EXPECT_FALSE(acrxClassDictionary->has(L"RXTEST_SERVICE"));

    EXPECT_TRUE(service->unloadable());
    service->addDependency();
    service->addDependency();
    EXPECT_EQ(service->dependencyCount(), 2);
    EXPECT_FALSE(service->unloadable());
    service->removeDependency();
    service->removeDependency();
    service->removeDependency();  // unbalanced: stays at zero
    EXPECT_EQ(service->dependencyCount(), 0);
    EXPECT_TRUE(service->unloadable());

    // Unloading: the caller takes the service out and deletes it.
    std::unique_ptr<AcRxObject> removed(acrxServiceDictionary->remove(L"RXTEST_SERVICE"));
    EXPECT_EQ(removed.get(), service);
    EXPECT_FALSE(acrxServiceIsRegistered(L"RXTEST_SERVICE"));
}

TEST(RxRegistry, ServiceNameTakenByAnotherObject)
{
    RxTestPlain notAService;
    acrxServiceDictionary->atPut(L"RXTEST_NOT_A_SERVICE", &notAService);
    EXPECT_TRUE(acrxServiceIsRegistered(L"RXTEST_NOT_A_SERVICE"));
    EXPECT_EQ(acrxRegisterService(L"RXTEST_NOT_A_SERVICE"), nullptr);
    EXPECT_EQ(acrxServiceDictionary->remove(L"RXTEST_NOT_A_SERVICE"), &notAService);
    EXPECT_EQ(acrxRegisterService(L""), nullptr);
    EXPECT_EQ(acrxRegisterService(nullptr), nullptr);
}

}  // namespace
