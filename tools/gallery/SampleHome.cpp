#include "gallery/SampleHome.h"

#include <QDateTime>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>
#include <vector>

#include "archive/Archive.h"
#include "gallery/SamplePhoto.h"

namespace pellumar::gallery {
namespace {

constexpr int kPhotos = 23;
// So small that they are painted in no time.
constexpr QSize kPhotoSize(240, 240);
constexpr QSize kLargePhotoSize(1600, 1200);

const QString kHoliday = QStringLiteral("Holiday in Zürich");

struct Sample {
    const char* name;
    qint64 bytes;
    int hoursAgo;
};

constexpr Sample kSamples[] = {
    {"Downloads/Boarding pass.pdf", 148'210, 5},
    {"Downloads/Invoice 2026-104.pdf", 184'032, 29},
    {"Downloads/Recipes.zip", 2'418'770, 51},
    {"Downloads/Song for Anna.mp3", 5'204'118, 120},
    {"Downloads/Scan 9.pdf", 713'400, 160},
    {"Downloads/Scan 10.pdf", 698'230, 160},
    {"Documents/Budget 2026.ods", 48'132, 3},
    {"Documents/Letter to the landlord.odt", 21'340, 77},
    {"Documents/Slides.odp", 1'904'220, 400},
    {"Documents/Work/Plan.md", 3'912, 30},
    {"Holiday in Zürich/Letter home.odt", 23'180, 300},
    {"Holiday in Zürich/Budget.ods", 18'220, 310},
    {"Holiday in Zürich/Tickets.pdf", 261'005, 340},
    {"Holiday in Zürich/Packing list.txt", 912, 350},
    {"Holiday in Zürich/Maps/Old town.pdf", 801'000, 350},
};

void dateBack(const QString& path, int hours) {
    QFile file(path);
    if (file.open(QIODevice::ReadWrite)) {
        file.setFileTime(QDateTime::currentDateTime().addSecs(qint64(-3600) * hours),
                         QFileDevice::FileModificationTime);
    }
}

}  // namespace

SampleHome::SampleHome() : home_(folder_.filePath(QStringLiteral("anna"))) {
    qputenv("HOME", QFile::encodeName(home_.path()));
    for (const char* const kind : {"DATA", "CONFIG", "CACHE", "STATE"}) {
        qputenv(QByteArray("XDG_") + kind + "_HOME", QFile::encodeName(folder_.filePath(kind)));
    }
    // Nobody is using the application: nothing is measured for anybody, nor asked.
    for (const char* const address : {"PELLUMAR_ANALYTICS_URL", "PELLUMAR_REMOTE_CONFIG_URL"}) {
        qputenv(address, "");
    }
    addSoftwareCentre();
    fillFolders();
    paintPhotos();
    pack();
}

QUrl SampleHome::file(const QString& name) const {
    return QUrl::fromLocalFile(home_.filePath(name));
}

QUrl SampleHome::archive() const {
    return file(QStringLiteral("Downloads/%1.zip").arg(kHoliday));
}

void SampleHome::addSoftwareCentre() const {
    const QDir applications(folder_.filePath(QStringLiteral("DATA/applications")));
    applications.mkpath(QStringLiteral("."));
    QFile list(applications.filePath(QStringLiteral("mimeinfo.cache")));
    if (list.open(QIODevice::WriteOnly)) {
        list.write("[MIME Cache]\nx-scheme-handler/appstream=centre.desktop;\n");
    }
}

// A file that does not shrink in an archive; what is in it nobody sees.
void SampleHome::write(const QString& name, qint64 bytes, int hoursAgo) const {
    const QString path = home_.filePath(name);
    home_.mkpath(QFileInfo(path).path());
    QRandomGenerator random(static_cast<quint32>(bytes));
    std::vector<quint32> words(static_cast<std::size_t>(bytes) / sizeof(quint32) + 1);
    random.fillRange(words.data(), static_cast<qsizetype>(words.size()));
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) ||
        file.write(QByteArray::fromRawData(reinterpret_cast<const char*>(words.data()), bytes)) !=
            bytes) {
        qFatal("%s cannot be written", qUtf8Printable(path));
    }
    file.close();
    dateBack(path, hoursAgo);
}

void SampleHome::fillFolders() const {
    for (const Sample& sample : kSamples) {
        write(QString::fromUtf8(sample.name), sample.bytes, sample.hoursAgo);
    }
}

void SampleHome::paintPhotos() const {
    for (int number = 0; number < kPhotos; ++number) {
        const QString folder = number % 2 == 0 ? "Camera" : "Holiday";
        home_.mkpath("Pictures/" + folder);
        const QString path =
            home_.filePath(QStringLiteral("Pictures/%1/%2.png").arg(folder).arg(number));
        paintPhoto(number, kPhotoSize).save(path);
        dateBack(path, number);
    }
    for (const int number : {2, 10, 11}) {
        const QString path =
            home_.filePath(QStringLiteral("%1/Lake %2.jpg").arg(kHoliday).arg(number));
        paintPhoto(number, kLargePhotoSize).save(path, nullptr, 95);
    }
    write(QStringLiteral("Videos/Boat trip.mp4"), 4'120'000, 12);
}

void SampleHome::pack() const {
    using archive::Archive;
    auto zip = Archive::open(archive().toLocalFile().toStdString(), archive::AccessMode::kCreate);
    bool isPacked = zip.has_value();
    const QDir holiday(home_.filePath(kHoliday));
    QDirIterator each(
        holiday.path(), QDir::AllEntries | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
    while (each.hasNext()) {
        isPacked = isPacked && zip->addEntry(holiday.relativeFilePath(each.next()).toStdString(),
                                             holiday.path().toStdString(),
                                             archive::CompressionMethod::kDeflate);
    }
    if (!isPacked || !zip->close()) {
        qFatal("The sample archive cannot be made");
    }
    dateBack(archive().toLocalFile(), 8);
}

}  // namespace pellumar::gallery
