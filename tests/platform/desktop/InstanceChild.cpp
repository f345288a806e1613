#include "InstanceChild.h"

#include <unistd.h>

#include <QCoreApplication>
#include <QTextStream>
#include <cstdio>

#include "platform/bus/BusService.h"
#include "platform/desktop/SingleInstance.h"

namespace pellumar::test {
namespace {

void say(const QString& line) {
    QTextStream(stdout) << line << Qt::endl;
}

int claim(const QStringList& addresses) {
    QList<QUrl> urls;
    for (const QString& address : addresses) {
        urls.append(QUrl(address));
    }
    SingleInstance instance;
    QObject::connect(&instance, &SingleInstance::openRequested, [](const QList<QUrl>& opened) {
        for (const QUrl& url : opened) {
            say(url.toString());
        }
    });
    switch (instance.claim(urls)) {
        case SingleInstance::Role::kForwarded:
            return 0;
        case SingleInstance::Role::kNoAnswer:
            return 1;
        case SingleInstance::Role::kFirst:
            break;
    }
    say("first");
    return QCoreApplication::exec();
}

int endWhenCalled() {
    const BusService owner(
        "org.pellumar.Zip",
        [](const BusService::Call&) -> std::optional<QVariantList> { ::_exit(0); });
    say("ready");
    return QCoreApplication::exec();
}

}  // namespace

std::optional<int> runInstanceChild(const QStringList& arguments) {
    const QString mode = arguments.value(1);
    if (mode == kClaimArgument) {
        return claim(arguments.mid(2));
    }
    return mode == kEndWhenCalledArgument ? std::optional(endWhenCalled()) : std::nullopt;
}

}  // namespace pellumar::test
