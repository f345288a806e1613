#include "archive/reading/Volumes.h"

#include <algorithm>
#include <cstdio>
#include <optional>
#include <string>
#include <system_error>
#include <utility>

#include "archive/reading/DirectoryLocator.h"

namespace pellumar::archive {

namespace {

namespace fs = std::filesystem;

// More cannot be open at once, nor does anybody make them.
constexpr std::size_t kMostVolumes = 900;

bool areDigits(std::string_view text) {
    return !text.empty() &&
           std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

std::string withDigits(std::string prefix, std::size_t number, int width) {
    const std::string digits = std::to_string(number);
    prefix.append(
        std::max<std::size_t>(digits.size(), static_cast<std::size_t>(width)) - digits.size(), '0');
    return prefix + digits;
}

Failure failMissing(const fs::path& path) {
    return Failure(Error{.code = ErrorCode::kVolumeMissing, .entry = path.filename().native()});
}

using Volumes = std::vector<std::unique_ptr<FileSource>>;

// Adds the volume at `path`; false if there is no such file.
Result<bool> addVolume(Volumes& volumes, const fs::path& path) {
    std::error_code unknown;
    if (!fs::exists(path, unknown)) {
        return false;
    }
    auto file = File::openForReading(path);
    auto source = file ? FileSource::of(std::move(*file)) : passOn(file);
    if (!source) {
        return passOn(source);
    }
    volumes.push_back(std::move(*source));
    return true;
}

// "name.z01", …, "name.zip": the last tells how many there are.
Result<std::unique_ptr<ByteSource>> openNumbered(const fs::path& stem,
                                                 const std::string& extension,
                                                 const Error& error,
                                                 std::string* missing) {
    const fs::path lastPath = stem.native() + extension;
    Volumes last;
    const auto hasLast = addVolume(last, lastPath);
    if (!hasLast || (!*hasLast && missing == nullptr)) {
        return hasLast ? failMissing(lastPath) : Failure(hasLast.error());
    }
    const std::size_t count = *hasLast ? claimedVolumes(*last.front()) : kMostVolumes;
    if (count < 2 || count > kMostVolumes) {
        return Failure(error);
    }
    Volumes volumes;
    const std::string prefix = stem.native() + (extension == ".ZIP" ? ".Z" : ".z");
    fs::path firstMissing;
    for (std::size_t number = 1; number < count && (*hasLast || firstMissing.empty()); ++number) {
        const fs::path path = withDigits(prefix, number, 2);
        const auto added = addVolume(volumes, path);
        if (!added) {
            return Failure(added.error());
        }
        if (!*added && missing == nullptr) {
            return failMissing(path);
        }
        if (!*added && firstMissing.empty()) {
            firstMissing = path;
        }
    }
    if (*hasLast) {
        volumes.push_back(std::move(last.front()));
    } else {
        firstMissing = lastPath;
    }
    if (missing != nullptr) {
        *missing = firstMissing.filename();
    }
    return std::make_unique<VolumeSource>(std::move(volumes), firstMissing.empty());
}

// "name.zip.001", …: cut anywhere, so only the end of the archive tells that it is the last.
Result<std::unique_ptr<ByteSource>> openCut(const std::string& prefix,
                                            int width,
                                            std::string* missing) {
    Volumes volumes;
    fs::path path;
    while (volumes.size() < kMostVolumes) {
        path = withDigits(prefix, volumes.size() + 1, width);
        const auto added = addVolume(volumes, path);
        if (!added) {
            return Failure(added.error());
        }
        if (!*added) {
            break;
        }
    }
    if (volumes.empty()) {
        return failMissing(path);
    }
    auto source = std::make_unique<VolumeSource>(std::move(volumes), false);
    const auto location = locateDirectory(*source);
    const bool endIsMissing = !location && (location.error().code == ErrorCode::kNotAnArchive ||
                                            location.error().code == ErrorCode::kTruncated);
    if (endIsMissing && missing == nullptr) {
        return failMissing(path);
    }
    if (endIsMissing) {
        *missing = path.filename();
    }
    return source;
}

}  // namespace

VolumeSource::VolumeSource(std::vector<std::unique_ptr<FileSource>> volumes, bool numbered)
    : volumes_(std::move(volumes)), numbered_(numbered) {
    for (const auto& volume : volumes_) {
        starts_.push_back(size_);
        size_ += volume->size();
    }
}

Result<std::size_t> VolumeSource::readAt(std::uint64_t offset, MutableBytes buffer) const {
    std::size_t done = 0;
    auto index = static_cast<std::size_t>(std::upper_bound(starts_.begin(), starts_.end(), offset) -
                                          starts_.begin() - 1);
    for (; done < buffer.size() && index < volumes_.size(); ++index) {
        const std::uint64_t within = offset + done - starts_[index];
        const std::uint64_t left =
            volumes_[index]->size() - std::min(within, volumes_[index]->size());
        const auto wanted =
            static_cast<std::size_t>(std::min<std::uint64_t>(buffer.size() - done, left));
        auto count = volumes_[index]->readAt(within, buffer.subspan(done, wanted));
        if (!count) {
            return count;
        }
        done += *count;
        if (*count < wanted) {
            break;  // it has become shorter
        }
    }
    return done;
}

Result<std::unique_ptr<ByteSource>> openVolumes(const fs::path& path,
                                                const Error& error,
                                                std::string* missing) {
    std::error_code unknown;
    const fs::path place = fs::is_symlink(path, unknown) ? fs::canonical(path, unknown) : path;
    const std::string name = place.filename().native();
    const std::size_t dot = name.rfind('.');
    if (dot == std::string::npos) {
        return Failure(error);
    }
    const fs::path stem = place.parent_path() / name.substr(0, dot);
    const std::string extension = name.substr(dot);
    const std::string_view digits = std::string_view(extension).substr(1);
    if (extension == ".zip" || extension == ".ZIP") {
        return openNumbered(stem, extension, error, missing);
    }
    if (digits.size() >= 3 && (digits[0] == 'z' || digits[0] == 'Z') &&
        areDigits(digits.substr(1))) {
        return openNumbered(stem, digits[0] == 'z' ? ".zip" : ".ZIP", error, missing);
    }
    const std::string whole = stem.extension();
    if (digits.size() >= 3 && areDigits(digits) && (whole == ".zip" || whole == ".ZIP")) {
        return openCut(stem.native() + ".", static_cast<int>(digits.size()), missing);
    }
    return Failure(error);
}

}  // namespace pellumar::archive
