#pragma once

#include <QElapsedTimer>
#include <QString>
#include <QStringList>
#include <vector>

#include "tools/album/hands.h"
#include "tools/album/stage.h"

namespace album {

/// Takes the pictures while the player plays, and ends the program: with exit code 0 when all are taken, else, after a
/// few matches or minutes, with 1 and the names of the others.
class Album {
  public:
    /// Begins with the next event. The main window, the folder for the pictures, which must be there, and the names of
    /// those wanted; none for all. A picture is of the window alone, or of the whole screen where that can be seen.
    Album(QWidget* window, QString folder, const QStringList& names, bool ofScreen);

  private:
    void lookSoon();
    void look();
    void takeWhatHasCome();
    void take(size_t picture);
    bool leadOn();
    void leave();
    bool isDone() const;
    [[noreturn]] void end() const;

    Hands hands_;
    Stage stage_;
    QString folder_;
    bool ofScreen_;
    std::vector<bool> wanted_;  ///< By picture; no longer once it is taken.
    size_t led_ = 0;            ///< The picture whose view is brought; beyond the last one when play goes on.
    bool isLeading_ = false;    ///< Whoever was asked for that view hasn't returned yet.
    QElapsedTimer sinceLead_;   ///< Since that view was asked for; invalid before.
    QElapsedTimer sinceStart_;
};

}  // namespace album
