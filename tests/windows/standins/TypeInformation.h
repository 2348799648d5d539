#pragma once
#include "windows/standins/Automation.h"
#include <map>

namespace standins {

// The type library of a scene's stand-ins, made in memory: one dispatch interface per class of object, the event interface,
// and the control's class that names both.
class CTypes {
public:
    explicit CTypes(const CScene& scene);
    HRESULT OfObject(const CAutomationObject& object, ITypeInfo** info);
    HRESULT OfControlClass(const CAutomationObject& control, ITypeInfo** info);

private:
    CRef<ICreateTypeInfo> MakeEvents();
    CRef<ICreateTypeInfo> MakeObject(const CAutomationObject& object);
    CRef<ICreateTypeInfo> New(const std::string& name, TYPEKIND kind, const GUID* id);

    const CScene& m_scene;
    CRef<ICreateTypeLib2> m_library;
    std::map<std::string, CRef<ITypeInfo>> m_objects;
    CRef<ITypeInfo> m_controlClass;
};

}
