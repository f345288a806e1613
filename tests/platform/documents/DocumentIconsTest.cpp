#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "platform/FileUrl.h"
#include "platform/documents/UIDocumentInteractionController.h"
#include "support/TemporaryFolder.h"

namespace pellumar::test {
namespace {

TEST(DocumentIconsTest, TellsTheKindByTheName) {
    const std::vector<std::pair<std::string, QString>> kinds{
        {"a.zip", "archive"},     {"A.ZIP", "archive"},       {"a.tar.gz", "archive"},
        {"a.tar.zst", "archive"}, {"a.bz2", "archive"},       {"a.jar", "archive"},
        {"a.JPG", "image"},       {"a.svg", "image"},         {"a.mp4", "video"},
        {"a.flac", "audio"},      {"a.pdf", "pdf"},           {"a.odt", "document"},
        {"a.docx", "document"},   {"a.epub", "document"},     {"a.xlsx", "spreadsheet"},
        {"a.csv", "spreadsheet"}, {"a.pptx", "presentation"}, {"a.ppt", "presentation"},
        {"a.txt", "text"},        {"README.md", "text"},      {"a.cpp", "code"},
        {"a.sh", "code"},         {"a.py", "code"},           {"a.json", "code"},
        {"a.ttf", "font"},        {"nothing", "file"},        {"a.unheard-of", "file"},
        {"caf\xe9.png", "image"},
    };
    for (const auto& [name, icon] : kinds) {
        const UIDocumentInteractionController document(fileUrl("/nowhere/" + name));
        EXPECT_EQ(document.icons().last(), icon) << name;
        EXPECT_EQ(document.icons().first(), "file") << name;
    }
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder / "photos.zip");
    EXPECT_EQ(UIDocumentInteractionController(fileUrl(folder / "photos.zip")).icons(),
              QStringList{"folder"});
}

}  // namespace
}  // namespace pellumar::test
