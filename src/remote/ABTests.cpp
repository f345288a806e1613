#include "remote/ABTests.h"

#include <QString>
#include <QtGlobal>

#include "platform/FIRApp.h"
#include "platform/TextLength.h"

namespace pellumar {
ABTests& ABTests::shared() {
    static StreamConsole console(stdout);
    static const std::shared_ptr<FIRAnalytics> analytics = FIRApp::services().analytics;
    static ABTests tests(RemoteSettings::shared(), *analytics, console);
    return tests;
}

void ABTests::registerExperiments(const ABExperiments& experiments) const {
    const QChar bar = QLatin1Char('|');
    QString participation = bar;
    for (const auto& experiment : experiments) {
        participation += experiment->id() + bar;
    }
    console_.writeLine(QStringLiteral("Compatible experiments: ") + participation);
    if (textLength(participation) > FIRAnalytics::kMostUserPropertyText) {
        qFatal("Experiment keys can't have more than 36 characters");
    }
    analytics_.setUserPropertyString(participation, QStringLiteral("participating_tests"));
}

}  // namespace pellumar
