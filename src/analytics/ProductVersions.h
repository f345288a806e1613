#pragma once

#include <QString>

namespace pellumar {

// What is measured, and on what.
struct ProductVersions {
    QString serviceName;
    QString serviceVersion;
    // "linux".
    QString osType;
    // "Debian GNU/Linux 12", as a person would say it.
    QString osVersion;

    // Those of this machine.
    [[nodiscard]] static ProductVersions ofThisSystem(const QString& serviceName,
                                                      const QString& serviceVersion);
};

}  // namespace pellumar
