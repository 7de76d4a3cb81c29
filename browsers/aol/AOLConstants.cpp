#include "browsers/aol/AOLConstants.h"

const CStdStr AOLConstants::FrameClass(L"AOL Frame25");
const CStdStr AOLConstants::ToolbarClass(L"AOL Toolbar");
const CStdStr AOLConstants::InnerToolbarClass(L"_AOL_Toolbar");
const CStdStr AOLConstants::ComboClass(L"_AOL_Combobox");
const CStdStr AOLConstants::EditClass(L"Edit");
const CStdStr AOLConstants::RegistryKey(L"SOFTWARE\\America Online\\AOL\\CurrentVersion");
const CStdStr AOLConstants::AppPathValue(L"AppPath");
const CStdStr AOLConstants::ProgramName(L"waol.exe");
const CStdStr AOLConstants::ExplorerName(L"aexplore.exe");
const CStdStr AOLConstants::ShortProgramName(L"aol.exe");
const CStdStr AOLConstants::LaunchSuffix(L"\\waol.exe");
const CStdStr AOLConstants::VersionSuffix(L"\\WAOL.EXE");
const CStdStr AOLConstants::AddressPrefix(L"-u\"");
const CStdStr AOLConstants::AddressSuffix(L"\"");
