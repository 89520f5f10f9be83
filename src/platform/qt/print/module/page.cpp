#include "platform/qt/print/module/page.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QFontMetricsF>
#include <QPainter>
#include <QPdfWriter>
#include <QTextBoundaryFinder>
#include <algorithm>

#include "platform/base/runtime.h"
#include "platform/shared/printColumns.h"

namespace platform::qt {
namespace {

constexpr char32_t replacement = U'?';
constexpr int dotsPerInch = 1440;  // so many that a point is a whole number of them, which font sizes are rounded to

/// Fills the pages from the top.
class Pages {
  public:
    explicit Pages(QPdfWriter& writer) : writer_(writer), painter_(&writer) {
        if (!painter_.isActive()) failure::printerError();
    }

    void print(const PrintedLine& line);

  private:
    void use(const Font& font);
    char32_t characterFor(const QString& cluster) const;
    std::u32string charactersOf(const std::string& text) const;
    void printCharacters(const std::u32string& characters);

    QPdfWriter& writer_;
    QPainter painter_;
    QFontMetricsF metrics_{QFont()};
    qreal columnWidth_ = 1;
    size_t columns_ = 0;  // that the paper has
    qreal top_ = 0;       // of the next line, from that of the printable area
};

void Pages::use(const Font& font) {
    QFont made(QString::fromStdString(font.name));
    made.setPointSizeF(font.points);
    made.setBold(font.bold);
    made.setStyleHint(QFont::TypeWriter);  // What stands in for a missing font has one width too.
    made.setStyleStrategy(QFont::NoFontMerging);
    made.setHintingPreference(QFont::PreferNoHinting);
    painter_.setFont(made);
    metrics_ = QFontMetricsF(made, &writer_);
    columnWidth_ = std::max(1.0, metrics_.horizontalAdvance(QLatin1Char('0')));
    columns_ = static_cast<size_t>(writer_.width() / columnWidth_);
}

/// What stands for a letter with all its marks: one character that the font has.
char32_t Pages::characterFor(const QString& cluster) const {
    const auto characters = cluster.toUcs4();
    const char32_t first = characters.front();
    if (QChar::category(first) == QChar::Other_Control) return U' ';
    const bool isKnown = characters.size() == 1 && metrics_.inFontUcs4(first);
    return isKnown ? first : replacement;
}

std::u32string Pages::charactersOf(const std::string& text) const {
    const QString composed = QString::fromStdString(text).normalized(QString::NormalizationForm_C);
    std::u32string characters;
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, composed);
    for (qsizetype from = 0, to = 0; (to = finder.toNextBoundary()) > from; from = to)
        characters += characterFor(composed.mid(from, to - from));
    return characters;
}

// Each character is put in its own place, so that no rounding of widths adds up over a line.
void Pages::printCharacters(const std::u32string& characters) {
    const qreal height = metrics_.lineSpacing();
    if (top_ > 0 && top_ + height > writer_.height()) {
        writer_.newPage();
        top_ = 0;
    }
    for (size_t i = 0; i < std::min(characters.size(), columns_); ++i) {
        if (characters[i] == U' ') continue;
        const QPointF place(static_cast<qreal>(i) * columnWidth_, top_ + metrics_.ascent());
        painter_.drawText(place, QString::fromUcs4(&characters[i], 1));
    }
    top_ += height;
}

void Pages::print(const PrintedLine& line) {
    use(line.font);
    const auto characters = [this](const std::string& text) { return charactersOf(text); };
    for (const std::u32string& each : linesInColumns(line.texts, columns_, characters)) printCharacters(each);
}

}  // namespace

QByteArray pdfOf(const PrintJob& job, const QPageLayout& layout) {
    QBuffer pdf;
    pdf.open(QIODevice::WriteOnly);
    QPdfWriter writer(&pdf);
    writer.setResolution(dotsPerInch);
    writer.setPageLayout(layout);
    writer.setTitle(QString::fromStdString(job.name));
    writer.setCreator(QCoreApplication::applicationName());
    {
        Pages pages(writer);
        for (const PrintedLine& line : job.lines) pages.print(line);
    }  // The painter's end completes the PDF.
    return pdf.data();
}

}  // namespace platform::qt
