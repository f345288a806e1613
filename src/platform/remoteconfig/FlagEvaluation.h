#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>
#include <optional>

namespace pellumar {

// Remote values in their text form, by key.
using ConfigValues = QHash<QString, QString>;

// The body of a bulk evaluation in the OpenFeature Remote Evaluation Protocol, version 0: the
// question and the answer.

// `targetingKey` is what the server draws the arm of an experiment by.
[[nodiscard]] QByteArray evaluationRequest(const QString& targetingKey);

// Nothing if the answer is not one. An element that failed, has no value or is not as it should be
// is passed over: it concerns its own key alone. Of two elements with one key the last one counts.
//
// The text form of a value: "true" or "false"; a text as it is; a whole number within 64 bits in
// decimal digits; another number in the shortest form that reads back as the same; an object as
// compact JSON.
[[nodiscard]] std::optional<ConfigValues> parseEvaluation(const QByteArray& body);

// What the body of a refusal says about the reason, in one line; empty if it says nothing.
[[nodiscard]] QString refusalDetails(const QByteArray& body);

}  // namespace pellumar
