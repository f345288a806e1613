#include "archive/Salvage.h"

#include <utility>

#include "archive/base/ByteSource.h"
#include "archive/base/WithinMemory.h"
#include "archive/reading/Salvager.h"

namespace pellumar::archive {

Result<SalvageReport> salvage(const std::filesystem::path& from,
                              const std::filesystem::path& to,
                              const SalvageOptions& options) {
    return withinMemory([&]() -> Result<SalvageReport> {
        auto file = File::openForReading(from);
        if (!file) {
            return passOn(file);
        }
        auto source = FileSource::of(std::move(*file));
        if (!source) {
            return passOn(source);
        }
        return salvageAll(**source, to, options);
    });
}

}  // namespace pellumar::archive
