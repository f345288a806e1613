#include <random>
#include <set>

#include "archive/ExtractionTest.h"

namespace pellumar::archive {
namespace {

// Archives that were damaged at random. Whatever happens, nothing crashes, nothing comes to stand
// outside the destination (the fixture looks), and every file that stands is one that the archive
// holds, whole.
class MutationTest : public ExtractionTest, public testing::WithParamInterface<unsigned> {
  protected:
    static std::string original(unsigned variant) {
        ZipBuilder zip;
        zip.zip64 = variant % 2 == 1;
        zip.prefix = variant % 3 == 1 ? prose(50) : "";
        zip.add(folder("d/"))
            .add(deflated("d/one", prose(3000, 1)).described(variant % 2 == 0, variant % 4 > 1))
            .add(stored("two", prose(300, 2)).with(&ZipHeader::zip64, variant % 2 == 0))
            .add(deflated("d/e/\x8E\xCA\x90\x5E", prose(900, 3)))
            .add(symbolicLink("d/link", "../two"))
            .add(symbolicLink("up", "d/e"))
            .add(deflated("two", prose(500, 4)));
        return zip.build();
    }

    static const std::set<std::string>& contents() {
        static const std::set<std::string> kContents = {
            "", prose(3000, 1), prose(300, 2), prose(900, 3), prose(500, 4), "../two", "d/e"};
        return kContents;
    }

    static void damage(std::string& bytes, std::mt19937& random) {
        const auto place = [&] { return random() % (bytes.size() + 1); };
        // The headers in the last third of these archives are where a change does most.
        const std::size_t at = random() % 2 == 0 ? place() : bytes.size() - place() / 3;
        switch (random() % 8) {
            case 0:
                bytes.resize(at);
                break;
            case 1:
                bytes.erase(at, random() % 20);
                break;
            case 2:
                bytes.insert(at, random() % 20, static_cast<char>(random()));
                break;
            case 3:
                bytes.insert(at, bytes, place(), random() % 200);
                break;
            case 4:
                bytes.replace(at, 4, test::littleEndian(0xFFFFFFFF, 4));
                break;
            default:
                for (std::size_t i = at; i < bytes.size() && i < at + 1 + random() % 3; ++i) {
                    bytes[i] = static_cast<char>(random() % 2 == 0 ? random() : bytes[i] ^ 1);
                }
        }
    }

    void expectOnlyWholeFiles() const {
        for (const auto& item : std::filesystem::recursive_directory_iterator(destination())) {
            if (item.is_regular_file() && !item.is_symlink()) {
                EXPECT_TRUE(contents().contains(readText(item.path()))) << item.path();
            }
        }
    }
};

INSTANTIATE_TEST_SUITE_P(Seeds, MutationTest, testing::Range(0U, 12U));

TEST_P(MutationTest, DoesNoHarm) {
    const std::string whole = original(GetParam());
    ASSERT_TRUE(unzipBytes(whole));
    std::mt19937 random(GetParam());
    for (int round = 0; round < 300 && !HasFailure(); ++round) {
        std::string bytes = whole;
        for (unsigned changes = 1 + random() % 4; changes > 0 && !bytes.empty(); --changes) {
            damage(bytes, random);
        }
        static_cast<void>(unzipBytes(bytes));
        expectOnlyWholeFiles();
    }
}

}  // namespace
}  // namespace pellumar::archive
