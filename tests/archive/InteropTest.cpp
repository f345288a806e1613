#include <fcntl.h>

#include <algorithm>
#include <array>

#include "archive/ExtractionTest.h"
#include "support/Process.h"

namespace pellumar::archive {
namespace {

namespace fs = std::filesystem;

// What other programs make of our archives, and we of theirs: the same tree must come out.
class InteropTest : public testing::Test {
  protected:
    struct Compared {
        bool permissions = true;
        bool times = true;
        bool folderTimes = true;
    };

    InteropTest() {
        make("tree/docs/report.txt", prose(200000, 1), 0640, 1700000000);
        make("tree/docs/empty", "", 0644, 1000000000);
        make("tree/run.sh", "#!/bin/sh\n", 0755, 1500000000);
        make("tree/Größe 猫.bin", noise(), 0600, 1650000002);
        make("tree/large", prose(5000000, 2), 0444, 1720000000);
        fs::create_directory(home_ / "tree/no files");
        for (const char* path : {"tree/docs", "tree/no files", "tree"}) {
            fs::permissions(home_ / path, fs::perms(0750));
            setTime(path, 1600000000);
        }
        expected_ = home_ / "tree";
    }

    // Each file and folder with its mode, time and size; contents are compared apart.
    [[nodiscard]] Paths describe(const fs::path& root, const Compared& compared) const {
        Paths lines;
        for (const auto& item : fs::recursive_directory_iterator(root)) {
            struct stat status {};
            EXPECT_EQ(::lstat(item.path().c_str(), &status), 0);
            const bool isFolder = S_ISDIR(status.st_mode);
            std::string line = item.path().lexically_relative(root).native();
            line += isFolder ? "/" : " size " + std::to_string(status.st_size);
            if (compared.permissions) {
                line += " mode " + std::to_string(status.st_mode & 07777U);
            }
            if (compared.times && (!isFolder || compared.folderTimes)) {
                line += " time " + std::to_string(status.st_mtim.tv_sec);
            }
            lines.push_back(line);
        }
        std::sort(lines.begin(), lines.end());
        return lines;
    }

    void expectSameTree(const fs::path& other, const Compared& compared) const {
        EXPECT_EQ(describe(other, compared), describe(expected_, compared));
        for (const auto& item : fs::recursive_directory_iterator(expected_)) {
            if (item.is_regular_file()) {
                const auto relative = item.path().lexically_relative(expected_);
                EXPECT_EQ(test::readFile(other / relative), test::readFile(item.path()))
                    << relative;
            }
        }
    }

    void packWithOurs() {
        auto archive = Archive::open(home_ / "ours.zip", AccessMode::kCreate);
        ASSERT_TRUE(archive) << archive.error().describe();
        Paths paths = {"tree"};
        for (const auto& item : fs::recursive_directory_iterator(expected_)) {
            paths.push_back("tree/" + item.path().lexically_relative(expected_).native());
        }
        std::sort(paths.begin(), paths.end());
        for (const std::string& path : paths) {
            const auto added = archive->addEntry(path, home_.path(), CompressionMethod::kDeflate);
            ASSERT_TRUE(added) << added.error().describe();
        }
        ASSERT_TRUE(archive->close());
    }

    void run(const std::vector<std::string>& command) const {
        const auto result = test::runProcess(command, home_.path());
        EXPECT_EQ(result.exitCode, 0) << result.output;
    }

    [[nodiscard]] const test::TemporaryFolder& home() const { return home_; }

  private:
    static std::string noise() {
        std::string bytes = prose(70000, 3);
        for (std::size_t i = 0; i < bytes.size(); ++i) {
            bytes[i] = static_cast<char>((i * 2654435761U) >> 13U);
        }
        return bytes;
    }

    void setTime(const std::string& path, std::time_t seconds) const {
        const std::array<timespec, 2> times = {{{seconds, 0}, {seconds, 0}}};
        EXPECT_EQ(::utimensat(AT_FDCWD, (home_ / path).c_str(), times.data(), 0), 0);
    }

    void make(const std::string& path,
              const std::string& data,
              unsigned permissions,
              std::time_t seconds) const {
        fs::create_directories((home_ / path).parent_path());
        test::writeFile(home_ / path, data);
        fs::permissions(home_ / path, fs::perms(permissions));
        setTime(path, seconds);
    }

    test::TemporaryFolder home_;
    fs::path expected_;
};

TEST_F(InteropTest, OthersReadWhatWeWrite) {
    packWithOurs();
    run({"unzip", "-q", "ours.zip", "-d", "by-unzip"});
    expectSameTree(home() / "by-unzip/tree", {});
    run({"7zz", "x", "-y", "-oby-7zz", "ours.zip"});
    expectSameTree(home() / "by-7zz/tree", {});
    fs::create_directory(home() / "by-bsdtar");
    run({"bsdtar", "-xpf", "ours.zip", "-C", "by-bsdtar"});
    expectSameTree(home() / "by-bsdtar/tree", {});
    run({"python3", "-m", "zipfile", "-e", "ours.zip", "by-python"});
    expectSameTree(home() / "by-python/tree", {.permissions = false, .times = false});
    run({"unzip", "-tq", "ours.zip"});
    run({"7zz", "t", "ours.zip"});
    run({"python3", "-m", "zipfile", "-t", "ours.zip"});
}

TEST_F(InteropTest, WeReadWhatWeWrite) {
    packWithOurs();
    const auto report = unzipItem(home() / "ours.zip", home() / "by-ours");
    ASSERT_TRUE(report) << report.error().describe();
    EXPECT_TRUE(report->warnings.empty());
    expectSameTree(home() / "by-ours/tree", {});
}

TEST_F(InteropTest, WeReadWhatOthersWrite) {
    const std::vector<std::pair<std::string, std::vector<std::string>>> writers = {
        {"zip", {"zip", "-qr", "zip.zip", "tree"}},
        {"zip-pipe", {"sh", "-c", "zip -qr - tree | cat > zip-pipe.zip"}},
        {"zip-stored", {"zip", "-qr0", "zip-stored.zip", "tree"}},
        {"7zz", {"7zz", "a", "-tzip", "7zz.zip", "tree"}},
        {"bsdtar", {"bsdtar", "--format", "zip", "-cf", "bsdtar.zip", "tree"}},
        {"bsdtar-pipe", {"sh", "-c", "bsdtar --format zip -cf - tree | cat > bsdtar-pipe.zip"}},
        {"python",
         {"python3",
          "-c",
          "import os, sys, zipfile\n"
          "with zipfile.ZipFile('python.zip', 'w', zipfile.ZIP_DEFLATED) as z:\n"
          " for folder, _, files in os.walk('tree'):\n"
          "  for f in [''] + files: z.write(os.path.join(folder, f))"}},
        {"python-pipe",
         {"sh",
          "-c",
          "python3 -c \"import os, sys, zipfile\n"
          "with zipfile.ZipFile(sys.stdout.buffer, 'w', zipfile.ZIP_DEFLATED) as z:\n"
          " for folder, _, files in os.walk('tree'):\n"
          "  for f in [''] + files: z.write(os.path.join(folder, f))\" | cat > python-pipe.zip"}}};
    for (const auto& [name, command] : writers) {
        SCOPED_TRACE(name);
        run(command);
        const auto report = unzipItem(home() / (name + ".zip"), home() / ("from-" + name));
        ASSERT_TRUE(report) << report.error().describe();
        expectSameTree(home() / ("from-" + name + "/tree"), {});
    }
}

}  // namespace
}  // namespace pellumar::archive
