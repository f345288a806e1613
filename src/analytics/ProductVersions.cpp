#include "analytics/ProductVersions.h"

#include <QSysInfo>

namespace pellumar {

ProductVersions ProductVersions::ofThisSystem(const QString& serviceName,
                                              const QString& serviceVersion) {
    return {.serviceName = serviceName,
            .serviceVersion = serviceVersion,
            .osType = QSysInfo::kernelType(),
            .osVersion = QSysInfo::prettyProductName()};
}

}  // namespace pellumar
