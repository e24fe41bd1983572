// Installs the kit's global collection into the module code linked into a
// unit test, before any framework service is used, so the service caches of
// the process hold the kit's components.
#pragma once

#include <gtest/gtest.h>

#include "framework/ref_string.h"
#include "framework_interfaces.h"
#include "module/entry.h"
#include "persist_support.h"

namespace persist_test {

inline SmartPtr<IComponentCollection>& KitSlot() {
    static SmartPtr<IComponentCollection> kit;
    return kit;
}

// The kit collection installed for the whole test program.
inline IComponentCollection* Kit() { return KitSlot().get(); }

class KitEnvironment : public testing::Environment {
public:
    void SetUp() override {
        KitSlot() = NewKitCollection();
        ASSERT_TRUE(Kit());
        InitializeModule(nullptr, Kit());
        // Fills the service caches now, so tests that later put another
        // global collection in place see only their own lookups.
        SmartPtr<ICreatableString> text(CREFString::CreateString());
        SmartPtr<ISuperCollection> collection(CREFString::CreateCollection());
        SmartPtr<IVariant> variant(CREFString::CreateVariant());
        ASSERT_TRUE(text && collection && variant);
    }
    void TearDown() override { KitSlot().reset(); }
};

inline SmartPtr<IDataStream> NewXmlStream() {
    return NewComponent<IDataStream>(Kit(), L"XMLStream", HostIID("IDataStream"));
}
inline SmartPtr<IDataStream> NewFolderStream() {
    return NewComponent<IDataStream>(Kit(), L"FolderStream", HostIID("IDataStream"));
}

}  // namespace persist_test
