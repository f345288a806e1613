#include "platform/desktop/SingleInstance.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QProcess>
#include <algorithm>
#include <memory>
#include <vector>

#include "InstanceChild.h"
#include "platform/FileUrl.h"
#include "platform/bus/BusService.h"
#include "platform/bus/WaitUntil.h"

namespace pellumar::test {
namespace {

using Role = SingleInstance::Role;

std::unique_ptr<QProcess> startChild(const QStringList& arguments) {
    auto child = std::make_unique<QProcess>();
    child->setProcessChannelMode(QProcess::ForwardedErrorChannel);
    child->start(QCoreApplication::applicationFilePath(), arguments);
    return child;
}

bool hasEnded(const QProcess& child) {
    return child.state() == QProcess::NotRunning;
}

TEST(SingleInstanceTest, ForwardsAnyNameToTheFirst) {
    const QList<QUrl> urls{
        fileUrl("/tmp/a b/100% größer #1?.zip"),
        fileUrl("/tmp/caf\xe9.zip"),
        QUrl("https://example.org/a.zip"),
    };
    SingleInstance first;
    QList<QUrl> opened;
    int activations = 0;
    QObject::connect(&first, &SingleInstance::openRequested, [&opened](const QList<QUrl>& more) {
        opened.append(more);
    });
    QObject::connect(&first, &SingleInstance::activated, [&activations] { ++activations; });
    ASSERT_EQ(first.claim({}), Role::kFirst);

    QStringList arguments{kClaimArgument};
    for (const QUrl& url : urls) {
        arguments.append(QString::fromLatin1(url.toEncoded()));
    }
    const auto second = startChild(arguments);
    ASSERT_TRUE(waitUntil([&second] { return hasEnded(*second); }));
    EXPECT_EQ(second->exitCode(), 0);
    EXPECT_EQ(opened, urls);
    EXPECT_EQ(localPath(opened.value(1)), std::filesystem::path("/tmp/caf\xe9.zip"));

    qputenv("XDG_ACTIVATION_TOKEN", "token-of-the-launcher");
    const auto third = startChild({kClaimArgument});
    qunsetenv("XDG_ACTIVATION_TOKEN");
    ASSERT_TRUE(waitUntil([&third] { return hasEnded(*third); }));
    EXPECT_EQ(third->exitCode(), 0);
    EXPECT_EQ(opened.size(), urls.size());
    EXPECT_EQ(activations, 2);
    EXPECT_EQ(qgetenv("XDG_ACTIVATION_TOKEN"), "token-of-the-launcher");
    qunsetenv("XDG_ACTIVATION_TOKEN");
}

// The bus hands over what it has started a process for as soon as that has the name, and the
// application must know of it before its first screen comes into view.
TEST(SingleInstanceTest, TakesTheCallItWasStartedFor) {
    SingleInstance first;
    ASSERT_EQ(first.claim({}), Role::kFirst);
    EXPECT_EQ(first.takeWaiting(false), QList<QUrl>());
    int later = 0;
    QObject::connect(&first, &SingleInstance::openRequested, [&later] { ++later; });

    const QList<QUrl> urls{QUrl("file:///tmp/a.zip"), QUrl("file:///tmp/b.zip")};
    const auto caller = startChild({kClaimArgument, urls[0].toString(), urls[1].toString()});
    EXPECT_EQ(first.takeWaiting(true), urls);
    ASSERT_TRUE(waitUntil([&caller] { return hasEnded(*caller); }));
    EXPECT_EQ(caller->exitCode(), 0);

    const auto next = startChild({kClaimArgument, urls[0].toString()});
    EXPECT_TRUE(waitUntil([&later] { return later == 2; }));
    ASSERT_TRUE(waitUntil([&next] { return hasEnded(*next); }));
}

TEST(SingleInstanceTest, OneOfManyThatStartTogetherIsFirst) {
    constexpr int kStarts = 6;
    std::vector<std::unique_ptr<QProcess>> children;
    children.reserve(kStarts);
    for (int i = 0; i < kStarts; ++i) {
        children.push_back(
            startChild({kClaimArgument, QStringLiteral("file:///tmp/%1.zip").arg(i)}));
    }
    const auto running = [&children] {
        return std::count_if(
            children.begin(), children.end(), [](const auto& child) { return !hasEnded(*child); });
    };
    ASSERT_TRUE(waitUntil([&running] { return running() == 1; }));
    for (const auto& child : children) {
        if (hasEnded(*child)) {
            EXPECT_EQ(child->exitCode(), 0);
            continue;
        }
        // "first", and the address of each of the others.
        QByteArray said;
        EXPECT_TRUE(waitUntil([&child, &said] {
            said += child->readAllStandardOutput();
            return said.count('\n') == kStarts;
        })) << said.toStdString();
        child->kill();
        child->waitForFinished();
    }
}

TEST(SingleInstanceTest, OwnerWhoDoesNotAnswerHoldsNobodyUp) {
    // It answers from the event loop, which does not run meanwhile.
    const BusService silent("org.pellumar.Zip",
                            [](const BusService::Call&) { return QVariantList(); });
    SingleInstance second(std::chrono::milliseconds(100));
    EXPECT_EQ(second.claim({QUrl("file:///tmp/a.zip")}), Role::kNoAnswer);
}

TEST(SingleInstanceTest, TakesThePlaceOfAnOwnerWhoEndsMeanwhile) {
    const auto owner = startChild({kEndWhenCalledArgument});
    ASSERT_TRUE(waitUntil([&owner] { return owner->canReadLine(); }));
    SingleInstance second;
    EXPECT_EQ(second.claim({QUrl("file:///tmp/a.zip")}), Role::kFirst);
    owner->waitForFinished();
}

TEST(SingleInstanceTest, OwnerThatIsAboutToEndGivesTheNameBack) {
    SingleInstance owner;
    ASSERT_EQ(owner.claim({}), Role::kFirst);
    SingleInstance::release();
    const auto next = startChild({kClaimArgument, "file:///tmp/a.zip"});
    QByteArray said;
    EXPECT_TRUE(waitUntil([&next, &said] {
        said += next->readAllStandardOutput();
        return said.contains('\n') || hasEnded(*next);
    }));
    EXPECT_EQ(said, "first\n");
    next->kill();
    next->waitForFinished();
}

}  // namespace
}  // namespace pellumar::test
