// What fields and lists need: the key filter, the packing of boxes, the tab order.

#include <memory>
#include <string>
#include <vector>

#include "platform/controls.h"
#include "platform/fields.h"
#include "platform/form.h"
#include "platform/sim/simulation.h"
#include "tests/gameFixture.h"
#include "toolkit/input.h"

namespace {

using platform::TextBox;

class Input : public GameFixture {
  protected:
    void SetUp() override {
        GameFixture::SetUp();
        for (int i = 0; i < 4; ++i)
            boxes.push_back(std::make_unique<TextBox>(panel, platform::Place{10, 10 + 30 * i, 80, 20}));
    }

    platform::Form dialog;
    platform::Panel panel{dialog, {0, 0, 100, 140}};
    std::vector<std::unique_ptr<TextBox>> boxes;
};

TEST_F(Input, AKeyPassesIfItsCharacterIsAllowedInEitherCase) {
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

TEST_F(Input, EnterStaysOrBecomesTab) {
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

TEST_F(Input, TextsMoveToEmptyBoxesBeforeThem) {
    struct {
        std::vector<std::string> before, after;
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
    for (const auto& row : cases) {
        std::vector<TextBox*> block;
        for (size_t i = 0; i < row.before.size(); ++i) {
            boxes[i]->setText(row.before[i]);
            block.push_back(boxes[i].get());
        }
        gsAlignInput(block);
        std::vector<std::string> after;
        for (const TextBox* box : block) after.push_back(box->text());
        EXPECT_EQ(after, row.after);
    }
}

TEST_F(Input, ControlsFollowEachOtherInTheTabOrder) {
    const std::vector<std::vector<int>> orders = {{0, 1, 2, 3}, {3, 1, 0}, {1, 3}, {2, 0, 3, 1}, {0, 3}};
    for (const auto& order : orders) {
        for (int i = 0; i < 4; ++i) boxes[i]->setTabIndex(i);
        std::vector<platform::Control*> controls;
        for (const int i : order) controls.push_back(boxes[i].get());
        gsSetTabOrder(controls);
        const int first = controls.front()->tabIndex();
        for (size_t i = 0; i < controls.size(); ++i)
            EXPECT_EQ(controls[i]->tabIndex(), first + static_cast<int>(i)) << order[0] << order[1] << " " << i;
    }
    // A list in the order that stands already leaves the first control where it is.
    for (int i = 0; i < 4; ++i) boxes[i]->setTabIndex(i);
    platform::Control* const pair[] = {boxes[1].get(), boxes[3].get()};
    gsSetTabOrder(pair);
    EXPECT_EQ(boxes[1]->tabIndex(), 1);
}

}  // namespace
