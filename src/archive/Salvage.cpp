#include "archive/Salvage.h"

#include <memory>
#include <string>
#include <utility>

#include "archive/base/ByteSource.h"
#include "archive/base/WithinMemory.h"
#include "archive/reading/DirectoryLocator.h"
#include "archive/reading/Salvager.h"
#include "archive/reading/Volumes.h"

namespace pellumar::archive {

namespace {

Result<std::unique_ptr<FileSource>> openedAt(const std::filesystem::path& path) {
    auto file = File::openForReading(path);
    return file ? FileSource::of(std::move(*file)) : passOn(file);
}

}  // namespace

Result<SalvageReport> salvage(const std::filesystem::path& from,
                              const std::filesystem::path& to,
                              const SalvageOptions& options) {
    return withinMemory([&]() -> Result<SalvageReport> {
        auto file = openedAt(from);
        if (!file) {
            return passOn(file);
        }
        std::unique_ptr<ByteSource> source = std::move(*file);
        std::string missing;
        if (const auto location = locateDirectory(*source); !location) {
            // One volume of several looks like that by itself.
            if (auto volumes = openVolumes(from, location.error(), &missing)) {
                source = std::move(*volumes);
            }
        }
        auto report = salvageAll(*source, to, options);
        if (report) {
            report->missingVolume = std::move(missing);
        }
        return report;
    });
}

Result<SalvageReport> salvage(File from,
                              const std::filesystem::path& to,
                              const SalvageOptions& options) {
    return withinMemory([&]() -> Result<SalvageReport> {
        auto source = FileSource::of(std::move(from));
        return source ? salvageAll(**source, to, options) : passOn(source);
    });
}

}  // namespace pellumar::archive
