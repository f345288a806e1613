#include "engine/Remarks.h"

#include <QCoreApplication>
#include <QLocale>
#include <algorithm>

#include "engine/ShownName.h"

namespace pellumar {
namespace {

using archive::LostEntry;
using archive::SalvageReport;
using archive::Warning;
using archive::WarningCode;

class RemarkWords {
    Q_DECLARE_TR_FUNCTIONS(Remarks)

  public:
    static QString text(const Warning& warning) {
        const QString name = shownName(QString::fromStdString(warning.entry));
        switch (warning.code) {
            case WarningCode::kBytesBeforeArchive:
                return tr(
                    "There is something in front of the archive that is no part of it. It "
                    "was passed over.");
            case WarningCode::kBytesAfterArchive:
                return tr(
                    "There is something behind the archive that is no part of it. It was "
                    "passed over.");
            case WarningCode::kDuplicatePath:
                return tr("%1 is in the archive more than once. The last one was taken.").arg(name);
            case WarningCode::kLegacyCharset:
                return tr("The letters of the name %1 are a guess.").arg(name);
            case WarningCode::kSpecialFile:
                return tr("%1 was no common file. It was taken out as one.").arg(name);
            case WarningCode::kSetIdBitsDropped:
                return tr("%1 asked for special rights. It did not get them.").arg(name);
            case WarningCode::kMetadataNotRestored:
                return tr("%1 did not get its time or its permissions back.").arg(name);
            case WarningCode::kUnlistedEntry:
                return tr(
                    "The archive holds something that its list of contents leaves out. It "
                    "was passed over.");
            case WarningCode::kNameMadePortable:
                return tr("The name %1 would lead elsewhere on other systems, and was changed a "
                          "little.")
                    .arg(name);
            case WarningCode::kRenamed:
                return tr("There was another %1, so it was given a number.").arg(name);
        }
        return {};
    }
    // What is said of a damaged archive before what is lost of it is named.
    static QStringList beforeLosses(const SalvageReport& salvage) {
        const QLocale locale;
        QStringList lines = {
            tr("The archive is damaged. Of %2 things that were found in it, %1 are whole.")
                .arg(locale.toString(static_cast<qulonglong>(salvage.recovered)),
                     locale.toString(static_cast<qulonglong>(salvage.recovered) + salvage.lost))};
        if (!salvage.hasDirectory) {
            lines.append(
                tr("Its list of contents is gone, so nobody can tell whether there was more."));
        }
        return lines;
    }
    static QString lost(const LostEntry& entry) {
        return entry.path.empty()
                   ? tr("Something whose name cannot be read is lost.")
                   : tr("%1 is lost.").arg(shownName(QString::fromStdString(entry.path)));
    }
    static QString more(qsizetype count) {
        return tr("And %Ln more.", nullptr, static_cast<int>(count));
    }
};

void addLosses(const SalvageReport& salvage, Remarks& remarks) {
    constexpr std::size_t kMostNamed = 100;
    remarks.areLosses = salvage.lost > 0;
    remarks.lines = RemarkWords::beforeLosses(salvage);
    remarks.count = salvage.lost > 0 ? static_cast<qsizetype>(salvage.lost) : remarks.lines.size();
    for (const LostEntry& entry : salvage.lostEntries) {
        const archive::Error error{
            .code = entry.reason, .entry = entry.path, .offset = entry.offset};
        remarks.details += '\n' + QString::fromStdString(error.describe());
    }
    const std::size_t named = std::min(kMostNamed, salvage.lostEntries.size());
    for (std::size_t i = 0; i < named; ++i) {
        remarks.lines.append(RemarkWords::lost(salvage.lostEntries[i]));
    }
    if (salvage.lost > named) {
        remarks.lines.append(RemarkWords::more(static_cast<qsizetype>(salvage.lost - named)));
    }
}

}  // namespace

Remarks Remarks::of(const JobReport& report) {
    const archive::Warnings& warnings = report.warnings();
    Remarks remarks;
    remarks.details = report.archive().toString(QUrl::FullyEncoded);
    if (report.salvage()) {
        addLosses(*report.salvage(), remarks);
        return remarks;
    }
    remarks.count = static_cast<qsizetype>(warnings.count());
    for (const Warning& warning : warnings.kept()) {
        remarks.lines.append(RemarkWords::text(warning));
        remarks.details += '\n' + QString::fromStdString(warning.describe());
    }
    if (remarks.count > remarks.lines.size()) {
        remarks.lines.append(RemarkWords::more(remarks.count - remarks.lines.size()));
    }
    return remarks;
}

}  // namespace pellumar
