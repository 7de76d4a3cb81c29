#include "history/cNetscape7HistoryFinder.h"

bool cNetscape7HistoryFinder::FindHistoryFile(CStdStr& path) {
    return FindNavigatorProfileFile(L"\\Mozilla\\Profiles\\", path);
}
