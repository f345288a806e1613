#pragma once

#include <QByteArray>
#include <map>
#include <vector>

#include "analytics/ConsentState.h"
#include "analytics/Event.h"
#include "analytics/ProductVersions.h"
#include "analytics/UserPropertyTable.h"

namespace pellumar {

// What all events of a batch have in common.
struct BatchSource {
    ProductVersions versions;
    QString installation;
    std::vector<UserProperty> userProperties;
    // By reason.
    std::map<QString, qint64> losses;
    // As it is now.
    Consent consent;
};

// What a collector said of a batch that it took.
struct OtlpResult {
    qint64 rejected = 0;
};

// The logs of OTLP/HTTP in JSON (OpenTelemetry protocol 1.x, "JSON Protobuf Encoding"): names in
// lowerCamelCase, 64-bit integers as decimal texts, enumerations as numbers.
namespace otlp {

// The body of POST /v1/logs, an ExportLogsServiceRequest. `events` must not be empty: an envelope
// without a letter is not sent.
[[nodiscard]] QByteArray encode(const BatchSource& source, const std::vector<StoredEvent>& events);

// Reads the body of a 200, an ExportLogsServiceResponse. Nothing if it is not one, so that who
// answered was no collector but something on the way to it.
[[nodiscard]] std::optional<OtlpResult> decode(const QByteArray& body);

}  // namespace otlp
}  // namespace pellumar
