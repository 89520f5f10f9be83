// The real window at every scale: the texts of the order form and the about box stand in their places, whole and apart.

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAccessible>
#include <QComboBox>
#include <QFontInfo>
#include <QLabel>
#include <QLineEdit>
#include <QStyle>
#include <QStyleOptionComboBox>
#include <QTemporaryDir>
#include <QTest>
#include <cmath>
#include <set>

#include "forms/frmAbout.h"
#include "forms/frmOrder.h"
#include "hiscores/frmGetName.h"
#include "platform/qt/control.h"
#include "tests/printService.h"
#include "tests/windowFixture.h"

namespace {

/// A text of a dialog and its room there, in twips.
struct TextRow {
    const char* text;
    int left, top, width, height;
    int pixels = 13;  // the size of its letters
};

constexpr TextRow orderTexts[] = {
    {"Name", 480, 720, 615, 255},
    {"Address", 480, 1080, 885, 255},
    {"City", 480, 2160, 495, 255},
    {"State", 480, 2520, 675, 255},
    {"Zip", 3840, 2520, 420, 255},
    {"Country", 480, 3000, 855, 255},
    {"(If not U.S.A.)", 4440, 3000, 1335, 240},
    {"Email", 480, 3360, 615, 255},
    {"(Required, if electronic    copy)", 5160, 3240, 1935, 465},
    {"# of Copies", 480, 3720, 975, 255},
    {"(U.S. $12 per copy)", 2160, 3720, 1590, 255},  // a pixel wider than it was meant
    {"Email me the executable file", 4200, 3720, 2895, 255},
    {"USA: $2  Each additional copy add $1", 1440, 4080, 3510, 255},                  // so is this one
    {"Ship To", 480, 4200, 735, 255},                                                 //
    {"All other countries: $3  Each additional copy add $2", 1440, 4320, 4680, 255},  // and this one by seven
    {"Amount Due", 480, 4680, 1095, 255},
    {"$0", 1680, 4680, 810, 255},
    {"* Check must be in U.S. currency and drawn against a U.S. bank.           Please do not send cash.", 480, 5160,
     5535, 465},
    {"* Make check payable to", 480, 5760, 2055, 240},
    {"Tavin Orlec", 2520, 5760, 1095, 240},
    {"* Allow up to two weeks for delivery.", 480, 6120, 3255, 240},
    {"Thank You.", 2880, 6600, 1095, 240},
    {"&Print", 4440, 6600, 1095, 375, 16},
    {"&Close", 5760, 6600, 1095, 375, 16},
};

constexpr TextRow aboutTexts[] = {
    {"Velmora v1.0", 600, 360, 2895, 375},  {"Programmed By:", 720, 960, 1455, 255},
    {"Tavin Orlec", 2280, 960, 1455, 255},  {"Graphics By:", 720, 1320, 1455, 255},
    {"Tavin Orlec", 2280, 1320, 1455, 255},
};

/// Where a label or a button shows its text, on itself.
QRect textPlace(const QWidget& face) {
    if (const auto* label = qobject_cast<const QLabel*>(&face)) {
        const int flags = static_cast<int>(label->alignment()) | (label->wordWrap() ? Qt::TextWordWrap : 0);
        return label->fontMetrics().boundingRect(label->contentsRect(), flags, label->text());
    }
    const auto& button = dynamic_cast<const QAbstractButton&>(face);
    const QFontMetrics& metrics = button.fontMetrics();
    const QSize size = metrics.size(Qt::TextShowMnemonic, button.text());
    const bool isPushed = !button.isCheckable();
    constexpr int indicator = 19;  // with the gap behind it
    return {isPushed ? (button.width() - size.width()) / 2 : indicator, (button.height() - size.height()) / 2,
            size.width(), size.height()};
}

class DialogFit : public Window {
  protected:
    void SetUp() override {
        Window::SetUp();
        bringToFront();
    }

    /// Opens a dialog by its button, does something there and closes it.
    template <class Dialog>
    void inDialog(const char* toolTip, FormRef<Dialog>& dialog, const std::function<void(QWidget&)>& action) {
        bool done = false;
        whenOpen(dialog, [&] {
            action(*platform::qt::windowOf(dialog->form));
            done = true;
            press(Qt::Key_Escape);
        });
        click(toolTip);
        EXPECT_TRUE(done);
    }

    /// The label or button with that text that stands at that place of the form.
    static QWidget* faceAt(const QWidget& form, const TextRow& row) {
        for (QWidget* face : form.findChildren<QWidget*>()) {
            const auto* const label = qobject_cast<const QLabel*>(face);
            const auto* const button = qobject_cast<const QAbstractButton*>(face);
            const QString text = label != nullptr ? label->text() : button != nullptr ? button->text() : QString();
            const QPoint place(row.left / 15, row.top / 15);
            if (text == row.text && face->mapTo(&form, QPoint(0, 0)) == place) return face;
        }
        return nullptr;
    }

    /// The text is set as it should be, has room, and nothing lies over it.
    void expectWhole(const QWidget& form, const TextRow& row) {
        QWidget* const face = faceAt(form, row);
        ASSERT_NE(face, nullptr) << row.text;
        const QFontInfo font(face->font());
        EXPECT_EQ(font.family().toStdString(), "Liberation Serif") << row.text;
        EXPECT_EQ(font.pixelSize(), row.pixels) << row.text;
        EXPECT_TRUE(font.bold()) << row.text;
        const QRect text = textPlace(*face);
        EXPECT_LE(text.right(), row.width / 15 - 1) << row.text;
        EXPECT_LE(text.height(), row.height / 15) << row.text;
        EXPECT_TRUE(face->rect().contains(text)) << row.text;
        const QRect seen = text.translated(face->mapTo(window, QPoint(0, 0)));
        const QImage asSeen = window->grab(seen).toImage().convertToFormat(QImage::Format_RGB32);
        QImage alone(asSeen.size(), QImage::Format_RGB32);
        alone.setDevicePixelRatio(asSeen.devicePixelRatio());
        alone.fill(QColor(192, 192, 192));
        face->render(&alone, QPoint(), text);
        EXPECT_TRUE(asSeen == alone) << row.text;
    }

    void expectAllWhole(const QWidget& form, const TextRow* rows, size_t count) {
        QList<QRect> taken;
        for (const auto* field : form.findChildren<QWidget*>())
            if (qobject_cast<const QLineEdit*>(field) != nullptr || qobject_cast<const QComboBox*>(field) != nullptr)
                taken += QRect(field->mapTo(&form, QPoint(0, 0)), field->size());
        for (const TextRow* row = rows; row != rows + count; ++row) {
            expectWhole(form, *row);
            const QWidget* const face = faceAt(form, *row);
            if (face == nullptr) continue;
            const QRect place = textPlace(*face).translated(face->mapTo(&form, QPoint(0, 0)));
            for (const QRect& other : taken) EXPECT_FALSE(place.intersects(other)) << row->text;
            taken += place;
        }
    }
};

TEST_F(DialogFit, TheOrderFormsTextsStandWholeAndApart) {
    inDialog("Order", gfrmOrder, [&](QWidget& form) { expectAllWhole(form, orderTexts, std::size(orderTexts)); });
}

TEST_F(DialogFit, TheAboutBoxsTextsStandWholeAndApart) {
    inDialog("About Velmora...", gfrmAbout,
             [&](QWidget& form) { expectAllWhole(form, aboutTexts, std::size(aboutTexts)); });
}

TEST_F(DialogFit, EveryStateIsShownWholeInTheListAndInItsBox) {
    inDialog("Order", gfrmOrder, [&](QWidget& form) {
        auto& list = *form.findChild<QComboBox*>();
        ASSERT_EQ(list.count(), 51);
        QStyleOptionComboBox option;
        option.initFrom(&list);
        const int room =
            list.style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, &list).width();
        for (int row = 0; row < list.count(); ++row)
            EXPECT_LE(list.fontMetrics().horizontalAdvance(list.itemText(row)), room) << qPrintable(list.itemText(row));
        list.showPopup();
        EXPECT_LE(list.view()->sizeHintForColumn(0), list.view()->viewport()->width());
        list.hidePopup();
        bringToFront();
    });
}

struct SpokenRow {
    int left, top;  // of a field, in twips
    QAccessible::Role role;
    const char* name;
};

constexpr SpokenRow orderFields[] = {
    {1440, 720, QAccessible::EditableText, "Name"},
    {1440, 1080, QAccessible::EditableText, "Address"},
    {1440, 1440, QAccessible::EditableText, "Address, line 2"},
    {1440, 1800, QAccessible::EditableText, "Address, line 3"},
    {1440, 2160, QAccessible::EditableText, "City"},
    {1440, 2520, QAccessible::ComboBox, "State"},
    {4200, 2520, QAccessible::EditableText, "Zip"},
    {1440, 3000, QAccessible::EditableText, "Country"},
    {1440, 3360, QAccessible::EditableText, "Email"},
    {1440, 3720, QAccessible::EditableText, "# of Copies"},
    {4200, 3720, QAccessible::CheckBox, "Email me the executable file"},
    {1440, 4080, QAccessible::RadioButton, "USA: $2  Each additional copy add $1"},
    {1440, 4320, QAccessible::RadioButton, "All other countries: $3  Each additional copy add $2"},
    {1680, 4680, QAccessible::StaticText, "$0"},
    {4440, 6600, QAccessible::PushButton, "Print"},
    {5760, 6600, QAccessible::PushButton, "Close"},
};

std::string spokenOf(QWidget* face) {
    return QAccessible::queryAccessibleInterface(face)->text(QAccessible::Name).toStdString();
}

TEST_F(DialogFit, AScreenReaderTellsWhatEachFieldIs) {
    inDialog("Order", gfrmOrder, [&](QWidget& form) {
        EXPECT_EQ(spokenOf(&form), "Order form");
        for (const SpokenRow& row : orderFields) {
            QWidget* const face = form.childAt(row.left / 15 + 3, row.top / 15 + 8);
            EXPECT_EQ(QAccessible::queryAccessibleInterface(face)->role(), row.role) << row.name;
            EXPECT_EQ(spokenOf(face), row.name);
        }
    });
    inDialog("About Velmora...", gfrmAbout, [&](QWidget& form) {
        EXPECT_EQ(spokenOf(&form), "About Velmora");
        for (const TextRow& row : aboutTexts) EXPECT_EQ(spokenOf(faceAt(form, row)), row.text);
    });
    gfrmGetName->msLoadFormVariables(640);
    whenOpen(gfrmGetName, [&] {
        EXPECT_EQ(spokenOf(gfrmGetName->txtName.impl().face.get()), "Your name");
        press(Qt::Key_Return);
    });
    gfrmGetName.showModal();
}

TEST_F(DialogFit, ThePictureIsSmoothedWhereAPixelIsNoWholeNumberOfDots) {
    const QImage file = QImage(VELMORA_ASSETS "/pictures/101.png").convertToFormat(QImage::Format_RGB32);
    std::set<QRgb> colors;
    for (int y = 0; y < file.height(); ++y)
        for (int x = 0; x < file.width(); ++x) colors.insert(file.pixel(x, y));
    const QImage seen = window->grab({400, 440, 300, 120}).toImage().convertToFormat(QImage::Format_RGB32);
    int mixed = 0;
    for (int y = 0; y < seen.height(); ++y)
        for (int x = 0; x < seen.width(); ++x) mixed += colors.contains(seen.pixel(x, y)) ? 0 : 1;
    const double scale = window->devicePixelRatio();
    EXPECT_EQ(mixed > 0, scale != std::floor(scale)) << mixed << " at scale " << scale;
}

TEST_F(DialogFit, ScaledByTwoAndOneAndAHalf) {
    for (const char* scale : {"2", "1.5"}) passWith(QString("QT_SCALE_FACTOR=") + scale, "DialogFit.The*");
}

TEST_F(DialogFit, OnADesktopWithoutFonts) {
    const QTemporaryDir folder;
    passWith(withoutFonts(folder.path()), "DialogFit.The*");
}

}  // namespace
