#include "engine/AppFileOpener.h"

#include <gtest/gtest.h>

#include <QList>

namespace pellumar {
namespace {

const QUrl kFirst("file:///a.zip");
const QUrl kSecond("file:///b.zip");

// Takes what it is told of, as a screen does.
class Taker : public AppFileOpenerDelegate {
  public:
    void appFileOpenerDidReceive(const QUrl& url) override {
        AppFileOpener::setUrl(std::nullopt);
        taken.append(url);
    }

    QList<QUrl> taken;
};

TEST(AppFileOpener, KeepsTheLatestUntilThereIsSomebodyToTellAtOnce) {
    EXPECT_EQ(AppFileOpener::url(), std::nullopt);
    AppFileOpener::setUrl(kFirst);
    AppFileOpener::setUrl(kSecond);
    const auto taker = std::make_shared<Taker>();
    AppFileOpener::setDelegate(taker);
    EXPECT_TRUE(taker->taken.isEmpty());
    EXPECT_EQ(AppFileOpener::url(), kSecond);
    AppFileOpener::setUrl(std::nullopt);
    EXPECT_TRUE(taker->taken.isEmpty());
    AppFileOpener::setUrl(kFirst);
    EXPECT_EQ(taker->taken, QList<QUrl>{kFirst});
    EXPECT_EQ(AppFileOpener::url(), std::nullopt);
}

TEST(AppFileOpener, ADelegateThatIsGoneLeavesTheUrlWaiting) {
    AppFileOpener::setDelegate(std::make_shared<Taker>());
    EXPECT_EQ(AppFileOpener::delegate(), nullptr);
    AppFileOpener::setUrl(kFirst);
    EXPECT_EQ(AppFileOpener::url(), kFirst);
    AppFileOpener::setUrl(std::nullopt);
}

}  // namespace
}  // namespace pellumar
