#include <gtest/gtest.h>
#include <string>
#include "input/ButtonNameTable.h"
#include "input/CLegacyKeySender.h"
#include "input/LookupButtonKeys.h"
#include "support/MappingFile.h"
#include "support/ScratchFolder.h"

namespace {

// The keys of the mapping-file format, in button-code order.
const wchar_t* const kFileFormatNames[] = {
    L"BUTTON_WWW",         L"BUTTON_HISTORY",   L"BUTTON_OPEN_URL",    L"BUTTON_HOME",        L"BUTTON_PRINT",
    L"BUTTON_BACK",        L"BUTTON_FORWARD",   L"BUTTON_STOP",        L"BUTTON_RELOAD",      L"BUTTON_SEARCH",
    L"BUTTON_FIND",        L"BUTTON_ADD_FAV",   L"BUTTON_OPEN_FAV",    L"BUTTON_LINK",        L"BUTTON_UP",
    L"BUTTON_DOWN",        L"BUTTON_XFER",      L"BUTTON_RECORD",      L"BUTTON_CLOSE",       L"BUTTON_COMMUNITY",
    L"BUTTON_SHOPPING",    L"BUTTON_SITES",     L"BUTTON_ZEPHYR",      L"BUTTON_FINANCE",     L"BUTTON_INAVBACK",
    L"BUTTON_INAVROLLR",   L"BUTTON_INAVROLLRUP", L"BUTTON_INAVROLLRDOWN", L"BUTTON_MEDIA",   L"BUTTON_CORVANE",
    L"BUTTON_VOL_UP",      L"BUTTON_VOL_DOWN",  L"BUTTON_MUTE_TOGGLE", L"BUTTON_F1",          L"BUTTON_F2",
    L"BUTTON_F3",          L"BUTTON_F4",        L"BUTTON_F5",          L"BUTTON_F6",          L"BUTTON_F7",
    L"BUTTON_F8",          L"BUTTON_F9",        L"BUTTON_F10",         L"BUTTON_F11",         L"BUTTON_F12",
};

const std::string kLongValue(2000, 'x');

const std::string kMapping =
    "[Button Mapping - Default]\r\n"
    "BUTTON_WWW=default www\r\n"
    "BUTTON_HOME=%{HOME}\r\n"
    "BUTTON_BACK=%{Left}\r\n"
    "BUTTON_F12={F12}\r\n"
    "[Button Mapping - MozillaWindowClass]\r\n"
    "BUTTON_BACK=^{Left}\r\n"
    "BUTTON_RELOAD={F5}\r\n"
    "BUTTON_LINK=" + kLongValue + "\r\n";

class ButtonMappingTest : public ::testing::Test {
protected:
    void SetUp() override {
        ButtonNameTable::Reset();
        ASSERT_TRUE(mapping.Written());
    }
    void TearDown() override { ButtonNameTable::Reset(); }

    wbstest::ScratchFolder folder{L"ButtonMapping"};
    wbstest::MappingFile mapping{folder.File(L"Browser.QXM"), kMapping};
};

}  // namespace

TEST_F(ButtonMappingTest, TheFirstSenderFillsTheFortyFiveNamesInCodeOrderAndLaterSendersAddNone) {
    EXPECT_TRUE(ButtonNameTable::Names().empty());
    CLegacyKeySender first;
    CLegacyKeySender second;
    const std::vector<CStdStr>& names = ButtonNameTable::Names();
    ASSERT_EQ(names.size(), ButtonNameTable::kSize);
    for (std::size_t code = 0; code < names.size(); ++code) EXPECT_EQ(names[code], kFileFormatNames[code]) << code;
}

TEST_F(ButtonMappingTest, ClassSectionFirstThenTheDefaultSection) {
    ButtonNameTable::Fill();
    struct Case {
        std::wstring className;
        unsigned short button;
        bool found;
        std::string keys;
    };
    const Case cases[] = {
        {L"MozillaWindowClass", 5, true, "^{Left}"},
        {L"MozillaWindowClass", 3, true, "%{HOME}"},  // not in the class's section
        {L"MozillaWindowClass", 13, true, kLongValue.substr(0, 1023)},  // a value is read up to 1024 characters
        {L"OtherClass", 5, true, "%{Left}"},
        {L"OtherClass", 8, false, ""},  // only the Mozilla section has it
        {L"OtherClass", 44, true, "{F12}"},
        {L"OtherClass", 1, false, ""},
        {L"", 0, true, "default www"},  // "Button Mapping - " is not the default section
        {L"Default", 3, true, "%{HOME}"},
        {L"default", 8, false, ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.className.begin(), c.className.end()) + " " + std::to_string(c.button));
        CStdStr keys(L"left from before");
        EXPECT_EQ(LookupButtonKeys(mapping.Path(), CStdStr(), c.className, c.button, keys), c.found);
        EXPECT_EQ(keys, std::wstring(c.keys.begin(), c.keys.end()));
    }

    CStdStr keys(L"left from before");
    EXPECT_FALSE(LookupButtonKeys(folder.File(L"Absent.QXM"), CStdStr(), L"MozillaWindowClass", 5, keys));
    EXPECT_EQ(keys, L"");
}

TEST_F(ButtonMappingTest, CodesBeyondTheTableLeaveTheCallersStringAsItWas) {
    CStdStr keys(L"left from before");
    // Before any sender has filled the table, every code is beyond it.
    EXPECT_FALSE(LookupButtonKeys(mapping.Path(), CStdStr(), L"MozillaWindowClass", 5, keys));
    EXPECT_EQ(keys, L"left from before");

    ButtonNameTable::Fill();
    EXPECT_FALSE(LookupButtonKeys(mapping.Path(), CStdStr(), L"MozillaWindowClass", 45, keys));
    EXPECT_EQ(keys, L"left from before");
    EXPECT_TRUE(LookupButtonKeys(mapping.Path(), CStdStr(), L"MozillaWindowClass", 44, keys));
    EXPECT_EQ(keys, L"{F12}");
}
