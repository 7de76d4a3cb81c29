#pragma once
#include "CStdStr.h"

// The page a browser shows: its title, then its URL.
struct PageInfo {
    CStdStr Title;
    CStdStr Url;
};
