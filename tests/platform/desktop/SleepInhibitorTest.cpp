#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <QDBusArgument>
#include <QDBusObjectPath>
#include <QDBusUnixFileDescriptor>
#include <array>

#include "platform/bus/BusService.h"
#include "platform/bus/WaitUntil.h"
#include "platform/desktop/PortalSleepInhibitor.h"

namespace pellumar::test {
namespace {

const QString kRequest = "/org/freedesktop/portal/desktop/request/1";

QVariantMap unwrapped(const QVariant& argument) {
    return qdbus_cast<QVariantMap>(argument);
}

// The portal, which knows of inhibition only.
class InhibitPortal : public BusService {
  public:
    InhibitPortal()
        : BusService("org.freedesktop.portal.Desktop",
                     [](const Call& call) -> std::optional<QVariantList> {
                         if (call.method == "org.freedesktop.portal.Inhibit.Inhibit") {
                             return {{QVariant::fromValue(QDBusObjectPath(kRequest))}};
                         }
                         return {{}};
                     }) {}

    [[nodiscard]] bool isClosed() const {
        return !calls().isEmpty() && calls().last().path == kRequest &&
               calls().last().method == "org.freedesktop.portal.Request.Close";
    }
};

TEST(SleepInhibitorTest, KeepsThePortalsRequestUntilReleased) {
    const InhibitPortal portal;
    PortalSleepInhibitor inhibitor;
    auto token = inhibitor.keepAwake("Unzipping");
    ASSERT_TRUE(waitUntil([&portal] { return portal.calls().size() == 1; }));
    const QVariantList arguments = portal.calls().first().arguments;
    // Suspend and idle.
    EXPECT_EQ(arguments.value(1).toUInt(), 12U);
    EXPECT_EQ(unwrapped(arguments.value(2)).value("reason").toString(), "Unzipping");
    token.reset();
    EXPECT_TRUE(waitUntil([&portal] { return portal.isClosed(); }));
}

TEST(SleepInhibitorTest, WorkThatIsDoneBeforeTheAnswerLeavesNothingBehind) {
    const InhibitPortal portal;
    PortalSleepInhibitor inhibitor;
    static_cast<void>(inhibitor.keepAwake("Unzipping"));
    EXPECT_TRUE(waitUntil([&portal] { return portal.isClosed(); }));
}

TEST(SleepInhibitorTest, TakesTheLoginManagersLockWithoutAPortal) {
    std::array<int, 2> ends{};
    ASSERT_EQ(::pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK), 0);
    const BusService login("org.freedesktop.login1",
                           [&ends](const BusService::Call& call) -> std::optional<QVariantList> {
                               EXPECT_EQ(call.method, "org.freedesktop.login1.Manager.Inhibit");
                               EXPECT_EQ(call.arguments.value(0), "sleep:idle");
                               EXPECT_EQ(call.arguments.value(3), "block");
                               const QDBusUnixFileDescriptor lock(ends[1]);
                               ::close(ends[1]);
                               return {{QVariant::fromValue(lock)}};
                           });
    // The lock is free when nobody holds the pipe's other end any more: then a read finds its end.
    const auto isFree = [&ends] {
        char byte = 0;
        return ::read(ends[0], &byte, 1) == 0;
    };
    PortalSleepInhibitor inhibitor;
    auto token = inhibitor.keepAwake("Unzipping");
    ASSERT_TRUE(waitUntil([&login] { return login.calls().size() == 1; }));
    EXPECT_FALSE(waitUntil(isFree, std::chrono::milliseconds(200)));
    token.reset();
    EXPECT_TRUE(waitUntil(isFree));
    ::close(ends[0]);
}

TEST(SleepInhibitorTest, DoesWithoutAnybody) {
    PortalSleepInhibitor inhibitor;
    EXPECT_NE(inhibitor.keepAwake("Unzipping"), nullptr);
}

}  // namespace
}  // namespace pellumar::test
