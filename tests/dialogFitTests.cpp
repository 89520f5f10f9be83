// The real window at every scale: the texts of the dialogs stand whole and apart.

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QComboBox>
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
#include "tests/printService.h"
#include "tests/windowFixture.h"

namespace {

QString textOf(const QWidget& face) { return face.property("text").toString(); }

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

    /// The text has room in its label or button, and nothing lies over it.
    void expectWhole(QWidget& face) {
        const QRect text = textPlace(face);
        EXPECT_TRUE(face.rect().contains(text));
        const QRect seen = text.translated(face.mapTo(window, QPoint(0, 0)));
        const QImage asSeen = window->grab(seen).toImage().convertToFormat(QImage::Format_RGB32);
        QImage alone(asSeen.size(), QImage::Format_RGB32);
        alone.setDevicePixelRatio(asSeen.devicePixelRatio());
        alone.fill(QColor(192, 192, 192));
        face.render(&alone, QPoint(), text);
        EXPECT_TRUE(asSeen == alone);
    }

    void expectAllWhole(const QWidget& form) {
        QList<QRect> taken;
        for (QWidget* face : form.findChildren<QWidget*>()) {
            const bool isField = qobject_cast<QLineEdit*>(face) || qobject_cast<QComboBox*>(face);
            if (!face->isVisible() || (textOf(*face).isEmpty() && !isField)) continue;
            SCOPED_TRACE(textOf(*face).toStdString());
            if (!isField) expectWhole(*face);
            const QRect place =
                (isField ? face->rect() : textPlace(*face)).translated(face->mapTo(&form, QPoint(0, 0)));
            for (const QRect& other : taken) EXPECT_FALSE(place.intersects(other));
            taken += place;
        }
    }
};

TEST_F(DialogFit, TheTextsStandWholeAndApart) {
    const auto expectWholeIn = [this](auto& dialog, Qt::Key closing = Qt::Key_Escape) {
        inDialog(
            dialog, [&] { dialog.showModal(); }, [this](QWidget& form) { expectAllWhole(form); }, closing);
    };
    expectWholeIn(gfrmOrder);
    expectWholeIn(gfrmAbout);
    gfrmGetName->msLoadFormVariables(1234567);
    expectWholeIn(gfrmGetName, Qt::Key_Return);
}

TEST_F(DialogFit, EveryStateIsShownWholeInTheListAndInItsBox) {
    inDialog(
        gfrmOrder, [this] { click("Order"); },
        [this](QWidget& form) {
            auto& list = *form.findChild<QComboBox*>();
            ASSERT_EQ(list.count(), 51);
            QStyleOptionComboBox option;
            option.initFrom(&list);
            const int room =
                list.style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, &list).width();
            for (int row = 0; row < list.count(); ++row)
                EXPECT_LE(list.fontMetrics().horizontalAdvance(list.itemText(row)), room)
                    << qPrintable(list.itemText(row));
            list.showPopup();
            EXPECT_LE(list.view()->sizeHintForColumn(0), list.view()->viewport()->width());
            list.hidePopup();
            bringToFront();
        });
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
    passWith(withoutFonts(folder.path()), "DialogFit.The*:Seen.EachDialog");
}

}  // namespace
