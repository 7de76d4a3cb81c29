#pragma once
#include "IMacro.h"

// A macro that takes named string parameters and can be run.
class IHandler : public IMacro {
public:
    virtual void SetStringParameter(const wchar_t* name, const wchar_t* value) = 0;
    // Zero when the handler did nothing.
    virtual int Run() = 0;
};
