#include "screens/PhotoSource.h"

#include <QStringList>
#include <mutex>

#include "platform/DispatchGroup.h"

namespace pellumar {
namespace {

// What has come so far. Answers come on any thread.
template <typename Item>
class Box {
  public:
    void append(const Item& item) {
        const std::lock_guard lock(mutex_);
        items_.push_back(item);
    }
    [[nodiscard]] std::vector<Item> items() const {
        const std::lock_guard lock(mutex_);
        return items_;
    }

  private:
    mutable std::mutex mutex_;
    std::vector<Item> items_;
};

void requestFile(PHImageManager& images,
                 const PHAsset& asset,
                 const PHImageManager::FileAnswer& answer) {
    constexpr PHRequestOptions kOptions{.isNetworkAccessAllowed = true};
    switch (asset.mediaType) {
        case PHAssetMediaType::kImage:
            images.requestContentEditingInput(asset, kOptions, answer);
            break;
        case PHAssetMediaType::kVideo:
            images.requestVideo(asset, kOptions, answer);
            break;
        case PHAssetMediaType::kUnknown:
            break;
    }
}

}  // namespace

std::vector<PHAsset> PhotoSource::assets(const QStringList& identifiers) const {
    QStringList quoted;
    for (const QString& identifier : identifiers) {
        quoted.append('"' + identifier + '"');
    }
    console_.writeLine("Got Identifiers: [" + quoted.join(QStringLiteral(", ")) + ']');
    std::vector<PHAsset> assets;
    for (const QString& identifier : identifiers) {
        if (const auto asset = services_.library.fetchAsset(identifier)) {
            assets.push_back(*asset);
        }
    }
    console_.writeLine(QStringLiteral("Got assets"));
    return assets;
}

void PhotoSource::fetchFiles(const std::vector<PHAsset>& assets,
                             const std::function<void(const QList<QUrl>&)>& completion) const {
    const auto group = std::make_shared<DispatchGroup>();
    const auto urls = std::make_shared<Box<QUrl>>();
    const auto answered = [group, urls, &console = console_](const std::optional<QUrl>& url) {
        console.writeLine(
            "Response URL: " +
            (url ? "Optional(" + url->toString(QUrl::FullyEncoded) + ')' : QStringLiteral("nil")));
        if (url) {
            urls->append(*url);
        }
        group->leave();
    };
    for (const PHAsset& asset : assets) {
        group->enter();
        services_.backgroundQueue.async([&images = services_.images, asset, answered] {
            requestFile(images, asset, answered);
        });
    }
    group->notify(services_.mainQueue, [urls, completion] {
        const std::vector<QUrl> all = urls->items();
        completion(QList<QUrl>(all.begin(), all.end()));
    });
}

void PhotoSource::renderImages(const std::vector<PHAsset>& assets,
                               const std::function<void(const Images&)>& completion) const {
    const auto group = std::make_shared<DispatchGroup>();
    const auto rendered = std::make_shared<Box<std::shared_ptr<const Image>>>();
    const auto answered = [group, rendered, &console = console_](
                              const std::shared_ptr<const Image>& image,
                              const std::optional<PHImageInfo>& info) {
        // Anything but a final image is not the end of it.
        if (image == nullptr || !info || !info->isDegraded || *info->isDegraded) {
            return;
        }
        rendered->append(image);
        console.writeLine(QStringLiteral("Appending asset"));
        group->leave();
    };
    for (const PHAsset& asset : assets) {
        group->enter();
        services_.backgroundQueue.async([&images = services_.images, asset, answered] {
            images.requestImage(asset, {}, answered);
        });
    }
    group->notify(services_.mainQueue, [rendered, completion, &console = console_] {
        console.writeLine(QStringLiteral("NOTIFIED"));
        completion(rendered->items());
    });
}

}  // namespace pellumar
