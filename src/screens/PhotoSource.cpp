#include "screens/PhotoSource.h"

#include <QStringList>
#include <mutex>

#include "platform/DispatchGroup.h"

namespace pellumar {
namespace {

// Asks for something of each asset in the background, by `request(images, asset, answer)`, whose
// answer may come on any thread and is nothing if there is none to be had; completes on the main
// queue, with all that came, once each has been answered.
template <typename Item, typename Request>
void gather(const PhotoServices& services,
            const std::vector<PHAsset>& assets,
            const Request& request,
            const std::function<void(const std::vector<Item>&)>& completion) {
    struct Box {
        std::mutex mutex;
        std::vector<Item> items;
    };
    const auto group = std::make_shared<DispatchGroup>();
    const auto box = std::make_shared<Box>();
    const auto answer = [group, box](const std::optional<Item>& item) {
        if (item) {
            const std::lock_guard lock(box->mutex);
            box->items.push_back(*item);
        }
        group->leave();
    };
    for (const PHAsset& asset : assets) {
        group->enter();
        services.backgroundQueue.async([&images = services.images, asset, request, answer] {
            request(images, asset, answer);
        });
    }
    group->notify(services.mainQueue, [box, completion] { completion(box->items); });
}

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
    const auto request = [&console = console_](
                             PHImageManager& images, const PHAsset& asset, const auto& answer) {
        requestFile(images, asset, [&console, answer](const std::optional<QUrl>& url) {
            const QString text =
                url ? "Optional(" + url->toString(QUrl::FullyEncoded) + ')' : QStringLiteral("nil");
            console.writeLine("Response URL: " + text);
            answer(url);
        });
    };
    gather<QUrl>(services_, assets, request, [completion](const std::vector<QUrl>& urls) {
        completion(QList<QUrl>(urls.begin(), urls.end()));
    });
}

void PhotoSource::renderImages(const std::vector<PHAsset>& assets,
                               const std::function<void(const Images&)>& completion) const {
    const auto request = [&console = console_](
                             PHImageManager& images, const PHAsset& asset, const auto& answer) {
        const auto rendered = [&console, answer](const std::shared_ptr<const Image>& image,
                                                 const std::optional<PHImageInfo>& info) {
            // Anything but a final image is not the end of it.
            if (image != nullptr && info && info->isDegraded && !*info->isDegraded) {
                console.writeLine(QStringLiteral("Appending asset"));
                answer(image);
            }
        };
        images.requestImage(asset, {}, rendered);
    };
    gather<std::shared_ptr<const Image>>(
        services_, assets, request, [completion, &console = console_](const Images& images) {
            console.writeLine(QStringLiteral("NOTIFIED"));
            completion(images);
        });
}

}  // namespace pellumar
