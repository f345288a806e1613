#include "app/WindowParts.h"

#include <QGuiApplication>
#include <QScreen>

#include "app/App.h"
#include "platform/look/Look.h"

namespace pellumar {
namespace {

// Upright like a phone, and no larger than the screen. Where the system decides, as on a phone, it
// is overruled.
QSize firstSize() {
    constexpr QSize kSize(420, 760);
    const QScreen* const screen = QGuiApplication::primaryScreen();
    return screen == nullptr ? kSize : kSize.boundedTo(screen->availableSize());
}

ThumbnailProvider& addThumbnailProvider(QQmlEngine& engine, const ThumbnailStore& store) {
    auto* const provider = new ThumbnailProvider(store);
    engine.addImageProvider(ThumbnailProvider::name(), provider);
    return *provider;
}

}  // namespace

WindowParts::WindowParts(const ThumbnailStore& thumbnails)
    : thumbnails_(addThumbnailProvider(engine_, thumbnails)),
      viewLoader_(engine_, layoutModules()),
      animator_([this] { return appearance_.isStill(); }),
      window_({viewLoader_, animator_, {}}) {
    installIcons(engine_);
    followAppearance();
    window_.setTitle(QGuiApplication::applicationDisplayName());
    window_.resize(firstSize());
}

void WindowParts::followAppearance() {
    const auto follow = [this] {
        applyLook(engine_, {appearance_.isDark(), appearance_.isStill(), appearance_.textScale()});
    };
    QObject::connect(&appearance_, &Appearance::changed, &engine_, follow);
    follow();
}

}  // namespace pellumar
