#include "platform/core/object.h"

#include <cstring>

namespace {

// Head of the registered classes. A plain pointer, constant-initialised, so
// that records may register and leave in any order of static construction
// and destruction across modules.
CRuntimeClass* g_firstClass = nullptr;

}  // namespace

CRuntimeClass CObject::classCObject = {"CObject", static_cast<int>(sizeof(CObject)), nullptr, nullptr, nullptr};
static const AFX_CLASSINIT _init_CObject(&CObject::classCObject);

CRuntimeClass* CObject::GetRuntimeClass() const
{
    return RUNTIME_CLASS(CObject);
}

BOOL CObject::IsKindOf(const CRuntimeClass* pClass) const
{
    return GetRuntimeClass()->IsDerivedFrom(pClass);
}

CObject* CRuntimeClass::CreateObject() const
{
    return m_pfnCreateObject ? m_pfnCreateObject() : nullptr;
}

BOOL CRuntimeClass::IsDerivedFrom(const CRuntimeClass* pBaseClass) const
{
    if (!pBaseClass) return FALSE;
    for (const CRuntimeClass* cls = this; cls; cls = cls->m_pBaseClass) {
        if (cls == pBaseClass) return TRUE;
    }
    return FALSE;
}

CRuntimeClass* CRuntimeClass::FromName(const char* lpszClassName)
{
    if (!lpszClassName) return nullptr;
    for (CRuntimeClass* cls = g_firstClass; cls; cls = cls->m_pNextClass) {
        if (std::strcmp(cls->m_lpszClassName, lpszClassName) == 0) return cls;
    }
    return nullptr;
}

CObject* CRuntimeClass::CreateObject(const char* lpszClassName)
{
    const CRuntimeClass* cls = FromName(lpszClassName);
    return cls ? cls->CreateObject() : nullptr;
}

AFX_CLASSINIT::AFX_CLASSINIT(CRuntimeClass* pNewClass) : m_class(pNewClass)
{
    if (!m_class) return;
    m_class->m_pNextClass = g_firstClass;
    g_firstClass = m_class;
}

AFX_CLASSINIT::~AFX_CLASSINIT()
{
    for (CRuntimeClass** link = &g_firstClass; *link; link = &(*link)->m_pNextClass) {
        if (*link == m_class) {
            *link = m_class->m_pNextClass;
            return;
        }
    }
}
