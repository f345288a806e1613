#pragma once

#include <QUrl>
#include <memory>
#include <optional>

namespace pellumar {

// Takes an archive that another application has handed over.
class AppFileOpenerDelegate {
  public:
    virtual ~AppFileOpenerDelegate() = default;

    virtual void appFileOpenerDidReceive(const QUrl& url) = 0;
};

// The one place where a handed-over archive waits until a screen takes it. A later one replaces it;
// nothing is copied or checked. Lives as long as the process. Main thread only.
class AppFileOpener {
  public:
    AppFileOpener() = delete;

    [[nodiscard]] static std::optional<QUrl> url();

    // Keeps `url`, and tells the delegate of it before returning, if there is one. Nobody is told
    // of nothing. The delegate may set the URL again.
    static void setUrl(const std::optional<QUrl>& url);

    [[nodiscard]] static std::shared_ptr<AppFileOpenerDelegate> delegate();
    static void setDelegate(std::weak_ptr<AppFileOpenerDelegate> delegate);
};

}  // namespace pellumar
