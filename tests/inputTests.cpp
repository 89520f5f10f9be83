// What fields and lists need: the key filter, the packing of boxes, the tab order.

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
        bool tabOnEnter = false;
    } const cases[] = {
        {"A", 'a', 'a'},       {"A", 'A', 'A'},     {"a", 'A', 'A'},  {"AB", 'c', 0},
        {"0123", '2', '2'},    {"", 'a', 0},        {" ", ' ', ' '},  {"A", ' ', 0},
        {"[", '{', 0},         {"{", '[', 0},       {"@", '`', 0},    {"A", 0xE1, 0},
        {"0123", 8, 8},        {"", 27, 27},        {"", 31, 31},     {"", -5, -5},
        {"13", 22, 22},        {"A", 256 + 'A', 0}, {"", 13, 13},     {"", 13, 0, true},
        {"X", 'x', 'x', true}, {"X", '1', 0, true}, {"", 9, 9, true}, {"\xC3\xA1", 0xE1, 0xE1},
        {"\xC3\xA1", 0xC3, 0},
    };
    for (const auto& row : cases) {
        int key = row.key;
        gsProcessKey(key, row.allowed, row.tabOnEnter);
        EXPECT_EQ(key, row.passed) << row.allowed << " " << row.key;
    }
}

class Boxes : public ::testing::Test {
  protected:
    platform::Form dialog;
    platform::Panel panel{dialog, {0, 0, 100, 140}};
    TextBox boxes[4] = {{panel, {}}, {panel, {}}, {panel, {}}, {panel, {}}};
};

TEST_F(Boxes, TextsMoveToEmptyOnesBeforeThem) {
    const char* const cases[][2] = {{".BC", "CB."}, {"A.C", "AC."}, {"..C", "C.."},   {"ABC", "ABC"},
                                    {"...", "..."}, {" b.", "b.."}, {"..cd", "cd.."}, {"a", "a"}};
    for (const auto& [before, after] : cases) {  // A dot is an empty box.
        std::vector<TextBox*> block;
        for (const char* text = before; *text != 0; ++text) {
            block.push_back(&boxes[block.size()]);
            block.back()->setText(*text == '.' ? "" : std::string(1, *text));
        }
        gsAlignInput(block);
        std::string packed;
        for (const TextBox* box : block) packed += box->text().empty() ? "." : box->text();
        EXPECT_EQ(packed, after) << before;
    }
}

TEST_F(Boxes, FollowEachOtherInTheTabOrder) {
    for (const std::string order : {"0123", "310", "10", "2031", "03"}) {
        for (int i = 0; i < 4; ++i) boxes[i].setTabIndex(i);
        std::vector<platform::Control*> controls;
        for (const char box : order) controls.push_back(&boxes[box - '0']);
        gsSetTabOrder(controls);
        for (size_t i = 1; i < controls.size(); ++i)
            EXPECT_EQ(controls[i]->tabIndex(), controls[i - 1]->tabIndex() + 1) << order << " " << i;
    }
}

}  // namespace
