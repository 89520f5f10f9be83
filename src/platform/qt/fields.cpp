#include "platform/fields.h"

#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QRadioButton>
#include <QValidator>
#include <algorithm>
#include <limits>

#include "platform/qt/control.h"
#include "platform/runtime.h"

namespace platform {
namespace {

/// Makes blanks of the line ends and other control characters that a pasted text may have.
class OneLine : public QValidator {
  public:
    using QValidator::QValidator;

    State validate(QString& text, int& /*caret*/) const override {
        for (QChar& character : text)
            if (character.category() == QChar::Other_Control) character = QLatin1Char(' ');
        return Acceptable;
    }
};

constexpr int longest = std::numeric_limits<int16_t>::max();  // characters of a text box without a limit

/// A mask of Qt's: an optional digit for each "#", with blanks where none was typed.
QString maskOf(const std::string& mask) {
    return QString::fromStdString(mask).replace(QLatin1Char('#'), QLatin1Char('0')) + QStringLiteral("; ");
}

QLineEdit* lineOf(const Control& field) { return qt::faceOf<QLineEdit>(field); }

int selStartOf(const Control& field) {
    const QLineEdit* const line = lineOf(field);
    return line->hasSelectedText() ? line->selectionStart() : line->cursorPosition();
}

int selLengthOf(const Control& field) { return lineOf(field)->selectionLength(); }

void selectIn(const Control& field, int selStart, int selLength) {
    const int size = static_cast<int>(lineOf(field)->displayText().size());
    const int start = std::clamp(selStart, 0, size);
    lineOf(field)->setSelection(start, std::clamp(selLength, 0, size - start));
}

QComboBox* listOf(const ComboBox& list) { return qt::faceOf<QComboBox>(list); }

}  // namespace

TextBox::TextBox(Panel& panel, const Place& place)
    : Control(std::make_unique<Impl>(*this, new QLineEdit, panel, place)) {
    lineOf(*this)->setValidator(new OneLine(lineOf(*this)));
    setMaxLength(0);
}

TextBox::~TextBox() = default;

std::string TextBox::text() const { return lineOf(*this)->text().toStdString(); }

void TextBox::setText(const std::string& text) { lineOf(*this)->setText(QString::fromStdString(text)); }

void TextBox::setMaxLength(int characters) { lineOf(*this)->setMaxLength(characters > 0 ? characters : longest); }

void TextBox::setAlign(Align align) { lineOf(*this)->setAlignment(qt::alignmentOf(align)); }

int TextBox::selStart() const { return selStartOf(*this); }

int TextBox::selLength() const { return selLengthOf(*this); }

void TextBox::select(int selStart, int selLength) { selectIn(*this, selStart, selLength); }

MaskEdBox::MaskEdBox(Panel& panel, const Place& place, const std::string& mask)
    : Control(std::make_unique<Impl>(*this, new QLineEdit, panel, place)) {
    lineOf(*this)->setInputMask(maskOf(mask));
}

MaskEdBox::~MaskEdBox() = default;

std::string MaskEdBox::text() const { return lineOf(*this)->displayText().toStdString(); }

int MaskEdBox::selStart() const { return selStartOf(*this); }

int MaskEdBox::selLength() const { return selLengthOf(*this); }

void MaskEdBox::select(int selStart, int selLength) { selectIn(*this, selStart, selLength); }

ComboBox::ComboBox(Panel& panel, const Place& place)
    : Control(std::make_unique<Impl>(*this, new QComboBox, panel, place)) {}

ComboBox::~ComboBox() = default;

void ComboBox::clear() { listOf(*this)->clear(); }

void ComboBox::addItem(const std::string& text) {
    const int chosen = listIndex();
    listOf(*this)->addItem(QString::fromStdString(text));
    listOf(*this)->setCurrentIndex(chosen);  // Qt chooses the first row by itself.
}

int ComboBox::listCount() const { return listOf(*this)->count(); }

std::string ComboBox::list(int row) const {
    if (row < 0 || row >= listCount()) failure::subscript();
    return listOf(*this)->itemText(row).toStdString();
}

int ComboBox::listIndex() const { return listOf(*this)->currentIndex(); }

void ComboBox::setListIndex(int row) {
    if (row < -1 || row >= listCount()) failure::subscript();
    listOf(*this)->setCurrentIndex(row);
}

std::string ComboBox::text() const { return listOf(*this)->currentText().toStdString(); }

CheckBox::CheckBox(Panel& panel, const Place& place)
    : Control(std::make_unique<Impl>(*this, new QCheckBox, panel, place)) {
    qt::connectPress(*this, onClick);
}

CheckBox::~CheckBox() = default;

void CheckBox::setCaption(const std::string& text) {
    qt::faceOf<QCheckBox>(*this)->setText(QString::fromStdString(text));
}

void CheckBox::setValue(bool ticked) { qt::faceOf<QCheckBox>(*this)->setChecked(ticked); }

bool CheckBox::value() const { return qt::faceOf<QCheckBox>(*this)->isChecked(); }

OptionButton::OptionButton(Panel& panel, const Place& place)
    : Control(std::make_unique<Impl>(*this, new QRadioButton, panel, place)) {
    qt::connectPress(*this, onClick);
}

OptionButton::~OptionButton() = default;

void OptionButton::setCaption(const std::string& text) {
    qt::faceOf<QRadioButton>(*this)->setText(QString::fromStdString(text));
}

void OptionButton::setValue(bool chosen) {
    auto* const button = qt::faceOf<QRadioButton>(*this);
    button->setAutoExclusive(chosen);  // Else Qt would refuse to clear the one that is chosen.
    button->setChecked(chosen);
    button->setAutoExclusive(true);
}

bool OptionButton::value() const { return qt::faceOf<QRadioButton>(*this)->isChecked(); }

void sendTab() {
    QWidget* const window = qt::formStack().mainWindow();
    if (window == nullptr) return;
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease})
        QCoreApplication::postEvent(window, new QKeyEvent(type, Qt::Key_Tab, Qt::NoModifier));
}

}  // namespace platform
