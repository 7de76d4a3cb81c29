#pragma once
#include <string>
#include <utility>
#include <vector>
#include "IEventMgr.h"
#include "IHandler.h"

// A host event manager for tests: its "AppOverrides" macro records the parameters it is given,
// how often it runs and how often it is released, and reports a chosen run result.
class RecordingHandler : public IHandler {
public:
    void Release() override { ++releases; }
    void SetStringParameter(const wchar_t* name, const wchar_t* value) override { parameters.emplace_back(name, value); }
    int Run() override {
        ++runs;
        return runResult;
    }

    std::vector<std::pair<std::wstring, std::wstring>> parameters;
    int runs = 0;
    int releases = 0;
    int runResult = 0;
};

// A macro that is not a handler: the library cannot give it parameters.
class PlainMacro : public IMacro {
public:
    void Release() override { ++releases; }
    int releases = 0;
};

class RecordingEventMgr : public IEventMgr {
public:
    IMacro* GetMacro(const wchar_t* name) override {
        requested.emplace_back(name);
        return macro;
    }

    RecordingHandler handler;
    IMacro* macro = &handler;
    std::vector<std::wstring> requested;
};
