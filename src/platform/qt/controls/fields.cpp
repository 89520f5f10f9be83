#include "platform/fields.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QElapsedTimer>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QRadioButton>
#include <QStyleOptionComboBox>
#include <QStylePainter>
#include <QValidator>
#include <limits>

#include "platform/qt/controls/control.h"
#include "platform/qt/window/keys.h"

namespace platform {
namespace {

int charactersIn(const QString& text) { return static_cast<int>(text.toStdU32String().size()); }

QString firstCharacters(const QString& text, int count) {
    return QString::fromStdU32String(text.toStdU32String().substr(0, static_cast<size_t>(count)));
}

/// Makes blanks of the line ends and other control characters that a pasted text may have, and keeps the text to its
/// limit: of what has just gone in before the caret, the end stays out. Qt's own limit would cut characters in half.
class OneLine : public QValidator {
  public:
    using QValidator::QValidator;

    int limit = std::numeric_limits<int16_t>::max();  // characters; no box is without one

    State validate(QString& text, int& caret) const override {
        for (QChar& character : text)
            if (character.category() == QChar::Other_Control) character = QLatin1Char(' ');
        const int excess = charactersIn(text) - limit;
        if (excess > 0) {
            const QString before = text.left(caret);
            const QString kept = firstCharacters(before, charactersIn(before) - excess);
            text = kept + text.mid(caret);
            caret = static_cast<int>(kept.size());
            if (text == last_) return Invalid;  // Qt takes the change back and can still undo those before it.
        }
        last_ = text;
        return Acceptable;
    }

  private:
    mutable QString last_;  // as it was last found or made to be right
};

/// One line of text. What an input method composes goes in a character at a time, past the handlers that a typed one
/// passes; Qt would put it into the text itself.
class Line : public QLineEdit {
  protected:
    void inputMethodEvent(QInputMethodEvent* event) override {
        if (event->commitString().isEmpty()) return QLineEdit::inputMethodEvent(event);
        QInputMethodEvent composed;
        composed.setCommitString(QString(), event->replacementStart(), event->replacementLength());
        QLineEdit::inputMethodEvent(&composed);
        const QPointer<Line> self(this);
        for (const char32_t character : event->commitString().toStdU32String())
            if (self) type(QString::fromUcs4(&character, 1));
        QInputMethodEvent goesOn(event->preeditString(), event->attributes());
        if (self) QLineEdit::inputMethodEvent(&goesOn);
    }

  private:
    /// The control while its form takes keys; null when a form or a box has come over it, and when it is gone.
    const Control* owner() {
        qt::FormWindow* const window = qt::formWindowOf(this);
        if (window != qt::formStack().top() || qt::formStack().blocks(this)) return nullptr;
        const Control::Impl* const control = window->controlOf(this);
        return control != nullptr ? &control->owner : nullptr;
    }

    void type(const QString& text) {
        const QKeyEvent key(QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier, text);
        Stroke stroke = qt::strokeOf(key, false);
        const int typed = stroke.character;
        const QPointer<Line> self(this);
        const auto target = [&] { return self ? owner() : nullptr; };
        if (typed == 0 || target() == nullptr) return;
        callSlot(qt::formWindowOf(this)->form->onKeyPress, stroke.character);
        if (stroke.character != 0 && target() != nullptr) callSlot(target()->onKeyPress, stroke.character);
        if (stroke.character != 0 && target() != nullptr) insert(qt::eventFor(key, stroke, typed).text());
        if (target() != nullptr) callSlot(target()->onKeyUp, stroke.code);
    }
};

QLineEdit* lineOf(const Control& field) { return qt::faceOf<QLineEdit>(field); }

OneLine* validatorOf(const TextBox& box) { return lineOf(box)->findChild<OneLine*>(); }

/// The rows of a list. A letter that is pressed again and again goes from row to row, however fast; Qt would look for a
/// row that begins with all of them.
class Rows : public QListView {
  public:
    explicit Rows(QComboBox* list) {
        setTextElideMode(Qt::ElideMiddle);
        list->setView(this);
    }

    void keyboardSearch(const QString& letter) override {
        const bool goesOn = sinceLetter_.isValid() && sinceLetter_.elapsed() <= QApplication::keyboardInputInterval();
        typed_ = (goesOn ? typed_ : QString()) + letter.toLower();
        sinceLetter_.start();
        if (typed_.size() > letter.size() && typed_ == QString(typed_.size(), typed_.front()))
            chooseNext(letter);
        else
            QListView::keyboardSearch(letter);
    }

  private:
    void chooseNext(const QString& letter) {
        const QModelIndex after = model()->index((currentIndex().row() + 1) % model()->rowCount(), 0);
        const QModelIndexList found =
            model()->match(after, Qt::DisplayRole, letter, 1, Qt::MatchStartsWith | Qt::MatchWrap);
        if (!found.empty()) setCurrentIndex(found.front());
    }

    QString typed_;  // without a pause
    QElapsedTimer sinceLetter_;
};

/// A list whose field is white as that of a text box; the style would paint it in the colour of the arrow beside it.
class List : public QComboBox {
  protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QStylePainter painter(this);
        QStyleOptionComboBox option;
        initStyleOption(&option);
        option.palette.setBrush(QPalette::Button, option.palette.base());
        option.subControls = QStyle::SC_ComboBoxFrame | QStyle::SC_ComboBoxEditField;
        painter.drawComplexControl(QStyle::CC_ComboBox, option);
        option.palette = palette();
        option.subControls = QStyle::SC_ComboBoxArrow;
        painter.drawComplexControl(QStyle::CC_ComboBox, option);
        painter.drawControl(QStyle::CE_ComboBoxLabel, option);
    }
};

/// A button of a group, all of which are stops of Tab; Qt would keep to the one that had the focus last.
class Option : public QRadioButton {
  protected:
    void focusInEvent(QFocusEvent* event) override {
        setAutoExclusive(false);
        QRadioButton::focusInEvent(event);
        setAutoExclusive(true);
    }
};

QComboBox* listOf(const ComboBox& list) { return qt::faceOf<QComboBox>(list); }

}  // namespace

std::string EditField::text() const { return lineOf(*this)->displayText().toStdString(); }

void EditField::selectAll() { lineOf(*this)->selectAll(); }

TextBox::TextBox(Panel& panel, const Place& place) : EditField(std::make_unique<Impl>(*this, new Line, panel, place)) {
    lineOf(*this)->setValidator(new OneLine(lineOf(*this)));
}

void TextBox::setText(const std::string& text) {
    lineOf(*this)->setText(firstCharacters(QString::fromStdString(text), validatorOf(*this)->limit));
}

void TextBox::setMaxLength(int characters) {
    validatorOf(*this)->limit = characters;
    setText(text());
}

void TextBox::setAlign(Align align) { lineOf(*this)->setAlignment(qt::alignmentOf(align)); }

MaskEdBox::MaskEdBox(Panel& panel, const Place& place, int digits)
    : EditField(std::make_unique<Impl>(*this, new Line, panel, place)) {
    lineOf(*this)->setInputMask(QString(digits, '0') + "; ");
}

void MaskEdBox::clear() { lineOf(*this)->clear(); }

ComboBox::ComboBox(Panel& panel, const Place& place) : Control(std::make_unique<Impl>(*this, new List, panel, place)) {
    listOf(*this)->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    new Rows(listOf(*this));
}

void ComboBox::setRows(std::span<const char* const> texts) {
    listOf(*this)->clear();
    for (const char* const text : texts) listOf(*this)->addItem(text);
    listOf(*this)->setCurrentIndex(-1);  // Qt chooses the first row by itself.
    qt::makeRoom(*listOf(*this));
}

std::string ComboBox::text() const { return listOf(*this)->currentText().toStdString(); }

CheckBox::CheckBox(Panel& panel, const Place& place)
    : CaptionButton(std::make_unique<Impl>(*this, new QCheckBox, panel, place)) {}

void CheckBox::setValue(bool ticked) { qt::faceOf<QCheckBox>(*this)->setChecked(ticked); }

bool CheckBox::value() const { return qt::faceOf<QCheckBox>(*this)->isChecked(); }

OptionButton::OptionButton(Panel& panel, const Place& place)
    : CaptionButton(std::make_unique<Impl>(*this, new Option, panel, place)) {}

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
