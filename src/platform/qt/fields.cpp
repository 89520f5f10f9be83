#include "platform/fields.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
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

/// The rows of a list. A letter that is pressed again and again goes from row to row, however fast; Qt would look for a
/// row that begins with all of them.
class Rows : public QListView {
  public:
    explicit Rows(QComboBox* list) : list_(list) {
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

  protected:
    void initViewItemOption(QStyleOptionViewItem* option) const override {
        QListView::initViewItemOption(option);
        option->font = list_->font();
    }

  private:
    void chooseNext(const QString& letter) {
        const QModelIndex after = model()->index((currentIndex().row() + 1) % model()->rowCount(), 0);
        const QModelIndexList found =
            model()->match(after, Qt::DisplayRole, letter, 1, Qt::MatchStartsWith | Qt::MatchWrap);
        if (!found.empty()) setCurrentIndex(found.front());
    }

    QComboBox* list_;
    QString typed_;  // without a pause
    QElapsedTimer sinceLetter_;
};

QComboBox* listOf(const ComboBox& list) { return qt::faceOf<QComboBox>(list); }

}  // namespace

std::string EditField::text() const { return lineOf(*this)->displayText().toStdString(); }

int EditField::selStart() const {
    const QLineEdit* const line = lineOf(*this);
    return line->hasSelectedText() ? line->selectionStart() : line->cursorPosition();
}

int EditField::selLength() const { return lineOf(*this)->selectionLength(); }

void EditField::select(int selStart, int selLength) {
    const int size = static_cast<int>(lineOf(*this)->displayText().size());
    const int start = std::clamp(selStart, 0, size);
    lineOf(*this)->setSelection(start, std::clamp(selLength, 0, size - start));
}

TextBox::TextBox(Panel& panel, const Place& place)
    : EditField(std::make_unique<Impl>(*this, new QLineEdit, panel, place)) {
    lineOf(*this)->setValidator(new OneLine(lineOf(*this)));
    setMaxLength(0);
}

void TextBox::setText(const std::string& text) { lineOf(*this)->setText(QString::fromStdString(text)); }

void TextBox::setMaxLength(int characters) { lineOf(*this)->setMaxLength(characters > 0 ? characters : longest); }

void TextBox::setAlign(Align align) { lineOf(*this)->setAlignment(qt::alignmentOf(align)); }

MaskEdBox::MaskEdBox(Panel& panel, const Place& place, const std::string& mask)
    : EditField(std::make_unique<Impl>(*this, new QLineEdit, panel, place)) {
    lineOf(*this)->setInputMask(maskOf(mask));
}

ComboBox::ComboBox(Panel& panel, const Place& place)
    : Control(std::make_unique<Impl>(*this, new QComboBox, panel, place)) {
    listOf(*this)->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    new Rows(listOf(*this));
}

void ComboBox::clear() { listOf(*this)->clear(); }

void ComboBox::addItem(const std::string& text) {
    const int chosen = listIndex();
    listOf(*this)->addItem(QString::fromStdString(text));
    listOf(*this)->setCurrentIndex(chosen);  // Qt chooses the first row by itself.
    qt::makeRoom(*listOf(*this));
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
    : CaptionButton(std::make_unique<Impl>(*this, new QCheckBox, panel, place)) {}

void CheckBox::setValue(bool ticked) { qt::faceOf<QCheckBox>(*this)->setChecked(ticked); }

bool CheckBox::value() const { return qt::faceOf<QCheckBox>(*this)->isChecked(); }

OptionButton::OptionButton(Panel& panel, const Place& place)
    : CaptionButton(std::make_unique<Impl>(*this, new QRadioButton, panel, place)) {}

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
