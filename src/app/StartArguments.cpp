#include "app/StartArguments.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <cstdlib>
#include <filesystem>

#include "app/Measurement.h"
#include "platform/FileUrl.h"

namespace pellumar {
namespace {

// By this name, desktops say it to all applications.
const QString kByTheBus = QStringLiteral("gapplication-service");
const QString kExportUsageData = QStringLiteral("export-usage-data");

// The arguments as text. A path that is none becomes the URL of its file, which keeps every byte.
QStringList textOf(int count, char** arguments) {
    QStringList texts;
    for (int i = 0; i < count; ++i) {
        const QByteArrayView bytes(arguments[i]);
        texts.append(bytes.isValidUtf8()
                         ? QString::fromUtf8(bytes)
                         : QString::fromLatin1(
                               fileUrl(std::filesystem::absolute(arguments[i])).toEncoded()));
    }
    return texts;
}

void describe(QCommandLineParser& parser) {
    parser.setApplicationDescription(QStringLiteral("Opens and makes ZIP archives."));
    // As Qt's own are written, which the letters of one word are not to be taken for.
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    parser.addHelpOption();
    parser.addVersionOption();
    QCommandLineOption byTheBus(kByTheBus);
    byTheBus.setFlags(QCommandLineOption::HiddenFromHelp);
    parser.addOption(byTheBus);
    parser.addOption(
        {kExportUsageData,
         QStringLiteral("Write what is kept about the use of this program to FILE; - shows it."),
         QStringLiteral("FILE")});
    parser.addPositionalArgument(QStringLiteral("archive"),
                                 QStringLiteral("An archive to open"),
                                 QStringLiteral("[ARCHIVE...]"));
}

}  // namespace

void StartArguments::answerQuestions(int count, char** arguments) {
    const QStringList texts = textOf(count, arguments);
    QCommandLineParser parser;
    describe(parser);
    // Options of Qt's are among them, which are unknown here.
    static_cast<void>(parser.parse(texts));
    for (const char* const question : {"help", "help-all", "version"}) {
        if (parser.isSet(question)) {
            // Only now: one that goes takes with it what was set up for the next.
            const QCoreApplication withoutWindow(count, arguments);
            parser.process({texts.first(), QStringLiteral("--") + question});
        }
    }
    if (parser.isSet(kExportUsageData)) {
        const QCoreApplication withoutWindow(count, arguments);
        std::exit(exportUsageData(parser.value(kExportUsageData)));
    }
}

StartArguments StartArguments::read(int count, char** arguments) {
    QCommandLineParser parser;
    describe(parser);
    parser.process(textOf(count, arguments));
    StartArguments start;
    start.isByTheBus = parser.isSet(kByTheBus);
    for (const QString& argument : parser.positionalArguments()) {
        const QUrl url(argument);
        start.archives.append(
            url.isLocalFile() ? url : fileUrl(QDir().absoluteFilePath(argument).toStdString()));
    }
    return start;
}

}  // namespace pellumar
