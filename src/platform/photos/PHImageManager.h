#pragma once

#include <QUrl>
#include <functional>
#include <memory>
#include <optional>

#include "platform/Image.h"
#include "platform/photos/PHAsset.h"

namespace pellumar {

struct PHRequestOptions {
    // Whether what is stored elsewhere may be fetched from there.
    bool isNetworkAccessAllowed = false;
};

// What is said of an image that was asked for.
struct PHImageInfo {
    // Whether a better one follows. Nothing if that is not known.
    std::optional<bool> isDegraded;
};

// Hands out what the assets of the library hold. Requests may come from any thread, and may take
// their time; answers come on any thread, perhaps before the request returns.
class PHImageManager {
  public:
    // The file with the original, which stays where it is; nothing if there is none to be had.
    using FileAnswer = std::function<void(const std::optional<QUrl>&)>;
    // Called any number of times, with the image or without.
    using ImageAnswer =
        std::function<void(const std::shared_ptr<const Image>&, const std::optional<PHImageInfo>&)>;

    virtual ~PHImageManager() = default;

    virtual void requestContentEditingInput(const PHAsset& photo,
                                            PHRequestOptions options,
                                            const FileAnswer& answer) = 0;
    virtual void requestVideo(const PHAsset& video,
                              PHRequestOptions options,
                              const FileAnswer& answer) = 0;
    // The image in its full size; of a video, its poster.
    virtual void requestImage(const PHAsset& asset,
                              PHRequestOptions options,
                              const ImageAnswer& answer) = 0;
};

}  // namespace pellumar
