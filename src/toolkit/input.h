#pragma once

#include <span>
#include <string>

#include "platform/fields.h"

// The part of modScreen that serves fields.

/// All that a keyboard types, letters in capitals.
constexpr const char* keyboardCharacters = R"(~!@#$%^&*()_+`-={}|[]\:";'<>?,./ 1234567890ABCDEFGHIJKLMNOPQRSTUVWXYZ)";

/// The filter of a key press: lets a character through if it is among the allowed ones, else makes the key 0. Enter
/// stays what it is, or becomes a Tab keystroke to the form on top.
void gsProcessKey(int& key, const std::string& allowed, bool tabOnEnter);

/// The key, if it is a control key or its character is allowed in either case; else 0.
int gintfValidateKey(const std::string& allowed, int key);

/// Closes the gaps in a block of boxes, from the last one upward: a text moves to an empty box before it. A box that
/// holds blanks only is empty.
void gsAlignInput(std::span<platform::TextBox* const> boxes);

/// Has Tab come to controls one after the other, from the place in the tab order that the first one has. There is one
/// at least.
void gsSetTabOrder(std::span<platform::Control* const> controls);

/// Fills a list with an empty row and the states, whose codes are the last two characters of their rows.
void gsLoadStates(platform::ComboBox& list);

/// The text without the blanks at both its ends.
std::string gstrfTrim(const std::string& text);
