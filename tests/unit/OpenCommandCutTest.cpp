#include <gtest/gtest.h>
#include "commands/OpenCommandCut.h"

TEST(OpenCommandCut, CutsBeforeTheQuotedPlaceholderAndKeepsCommandsWithoutIt) {
    const struct {
        const wchar_t* command;
        const wchar_t* expected;
    } cases[] = {
        // The blank before the placeholder stays.
        {L"\"C:\\Program Files\\Browser\\browser.exe\" \"%1\"", L"\"C:\\Program Files\\Browser\\browser.exe\" "},
        {L"browser.exe -nohome \"%1\" -extra", L"browser.exe -nohome "},
        // Not found is not zero: the command is run whole, "%1" included.
        {L"C:\\browser.exe %1", L"C:\\browser.exe %1"},
        {L"C:\\browser.exe", L"C:\\browser.exe"},
        {L"", L""},
        // Only a placeholder at the very start makes the bare "%1" count.
        {L"\"%1\" rest", L"\""},
    };
    for (const auto& c : cases) EXPECT_EQ(CutOpenCommand(c.command), c.expected) << "command: " << c.command;
}
