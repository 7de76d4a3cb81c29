#pragma once

// The host's trigger of an event; accepted by GoToWebAddress and not used.
class ITrigger {
protected:
    virtual ~ITrigger() = default;
};
