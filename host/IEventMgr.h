#pragma once
class IMacro;

// The host's event manager: hands out its macros by name (null when there is none).
class IEventMgr {
public:
    virtual IMacro* GetMacro(const wchar_t* name) = 0;

protected:
    virtual ~IEventMgr() = default;
};
