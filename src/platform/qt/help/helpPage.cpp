#include "platform/qt/help/helpPage.h"

#include <QScrollBar>
#include <QTextBlock>
#include <QTextTable>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>
#include <utility>

#include "platform/help.h"
#include "platform/qt/window/fonts.h"

namespace platform::qt {
namespace {

constexpr int smallestStep = -4;
constexpr int largestStep = 10;
constexpr double stepFactor = 1.15;
constexpr int textMargin = 18;       // pixels around the text
constexpr int cellPadding = 6;       // pixels
constexpr int tableMargin = 10;      // pixels above and below a table
constexpr int roundedUp = 4;         // pixels by which Qt may make a table wider than its page
constexpr double lineGap = 3;        // pixels between lines, in the normal size
constexpr double headerTint = 0.14;  // part of the text's colour in a header's background
constexpr double borderTint = 0.35;  // and in the lines of a table

QColor mixed(const QColor& back, const QColor& fore, double part) {
    const auto mix = [part](int from, int to) { return from + static_cast<int>(std::lround((to - from) * part)); };
    return {mix(back.red(), fore.red()), mix(back.green(), fore.green()), mix(back.blue(), fore.blue())};
}

/// What a link to the heading says: lower case, words joined by "-", punctuation left out.
QString anchorOf(const QString& heading) {
    QString anchor;
    for (const QChar character : heading.toLower())
        if (character.isLetterOrNumber() || character == '-')
            anchor += character;
        else if (character.isSpace())
            anchor += '-';
    return anchor;
}

/// Lines, room around the text, and a header row that stands out.
void formatTable(QTextTable& table, const QPalette& palette) {
    const QColor back = palette.color(QPalette::Base);
    const QColor fore = palette.color(QPalette::Text);
    QTextTableFormat format = table.format();
    format.setCellPadding(cellPadding);
    format.setCellSpacing(0);
    format.setTopMargin(tableMargin);
    format.setBottomMargin(tableMargin);
    format.setBorder(1);
    format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
    format.setBorderCollapse(true);
    format.setBorderBrush(mixed(back, fore, borderTint));
    table.setFormat(format);
    for (int row = 0; row < table.rows(); ++row)
        for (int column = 0; column < table.columns(); ++column) {
            QTextTableCell cell = table.cellAt(row, column);
            QTextCharFormat look = cell.format();
            look.setVerticalAlignment(QTextCharFormat::AlignMiddle);
            if (row == 0) look.setBackground(mixed(back, fore, headerTint));
            cell.setFormat(look);
        }
}

}  // namespace

HelpPage::HelpPage(const QString& markdown) {
    makeUpForMissingFonts();
    normalPoints_ = fontInfo().pointSizeF();
    setOpenLinks(false);
    setUndoRedoEnabled(false);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    connect(horizontalScrollBar(), &QScrollBar::rangeChanged, this, [this](int /*least*/, int most) {
        setHorizontalScrollBarPolicy(most > roundedUp ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff);
    });
    connect(this, &QTextBrowser::anchorClicked, this, &HelpPage::follow);
    setMarkdown(markdown);
    document()->setDocumentMargin(textMargin);
    listHeadings();
    formatAll();
    moveCursor(QTextCursor::Start);
}

void HelpPage::listHeadings() {
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next())
        if (const int level = block.blockFormat().headingLevel(); level > 0)
            headings_.push_back({block.text(), level, block.position()});
}

void HelpPage::follow(const QUrl& link) {
    for (const Heading& heading : headings_)
        if (anchorOf(heading.text) == link.fragment()) return jumpTo(heading.position);
}

void HelpPage::jumpTo(int position) {
    QTextCursor place(document());
    place.setPosition(position);
    setTextCursor(place);  // A search goes on from here.
    verticalScrollBar()->setValue(verticalScrollBar()->value() + cursorRect().top());
}

void HelpPage::showPlace(const QTextCursor& place) {
    QScrollBar& bar = *verticalScrollBar();
    const int before = bar.value();
    setTextCursor(place);
    if (bar.value() != before) bar.setValue(bar.value() + cursorRect().center().y() - viewport()->height() / 2);
}

/// What stands at the top stays where it is. Small type can leave too little text below to keep it there; it comes back
/// with larger type unless the reader has scrolled meanwhile.
void HelpPage::setTypeStep(int step) {
    const int before = std::exchange(typeStep_, std::clamp(step, smallestStep, largestStep));
    if (typeStep_ == before) return;
    QScrollBar& bar = *verticalScrollBar();
    if (bar.value() != keptAt_) {
        kept_ = cursorForPosition(QPoint(textMargin, std::max(1, textMargin - bar.value())));
        keptTop_ = cursorRect(kept_).top();
    }
    QFont type = font();
    type.setPointSizeF(normalPoints_ * typeFactor());
    setFont(type);
    formatAll();
    bar.setValue(bar.value() + cursorRect(kept_).top() - keptTop_);
    keptAt_ = bar.value();
}

double HelpPage::typeFactor() const { return std::pow(stepFactor, typeStep_); }

/// Gives the text what its source doesn't say: colours of the palette, lines of tables, pictures in the type's size.
void HelpPage::formatAll() {
    QTextCursor all(document());
    all.beginEditBlock();  // Else each change would lay the text out anew.
    for (QTextFrame* const frame : document()->rootFrame()->childFrames())
        if (auto* const table = qobject_cast<QTextTable*>(frame)) formatTable(*table, palette());
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) formatBlock(block);
    all.endEditBlock();
    document()->markContentsDirty(0, document()->characterCount());
}

void HelpPage::formatBlock(const QTextBlock& block) {
    QTextCursor text(block);
    QTextBlockFormat lines;
    lines.setLineHeight(lineGap * typeFactor(), QTextBlockFormat::LineDistanceHeight);
    text.mergeBlockFormat(lines);
    for (const QTextLayout::FormatRange& range : block.textFormats()) {
        QTextCharFormat look;
        if (range.format.isImageFormat()) {
            const QString name = range.format.toImageFormat().name();
            document()->addResource(QTextDocument::ImageResource, QUrl(name), pictureNamed(name));
            look.setVerticalAlignment(QTextCharFormat::AlignMiddle);
        } else if (!range.format.anchorHref().isEmpty()) {
            look.setForeground(palette().color(QPalette::Link));
        }
        text.setPosition(block.position() + range.start);
        text.setPosition(text.position() + range.length, QTextCursor::KeepAnchor);
        text.mergeCharFormat(look);
    }
}

QImage HelpPage::pictureNamed(const QString& name) const {
    if (!makeHelpPicture) return {};
    const HelpPicture made = makeHelpPicture(name.toStdString());
    if (made.pixels.empty()) return {};
    const QImage image(reinterpret_cast<const uchar*>(made.pixels.data()), made.width, made.height,
                       QImage::Format_ARGB32);
    return image.scaled((QSizeF(image.size()) * typeFactor()).toSize(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
        .copy();  // Of its own, also where nothing was scaled.
}

/// Nothing but the text's own pictures, which are added as it is formatted: the text never reaches for a file.
QVariant HelpPage::loadResource(int /*type*/, const QUrl& /*url*/) { return {}; }

void HelpPage::changeEvent(QEvent* event) {
    QTextBrowser::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) formatAll();
}

void HelpPage::wheelEvent(QWheelEvent* event) {
    if (event->modifiers() & Qt::ControlModifier)
        setTypeStep(typeStep_ + (event->angleDelta().y() > 0 ? 1 : -1));
    else
        QTextBrowser::wheelEvent(event);
}

}  // namespace platform::qt
