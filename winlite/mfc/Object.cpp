#include "mfc/Object.h"

const CRuntimeClass CObject::classCObject = {"CObject", sizeof(CObject), nullptr};

const CRuntimeClass* CObject::GetRuntimeClass() const { return &classCObject; }

BOOL CRuntimeClass::IsDerivedFrom(const CRuntimeClass* pBaseClass) const
{
    for (const CRuntimeClass* pClass = this; pClass; pClass = pClass->m_pBaseClass)
    {
        if (pClass == pBaseClass)
            return TRUE;
    }
    return FALSE;
}
