#pragma once

#include <QTextBrowser>
#include <QTextCursor>
#include <vector>

namespace platform::qt {

/// A heading of the help text.
struct Heading {
    QString text;
    int level;     ///< From 1, the title.
    int position;  ///< Of its first character in the text.
};

/// The help text as it is read: Markdown with links between its headings, tables, and pictures made by name. Its look
/// follows the desktop's palette, and its pictures grow with its type.
class HelpPage : public QTextBrowser {
  public:
    explicit HelpPage(const QString& markdown);  ///< Shows it from its beginning.

    const std::vector<Heading>& headings() const { return headings_; }  ///< In the order of the text.
    void jumpTo(int position);                                          ///< Brings that heading to the top.
    void showPlace(const QTextCursor& place);                           ///< In the middle, if it wasn't in sight.
    int typeStep() const { return typeStep_; }                          ///< Of the type's size, from the one at first.
    void setTypeStep(int step);                                         ///< As far as the range of sizes goes.

  protected:
    QVariant loadResource(int type, const QUrl& url) override;
    void changeEvent(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

  private:
    void listHeadings();
    void follow(const QUrl& link);
    void formatAll();
    void formatBlock(const QTextBlock& block);
    QImage pictureNamed(const QString& name) const;
    double typeFactor() const;

    std::vector<Heading> headings_;
    double normalPoints_ = 0;
    int typeStep_ = 0;
    QTextCursor kept_;  // the place that a change of type keeps
    int keptTop_ = 0;   // where its line stood, in pixels of the window
    int keptAt_ = -1;   // how far the text was scrolled after the last change
};

}  // namespace platform::qt
