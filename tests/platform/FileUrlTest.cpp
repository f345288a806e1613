#include "platform/FileUrl.h"

#include <gtest/gtest.h>

namespace pellumar {
namespace {

TEST(FileUrl, KeepsEveryByteThatANameCanHave) {
    std::string every;
    for (int byte = 1; byte < 256; ++byte) {
        every += static_cast<char>(byte);
    }
    for (const std::string& name : {std::string("a b%20#?;&+@:~"),
                                    std::string("%FF%2F%"),
                                    std::string("\xFF\xFE.txt"),
                                    std::string("\xEF\xBB\xBFmark"),
                                    std::string("caf\xC3\xA9 \xF0\x9F\x93\xA6"),
                                    std::string("cafe\xCC\x81"),
                                    std::string("\xED\xA0\x80"),
                                    std::string("\xEF\xBF\xBF"),
                                    std::string("back\\slash\nline"),
                                    std::string("dir/"),
                                    std::string("../up"),
                                    every}) {
        const std::filesystem::path path = "/tmp/" + name;
        const QUrl url = fileUrl(path);
        EXPECT_EQ(localPath(url).value_or(""), path) << url.toEncoded().toStdString();
        // As it is when it went through a text, say a settings file or a clipboard.
        EXPECT_EQ(localPath(QUrl::fromEncoded(url.toEncoded())).value_or(""), path);
    }
}

TEST(FileUrl, IsWhatQtMakesOfAUtf8Path) {
    EXPECT_EQ(fileUrl("/tmp/\xC3\xA9 @+%"), QUrl::fromLocalFile(QStringLiteral("/tmp/é @+%")));
    EXPECT_EQ(fileUrl("//tmp/a").toString(QUrl::FullyEncoded), QStringLiteral("file:///tmp/a"));
    EXPECT_EQ(localPath(QUrl(QStringLiteral("file://localhost/tmp/a"))).value_or(""), "/tmp/a");
}

TEST(FileUrl, LastComponentIsThatBeforeTheSlashAtTheEnd) {
    for (const char* path : {"/a.d/photos.zip", "/a.d/photos.zip/", "/a.d/photos.zip///"}) {
        EXPECT_EQ(lastPathComponent(QUrl::fromLocalFile(path)).toStdString(), "photos.zip") << path;
        EXPECT_EQ(withoutTrailingSlash(path), "/a.d/photos.zip");
    }
    EXPECT_EQ(lastPathComponent(QUrl("file:///a%20%25.zip/")).toStdString(), "a %.zip");
    EXPECT_EQ(lastPathComponent(QUrl("file:///")).toStdString(), "/");
    EXPECT_EQ(lastPathComponent(QUrl()).toStdString(), "");
    EXPECT_EQ(withoutTrailingSlash("//"), "//");
}

TEST(FileUrl, HasNoPathForWhatIsNotAFileHere) {
    for (const char* url : {"https://example.org/a",
                            "file://server/a",
                            "content://x/a",
                            "",
                            "/tmp/a",
                            "file:///tmp/a%00b"}) {
        EXPECT_EQ(localPath(QUrl::fromEncoded(url)), std::nullopt) << url;
    }
}

}  // namespace
}  // namespace pellumar
