#pragma once

#include <QList>
#include <QUrl>
#include <memory>
#include <optional>
#include <string>

#include "cli/CommandLine.h"
#include "cli/TerminalDiagnostics.h"
#include "engine/FileSystem.h"
#include "engine/ZipManager.h"

namespace pellumar {

// Runs the one job that a command line asks for, and prints what came of it: paths on standard
// output, the reason of a failure in one line on standard error. Main thread only.
class JobRunner {
  public:
    // All of it must outlive this. `diagnostics` is what the jobs of `zipManager` report to.
    JobRunner(const CommandLine& commandLine,
              const FileSystem& fileSystem,
              ZipManager& zipManager,
              const TerminalDiagnostics& diagnostics);

    // Returns when the job is over; needs the QCoreApplication. The value is what the program
    // returns.
    [[nodiscard]] int run();

  private:
    // What the job delivers, or nothing if it has failed.
    [[nodiscard]] std::optional<QList<QUrl>> zip(const QList<QUrl>& files);
    [[nodiscard]] std::optional<QList<QUrl>> unzip(const QUrl& archive);
    [[nodiscard]] bool print(const QList<QUrl>& urls) const;
    // Warns of names that are there twice; why no archive of them could be extracted, if so.
    [[nodiscard]] std::optional<std::string> findSameNames(
        const std::vector<std::filesystem::path>& files) const;
    [[nodiscard]] static int fail(const std::string& reason);

    const CommandLine& commandLine_;
    const FileSystem& fileSystem_;
    ZipManager& zipManager_;
    const TerminalDiagnostics& diagnostics_;
};

}  // namespace pellumar
