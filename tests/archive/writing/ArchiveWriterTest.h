#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "archive/writing/ArchiveWriter.h"
#include "archive/writing/DeflateCompressor.h"
#include "support/FileContents.h"
#include "support/Process.h"
#include "support/TemporaryFolder.h"

namespace pellumar::archive {

// Sources in one folder, archives in another.
class ArchiveWriterTest : public testing::Test {
  protected:
    static constexpr std::size_t kChunk = DeflateCompressor::kChunkSize;

    using Source = ArchiveWriter::Source;

    [[nodiscard]] Source source(std::string path) const {
        const std::filesystem::path file = sources_ / path;
        return {std::move(path), file};
    }
    [[nodiscard]] std::filesystem::path archivePath() const { return archives_ / "made.zip"; }

    void put(const std::string& path, std::string_view text) const {
        std::filesystem::create_directories((sources_.path() / path).parent_path());
        test::writeFile(sources_ / path, text);
    }
    void put(const std::string& path, const std::vector<std::uint8_t>& bytes) const {
        std::filesystem::create_directories((sources_.path() / path).parent_path());
        test::writeFile(sources_ / path, bytes);
    }

    [[nodiscard]] std::unique_ptr<ArchiveWriter> create(unsigned threads = 2) const {
        auto writer = ArchiveWriter::create(archivePath(),
                                            {.sameNames = SameNames::kKeep, .threads = threads});
        EXPECT_TRUE(writer);
        return writer ? std::move(*writer) : nullptr;
    }

    [[nodiscard]] static ErrorCode codeOf(const Result<>& result) {
        EXPECT_FALSE(result);
        return result ? ErrorCode::kNotAnArchive : result.error().code;
    }

    // The names that another program lists, one a line.
    [[nodiscard]] std::string listed() const {
        return test::runProcess({"unzip", "-Z1", archivePath().native()}).output;
    }
    // Other programs' opinion of the archive.
    void expectSound() const {
        for (const auto& command : std::vector<std::vector<std::string>>{
                 {"unzip", "-tqq"}, {"7zz", "t", "-bd"}, {"python3", "-m", "zipfile", "-t"}}) {
            auto arguments = command;
            arguments.push_back(archivePath().native());
            const auto result = test::runProcess(arguments);
            EXPECT_EQ(result.exitCode, 0) << command[0] << ": " << result.output;
        }
    }

    test::TemporaryFolder sources_;
    test::TemporaryFolder archives_;
};

}  // namespace pellumar::archive
