#include "platform/fields.h"

#include <algorithm>
#include <cmath>

#include "platform/runtime.h"
#include "platform/sim/state.h"
#include "platform/text.h"
#include "platform/utf8.h"

namespace sim {
namespace {

using Kind = Control::Kind;

constexpr int backspace = 8, deleteKey = 46;
constexpr char32_t firstPrintable = U' ';

std::u32string charactersOf(const std::string& text) {
    std::u32string characters;
    for (size_t at = 0; at < text.size();) characters += platform::nextCharacter(text, at);
    return characters;
}

std::string utf8Of(const std::u32string& characters) {
    std::string text;
    for (const char32_t character : characters) platform::appendCharacter(text, character);
    return text;
}

void clearSelection(Control& field) {
    if (field.kind == Kind::Mask)
        std::fill_n(field.text.begin() + static_cast<ptrdiff_t>(field.selStart), field.selLength, U' ');
    else
        field.text.erase(field.selStart, field.selLength);
    field.selLength = 0;
}

/// Removes the selection, or the character on one side of the caret if nothing is selected.
void remove(Control& field, bool before) {
    if (field.selLength == 0) {
        if (before ? field.selStart == 0 : field.selStart == field.text.size()) return;
        if (before) --field.selStart;
        field.selLength = 1;
    }
    clearSelection(field);
}

void typeDigits(Control& field, const std::u32string& text) {
    for (const char32_t digit : text)
        if (digit >= '0' && digit <= '9' && field.selStart < field.text.size()) field.text[field.selStart++] = digit;
}

bool beginsWith(const std::string& row, char32_t letter) {
    const auto plain = [](char32_t c) { return c >= 'a' && c <= 'z' ? c - 'a' + 'A' : c; };
    size_t at = 0;
    return !row.empty() && plain(platform::nextCharacter(row, at)) == plain(letter);
}

void chooseByLetter(Control& list, char32_t letter) {
    const int count = static_cast<int>(list.rows.size());
    for (int step = 1; step <= count; ++step) {
        const int row = (list.listIndex + step) % count;
        if (!beginsWith(list.rows[static_cast<size_t>(row)], letter)) continue;
        list.listIndex = row;
        return;
    }
}

void chooseBeside(Control& list, int step) {
    const int row = list.listIndex + step;
    if (row >= 0 && row < static_cast<int>(list.rows.size())) list.listIndex = row;
}

void workList(Control& list, const Stroke& stroke) {
    if (stroke.code == platform::key::Up || stroke.code == platform::key::Down)
        chooseBeside(list, stroke.code == platform::key::Up ? -1 : 1);
    else if (stroke.typed > firstPrintable)
        chooseByLetter(list, stroke.typed);
}

bool isEdited(const Control& control) { return control.kind == Kind::Text || control.kind == Kind::Mask; }

}  // namespace

void replaceSelection(Control& field, const std::u32string& text) {
    clearSelection(field);
    if (field.kind == Kind::Mask) return typeDigits(field, text);
    const size_t room =
        field.maxLength > 0 ? field.maxLength - std::min(field.maxLength, field.text.size()) : text.size();
    field.text.insert(field.selStart, text, 0, room);
    field.selStart += std::min(room, text.size());
}

void typeInto(Control& field, const Stroke& stroke) {
    if (field.kind == Kind::List) return workList(field, stroke);
    if (!isEdited(field)) return;
    if (stroke.code == backspace || stroke.code == deleteKey)
        remove(field, stroke.code == backspace);
    else if (stroke.typed >= firstPrintable)
        replaceSelection(field, std::u32string(1, stroke.typed));
}

void pasteText(const std::string& text) {
    constexpr int pasteKey = 'V';
    strike({pasteKey, 0, 0});
    const platform::Form::Impl* const form = openForm(taker());
    if (form != nullptr && form->focus != nullptr && isEdited(*form->focus)) {
        std::u32string pasted = charactersOf(text);
        std::replace_if(
            pasted.begin(), pasted.end(), [](char32_t c) { return c < firstPrintable; }, firstPrintable);
        replaceSelection(*form->focus, pasted);
    }
    keyUp(pasteKey);
}

}  // namespace sim

namespace platform {
namespace {

constexpr double lineHeightPerPoint = 1.5;  // pixels

/// How many lines a caption takes in that width, broken at blanks.
int linesOf(const std::string& caption, const Font& font, int width) {
    int lines = 1;
    std::string line;
    for (size_t start = 0; start < caption.size();) {
        const size_t end = std::min(caption.find(' ', start), caption.size() - 1) + 1;
        const std::string word = caption.substr(start, end - start);
        const std::string seen = word.back() == ' ' ? word.substr(0, word.size() - 1) : word;
        if (!line.empty() && measureText(line + seen, font) > width) {
            ++lines;
            line.clear();
        }
        line += word;
        start = end;
    }
    return lines;
}

}  // namespace

void Panel::Impl::fit() {
    const int bevels =
        ((look.outer != Bevel::None ? 1 : 0) + (look.inner != Bevel::None ? 1 : 0)) * 2 * look.bevelWidth;
    if (look.fit == Fit::Width) place.width = measureText(caption, font) + bevels;
    if (look.fit != Fit::Height) return;
    const int lineHeight = static_cast<int>(std::lround(font.points * lineHeightPerPoint));
    place.height = linesOf(caption, font, place.width - bevels) * lineHeight + bevels;
}

std::string EditField::text() const { return sim::utf8Of(impl_->text); }
int EditField::selStart() const { return static_cast<int>(impl_->selStart); }
int EditField::selLength() const { return static_cast<int>(impl_->selLength); }

void EditField::select(int selStart, int selLength) {
    const int size = static_cast<int>(impl_->text.size());
    const int start = std::clamp(selStart, 0, size);
    impl_->selStart = static_cast<size_t>(start);
    impl_->selLength = static_cast<size_t>(std::clamp(selLength, 0, size - start));
}

TextBox::TextBox(Panel& panel, const Place& place)
    : EditField(std::make_unique<Impl>(*this, Impl::Kind::Text, panel.impl(), place)) {}

void TextBox::setText(const std::string& text) {
    impl_->text.clear();
    impl_->selStart = impl_->selLength = 0;
    sim::replaceSelection(*impl_, sim::charactersOf(text));
}

void TextBox::setMaxLength(int characters) { impl_->maxLength = static_cast<size_t>(characters); }
void TextBox::setAlign(Align /*align*/) {}

MaskEdBox::MaskEdBox(Panel& panel, const Place& place, const std::string& mask)
    : EditField(std::make_unique<Impl>(*this, Impl::Kind::Mask, panel.impl(), place)) {
    impl_->text.assign(mask.size(), U' ');
}

void MaskEdBox::clear() { impl_->text.assign(impl_->text.size(), U' '); }

ComboBox::ComboBox(Panel& panel, const Place& place)
    : Control(std::make_unique<Impl>(*this, Impl::Kind::List, panel.impl(), place)) {}

void ComboBox::clear() {
    impl_->rows.clear();
    impl_->listIndex = -1;
}

void ComboBox::addItem(const std::string& text) { impl_->rows.push_back(text); }
int ComboBox::listCount() const { return static_cast<int>(impl_->rows.size()); }

std::string ComboBox::list(int row) const {
    if (row < 0 || row >= listCount()) failure::subscript();
    return impl_->rows[static_cast<size_t>(row)];
}

int ComboBox::listIndex() const { return impl_->listIndex; }

void ComboBox::setListIndex(int row) {
    if (row < -1 || row >= listCount()) failure::subscript();
    impl_->listIndex = row;
}

std::string ComboBox::text() const { return impl_->listIndex < 0 ? "" : list(impl_->listIndex); }

CheckBox::CheckBox(Panel& panel, const Place& place)
    : CaptionButton(std::make_unique<Impl>(*this, Impl::Kind::Check, panel.impl(), place)) {}

void CheckBox::setValue(bool ticked) { impl_->value = ticked; }
bool CheckBox::value() const { return impl_->value; }

OptionButton::OptionButton(Panel& panel, const Place& place)
    : CaptionButton(std::make_unique<Impl>(*this, Impl::Kind::Option, panel.impl(), place)) {}

void OptionButton::setValue(bool chosen) {
    if (chosen && impl_->form != nullptr)
        for (Impl* other : impl_->form->controls)
            if (other->kind == Impl::Kind::Option && other->panel == impl_->panel) other->value = false;
    impl_->value = chosen;
}

bool OptionButton::value() const { return impl_->value; }

void sendTab() {
    sim::post([] { sim::pressKey(key::Tab); });
}

}  // namespace platform
