#pragma once
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace wbstest {

// The Text of every entry of a favorites or history list, in order; every Extra must be empty.
template <typename List>
std::vector<std::wstring> Texts(const List& list) {
    std::vector<std::wstring> texts;
    for (const auto& entry : list) {
        EXPECT_EQ(entry.Extra, L"");
        texts.push_back(entry.Text);
    }
    return texts;
}

}  // namespace wbstest
