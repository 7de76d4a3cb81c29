// Calls into the installed DLL through both interfaces: the factory list holds its eight
// families, and the DLL's version is the package's.
#include <cstdio>
#include <cstring>
#include "WebBrowserSupport.h"
#include "webbrowsersupport_c.h"

int main() {
    cWebBrowserFactoryList* list = cWebBrowserFactoryList::Instance();
    const unsigned factories = list ? static_cast<unsigned>(list->GetBrowsers().size()) : 0;
    const unsigned version = wbs_version();
    char text[32];
    std::snprintf(text, sizeof text, "%u.%u.%u", version >> 16, (version >> 8) & 0xFF, version & 0xFF);
    std::printf("factories %u, DLL version %s, package version %s\n", factories, text, PACKAGE_VERSION);
    return factories == 8 && std::strcmp(text, PACKAGE_VERSION) == 0 ? 0 : 1;
}
