#include "platform/qt/window/keys.h"

#include <QKeyEvent>
#include <QKeySequence>
#include <algorithm>
#include <span>

#include "platform/form.h"

namespace platform::qt {
namespace {

struct KeyRow {
    Qt::Key qtKey;
    int code;
};

constexpr int otherKey = 255;  // one that no form looks at
constexpr int backspace = 8;

// With NumLock off the number pad sends the keys that its caps show in small.
constexpr KeyRow padKeys[] = {
    {Qt::Key_2, key::Pad2},    {Qt::Key_4, key::Pad4},    {Qt::Key_6, key::Pad6},     {Qt::Key_8, key::Pad8},
    {Qt::Key_Down, key::Pad2}, {Qt::Key_Left, key::Pad4}, {Qt::Key_Right, key::Pad6}, {Qt::Key_Up, key::Pad8},
};

constexpr KeyRow otherKeys[] = {
    {Qt::Key_Backspace, backspace}, {Qt::Key_Tab, key::Tab},     {Qt::Key_Backtab, key::Tab},
    {Qt::Key_Return, key::Enter},   {Qt::Key_Enter, key::Enter}, {Qt::Key_Escape, key::Escape},
    {Qt::Key_Left, key::Left},      {Qt::Key_Up, key::Up},       {Qt::Key_Right, key::Right},
    {Qt::Key_Down, key::Down},      {Qt::Key_Pause, key::Pause}, {Qt::Key_F1, key::F1},
    {Qt::Key_F2, key::F2},
};

// These come from their codes, so that no Ctrl combination passes for one of them.
constexpr int keysWithCharacter[] = {backspace, key::Tab, key::Enter, key::Escape};

const KeyRow* find(std::span<const KeyRow> rows, int qtKey) {
    const auto row = std::find_if(rows.begin(), rows.end(), [=](const KeyRow& each) { return each.qtKey == qtKey; });
    return row == rows.end() ? nullptr : &*row;
}

int codeOf(const QKeyEvent& event) {
    const int qtKey = event.key();
    if (event.modifiers() & Qt::KeypadModifier)
        if (const KeyRow* row = find(padKeys, qtKey)) return row->code;
    if (const KeyRow* row = find(otherKeys, qtKey)) return row->code;
    const bool hasOwnCode = (qtKey >= Qt::Key_A && qtKey <= Qt::Key_Z) || (qtKey >= Qt::Key_0 && qtKey <= Qt::Key_9);
    return hasOwnCode || qtKey == Qt::Key_Space ? qtKey : otherKey;
}

int characterOf(const QKeyEvent& event, int code) {
    if (std::ranges::find(keysWithCharacter, code) != std::end(keysWithCharacter)) return code;
    const QString text = event.text();
    if (text.isEmpty()) return 0;
    const QChar first = text.front();
    if (first.category() == QChar::Other_Control) return 0;
    return text.size() == 1 && first.unicode() < key::OtherCharacter ? first.unicode() : key::OtherCharacter;
}

}  // namespace

Stroke strokeOf(const QKeyEvent& event, bool repeat) {
    const int code = codeOf(event);
    return {code, characterOf(event, code), repeat};
}

QKeyEvent eventFor(const QKeyEvent& event, const Stroke& stroke, int typed) {
    const QString text = stroke.character == typed ? event.text() : QString(QChar(stroke.character));
    return {event.type(), event.key(), event.modifiers(), text, stroke.repeat, static_cast<quint16>(event.count())};
}

QString nameOfKey(int code) {
    const auto row = std::ranges::find(otherKeys, code, &KeyRow::code);
    return QKeySequence(row != std::end(otherKeys) ? row->qtKey : code).toString(QKeySequence::NativeText);
}

}  // namespace platform::qt
