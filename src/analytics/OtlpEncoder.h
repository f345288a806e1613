#pragma once

#include <QByteArray>
#include <vector>

#include "analytics/AnalyticsEnvironment.h"

namespace pellumar {

// The logs of OTLP/HTTP in JSON (OpenTelemetry protocol 1.x, "JSON Protobuf Encoding"): names in
// lowerCamelCase, 64-bit integers as decimal texts, enumerations as numbers.
namespace otlp {

// A list of attributes.
[[nodiscard]] QByteArray encode(const Event::Parameters& parameters);

// The body of POST /v1/logs, an ExportLogsServiceRequest. `events` must not be empty: an envelope
// without a letter is not sent. Moments are those of the minute.
[[nodiscard]] QByteArray encode(const ProductVersions& versions,
                                const Consent& consent,
                                const Memory& memory,
                                const std::vector<StoredEvent>& events);

// RFC 1952. Empty if there is not enough memory.
[[nodiscard]] QByteArray gzip(const QByteArray& bytes);

}  // namespace otlp
}  // namespace pellumar
