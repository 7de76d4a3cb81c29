#pragma once
#include "CStdStr.h"

// Internet Explorer's names, built when the library loads.
class InternetExplorerConstants {
public:
    static const CStdStr FrameClass;        // "IEFrame"
    static const CStdStr AutomationProgId;  // "InternetExplorer.Application"
    static const CStdStr ProgramStem;       // "iexplore"
    static const CStdStr ApplicationName;   // "IEXPLORE", the DDE service
    static const CStdStr ProgramFile;       // "iexplore.exe"
    static const CStdStr ShellProcess;      // "explorer.exe"
    static const CStdStr ExploreClass;      // "ExploreWClass"
    static const CStdStr CabinetClass;      // "CabinetWClass"
};
