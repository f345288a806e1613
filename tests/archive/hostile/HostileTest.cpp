#include <gtest/gtest.h>
#include <sys/mman.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <string>

#include "archive/Archive.h"
#include "archive/Reader.h"
#include "archive/base/File.h"
#include "archive/hostile/Deceit.h"
#include "support/FileContents.h"
#include "support/TemporaryFolder.h"
#include "support/ZipBuilder.h"

namespace pellumar::archive {
namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
// They make everything some twenty times slower.
constexpr std::size_t kStride = 23;
constexpr std::chrono::seconds kPatience(20);
#else
constexpr std::size_t kStride = 1;
constexpr std::chrono::seconds kPatience(1);
#endif

// A file of memory, which a path leads to.
class MemoryFile {
  public:
    MemoryFile() : file_(::memfd_create("archive", MFD_CLOEXEC)) {}

    void hold(const std::string& bytes) {
        ASSERT_TRUE(file_.truncate(0));
        ASSERT_TRUE(
            file_.writeAt(0, {reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()}));
    }

    [[nodiscard]] fs::path path() const {
        return "/proc/self/fd/" + std::to_string(file_.descriptor());
    }

  private:
    File file_;
};

class HostileTest : public testing::Test {
  protected:
    // Tens of thousands of extractions are no work for a disk.
    static void SetUpTestSuite() {
        if (::access("/dev/shm", W_OK) == 0) {
            ::setenv("TMPDIR", "/dev/shm", 1);
        }
    }

    // Unpacks; says what is wrong with what stands afterwards, or nothing.
    std::string harmOf(const std::string& bytes) {
        archive_.hold(bytes);
        const auto start = Clock::now();
        const auto report = unzipItem(archive_.path(), out());
        if (Clock::now() - start > kPatience) {
            return "it took too long";
        }
        taken_ += report ? 1 : 0;
        std::string harm = harmIn(report.has_value());
        clear();
        return harm;
    }

    // Unpacks beside a link that stands there already.
    std::string harmBeside(const std::string& target,
                           const std::string& bytes,
                           ExistingFiles existing) {
        archive_.hold(bytes);
        fs::create_directories(out());
        fs::create_symlink(target, out() / "x");
        const auto reader = Reader::open(archive_.path());
        const auto report = reader->extractAll(out(), {.existing = existing});
        taken_ += report ? 1 : 0;
        std::string harm = harmIn(report.has_value());
        clear();
        return harm;
    }

    [[nodiscard]] std::size_t taken() const { return taken_; }

  private:
    [[nodiscard]] fs::path out() const { return home_ / "out"; }

    [[nodiscard]] std::string harmIn(bool succeeded) const {
        for (const auto& item : fs::directory_iterator(home_.path())) {
            if (item.path() != out()) {
                return "outside stands " + item.path().native();
            }
        }
        if (!fs::exists(out())) {
            return succeeded ? "it succeeded and there is nothing" : "";
        }
        for (const auto& item : fs::recursive_directory_iterator(
                 out(), fs::directory_options::skip_permission_denied)) {
            if (item.is_symlink()) {
                if (!staysInside(item.path())) {
                    return "a link that leaves: " + item.path().native();
                }
            } else if (item.is_regular_file() && item.file_size() > 0 &&
                       !test::contentsOfDeceits().contains(test::readText(item.path()))) {
                return "what was never in it stands in " + item.path().native();
            }
        }
        return {};
    }

    [[nodiscard]] bool staysInside(const fs::path& link) const {
        std::error_code error;
        const fs::path end = fs::weakly_canonical(link, error);
        return error || (end.native() + "/").starts_with(fs::canonical(out()).native() + "/");
    }

    void clear() const {
        std::error_code refused;
        fs::remove_all(out(), refused);
        if (refused) {
            for (const auto& item : fs::recursive_directory_iterator(home_.path())) {
                if (item.is_directory() && !item.is_symlink()) {
                    fs::permissions(item.path(), fs::perms::owner_all, fs::perm_options::add);
                }
            }
            fs::remove_all(out());
        }
    }

    test::TemporaryFolder home_;
    MemoryFile archive_;
    std::size_t taken_ = 0;
};

TEST_F(HostileTest, NoDeceitDoesHarm) {
    for (unsigned variant = 0; variant < test::kSoundVariants; ++variant) {
        EXPECT_EQ(harmOf(test::soundArchive(variant)), "");
        ASSERT_EQ(taken(), variant + 1) << "a sound archive is refused";
    }
    std::size_t tried = 0;
    std::size_t harmful = 0;
    test::forEachDeceit(kStride, [&](const test::Deceit& deceit) {
        ++tried;
        const std::string harm = harmOf(deceit.archive);
        if (!harm.empty() && ++harmful < 20) {
            ADD_FAILURE() << deceit.what << ": " << harm;
        }
    });
    EXPECT_EQ(harmful, 0U);
    EXPECT_GT(tried * kStride, 10'000U);
    std::printf("%zu archives, %zu of them taken\n", tried, taken());
}

// A link of the archive's that is judged by way of another one, in whose place something else
// stays.
TEST_F(HostileTest, NoLinkLeavesByWayOfOneThatStandsThere) {
    std::size_t tried = 0;
    for (const std::string standing : {".", "a", "a/b", "nowhere"}) {
        for (const std::string x : {".", "a", "a/b", "a/b/..", "y"}) {
            for (const std::string y :
                 {"x", "x/a", "x/..", "x/../..", "x/a/../..", "a/../x/../.."}) {
                const std::string archive = test::ZipBuilder()
                                                .add(test::folder("a/b/"))
                                                .add(test::symbolicLink("x", x))
                                                .add(test::symbolicLink("y", y))
                                                .build();
                for (const auto existing :
                     {ExistingFiles::kOverwrite, ExistingFiles::kSkip, ExistingFiles::kRename}) {
                    ++tried;
                    EXPECT_EQ(harmBeside(standing, archive, existing), "")
                        << standing << ": " << x << ", " << y;
                }
            }
        }
    }
    EXPECT_GT(taken(), tried / 4);
}

}  // namespace
}  // namespace pellumar::archive
