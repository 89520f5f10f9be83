#include "platform/help.h"

#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <QEvent>
#include <QInputMethodEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QPointer>
#include <QRegularExpression>
#include <QScreen>
#include <QScrollBar>
#include <QSplitter>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextDocumentFragment>
#include <QTextList>
#include <QTextTable>
#include <QTimer>
#include <QToolBar>
#include <QTreeWidget>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>
#include <set>
#include <utility>
#include <vector>

#include "platform/base/files.h"
#include "platform/desktop.h"
#include "platform/qt/help/pieces.h"
#include "platform/qt/window/fonts.h"

namespace platform {
namespace {

constexpr uintmax_t largestText = 1 << 16;  // bytes, nearly three times the game's own; a larger file counts as missing
constexpr int largestPictures = 1 << 21;  // the game's pixels in all pictures of a text; those after them are left out
constexpr int bitOfTime = 50;             // milliseconds that the text is read in before events are served
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
    static const QRegularExpression punctuation("[^\\w\\s-]", QRegularExpression::UseUnicodePropertiesOption);
    return heading.toLower().remove(punctuation).replace(' ', '-');
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

/// The help text as it is read: Markdown with links between its headings, tables, and pictures made by name. Its look
/// follows the desktop's palette, and its pictures grow with its type.
class HelpPage : public QTextBrowser {
  public:
    HelpPage();  ///< Empty.

    void add(const qt::Piece& added);           ///< Below what it shows.
    void jumpTo(int position);                  ///< Brings that place of the text to the top.
    void showPlace(const QTextCursor& place);   ///< In the middle, if it wasn't in sight.
    int typeStep() const { return typeStep_; }  ///< Of the type's size, from the one at first.
    void setTypeStep(int step);                 ///< As far as the range of sizes goes.
    QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;

  protected:
    QVariant loadResource(int type, const QUrl& url) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void changeEvent(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

  private:
    void follow(const QUrl& link);
    void formatAll();
    void format(QTextDocument& text);
    void formatBlock(const QTextBlock& block);
    void addPicture(const QString& name);
    QImage pictureNamed(const QString& name);
    double typeFactor() const;

    QFont normalFont_;
    std::set<QString> pictures_;  // that are made in the present type
    int picturePixels_ = 0;       // of the game's, in all of them
    int typeStep_ = 0;
    QTextCursor kept_;  // the place that a change of type keeps
    int keptTop_ = 0;   // where its line stood, in pixels of the window
    int keptAt_ = -1;   // how far the text was scrolled after the last change
};

HelpPage::HelpPage() {
    qt::makeUpForMissingFonts();
    normalFont_ = font();
    normalFont_.setPointSizeF(fontInfo().pointSizeF());
    setOpenLinks(false);
    setUndoRedoEnabled(false);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    connect(horizontalScrollBar(), &QScrollBar::rangeChanged, this, [this](int /*least*/, int most) {
        setHorizontalScrollBarPolicy(most > roundedUp ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff);
    });
    connect(this, &QTextBrowser::anchorClicked, this, &HelpPage::follow);
    document()->setDocumentMargin(textMargin);
}

void HelpPage::add(const qt::Piece& added) {
    QTextDocument piece;
    piece.setDefaultFont(normalFont_);  // The room below a paragraph goes by it.
    const auto dialect = added.tables ? QTextDocument::MarkdownDialectGitHub : QTextDocument::MarkdownDialectCommonMark;
    piece.setMarkdown(QString::fromStdString(added.text),
                      QTextDocument::MarkdownFeatures(dialect) | QTextDocument::MarkdownNoHTML);
    format(piece);
    const bool first = document()->isEmpty();
    QTextCursor end(document());
    end.movePosition(QTextCursor::End);
    end.beginEditBlock();
    // What is inserted leaves the block that it begins in as it was.
    const QTextBlock begin = piece.begin();
    if (!first) end.insertBlock(begin.textList() ? QTextBlockFormat() : begin.blockFormat(), begin.charFormat());
    if (!first && begin.textList()) end.createList(begin.textList()->format());
    end.insertFragment(QTextDocumentFragment(&piece));
    end.endEditBlock();
    if (first) moveCursor(QTextCursor::Start);
}

void HelpPage::follow(const QUrl& link) {
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next())
        if (block.blockFormat().headingLevel() > 0 && anchorOf(block.text()) == link.fragment())
            return jumpTo(block.position());
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
    type.setPointSizeF(normalFont_.pointSizeF() * typeFactor());
    setFont(type);
    formatAll();
    bar.setValue(bar.value() + cursorRect(kept_).top() - keptTop_);
    keptAt_ = bar.value();
}

double HelpPage::typeFactor() const { return std::pow(stepFactor, typeStep_); }

/// Gives the text what its source doesn't say: colours of the palette, lines of tables, pictures in the type's size.
void HelpPage::formatAll() {
    pictures_.clear();
    picturePixels_ = 0;
    format(*document());
    document()->markContentsDirty(0, document()->characterCount());
}

void HelpPage::format(QTextDocument& text) {
    QTextCursor all(&text);
    all.beginEditBlock();  // Else each change would lay the text out anew.
    for (QTextFrame* const frame : text.rootFrame()->childFrames())
        if (auto* const table = qobject_cast<QTextTable*>(frame)) formatTable(*table, palette());
    for (QTextBlock block = text.begin(); block.isValid(); block = block.next()) formatBlock(block);
    all.endEditBlock();
}

void HelpPage::formatBlock(const QTextBlock& block) {
    QTextCursor text(block);
    QTextBlockFormat lines;
    lines.setLineHeight(lineGap * typeFactor(), QTextBlockFormat::LineDistanceHeight);
    text.mergeBlockFormat(lines);
    for (const QTextLayout::FormatRange& range : block.textFormats()) {
        QTextCharFormat look;
        if (range.format.isImageFormat()) {
            addPicture(range.format.toImageFormat().name());
            look.setVerticalAlignment(QTextCharFormat::AlignMiddle);
        } else if (!range.format.anchorHref().isEmpty()) {
            look.setForeground(palette().color(QPalette::Link));
        } else {
            continue;
        }
        text.setPosition(block.position() + range.start);
        text.setPosition(text.position() + range.length, QTextCursor::KeepAnchor);
        text.mergeCharFormat(look);
    }
}

void HelpPage::addPicture(const QString& name) {
    if (pictures_.insert(name).second)
        document()->addResource(QTextDocument::ImageResource, QUrl(name), pictureNamed(name));
}

QImage HelpPage::pictureNamed(const QString& name) {
    if (!makeHelpPicture || picturePixels_ > largestPictures) return {};
    const HelpPicture made = makeHelpPicture(name.toStdString());
    if (made.pixels.empty()) return {};
    picturePixels_ += made.width * made.height;
    QImage image(reinterpret_cast<const uchar*>(made.pixels.data()), made.width * made.density,
                 made.height * made.density, QImage::Format_ARGB32);
    image.setDevicePixelRatio(made.density);
    return image.scaled((QSizeF(image.size()) * typeFactor()).toSize(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
        .copy();  // Of its own, also where nothing was scaled.
}

/// Nothing but the text's own pictures, which are added as it is formatted: the text never reaches for a file.
QVariant HelpPage::loadResource(int /*type*/, const QUrl& /*url*/) { return {}; }

/// Qt lets what dead keys or an input method compose into a text that takes no other keys.
QVariant HelpPage::inputMethodQuery(Qt::InputMethodQuery query) const {
    return query == Qt::ImEnabled ? QVariant(false) : QTextBrowser::inputMethodQuery(query);
}

void HelpPage::inputMethodEvent(QInputMethodEvent* event) { event->ignore(); }

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

constexpr QSize firstSize(1000, 720);  // pixels, where the screen has room
constexpr double screenPart = 0.9;     // that it takes at most; the rest is for its frame
constexpr int hintOpacity = 128;       // of 255
constexpr int wantedWidth = 220;       // pixels
constexpr int chapterLevel = 2;        // of a heading
constexpr int mostMarks = 300;         // of matches: those about the one that is shown
constexpr QRgb matchBack = 0xFFFFE680, shownMatchBack = 0xFFFFA030, matchFore = 0xFF000000;

QTextEdit::ExtraSelection marked(const QTextCursor& match, QRgb back) {
    QTextEdit::ExtraSelection mark;
    mark.cursor = match;
    mark.format.setBackground(QColor(back));
    mark.format.setForeground(QColor(matchFore));
    return mark;
}

/// The help viewer: the text, its contents beside it, a search in it and larger or smaller type.
class HelpWindow : public QMainWindow {
  public:
    explicit HelpWindow(const std::string& markdown);

    void bringToFront();  ///< Shows the window, also from an icon, and gives it the keys.

  protected:
    void changeEvent(QEvent* event) override;

  private:
    QAction* addCommand(const QString& text, const QString& toolTip, const QList<QKeySequence>& keys,
                        std::function<void()> action);
    void readOn();
    void fillToolBar();
    void dressHint();
    void fillContents();
    void findAll();
    QTextCursor matchAt(int index) const;
    void showMatch(int step);

    HelpPage* page_ = new HelpPage;
    std::vector<qt::Piece> pieces_;  // of the text
    size_t read_ = 0;                // how many of them are in the page
    QTreeWidget* contents_ = new QTreeWidget;
    QLineEdit* wanted_ = new QLineEdit;
    QLabel* found_ = new QLabel;
    std::vector<int> matches_;  // where in the text each begins, in its order
    int match_ = 0;             // the one that is shown, from 0
};

HelpWindow::HelpWindow(const std::string& markdown) : pieces_(qt::piecesOf(markdown)) {
    setWindowTitle(QApplication::applicationName() + " Help");
    resize(firstSize.boundedTo(screen()->availableSize() * screenPart));
    auto* const halves = new QSplitter;
    halves->addWidget(contents_);
    halves->addWidget(page_);
    halves->setStretchFactor(1, 1);
    setCentralWidget(halves);
    contents_->setHeaderHidden(true);
    contents_->setAccessibleName("Contents");
    page_->setAccessibleName("Help text");
    fillToolBar();
    readOn();
    const auto jump = [this](const QTreeWidgetItem* item) {
        if (item) page_->jumpTo(item->data(0, Qt::UserRole).toInt());
    };
    connect(contents_, &QTreeWidget::currentItemChanged, this, jump);
    connect(contents_, &QTreeWidget::itemClicked, this, jump);  // Also once more on the one that it stands on.
    connect(wanted_, &QLineEdit::textChanged, this, [this] { findAll(); });
}

/// Takes the text into the page, bit by bit if it is long, while events are served.
void HelpWindow::readOn() {
    QElapsedTimer time;
    time.start();
    while (read_ < pieces_.size() && (read_ == 0 || time.elapsed() < bitOfTime)) page_->add(pieces_[read_++]);
    if (read_ < pieces_.size()) return QTimer::singleShot(0, this, [this] { readOn(); });
    fillContents();
    if (!wanted_->text().isEmpty()) findAll();
}

QAction* HelpWindow::addCommand(const QString& text, const QString& toolTip, const QList<QKeySequence>& keys,
                                std::function<void()> action) {
    auto* const command = new QAction(text, this);
    command->setToolTip(toolTip + QStringLiteral(" (") + keys.front().toString(QKeySequence::NativeText) + ')');
    command->setShortcuts(keys);
    connect(command, &QAction::triggered, this, std::move(action));
    addAction(command);
    return command;
}

void HelpWindow::fillToolBar() {
    QToolBar* const bar = addToolBar("Search and type");
    bar->setMovable(false);
    bar->setContextMenuPolicy(Qt::PreventContextMenu);  // It would offer to hide the bar.
    wanted_->setPlaceholderText("Search (Ctrl+F)");
    wanted_->setAccessibleName("Search");
    dressHint();
    wanted_->setClearButtonEnabled(true);
    wanted_->setMaximumWidth(wantedWidth);
    found_->setMargin(4);
    bar->addWidget(wanted_);
    bar->addAction(addCommand("Previous", "The place before", {Qt::SHIFT | Qt::Key_F3, Qt::SHIFT | Qt::Key_Return},
                              [this] { showMatch(-1); }));
    bar->addAction(addCommand("Next", "The next place", {Qt::Key_F3}, [this] { showMatch(1); }));
    bar->addWidget(found_);
    auto* const gap = new QWidget;
    gap->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    bar->addWidget(gap);
    bar->addAction(addCommand("Smaller", "Smaller type", {Qt::CTRL | Qt::Key_Minus},
                              [this] { page_->setTypeStep(page_->typeStep() - 1); }));
    bar->addAction(addCommand("Normal", "Normal type", {Qt::CTRL | Qt::Key_0}, [this] { page_->setTypeStep(0); }));
    bar->addAction(addCommand("Larger", "Larger type", {Qt::CTRL | Qt::Key_Plus, Qt::CTRL | Qt::Key_Equal},
                              [this] { page_->setTypeStep(page_->typeStep() + 1); }));
    addCommand("Search", "Search", {QKeySequence::Find}, [this] {
        wanted_->setFocus();
        wanted_->selectAll();
    });
    addCommand("Close", "Close", {Qt::Key_Escape, Qt::CTRL | Qt::Key_W}, [this] { close(); });
    connect(wanted_, &QLineEdit::returnPressed, this, [this] { showMatch(1); });
}

/// A desktop with a dark palette may leave the hint in the search black.
void HelpWindow::dressHint() {
    QColor hint = palette().color(QPalette::Text);
    hint.setAlpha(hintOpacity);
    QPalette look;
    look.setColor(QPalette::PlaceholderText, hint);
    wanted_->setPalette(look);
}

void HelpWindow::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) dressHint();
}

/// The chapters stand beside the title, and all other headings under the last one of a lower level.
void HelpWindow::fillContents() {
    std::vector<std::pair<int, QTreeWidgetItem*>> above;
    for (QTextBlock block = page_->document()->begin(); block.isValid(); block = block.next()) {
        if (block.blockFormat().headingLevel() == 0) continue;
        const int level = std::max(block.blockFormat().headingLevel(), chapterLevel);
        while (!above.empty() && above.back().first >= level) above.pop_back();
        QTreeWidgetItem* const parent = above.empty() ? contents_->invisibleRootItem() : above.back().second;
        auto* const item = new QTreeWidgetItem(parent, {block.text()});
        item->setData(0, Qt::UserRole, block.position());
        above.emplace_back(level, item);
    }
    contents_->expandAll();
}

/// Marks all places that hold what is wanted, and shows the first one from where the last one was shown.
void HelpWindow::findAll() {
    matches_.clear();
    const QString wanted = wanted_->text();
    const QTextDocument& text = *page_->document();
    for (QTextCursor match = text.find(wanted); !match.isNull(); match = text.find(wanted, match))
        matches_.push_back(match.selectionStart());
    const int from = page_->textCursor().selectionStart();
    const auto next = std::ranges::lower_bound(matches_, from);
    match_ = next == matches_.end() ? 0 : static_cast<int>(next - matches_.begin());
    showMatch(0);
}

QTextCursor HelpWindow::matchAt(int index) const {
    QTextCursor match(page_->document());
    match.setPosition(matches_[static_cast<size_t>(index)]);
    match.setPosition(match.position() + static_cast<int>(wanted_->text().size()), QTextCursor::KeepAnchor);
    return match;
}

/// Shows the place so many after the present one; the first follows the last.
void HelpWindow::showMatch(int step) {
    const int count = static_cast<int>(matches_.size());
    QList<QTextEdit::ExtraSelection> marks;
    if (count > 0) {
        match_ = (match_ + step + count) % count;
        const int from = std::clamp(match_ - mostMarks / 2, 0, std::max(count - mostMarks, 0));
        for (int i = from; i < std::min(count, from + mostMarks); ++i)
            marks.append(marked(matchAt(i), i == match_ ? shownMatchBack : matchBack));
        QTextCursor place = matchAt(match_);
        place.setPosition(place.selectionStart());
        page_->showPlace(place);
    }
    page_->setExtraSelections(marks);
    found_->setText(wanted_->text().isEmpty() ? QString()
                    : count == 0              ? QString("Not found")
                                              : QString("%1 of %2").arg(match_ + 1).arg(count));
}

void HelpWindow::bringToFront() {
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
    page_->setFocus();
}

/// The text of the help file, or one that tells that there is none.
std::string helpText(const std::string& file) {
    const std::string path = programFile(file);
    const std::string text = contentsWithin(path, largestText);
    if (text.find_first_not_of(" \t\r\n") != std::string::npos) return text;
    return "## There is no help text\n\nIt should be in this file, which is missing or can't be read:\n\n`" + path +
           "`\n";
}

}  // namespace

void WinHelpA(Form& /*window*/, const std::string& file, uint32_t command, uint32_t /*data*/) {
    static QPointer<HelpWindow> viewer;  // made when the help is first asked for; closed, it keeps what was read
    if (command == HELP_QUIT) delete viewer;
    if (command != HELP_INDEX) return;
    if (!viewer) viewer = new HelpWindow(helpText(file));
    viewer->bringToFront();
}

}  // namespace platform
