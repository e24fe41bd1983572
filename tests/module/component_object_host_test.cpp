// Reference counts, interface maps and names of both components, seen from a host.
#include <gtest/gtest.h>

#include <climits>
#include <string>
#include <vector>

#include "support/module_host.h"

namespace {

constexpr HRESULT kNoInterface = static_cast<HRESULT>(0x80004002u);

struct Component {
    const wchar_t* name;
    std::int32_t nameLength;
    std::vector<IID> answered;  // the interface map, in its order; IID_IUnknown first
    std::vector<IID> refused;
};

const std::vector<Component>& Components() {
    static const std::vector<Component> components = {
        {L"DblBuffer",
         9,
         {IID_IUnknown, HostIID("IDblVector"), HostIID("IObjectInfo"), HostIID("IEventSource"), HostIID("IDataPersist"),
          HostIID("IUIPropertyPageSpecify")},
         {HostIID("_IDblVectorEvent"), HostIID("IDataPersistEx"), HostIID("ITime"), HostIID("IParametricObject"),
          HostIID("IUnknown"), IID_NULL}},
        {L"Time",
         4,
         {IID_IUnknown, HostIID("IObjectInfo"), HostIID("IDataPersist"), HostIID("IParametricObject"), HostIID("ITime"),
          HostIID("IUIPropertyPageSpecify")},
         {HostIID("IDataPersistEx"), HostIID("IDblVector"), HostIID("IEventSource"), HostIID("_IDblVectorEvent"),
          HostIID("IUnknown"), IID_NULL}},
    };
    return components;
}

CREATEFUNCTION FactoryOf(const Component& component) {
    CREATEFUNCTION factory = nullptr;
    LoadModule("Calendar").createFunction(component.nameLength, component.name, &factory);
    return factory;
}

// Creates with iid; null on failure.
IUnknown* Create(const Component& component, const IID& iid) {
    void* object = nullptr;
    if (FactoryOf(component)(nullptr, &iid, &object) != 0) return nullptr;
    return static_cast<IUnknown*>(object);
}

TEST(ComponentObject, CreationWithEachAnsweredIdentifierHoldsOneReference) {
    for (const Component& component : Components()) {
        for (std::size_t row = 0; row < component.answered.size(); ++row) {
            SCOPED_TRACE(testing::Message()
                         << std::string(component.name, component.name + component.nameLength) << " row " << row + 1);
            void* object = nullptr;
            ASSERT_EQ(FactoryOf(component)(nullptr, &component.answered[row], &object), 0);
            ASSERT_NE(object, nullptr);
            IUnknown* unknown = static_cast<IUnknown*>(object);
            EXPECT_EQ(unknown->AddRef(), 2);
            EXPECT_EQ(unknown->AddRef(), 3);
            EXPECT_EQ(unknown->Release(), 2);
            EXPECT_EQ(unknown->Release(), 1);
            EXPECT_EQ(unknown->Release(), 0);
        }
    }
}

TEST(ComponentObject, QueryForAnotherIdentifierRaisesTheCountToTwo) {
    for (const Component& component : Components()) {
        for (std::size_t row = 1; row < component.answered.size(); ++row) {
            SCOPED_TRACE(row + 1);
            IUnknown* unknown = Create(component, IID_IUnknown);
            ASSERT_NE(unknown, nullptr);
            void* other = nullptr;
            ASSERT_EQ(unknown->QueryInterface(component.answered[row], &other), 0);
            ASSERT_NE(other, nullptr);
            IUnknown* second = static_cast<IUnknown*>(other);
            EXPECT_EQ(second->AddRef(), 3);
            EXPECT_EQ(second->Release(), 2);
            EXPECT_EQ(second->Release(), 1);
            EXPECT_EQ(unknown->Release(), 0);
        }
    }
}

TEST(ComponentObject, IUnknownAlwaysGivesThePrimaryPointer) {
    for (const Component& component : Components()) {
        IUnknown* primary = Create(component, IID_IUnknown);
        ASSERT_NE(primary, nullptr);
        for (const IID& iid : component.answered) {
            void* through = nullptr;
            ASSERT_EQ(primary->QueryInterface(iid, &through), 0);
            void* back = nullptr;
            ASSERT_EQ(static_cast<IUnknown*>(through)->QueryInterface(IID_IUnknown, &back), 0);
            EXPECT_EQ(back, primary);
            EXPECT_EQ(static_cast<IUnknown*>(back)->Release(), 2);
            EXPECT_EQ(static_cast<IUnknown*>(through)->Release(), 1);
        }
        EXPECT_EQ(primary->Release(), 0);
    }
}

TEST(ComponentObject, EachRowAnswersItsOwnStableSubObject) {
    for (const Component& component : Components()) {
        IUnknown* primary = Create(component, IID_IUnknown);
        ASSERT_NE(primary, nullptr);
        std::vector<void*> pointers;
        for (const IID& iid : component.answered) {
            void* first = nullptr;
            void* again = nullptr;
            ASSERT_EQ(primary->QueryInterface(iid, &first), 0);
            ASSERT_EQ(primary->QueryInterface(iid, &again), 0);
            EXPECT_EQ(first, again);
            pointers.push_back(first);
            static_cast<IUnknown*>(again)->Release();
            static_cast<IUnknown*>(first)->Release();
        }
        EXPECT_EQ(pointers[0], primary);
        for (std::size_t i = 0; i < pointers.size(); ++i) {
            for (std::size_t j = i + 1; j < pointers.size(); ++j) EXPECT_NE(pointers[i], pointers[j]) << i << " " << j;
        }
        EXPECT_EQ(primary->Release(), 0);
    }
}

// The sub-objects are identified by what a fresh object reports through them.
TEST(ComponentObject, AnsweredPointersAreTheNamedInterfaces) {
    const Component& vector = Components()[0];
    const Component& time = Components()[1];

    auto* dblVector = static_cast<IDblVector*>(static_cast<void*>(Create(vector, HostIID("IDblVector"))));
    ASSERT_NE(dblVector, nullptr);
    std::int32_t size = -1;
    EXPECT_EQ(dblVector->get_Size(&size), 0);
    EXPECT_EQ(size, 0);
    EXPECT_EQ(dblVector->Release(), 0);

    auto* source = static_cast<IEventSource*>(static_cast<void*>(Create(vector, HostIID("IEventSource"))));
    ASSERT_NE(source, nullptr);
    EXPECT_EQ(source->GetAdviseCount(), 0);
    EXPECT_EQ(source->Release(), 0);

    auto* itime = static_cast<ITime*>(static_cast<void*>(Create(time, HostIID("ITime"))));
    ASSERT_NE(itime, nullptr);
    EXPECT_EQ(itime->get_Calendar(), 0);
    EXPECT_EQ(itime->Release(), 0);
}

// Names that differ from a mapped name only in case or after 25 characters
// carry the same identifier, so they are answered too.
TEST(ComponentObject, EqualIdentifiersOfOtherSpellingsAreAnswered) {
    IUnknown* time = Create(Components()[1], HostIID("itime"));
    ASSERT_NE(time, nullptr);
    void* other = nullptr;
    EXPECT_EQ(time->QueryInterface(HostIID("IUIPROPERTYPAGESPECIFY"), &other), 0);
    EXPECT_EQ(static_cast<IUnknown*>(other)->Release(), 1);
    EXPECT_EQ(time->Release(), 0);
}

TEST(ComponentObject, CreationWithARefusedIdentifierFails) {
    for (const Component& component : Components()) {
        for (const IID& iid : component.refused) {
            int marker = 0;
            void* object = &marker;
            EXPECT_EQ(FactoryOf(component)(nullptr, &iid, &object), kNoInterface);
            EXPECT_EQ(object, nullptr);
        }
    }
}

TEST(ComponentObject, QueryForARefusedIdentifierClearsOutAndKeepsTheCount) {
    for (const Component& component : Components()) {
        IUnknown* unknown = Create(component, IID_IUnknown);
        ASSERT_NE(unknown, nullptr);
        for (const IID& iid : component.refused) {
            int marker = 0;
            void* out = &marker;
            EXPECT_EQ(unknown->QueryInterface(iid, &out), kNoInterface);
            EXPECT_EQ(out, nullptr);
        }
        EXPECT_EQ(unknown->AddRef(), 2);
        EXPECT_EQ(unknown->Release(), 1);
        EXPECT_EQ(unknown->Release(), 0);
    }
}

TEST(ComponentObject, QueryThroughIDataPersistReachesTheSameMapAndCount) {
    for (const Component& component : Components()) {
        IUnknown* persist = Create(component, HostIID("IDataPersist"));
        ASSERT_NE(persist, nullptr);
        IUnknown* primary = nullptr;
        ASSERT_EQ(persist->QueryInterface(IID_IUnknown, reinterpret_cast<void**>(&primary)), 0);
        EXPECT_EQ(primary->AddRef(), 3);  // persist's reference, primary's and this one
        EXPECT_EQ(persist->Release(), 2);
        for (const IID& iid : component.answered) {
            void* through = nullptr;
            void* direct = nullptr;
            ASSERT_EQ(persist->QueryInterface(iid, &through), 0);
            ASSERT_EQ(primary->QueryInterface(iid, &direct), 0);
            EXPECT_EQ(through, direct);
            EXPECT_EQ(static_cast<IUnknown*>(through)->Release(), 3);
            EXPECT_EQ(static_cast<IUnknown*>(direct)->Release(), 2);
        }
        for (const IID& iid : component.refused) {
            void* out = persist;
            EXPECT_EQ(persist->QueryInterface(iid, &out), kNoInterface);
            EXPECT_EQ(out, nullptr);
        }
        EXPECT_EQ(primary->Release(), 1);
        EXPECT_EQ(persist->Release(), 0);
    }
}

TEST(ComponentObject, GetNameIgnoresItsIntegerArgument) {
    const std::int32_t arguments[] = {0, 1, -1, 9, INT_MAX, INT_MIN};
    const struct {
        const Component& component;
        std::int32_t length;
        std::wstring text;
    } expected[] = {{Components()[0], 9, L"DblBuffer"}, {Components()[1], 4, L"Time"}};
    for (const auto& name : expected) {
        auto* info = static_cast<IObjectInfo*>(static_cast<void*>(Create(name.component, HostIID("IObjectInfo"))));
        ASSERT_NE(info, nullptr);
        const wchar_t* text = nullptr;
        for (std::int32_t argument : arguments) {
            tagREFString result{-7, nullptr};
            EXPECT_EQ(info->GetName(argument, &result), 0);
            ASSERT_EQ(result.length, name.length) << argument;
            ASSERT_NE(result.string, nullptr);
            EXPECT_EQ(std::wstring(result.string, static_cast<std::size_t>(result.length)), name.text);
            if (text) {
                EXPECT_EQ(result.string, text);  // the same static record every time
            }
            text = result.string;
        }
        EXPECT_EQ(info->Release(), 0);
        // Another object hands out the same record.
        auto* again = static_cast<IObjectInfo*>(static_cast<void*>(Create(name.component, HostIID("IObjectInfo"))));
        tagREFString result{-7, nullptr};
        EXPECT_EQ(again->GetName(0, &result), 0);
        EXPECT_EQ(result.string, text);
        EXPECT_EQ(again->Release(), 0);
    }
}

}  // namespace

namespace {

constexpr HRESULT kPointer = static_cast<HRESULT>(0x80004003u);

// Null pointers are refused with a code instead of being dereferenced.
TEST(ComponentObject, NullPointersGiveEPointer) {
    for (const Component& component : Components()) {
        void* object = nullptr;
        EXPECT_EQ(FactoryOf(component)(nullptr, nullptr, &object), kPointer);
        EXPECT_EQ(object, nullptr);
        EXPECT_EQ(FactoryOf(component)(nullptr, &IID_IUnknown, nullptr), kPointer);

        auto* info = static_cast<IObjectInfo*>(static_cast<void*>(Create(component, HostIID("IObjectInfo"))));
        ASSERT_NE(info, nullptr);
        EXPECT_EQ(info->QueryInterface(IID_IUnknown, nullptr), kPointer);
        EXPECT_EQ(info->GetName(0, nullptr), kPointer);
        EXPECT_EQ(info->AddRef(), 2);
        EXPECT_EQ(info->Release(), 1);
        EXPECT_EQ(info->Release(), 0);
    }
}

}  // namespace
