// What fields and lists need: the key filter, the packing of boxes, the tab order.

#include <memory>
#include <string>
#include <vector>

#include "platform/fields.h"
#include "platform/form.h"
#include "toolkit/input.h"

namespace {

using platform::TextBox;

TEST(Input, AKeyPassesIfItsCharacterIsAllowedInEitherCase) {
    struct {
        const char* allowed;
        int key, passed;
    } const cases[] = {
        {"A", 'a', 'a'},
        {"A", 'A', 'A'},
        {"a", 'A', 'A'},
        {"AB", 'c', 0},
        {"", 'a', 0},
        {"0123", '2', '2'},
        {"0123", 8, 8},
        {"", 27, 27},
        {"", 31, 31},
        {"", -5, -5},
        {" ", ' ', ' '},
        {"A", ' ', 0},
        {"[", '{', 0},
        {"{", '[', 0},
        {"@", '`', 0},
        {"A", 0xE1, 0},
        {"\xC3\xA1", 0xE1, 0xE1},
        {"\xC3\xA1", 0xC3, 0},
        {"A", 256 + 'A', 0},
        {"", 13, 13},
        {"13", 22, 22},
    };
    for (const auto& row : cases)
        EXPECT_EQ(gintfValidateKey(row.allowed, row.key), row.passed) << row.allowed << " " << row.key;
}

TEST(Input, EnterStaysOrBecomesTab) {
    struct {
        int key;
        bool tabOnEnter;
        int passed;
    } const cases[] = {{'x', true, 'x'}, {'1', true, 0}, {9, true, 9}, {13, false, 13}, {13, true, 0}};
    for (const auto& row : cases) {
        int key = row.key;
        gsProcessKey(key, "XYZ", row.tabOnEnter);
        EXPECT_EQ(key, row.passed) << row.key;
    }
}

TEST(Input, TextsMoveToEmptyBoxesBeforeThem) {
    struct {
        std::vector<const char*> before;
        std::vector<std::string> after;
    } const cases[] = {
        {{"", "B", "C"}, {"C", "B", ""}},
        {{"A", "", "C"}, {"A", "C", ""}},
        {{"", "", "C"}, {"C", "", ""}},
        {{"A", "B", "C"}, {"A", "B", "C"}},
        {{"", "", ""}, {"", "", ""}},
        {{"   ", " b ", ""}, {" b ", "", ""}},
        {{"", "", "c", "d"}, {"c", "d", "", ""}},
        {{"", "b"}, {"b", ""}},
        {{"a"}, {"a"}},
    };
    platform::Form dialog;
    platform::Panel panel(dialog, {0, 0, 100, 140});
    for (const auto& row : cases) {
        std::vector<std::unique_ptr<TextBox>> boxes;
        std::vector<TextBox*> block;
        for (const char* text : row.before) {
            block.push_back(boxes.emplace_back(std::make_unique<TextBox>(panel, platform::Place{})).get());
            block.back()->setText(text);
        }
        gsAlignInput(block);
        std::vector<std::string> after;
        for (const TextBox* box : block) after.push_back(box->text());
        EXPECT_EQ(after, row.after);
    }
}

TEST(Input, ControlsFollowEachOtherInTheTabOrder) {
    platform::Form dialog;
    platform::Panel panel(dialog, {0, 0, 100, 140});
    TextBox boxes[4] = {{panel, {}}, {panel, {}}, {panel, {}}, {panel, {}}};
    for (const auto& order : std::vector<std::vector<int>>{{0, 1, 2, 3}, {3, 1, 0}, {1, 0}, {2, 0, 3, 1}, {0, 3}}) {
        for (int i = 0; i < 4; ++i) boxes[i].setTabIndex(i);
        std::vector<platform::Control*> controls;
        for (const int box : order) controls.push_back(&boxes[box]);
        gsSetTabOrder(controls);
        for (size_t i = 1; i < controls.size(); ++i)
            EXPECT_EQ(controls[i]->tabIndex(), controls[i - 1]->tabIndex() + 1) << order[0] << order[1] << " " << i;
    }
}

}  // namespace
