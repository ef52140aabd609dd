// CObject, the root of the framework's classes, and runtime classes: a class
// that declares one has a record of its name, size and base, and a creatable
// class also a factory, so that code knowing only a name can make the object.
// Records of a loaded module join a process-wide list when the module is
// loaded and leave it when it is unloaded.
#pragma once

#include "platform/core/win_types.h"

class CObject;

struct AFX_EXT_CLASS CRuntimeClass {
    const char* m_lpszClassName;
    int m_nObjectSize;
    CObject* (*m_pfnCreateObject)();  // null for a class that is not creatable
    const CRuntimeClass* m_pBaseClass;
    CRuntimeClass* m_pNextClass;      // the list of registered classes

    // A new object of this class, or null when it is not creatable.
    CObject* CreateObject() const;
    BOOL IsDerivedFrom(const CRuntimeClass* pBaseClass) const;

    // The registered class of that name, or null.
    static CRuntimeClass* FromName(const char* lpszClassName);
    // A new object of the registered class of that name, or null.
    static CObject* CreateObject(const char* lpszClassName);
};

// Adds a class record to the list for as long as its module is loaded.
struct AFX_EXT_CLASS AFX_CLASSINIT {
    explicit AFX_CLASSINIT(CRuntimeClass* pNewClass);
    ~AFX_CLASSINIT();
    AFX_CLASSINIT(const AFX_CLASSINIT&) = delete;
    AFX_CLASSINIT& operator=(const AFX_CLASSINIT&) = delete;

private:
    CRuntimeClass* m_class;
};

#define RUNTIME_CLASS(class_name) (&class_name::class##class_name)

#define DECLARE_DYNAMIC(class_name)                 \
public:                                             \
    static CRuntimeClass class##class_name;         \
    CRuntimeClass* GetRuntimeClass() const override;

#define DECLARE_DYNCREATE(class_name) \
    DECLARE_DYNAMIC(class_name)       \
    static CObject* CreateObject();

#define DP_IMPLEMENT_RUNTIMECLASS(class_name, base_class_name, pfnNew)                                        \
    CRuntimeClass class_name::class##class_name = {#class_name, static_cast<int>(sizeof(class_name)), pfnNew, \
                                                   RUNTIME_CLASS(base_class_name), nullptr};                 \
    static const AFX_CLASSINIT _init_##class_name(&class_name::class##class_name);                            \
    CRuntimeClass* class_name::GetRuntimeClass() const { return RUNTIME_CLASS(class_name); }

#define IMPLEMENT_DYNAMIC(class_name, base_class_name) \
    DP_IMPLEMENT_RUNTIMECLASS(class_name, base_class_name, nullptr)

#define IMPLEMENT_DYNCREATE(class_name, base_class_name)         \
    CObject* class_name::CreateObject() { return new class_name; } \
    DP_IMPLEMENT_RUNTIMECLASS(class_name, base_class_name, &class_name::CreateObject)

class AFX_EXT_CLASS CObject {
public:
    virtual ~CObject() = default;
    virtual CRuntimeClass* GetRuntimeClass() const;
    BOOL IsKindOf(const CRuntimeClass* pClass) const;

    static CRuntimeClass classCObject;

protected:
    CObject() = default;
    CObject(const CObject&) = default;
    CObject& operator=(const CObject&) = default;
};
