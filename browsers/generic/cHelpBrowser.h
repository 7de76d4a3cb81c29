#pragma once
#include "browsers/generic/cGenericWebBrowser.h"

// The HTML Help viewer: driven exactly as the generic browser.
class cHelpBrowser : public cGenericWebBrowser {
public:
    using cGenericWebBrowser::cGenericWebBrowser;
};
