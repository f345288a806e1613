#pragma once

#include <QSet>
#include <QString>
#include <filesystem>
#include <string>

namespace pellumar {

// `name` with a number in front of its extension: "beach (2).jpg", "src (2).tar.gz",
// ".profile (2)"; a folder has no extension. So short that a file system takes it.
[[nodiscard]] std::string numberedName(const std::string& name, int number, bool isFolder = false);

// The last component of a path, also of one that ends with a slash.
[[nodiscard]] std::string lastComponent(const std::filesystem::path& path);

// Gives each of several things a name that none of the others has, also where large and small
// letters are the same, as for whom an archive is made they may be.
class DistinctNames {
  public:
    // `name`, or the first numbered one that is free.
    [[nodiscard]] std::string take(const std::string& name, bool isFolder);

  private:
    QSet<QString> taken_;
};

}  // namespace pellumar
