#pragma once

#include <QMainWindow>
#include <QTextCursor>
#include <functional>
#include <vector>

#include "platform/help.h"

class QLabel;
class QLineEdit;
class QTreeWidget;

namespace platform::qt {

class HelpPage;

/// The help viewer: the text, its contents beside it, a search in it and larger or smaller type.
class HelpWindow : public QMainWindow {
  public:
    explicit HelpWindow(MakeHelpPicture makePicture);

    void setText(const QString& markdown);  ///< Shows it from its beginning.
    void bringToFront();                    ///< Shows the window, also from an icon, and gives it the keys.
    void goWith(QObject* owner);            ///< Closes when that widget goes off the screen.

  protected:
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QAction* addCommand(const QString& text, const QString& toolTip, const QList<QKeySequence>& keys,
                        std::function<void()> action);
    void fillToolBar();
    void dressHint();
    void fillContents();
    void findAll();
    void showMatch(int step);

    HelpPage* page_;
    QTreeWidget* contents_;
    QLineEdit* wanted_;
    QLabel* found_;
    std::vector<QTextCursor> matches_;  // in the order of the text
    int match_ = 0;                     // the one that is shown, from 0
};

}  // namespace platform::qt
