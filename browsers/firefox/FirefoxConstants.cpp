#include "browsers/firefox/FirefoxConstants.h"

const CStdStr FirefoxConstants::ProgramName(L"firefox.exe");
const CStdStr FirefoxConstants::BrowserName(L"Firefox");
