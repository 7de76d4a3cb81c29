#pragma once

// A macro handed out by the host's event manager. Release is its first operation; the macro is
// the host's object and is given back with Release, never deleted here.
class IMacro {
public:
    virtual void Release() = 0;

protected:
    virtual ~IMacro() = default;
};
