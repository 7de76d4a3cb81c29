// The text of an element written on one line of localstore.rdf.
#include <gtest/gtest.h>
#include <string>
#include <vector>
#include "history/ElementText.h"

TEST(ElementText, TakesWhatLiesBetweenTheFirstCloseAndTheLastOpen) {
    struct Case {
        const wchar_t* line;
        bool found;
        const wchar_t* text;
    };
    const std::vector<Case> cases = {
        {L"    <RDF:li>http://www.Example.com/Path</RDF:li>", true, L"http://www.Example.com/Path"},
        {L"<NC:title>a <b> c</NC:title>", true, L"a <b> c"},
        {L"<x></x>", true, L""},
        {L"<RDF:li>no end", false, L""},
        {L"no start</RDF:li>", false, L""},
        {L"<NC:persist RDF:resource=\"chrome://x\"/>", false, L""},
        {L"<?xml version=\"1.0\"?>", false, L""},
        {L"height=\"768\" />", false, L""},
        {L"", false, L""},
    };
    for (const Case& c : cases) {
        const std::optional<std::wstring> text = ExtractElementText(c.line);
        ASSERT_EQ(text.has_value(), c.found) << c.line;
        if (c.found) {
            EXPECT_EQ(*text, c.text) << c.line;
        }
    }
}
