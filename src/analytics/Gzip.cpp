#include "analytics/Gzip.h"

#include <libdeflate.h>

#include <memory>

namespace pellumar {
namespace {

constexpr int kLevel = 6;

}  // namespace

QByteArray gzip(const QByteArray& bytes) {
    const std::unique_ptr<libdeflate_compressor, decltype(&libdeflate_free_compressor)> compressor(
        libdeflate_alloc_compressor(kLevel), libdeflate_free_compressor);
    if (!compressor) {
        return {};
    }
    const auto size = static_cast<std::size_t>(bytes.size());
    QByteArray compressed(
        static_cast<qsizetype>(libdeflate_gzip_compress_bound(compressor.get(), size)),
        Qt::Uninitialized);
    compressed.resize(static_cast<qsizetype>(
        libdeflate_gzip_compress(compressor.get(),
                                 bytes.constData(),
                                 size,
                                 compressed.data(),
                                 static_cast<std::size_t>(compressed.size()))));
    return compressed;
}

}  // namespace pellumar
