#include "platform/documents/Thumbnailers.h"

#include <sys/prctl.h>
#include <csignal>

#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <algorithm>
#include <system_error>

#include "platform/FileUrl.h"

namespace pellumar {
namespace {

namespace fs = std::filesystem;

constexpr int kPatienceMs = 10'000;

// The value of a line "KEY=value" of an entry; empty if there is none.
QString valueOf(const QStringList& lines, const QString& key) {
    for (const QString& line : lines) {
        if (line.section('=', 0, 0).trimmed() == key) {
            return line.section('=', 1).trimmed();
        }
    }
    return {};
}

}  // namespace

Thumbnailers::Thumbnailers(const std::vector<fs::path>& folders) {
    for (const fs::path& folder : folders) {
        std::vector<fs::path> entries;
        std::error_code failure;
        for (fs::directory_iterator each(folder, failure);
             !failure && each != fs::directory_iterator();
             each.increment(failure)) {
            if (each->path().extension() == ".thumbnailer") {
                entries.push_back(each->path());
            }
        }
        // The same one wins in every run.
        std::sort(entries.begin(), entries.end());
        for (const fs::path& entry : entries) {
            read(entry);
        }
    }
}

void Thumbnailers::read(const fs::path& entry) {
    constexpr qint64 kLargestEntry = 64 << 10;
    QFile file(QString::fromStdString(entry.native()));
    if (!file.open(QIODevice::ReadOnly)) {
        return;
    }
    const QStringList lines = QString::fromUtf8(file.read(kLargestEntry)).split('\n');
    const QStringList words = QProcess::splitCommand(valueOf(lines, QStringLiteral("Exec")));
    const QString condition = valueOf(lines, QStringLiteral("TryExec"));
    const bool isInstalled =
        !words.isEmpty() &&
        !QStandardPaths::findExecutable(condition.isEmpty() ? words.first() : condition).isEmpty();
    if (!isInstalled) {
        return;
    }
    const QStringList types =
        valueOf(lines, QStringLiteral("MimeType")).split(';', Qt::SkipEmptyParts);
    for (const QString& type : types) {
        if (!commands_.contains(type)) {
            commands_.insert(type, words);
        }
    }
}

std::vector<fs::path> Thumbnailers::standardFolders() {
    std::vector<fs::path> folders;
    for (const QString& folder :
         QStandardPaths::standardLocations(QStandardPaths::GenericDataLocation)) {
        folders.push_back(fs::path(folder.toStdString()) / "thumbnailers");
    }
    return folders;
}

QImage Thumbnailers::picture(const fs::path& file, const QString& mimeType, int side) const {
    const QStringList words = commands_.value(mimeType);
    const QTemporaryDir folder;
    if (words.isEmpty() || !folder.isValid()) {
        return {};
    }
    const QString made = folder.filePath(QStringLiteral("picture.png"));
    const QString uri = QString::fromLatin1(fileUrl(file).toEncoded());
    QStringList arguments;
    for (QString word : words.mid(1)) {
        // A path with a percent sign in it must not be looked at again.
        if (word == QLatin1String("%i")) {
            word = QString::fromStdString(file.native());
        } else if (word == QLatin1String("%u")) {
            word = uri;
        } else if (word == QLatin1String("%o")) {
            word = made;
        } else {
            word.replace(QLatin1String("%s"), QString::number(side));
            word.replace(QLatin1String("%%"), QLatin1String("%"));
        }
        arguments.append(word);
    }
    QProcess program;
    program.setProcessChannelMode(QProcess::MergedChannels);
    // One that hangs must not outlive the application, which does not wait for it when it ends.
    program.setChildProcessModifier([] { ::prctl(PR_SET_PDEATHSIG, SIGKILL); });
    program.start(words.first(), arguments, QIODevice::ReadOnly);
    if (!program.waitForFinished(kPatienceMs) || program.exitCode() != 0) {
        return {};
    }
    return QImage(made);
}

}  // namespace pellumar
