#include "tools/album/album.h"

#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <utility>

#include "frmMain.h"
#include "platform/base/process.h"
#include "tools/album/pictures.h"

namespace album {
namespace {

constexpr int lookEvery = 1;           // milliseconds; with none the desktop's own timers would wait for ever
constexpr int untilFramed = 1000;      // milliseconds that a desktop may take to put a frame round the window
constexpr int patience = 10'000;       // milliseconds until a view that has been asked for is given up
constexpr int wholeEvening = 300'000;  // milliseconds until all is given up
constexpr int mostMatches = 2;

}  // namespace

Album::Album(QWidget* window, QString folder, const QStringList& names, bool ofScreen)
    : hands_(window), stage_(hands_), folder_(std::move(folder)), ofScreen_(ofScreen) {
    for (const PictureRow& row : pictures()) wanted_.push_back(names.isEmpty() || names.contains(row.name));
    sinceStart_.start();
    lookSoon();
}

void Album::lookSoon() {
    QTimer::singleShot(lookEvery, [this] { look(); });
}

void Album::look() {
    lookSoon();  // Even if this look opens a dialog and stays in it.
    if (!hands_.seesWindow() || (ofScreen_ && !sinceStart_.hasExpired(untilFramed))) return;
    takeWhatHasCome();
    if (isDone()) end();
    if (!leadOn()) stage_.act();
}

void Album::takeWhatHasCome() {
    const auto game = gfrmMain.hold();
    for (size_t i = 0; i < wanted_.size(); ++i) {
        const PictureRow& row = pictures()[i];
        const bool isItsTime = row.lead == nullptr ? led_ == wanted_.size() : led_ == i && sinceLead_.isValid();
        if (wanted_[i] && isItsTime && row.hasCome(*game)) take(i);
    }
}

void Album::take(size_t picture) {
    const QString path = folder_ + '/' + pictures()[picture].name + ".png";
    const QImage screen = ofScreen_ ? hands_.lookAtScreen() : QImage();
    if (!(screen.isNull() ? hands_.look() : screen).save(path)) {
        std::fprintf(stderr, "velmora_album: can't write %s\n", qPrintable(path));
        std::_Exit(1);
    }
    std::puts(qPrintable(path));
    wanted_[picture] = false;
}

/// Brings the views that have a way of their own, one after the other; false when there are no more.
bool Album::leadOn() {
    if (led_ == wanted_.size()) return false;
    const PictureRow& row = pictures()[led_];
    const bool isDue = row.lead != nullptr && wanted_[led_];
    if (isDue && !sinceLead_.isValid()) {
        sinceLead_.start();
        isLeading_ = true;
        row.lead(hands_);
        isLeading_ = false;
    } else if (!isDue || sinceLead_.hasExpired(patience)) {
        leave();
    }
    return true;
}

/// Closes the view that was brought, and turns to the next one when that is done.
void Album::leave() {
    if (!hands_.seesTableOnly()) return hands_.leave();
    if (isLeading_) return;  // The view is closed, and who asked for it is about to learn that.
    sinceLead_.invalidate();
    ++led_;
}

bool Album::isDone() const {
    const bool allTaken = std::find(wanted_.begin(), wanted_.end(), true) == wanted_.end();
    const bool allPlayed = stage_.matches() == mostMatches && !stage_.isPlaying();
    return allTaken || allPlayed || sinceStart_.hasExpired(wholeEvening);
}

void Album::end() const {
    int missing = 0;
    for (size_t i = 0; i < wanted_.size(); ++i) {
        if (!wanted_[i]) continue;
        std::printf("Not taken, since it didn't come: %s\n", pictures()[i].name);
        ++missing;
    }
    std::_Exit(platform::endOutput("velmora_album", missing == 0 ? 0 : 1));
}

}  // namespace album
