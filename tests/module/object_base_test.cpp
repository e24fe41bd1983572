// CObject<T>: the factory, the counting and the map walk, on a test class.
#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

#include "base/object.h"

namespace {

struct Script {
    HRESULT finalConstruct = S_OK;
    bool positiveQuery = false;  // QueryInterface answers 1 instead of 0
    std::vector<std::string> events;
};
Script gScript;

class CProbe final : public CObject<CProbe>, public IObjectInfoImpl<CProbe>, public IDataPersist {
public:
    HRESULT QueryInterface(const IID& iid, void** out) override;
    std::int32_t AddRef() override { return AddRefImpl(); }
    std::int32_t Release() override { return ReleaseImpl(); }
    HRESULT FinalConstruct() override {
        gScript.events.push_back("final-construct");
        return gScript.finalConstruct;
    }
    void FinalRelease() override { gScript.events.push_back("final-release"); }

    HRESULT Save(IDataStream*, std::int32_t) override { return E_NOTIMPL; }
    HRESULT Load(IDataStream*, std::int32_t) override { return E_NOTIMPL; }

private:
    friend class CObject<CProbe>;
    CProbe() { gScript.events.push_back("construct"); }
    ~CProbe() { gScript.events.push_back("destroy"); }
};

const InterfaceMapEntry<CProbe> kProbeInterfaces[] = {
    {&IID_IUnknown, [](CProbe* p) -> IUnknown* { return static_cast<CObject<CProbe>*>(p); }},
    {&IID_IObjectInfo, [](CProbe* p) -> IUnknown* { return static_cast<IObjectInfo*>(p); }},
    {&IID_IDataPersist, [](CProbe* p) -> IUnknown* { return static_cast<IDataPersist*>(p); }},
};

HRESULT CProbe::QueryInterface(const IID& iid, void** out) {
    const HRESULT hr = QueryInterfaceFromMap(this, kProbeInterfaces, iid, out);
    return hr == S_OK && gScript.positiveQuery ? S_FALSE : hr;
}

// Uses every default of the base.
class CBare final : public CObject<CBare> {
public:
    std::int32_t AddRef() override { return AddRefImpl(); }
    std::int32_t Release() override { return ReleaseImpl(); }

private:
    friend class CObject<CBare>;
    CBare() = default;
    ~CBare() { gScript.events.push_back("destroy bare"); }
};

class ObjectBase : public testing::Test {
protected:
    void SetUp() override { gScript = Script{}; }
};

using Events = std::vector<std::string>;

TEST_F(ObjectBase, FactoryHandsOutOneReference) {
    void* out = nullptr;
    ASSERT_EQ(CObject<CProbe>::_CreateInstance(nullptr, &IID_IDataPersist, &out), 0);
    auto* persist = static_cast<IDataPersist*>(out);
    EXPECT_EQ(gScript.events, (Events{"construct", "final-construct"}));
    EXPECT_EQ(persist->AddRef(), 2);
    EXPECT_EQ(persist->AddRef(), 3);
    EXPECT_EQ(persist->Release(), 2);
    EXPECT_EQ(persist->Release(), 1);
    EXPECT_EQ(persist->Release(), 0);
    EXPECT_EQ(gScript.events, (Events{"construct", "final-construct", "final-release", "destroy"}));
}

TEST_F(ObjectBase, OuterIsIgnored) {
    int outer = 0;
    void* out = nullptr;
    ASSERT_EQ(CObject<CProbe>::_CreateInstance(&outer, &IID_IUnknown, &out), 0);
    EXPECT_EQ(static_cast<IUnknown*>(out)->Release(), 0);
}

TEST_F(ObjectBase, FailedFinalConstructReturnsItsCodeAndFreesTheObject) {
    const HRESULT codes[] = {static_cast<HRESULT>(0x80070057u), static_cast<HRESULT>(0x80004005u), 1, 7};
    for (HRESULT code : codes) {
        gScript = Script{};
        gScript.finalConstruct = code;
        int marker = 0;
        void* out = &marker;
        EXPECT_EQ(CObject<CProbe>::_CreateInstance(nullptr, &IID_IDataPersist, &out), code);
        EXPECT_EQ(out, &marker);  // the query never ran
        EXPECT_EQ(gScript.events, (Events{"construct", "final-construct", "final-release", "destroy"}));
    }
}

TEST_F(ObjectBase, UnsupportedIdentifierFreesTheObject) {
    int marker = 0;
    void* out = &marker;
    EXPECT_EQ(CObject<CProbe>::_CreateInstance(nullptr, &IID_ITime, &out), static_cast<HRESULT>(0x80004002u));
    EXPECT_EQ(out, nullptr);
    EXPECT_EQ(gScript.events, (Events{"construct", "final-construct", "final-release", "destroy"}));
}

TEST_F(ObjectBase, PositiveQueryResultIsAFailure) {
    gScript.positiveQuery = true;
    void* out = nullptr;
    EXPECT_EQ(CObject<CProbe>::_CreateInstance(nullptr, &IID_IDataPersist, &out), 1);
    EXPECT_EQ(out, nullptr);
    EXPECT_EQ(gScript.events, (Events{"construct", "final-construct", "final-release", "destroy"}));
}

TEST_F(ObjectBase, DefaultQueryInterfaceAnswersNothing) {
    int marker = 0;
    void* out = &marker;
    EXPECT_EQ(CObject<CBare>::_CreateInstance(nullptr, &IID_IUnknown, &out), static_cast<HRESULT>(0x80004002u));
    EXPECT_EQ(out, nullptr);
    EXPECT_EQ(gScript.events, (Events{"destroy bare"}));
}

TEST_F(ObjectBase, MapWalkStopsAtTheFirstMatch) {
    void* out = nullptr;
    ASSERT_EQ(CObject<CProbe>::_CreateInstance(nullptr, &IID_IUnknown, &out), 0);
    auto* unknown = static_cast<IUnknown*>(out);
    void* info = nullptr;
    void* persist = nullptr;
    ASSERT_EQ(unknown->QueryInterface(IID_IObjectInfo, &info), 0);
    ASSERT_EQ(static_cast<IUnknown*>(info)->QueryInterface(IID_IDataPersist, &persist), 0);
    EXPECT_NE(info, persist);
    EXPECT_NE(info, out);
    void* back = nullptr;
    ASSERT_EQ(static_cast<IUnknown*>(persist)->QueryInterface(IID_IUnknown, &back), 0);
    EXPECT_EQ(back, out);
    EXPECT_EQ(unknown->Release(), 3);
    EXPECT_EQ(unknown->Release(), 2);
    EXPECT_EQ(static_cast<IUnknown*>(info)->Release(), 1);
    EXPECT_EQ(static_cast<IUnknown*>(persist)->Release(), 0);
}

TEST_F(ObjectBase, MissClearsOutAndKeepsTheCount) {
    void* out = nullptr;
    ASSERT_EQ(CObject<CProbe>::_CreateInstance(nullptr, &IID_IUnknown, &out), 0);
    auto* unknown = static_cast<IUnknown*>(out);
    int marker = 0;
    void* miss = &marker;
    EXPECT_EQ(unknown->QueryInterface(IID_IDataPersistEx, &miss), static_cast<HRESULT>(0x80004002u));
    EXPECT_EQ(miss, nullptr);
    EXPECT_EQ(unknown->AddRef(), 2);
    EXPECT_EQ(unknown->Release(), 1);
    EXPECT_EQ(unknown->Release(), 0);
}

TEST_F(ObjectBase, GetNameCopiesTheStaticRecord) {
    void* out = nullptr;
    ASSERT_EQ(CObject<CProbe>::_CreateInstance(nullptr, &IID_IObjectInfo, &out), 0);
    auto* info = static_cast<IObjectInfo*>(out);
    for (std::int32_t argument : {0, -1, 12345}) {
        tagREFString name{0, nullptr};
        EXPECT_EQ(info->GetName(argument, &name), 0);
        EXPECT_EQ(name.length, 5);
        EXPECT_EQ(name.string, IObjectInfoImpl<CProbe>::m_ObjectName.string);
    }
    EXPECT_EQ(info->Release(), 0);
}

TEST_F(ObjectBase, CountsFromManyThreadsBalance) {
    void* out = nullptr;
    ASSERT_EQ(CObject<CProbe>::_CreateInstance(nullptr, &IID_IUnknown, &out), 0);
    auto* unknown = static_cast<IUnknown*>(out);
    auto churn = [unknown] {
        for (int i = 0; i < 10000; ++i) {
            unknown->AddRef();
            unknown->Release();
        }
    };
    std::thread first(churn);
    std::thread second(churn);
    first.join();
    second.join();
    EXPECT_EQ(unknown->AddRef(), 2);
    EXPECT_EQ(unknown->Release(), 1);
    EXPECT_EQ(unknown->Release(), 0);
}

}  // namespace

template <>
const tagREFString IObjectInfoImpl<CProbe>::m_ObjectName{5, L"Probe"};
