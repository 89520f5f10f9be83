#include "platform/help.h"

#include <QAction>
#include <QApplication>
#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QPointer>
#include <QScreen>
#include <QSplitter>
#include <QToolBar>
#include <QTreeWidget>
#include <algorithm>
#include <fstream>
#include <iterator>

#include "platform/base/files.h"
#include "platform/desktop.h"
#include "platform/qt/controls/control.h"
#include "platform/qt/help/helpPage.h"

namespace platform {
namespace {

constexpr QSize firstSize(1000, 720);  // pixels, where the screen has room
constexpr double screenPart = 0.9;     // that it takes at most; the rest is for its frame
constexpr int hintOpacity = 128;       // of 255
constexpr int wantedWidth = 220;       // pixels
constexpr int chapterLevel = 2;        // of a heading
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
    explicit HelpWindow(const QString& markdown);

    void bringToFront();  ///< Shows the window, also from an icon, and gives it the keys.

  protected:
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;  ///< Closes when what it watches goes off the screen.

  private:
    QAction* addCommand(const QString& text, const QString& toolTip, const QList<QKeySequence>& keys,
                        std::function<void()> action);
    void fillToolBar();
    void dressHint();
    void fillContents();
    void findAll();
    void showMatch(int step);

    qt::HelpPage* page_;
    QTreeWidget* contents_ = new QTreeWidget;
    QLineEdit* wanted_ = new QLineEdit;
    QLabel* found_ = new QLabel;
    std::vector<QTextCursor> matches_;  // in the order of the text
    int match_ = 0;                     // the one that is shown, from 0
};

HelpWindow::HelpWindow(const QString& markdown) : page_(new qt::HelpPage(markdown)) {
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
    fillContents();
    const auto jump = [this](const QTreeWidgetItem* item) {
        if (item) page_->jumpTo(item->data(0, Qt::UserRole).toInt());
    };
    connect(contents_, &QTreeWidget::currentItemChanged, this, jump);
    connect(contents_, &QTreeWidget::itemClicked, this, jump);  // Also once more on the one that it stands on.
    connect(wanted_, &QLineEdit::textChanged, this, [this] { findAll(); });
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
    for (const qt::Heading& heading : page_->headings()) {
        const int level = std::max(heading.level, chapterLevel);
        while (!above.empty() && above.back().first >= level) above.pop_back();
        QTreeWidgetItem* const parent = above.empty() ? contents_->invisibleRootItem() : above.back().second;
        auto* const item = new QTreeWidgetItem(parent, {heading.text});
        item->setData(0, Qt::UserRole, heading.position);
        above.emplace_back(level, item);
    }
    contents_->expandAll();
}

/// Marks all places that hold what is wanted, and shows the first one from where the last one was shown.
void HelpWindow::findAll() {
    matches_.clear();
    const QTextDocument& text = *page_->document();
    const QString wanted = wanted_->text();
    if (!wanted.isEmpty())
        for (QTextCursor at = text.find(wanted); !at.isNull(); at = text.find(wanted, at)) matches_.push_back(at);
    const int from = page_->textCursor().selectionStart();
    const auto next =
        std::ranges::find_if(matches_, [=](const QTextCursor& match) { return match.selectionStart() >= from; });
    match_ = next == matches_.end() ? 0 : static_cast<int>(next - matches_.begin());
    showMatch(0);
}

/// Shows the place so many after the present one; the first follows the last.
void HelpWindow::showMatch(int step) {
    const int count = static_cast<int>(matches_.size());
    QList<QTextEdit::ExtraSelection> marks;
    for (const QTextCursor& match : matches_) marks.append(marked(match, matchBack));
    if (count > 0) {
        match_ = (match_ + step + count) % count;
        marks[match_] = marked(matches_[static_cast<size_t>(match_)], shownMatchBack);
        QTextCursor place = matches_[static_cast<size_t>(match_)];
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

bool HelpWindow::eventFilter(QObject* watched, QEvent* event) {
    // A spontaneous one comes from the desktop, which only turned the window into an icon.
    if (event->type() == QEvent::Hide && !event->spontaneous()) close();
    return QMainWindow::eventFilter(watched, event);
}

/// The text of the help file, or one that tells that there is none.
QString helpText(const std::string& file) {
    const std::string path = programFile(file);
    if (isOrdinaryFile(path)) {
        std::ifstream source(path, std::ios::binary);
        const QString text = QString::fromStdString({std::istreambuf_iterator<char>(source), {}});
        if (!text.trimmed().isEmpty()) return text;
    }
    return QString(
               "## There is no help text\n\nIt should be in this file, which is missing or can't be read:\n\n`%1`\n")
        .arg(QString::fromStdString(path));
}

}  // namespace

void WinHelpA(Form& window, const std::string& file, uint32_t command, uint32_t /*data*/) {
    static QPointer<HelpWindow> viewer;  // made when the help is first asked for; closed, it keeps what was read
    if (command == HELP_QUIT) delete viewer;
    if (command != HELP_INDEX) return;
    if (!viewer) viewer = new HelpWindow(helpText(file));
    qt::windowOf(window)->installEventFilter(viewer);
    viewer->bringToFront();
}

}  // namespace platform
