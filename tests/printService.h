#pragma once

#include <QProcess>
#include <QString>
#include <string>

/// A print service of the test's own, with one printer that writes what it is given to a file.
class PrintService {
  public:
    enum class Queue { Accepts, Refuses };

    /// Starts it in a folder that may be removed afterwards, and makes it the one that this process prints by. Fails
    /// the test if it isn't up after some seconds.
    PrintService(const QString& folder, Queue queue);
    ~PrintService();  ///< Ends it.

    QString waitForJob() const;  ///< The path of the first job's document; fails the test if none comes.

  private:
    void writeSettings(Queue queue) const;

    QString folder_;
    QProcess process_;
};

/// What a program writes to its output; fails the test if it doesn't run or doesn't end well.
std::string outputOf(const QString& program, const QStringList& arguments);

/// The text of a PDF in its columns, from the first line that holds any; a form feed stands before each further page.
std::string sheetIn(const QString& pdf);

/// Passes these tests of the same program in a process of its own that has another setting in its environment.
void passWith(const QString& setting, const QString& tests);

/// Writes the settings of a desktop without fonts into the folder; their path, for FONTCONFIG_FILE.
QString withoutFonts(const QString& folder);
