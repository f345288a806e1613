#include <QFile>
#include <QTextStream>

#include "EngineTest.h"
#include "events/EventNames.h"
#include "events/PellumarAnalytics.h"
#include "support/FileContents.h"

namespace pellumar::test {
namespace {

// What leaves the machine in an hour of use, by the user's switch and by the consent: every request
// to a collector on this machine, as the table in docs/analytics.md.
class CaptureTest : public EngineTest {
  protected:
    // Knows whether an answer is still to come.
    class CountingTransport : public HttpTransport {
      public:
        CountingTransport(const QString& address, std::atomic<int>& underway)
            : HttpTransport(QUrl(address + "/v1/logs"), {}), underway_(underway) {}
        void send(const QByteArray& body) override {
            ++underway_;
            HttpTransport::send(body);
        }
        [[nodiscard]] std::optional<Answer> takeAnswer() override {
            std::optional<Answer> answer = HttpTransport::takeAnswer();
            underway_ -= answer ? 1 : 0;
            return answer;
        }

      private:
        std::atomic<int>& underway_;
    };

    [[nodiscard]] QString capture(bool isSwitchedOn, ConsentStatus consent) {
        folder = parent / (std::to_string(static_cast<int>(isSwitchedOn)) + "of" +
                           std::to_string(static_cast<int>(consent)));
        Collector collector;
        AnalyticsEnvironment with = environment(consent);
        // By the clock that stands still, so that everything of a moment leaves together.
        with.idle = std::chrono::seconds(1);
        std::atomic<int> underway = 0;
        with.transport = [&] {
            return std::make_unique<CountingTransport>(collector.address(), underway);
        };
        UserDefaults preferences(QString::fromStdString((parent / "preferences").string()));
        UserSettings settings(preferences);
        preferences.setBool(isSwitchedOn, settings.sendUsageDataKey());
        RunningEngine engine(std::move(with));
        const PellumarAnalytics analytics(settings, engine);
        QString rows;
        std::size_t seen = 0;
        int minute = 0;
        const auto passMinutes = [&](int minutes) {
            static_cast<void>(engine.waitUntilStored(kDeadline));
            for (int i = 0; i < minutes; ++i, ++minute) {
                advance(kMinute);
                // It has looked, and has got its answer.
                for (int look = 0; look < 2; ++look) {
                    static_cast<void>(engine.waitUntilStored(kDeadline));
                    EXPECT_TRUE(becomesTrue([&] { return underway == 0; }));
                }
                for (; seen < collector.batches().size(); ++seen) {
                    rows += row(isSwitchedOn, consent, minute + 1, &collector.batches()[seen]);
                }
            }
        };
        use(engine, analytics, passMinutes);
        engine.stop();
        for (; seen < collector.batches().size(); ++seen) {
            rows += row(isSwitchedOn, consent, minute, &collector.batches()[seen]);
        }
        EXPECT_EQ(collector.faults(), QStringList());
        return rows.isEmpty() ? row(isSwitchedOn, consent, 0, nullptr) : rows;
    }

  private:
    template <typename PassMinutes>
    static void use(AnalyticsEngine& engine,
                    const PellumarAnalytics& analytics,
                    const PassMinutes& pass) {
        engine.setUserPropertyString("|", "participating_tests");
        engine.setActive(true);
        analytics.logEvent(event::kStartedTutorial);
        pass(2);
        analytics.logEvent(event::kFinishedTutorial);
        pass(3);
        analytics.logEvent(event::kTappedUnzip);
        analytics.logEvent(event::kUnzippedSuccessfully);
        pass(5);
        engine.setActive(false);
        pass(40);
        // Somebody else has been using the machine.
        engine.setActive(true);
        analytics.logEvent(event::kTappedZip);
        analytics.logEvent(event::kTappedFiles);
        pass(5);
        analytics.logEvent(event::kZippedSuccessfully);
        analytics.logEvaluatedApp(4);
        pass(5);
    }

    [[nodiscard]] static QString row(bool isSwitchedOn,
                                     ConsentStatus consent,
                                     int minute,
                                     const CollectedBatch* batch) {
        QStringList events;
        QStringList about;
        if (batch != nullptr) {
            for (const CollectedRecord& record : batch->records) {
                QStringList parameters;
                for (auto each = record.attributes.begin(); each != record.attributes.end();
                     ++each) {
                    if (!each.key().contains('.')) {
                        parameters.append(each.key() + "=" + each.value());
                    }
                }
                events.append("`" + record.name +
                              (parameters.isEmpty() ? "" : " " + parameters.join(' ')) + "`");
                EXPECT_EQ(record.milliseconds % kMinute, 0);
            }
            for (auto each = batch->resource.begin(); each != batch->resource.end(); ++each) {
                if (each.key().startsWith("pz.") || each.key().startsWith("app.")) {
                    about.append("`" + each.key() + "`");
                }
            }
        }
        return QStringLiteral("| %1 | %2 | %3 | %4 | %5 |\n")
            .arg(isSwitchedOn ? "on" : "off",
                 toText(consent),
                 batch != nullptr ? QString::number(minute) : QStringLiteral("–"),
                 batch != nullptr ? events.join(", ") : QStringLiteral("no request"),
                 about.join(", "));
    }
};

TEST_F(CaptureTest, TheDocumentsTableIsWhatLeaves) {
    QString table =
        "| switch | consent | minute | events | with them |\n| --- | --- | --- | --- | --- |\n";
    for (const bool isSwitchedOn : {false, true}) {
        for (const ConsentStatus consent :
             {ConsentStatus::kUnset, ConsentStatus::kGranted, ConsentStatus::kDenied}) {
            table += capture(isSwitchedOn, consent);
        }
    }
    const QString document = QString::fromStdString(
        readText(std::filesystem::path(SOURCE_FOLDER) / "docs/analytics.md"));
    EXPECT_TRUE(document.contains(table)) << table.toStdString();
}

}  // namespace
}  // namespace pellumar::test
