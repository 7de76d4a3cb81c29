#pragma once
#include "CStdStr.h"
#include "EntryList.h"

// One favorite or folder marker: Text is ":Start<" name ">", ":End<" name ">" or name "<" url ">";
// Extra is always empty.
struct FavoriteEntry {
    CStdStr Text;
    CStdStr Extra;
};

class FavoritesList : public EntryList<FavoriteEntry> {};
