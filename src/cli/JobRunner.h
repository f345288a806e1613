#pragma once

#include <QList>
#include <QUrl>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "cli/Arguments.h"
#include "cli/Interruption.h"
#include "cli/Messages.h"
#include "cli/ProgressLine.h"
#include "engine/FileSystem.h"
#include "engine/ZipManager.h"

namespace pellumar {

// Runs the one job in the workspace that a command line asks for, and prints what came of it: paths
// on standard output, the reason of a failure in one line on standard error. Main thread only.
class JobRunner {
  public:
    // All of it must outlive this.
    JobRunner(const WorkspaceArguments& arguments,
              bool endWithNul,
              Messages& messages,
              const FileSystem& fileSystem,
              ZipManager& zipManager,
              Interruption& interruption,
              ProgressLine& progress);

    // Returns when the job is over; needs the QCoreApplication. The value is what the program
    // returns.
    [[nodiscard]] int run();

  private:
    using Paths = std::vector<std::filesystem::path>;

    // One road for each command. The value is what the program returns.
    [[nodiscard]] int zip();
    [[nodiscard]] int unzip();
    // The end of both: tells what was odd, and what came of the job.
    [[nodiscard]] int finish(const QList<QUrl>& files, const JobReport& report) const;

    // Why no archive is made of these, if so.
    [[nodiscard]] std::optional<std::string> whyNotZipped(const Paths& files) const;
    // Warns of names that are there twice; why no archive of them could be extracted, if so.
    [[nodiscard]] std::optional<std::string> findSameNames(const Paths& files) const;
    // Says that folders come without what is in them.
    void warnOfFolders() const;
    // Why the paths have not arrived, if so.
    [[nodiscard]] std::string print(const QList<QUrl>& urls) const;

    const WorkspaceArguments& arguments_;
    const bool endWithNul_;
    Messages& messages_;
    const FileSystem& fileSystem_;
    ZipManager& zipManager_;
    Interruption& interruption_;
    ProgressLine& progress_;
};

}  // namespace pellumar
