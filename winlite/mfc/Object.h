#pragma once

#include "base/Types.h"

/// Run-time class information: a class's name, size and base.
struct CRuntimeClass
{
    const char* m_lpszClassName;
    int m_nObjectSize;
    const CRuntimeClass* m_pBaseClass;

    /// Whether this is pBaseClass or derived from it.
    BOOL IsDerivedFrom(const CRuntimeClass* pBaseClass) const;
};

/// The root of the class library.
class CObject
{
public:
    virtual const CRuntimeClass* GetRuntimeClass() const;
    virtual ~CObject() = default;

    BOOL IsKindOf(const CRuntimeClass* pClass) const { return GetRuntimeClass()->IsDerivedFrom(pClass); }

    static const CRuntimeClass classCObject;

protected:
    CObject() = default;
    CObject(const CObject&) = delete;
    CObject& operator=(const CObject&) = delete;
};

// Macros because the class's name is needed as a text and as a part of a name; they take the place that they have in
// every source written for the framework.
#define RUNTIME_CLASS(class_name) (&class_name::class##class_name)
#define DECLARE_DYNAMIC(class_name)                                                                                    \
public:                                                                                                                \
    static const CRuntimeClass class##class_name;                                                                      \
    const CRuntimeClass* GetRuntimeClass() const override;
#define IMPLEMENT_DYNAMIC(class_name, base_class_name)                                                                 \
    const CRuntimeClass class_name::class##class_name = {#class_name, sizeof(class_name),                              \
                                                         RUNTIME_CLASS(base_class_name)};                              \
    const CRuntimeClass* class_name::GetRuntimeClass() const { return RUNTIME_CLASS(class_name); }
