#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QStringList>
#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <vector>

#include "support/network/LoopbackServer.h"

namespace pellumar::test {

// Values as texts.
using Attributes = QMap<QString, QString>;

struct CollectedRecord {
    QString name;
    qint64 milliseconds = 0;
    Attributes attributes;
};

struct CollectedBatch {
    Attributes resource;
    std::vector<CollectedRecord> records;
    // Of the request, in small letters.
    std::string head;
    // Uncompressed.
    QByteArray body;
};

// A collector of OTLP/HTTP on 127.0.0.1 that holds every batch against the protocol.
class Collector {
  public:
    Collector();

    // The answers to come, in this order; then each is a success.
    void setAnswers(std::deque<HttpAnswer> answers);

    [[nodiscard]] QString address() const { return server_.address(); }
    // What was received, whatever was answered to it.
    [[nodiscard]] std::vector<CollectedBatch> batches() const;
    // The names of all records in all batches.
    [[nodiscard]] QStringList names() const;
    // What broke the protocol.
    [[nodiscard]] QStringList faults() const;

    // False if there are not so many batches before the deadline.
    [[nodiscard]] bool waitForBatches(
        std::size_t count,
        std::chrono::milliseconds timeout = std::chrono::seconds(30)) const;
    [[nodiscard]] bool waitFor(const std::function<bool(const std::vector<CollectedBatch>&)>& is,
                               std::chrono::milliseconds timeout = std::chrono::seconds(30)) const;

  private:
    HttpAnswer take(const HttpRequest& request);

    mutable std::mutex mutex_;
    mutable std::condition_variable changed_;
    std::deque<HttpAnswer> answers_;
    std::vector<CollectedBatch> batches_;
    QStringList faults_;
    LoopbackServer server_;
};

}  // namespace pellumar::test
