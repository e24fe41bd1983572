// Framework service interfaces that the module calls. Slot order is part of
// the binary contract with a real host: every operation the module calls sits
// at its fixed position, and the positions it does not call are kept (named
// Unused<N> where this project's host kit gives them no meaning).
#pragma once

#include "com_types.h"

struct IString;
struct IVariant;
struct IDataStream;

// The global component collection. Operation 14 either yields a registered
// component's descriptor (iid null, result is an IComponentString) or creates
// an instance of it answering *iid.
struct IComponentCollection : IUnknown {
    // 1: registers a component served by the library `library` (module name,
    // e.g. "Collections" for the host kit, "Calendar" for this module).
    virtual HRESULT RegisterComponent(std::int32_t nameLength, const wchar_t* name, std::int32_t libraryLength,
                                      const wchar_t* library) = 0;
    virtual HRESULT GetComponentCount(std::int32_t* count) = 0;  // 2
    virtual HRESULT Unused3() = 0;
    virtual HRESULT Unused4() = 0;
    virtual HRESULT Unused5() = 0;
    virtual HRESULT Unused6() = 0;
    virtual HRESULT Unused7() = 0;
    virtual HRESULT Unused8() = 0;
    virtual HRESULT Unused9() = 0;
    virtual HRESULT Unused10() = 0;
    virtual HRESULT Unused11() = 0;
    virtual HRESULT Unused12() = 0;
    virtual HRESULT Unused13() = 0;
    // 14
    virtual HRESULT GetComponent(std::int32_t nameLength, const wchar_t* name, const IID* iid, void** out) = 0;
};

// Part numbers of a component descriptor.
inline constexpr std::int32_t kComponentPartClass = 1;
inline constexpr std::int32_t kComponentPartLibrary = 4;

// A component descriptor: which library serves which component class.
struct IComponentString : IUnknown {
    virtual HRESULT GetPart(std::int32_t part, tagREFString* text) = 0;                        // 1
    virtual HRESULT GetCreateFunction(CREATEFUNCTION* function) = 0;                           // 2
    virtual HRESULT CreateInstance(const IID& iid, void** out) = 0;                            // 3
    virtual HRESULT SetPart(std::int32_t part, std::int32_t length, const wchar_t* text) = 0;  // 4
};

// A framework text object. The text stays owned by the object.
struct IString : IUnknown {
    virtual HRESULT GetString(tagREFString* text) = 0;                        // 1
    virtual HRESULT SetString(std::int32_t length, const wchar_t* text) = 0;  // 2
    virtual HRESULT Append(std::int32_t length, const wchar_t* text) = 0;     // 3
};

struct ICreatableString : IString {};

// Variant type codes reported by GetType. A variant holding an object reports
// 0 like an empty one: callers ask GetObject to tell them apart.
inline constexpr short kVariantEmpty = 0;
inline constexpr short kVariantInteger = 1;
inline constexpr short kVariantDouble = 2;
inline constexpr short kVariantText = 3;

struct IVariant : IUnknown {
    virtual short GetType() = 0;                                            // 1
    virtual double GetDouble() = 0;                                         // 2
    virtual std::int32_t GetInteger() = 0;                                  // 3
    virtual HRESULT SetInteger(std::int32_t value) = 0;                     // 4
    virtual HRESULT SetDouble(double value) = 0;                            // 5
    virtual HRESULT SetObject(IUnknown* object) = 0;                        // 6
    virtual HRESULT GetObject(IUnknown** object) = 0;                       // 7
    virtual HRESULT SetText(std::int32_t length, const wchar_t* text) = 0;  // 8
    virtual short IsString() = 0;                                           // 9
    virtual HRESULT GetString(IString** text) = 0;                          // 10
};

// A collection of named entries. FindName returns a negative code for an absent name.
struct INamedCollection : IUnknown {
    virtual HRESULT GetCount(std::int32_t* count) = 0;                    // 1
    virtual HRESULT GetItem(std::int32_t index, IUnknown** item) = 0;     // 2
    virtual HRESULT FindName(IString* name, std::int32_t* index) = 0;     // 3
    virtual HRESULT GetItemName(std::int32_t index, IString** name) = 0;  // 4
    virtual HRESULT RemoveItem(std::int32_t index) = 0;                   // 5
    virtual HRESULT Clear() = 0;                                          // 6
};

struct ISuperCollection : INamedCollection {
    virtual HRESULT GetItemExtra(std::int32_t index, IString** extra) = 0;      // 7
    virtual HRESULT GetItemFlags(std::int32_t index, std::int32_t* flags) = 0;  // 8
    virtual HRESULT Unused9() = 0;
    virtual HRESULT Unused10() = 0;
    virtual HRESULT Unused11() = 0;
    virtual HRESULT Unused12() = 0;
    virtual HRESULT Unused13() = 0;
    // 14: adds (key, value, third text, flags); value and third text may be null.
    virtual HRESULT Add(IString* key, IUnknown* value, IString* extra, std::int32_t flags) = 0;
};

struct IParametersCreatable : INamedCollection {
    virtual HRESULT Unused7() = 0;
    virtual HRESULT Unused8() = 0;
    virtual HRESULT Unused9() = 0;
    virtual HRESULT Unused10() = 0;
    virtual HRESULT Unused11() = 0;
    virtual HRESULT Unused12() = 0;
    virtual HRESULT Unused13() = 0;
    virtual HRESULT Unused14() = 0;
    virtual HRESULT Unused15() = 0;
    virtual HRESULT Unused16() = 0;
    // 17: adds a named entry (name, value, 0, 0).
    virtual HRESULT AddParameter(IString* name, IVariant* value, std::int32_t reserved1, std::int32_t reserved2) = 0;
};

// Text values by section and key. GetValue succeeds with a null *value when
// the key is absent, and fails when the registry cannot be read.
struct IRegistry : IUnknown {
    virtual HRESULT GetValue(IString* section, IString* key, IString** value) = 0;  // 1
    // 2: a null value removes the key.
    virtual HRESULT SetValue(IString* section, IString* key, IString* value) = 0;
    virtual HRESULT GetFilePath(IString** path) = 0;                            // 3
    virtual HRESULT SetFilePath(std::int32_t length, const wchar_t* path) = 0;  // 4
};

// A byte stream. Read and Write are operations 4 and 5; before each call the
// caller sets *done to size, and a read that delivers 0 bytes marks the end.
struct IDataStream : IUnknown {
    virtual HRESULT Rewind() = 0;                                                          // 1
    virtual HRESULT GetSize(std::int32_t* size) = 0;                                       // 2
    virtual HRESULT GetPosition(std::int32_t* position) = 0;                               // 3
    virtual HRESULT Read(void* buffer, std::int32_t size, std::int32_t* done) = 0;         // 4
    virtual HRESULT Write(const void* buffer, std::int32_t size, std::int32_t* done) = 0;  // 5
    // 6, 7: the whole stream to and from a file (written atomically).
    virtual HRESULT SaveToFile(std::int32_t length, const wchar_t* path) = 0;
    virtual HRESULT LoadFromFile(std::int32_t length, const wchar_t* path) = 0;
};

struct IXMLStream : IUnknown {
    virtual HRESULT BeginElement(IString* name, IUnknown* attributes, std::int32_t flags) = 0;  // 1
    virtual HRESULT WriteAttribute(IString* name, IString* value) = 0;                          // 2
    virtual HRESULT WriteElement(IString* name, IUnknown* attributes, IString* value,
                                 std::int32_t flags) = 0;  // 3
    virtual HRESULT EndElement() = 0;                      // 4
};

// Named binary values. ReadValue stands five operations after WriteValue.
struct IFolderStream : IUnknown {
    virtual HRESULT WriteValue(IString* name, const void* data, std::int32_t size,
                               std::int32_t flags) = 0;                    // 1
    virtual HRESULT GetValueSize(IString* name, std::int32_t* size) = 0;   // 2
    virtual HRESULT GetValueCount(std::int32_t* count) = 0;                // 3
    virtual HRESULT GetValueName(std::int32_t index, IString** name) = 0;  // 4
    virtual HRESULT RemoveValue(IString* name) = 0;                        // 5
    virtual HRESULT ReadValue(IString* name, void* data, std::int32_t size,
                              std::int32_t flags) = 0;  // 6
};
