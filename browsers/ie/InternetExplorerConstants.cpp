#include "browsers/ie/InternetExplorerConstants.h"

const CStdStr InternetExplorerConstants::FrameClass(L"IEFrame");
const CStdStr InternetExplorerConstants::AutomationProgId(L"InternetExplorer.Application");
const CStdStr InternetExplorerConstants::ProgramStem(L"iexplore");
const CStdStr InternetExplorerConstants::ApplicationName(L"IEXPLORE");
const CStdStr InternetExplorerConstants::ProgramFile(L"iexplore.exe");
const CStdStr InternetExplorerConstants::ShellProcess(L"explorer.exe");
const CStdStr InternetExplorerConstants::ExploreClass(L"ExploreWClass");
const CStdStr InternetExplorerConstants::CabinetClass(L"CabinetWClass");
