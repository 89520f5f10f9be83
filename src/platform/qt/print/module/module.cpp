#include <unistd.h>

#include <QBuffer>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFontMetricsF>
#include <QLibrary>
#include <QLocale>
#include <QPageLayout>
#include <QPainter>
#include <QPdfWriter>
#include <QPrinter>
#include <QPrinterInfo>
#include <QStandardPaths>
#include <QTemporaryFile>
#include <QTextBoundaryFinder>
#include <algorithm>
#include <cerrno>
#include <exception>
#include <filesystem>
#include <system_error>

#include "platform/base/runtime.h"
#include "platform/qt/print/printing.h"
#include "platform/shared/printColumns.h"

namespace platform::qt {
namespace {

constexpr char32_t replacement = U'?';
constexpr int dotsPerInch = 1440;  // so many that a point is a whole number of them, which font sizes are rounded to
constexpr double margin = 18;      // points, a quarter of an inch: what any printer can print within
constexpr int printerErrorNumber = 482;
constexpr int cupsVersion = 2;

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

/// The sheet as a PDF on pages of that layout.
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

/// A function of the library that Qt's own printing goes by; fails with number 482 if it isn't there.
template <class Function>
Function* cupsFunction(const char* name) {
    const auto found = QLibrary::resolve("cups", cupsVersion, name);
    if (found == nullptr) failure::printerError();
    return reinterpret_cast<Function*>(found);
}

/// Has the print service print a PDF on that printer; fails with number 482 and the service's own words. Qt could send
/// it too, but wouldn't tell whether the service took it.
void sendToPrinter(const QString& printer, const QString& title, const QByteArray& pdf) {
    using AskPassword = const char*(const char* prompt);
    const auto setPasswordAsker = cupsFunction<void(AskPassword*)>("cupsSetPasswordCB");
    using PrintFile = int(const char* printer, const char* file, const char* title, int optionCount, void* options);
    const auto printFile = cupsFunction<PrintFile>("cupsPrintFile");
    const auto lastError = cupsFunction<const char*()>("cupsLastErrorString");

    QTemporaryFile file;
    if (!file.open() || file.write(pdf) != pdf.size() || !file.flush())
        failure::ofFile(errno, file.fileTemplate().toStdString());
    setPasswordAsker([](const char*) -> const char* { return nullptr; });  // Else it asks at the terminal and waits.
    if (printFile(printer.toLocal8Bit(), QFile::encodeName(file.fileName()), title.toUtf8(), 0, nullptr) == 0)
        failure::printerError(lastError());
}

/// Writes a PDF to the user's documents folder, under a name of its own that begins with the one given, and returns its
/// path. Fails with the number of a file's failure, such as 61, 70 or 75; no file is left then.
QString saveInDocuments(const QString& name, const QByteArray& pdf) {
    const QDir folder(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
    std::error_code error;
    std::filesystem::create_directories(QFile::encodeName(folder.path()).constData(), error);
    if (error) failure::ofFile(error.value(), folder.filePath(name + ".pdf").toStdString());
    for (int number = 1;; ++number) {
        const QString suffix = number == 1 ? QString() : QString(" %1").arg(number);
        QFile file(folder.filePath(name + suffix + ".pdf"));
        const bool isMade = file.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered);
        if (!isMade && errno == EEXIST) continue;
        if (isMade && file.write(pdf) == pdf.size() && TEMP_FAILURE_RETRY(fsync(file.handle())) == 0)
            return file.fileName();
        const int reason = errno;
        if (isMade) file.remove();
        failure::ofFile(reason, file.fileName().toStdString());
    }
}

/// A page of the paper that is usual here.
QPageLayout usualPage() {
    const bool imperial = QLocale::system().measurementSystem() == QLocale::ImperialUSSystem;
    return {QPageSize(imperial ? QPageSize::Letter : QPageSize::A4), QPageLayout::Portrait,
            QMarginsF(margin, margin, margin, margin)};
}

/// The printer's own paper and printable area, if it tells them.
QPageLayout pageOf(const QString& printer) {
    const QPrinterInfo info = QPrinterInfo::printerInfo(printer);
    return info.defaultPageSize().isValid() ? QPrinter(info, QPrinter::HighResolution).pageLayout() : usualPage();
}

// A printer's name is asked for: a QPrinter calls itself valid even where none is set up.
std::string deliver(const PrintJob& job) {
    const QString printer = QPrinterInfo::defaultPrinterName();
    const QString name = QString::fromStdString(job.name);
    if (printer.isEmpty()) return saveInDocuments(name, pdfOf(job, usualPage())).toStdString();
    sendToPrinter(printer, name, pdfOf(job, pageOf(printer)));
    return {};
}

}  // namespace
}  // namespace platform::qt

extern "C" __attribute__((visibility("default"))) platform::qt::PrintOutcome velmoraPrint(
    const platform::qt::PrintJob& job) {
    try {
        return {platform::qt::deliver(job), 0, {}};
    } catch (const RuntimeError& error) {
        return {{}, error.number(), error.what()};
    } catch (const std::exception& error) {
        return {{}, platform::qt::printerErrorNumber, error.what()};
    }
}
