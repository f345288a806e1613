#pragma once

#include <QMetaObject>
#include <QString>

namespace pellumar {

// "ViewController", without namespaces.
[[nodiscard]] inline QString unqualifiedName(const QMetaObject& type) {
    return QString::fromLatin1(type.className()).section(QLatin1String("::"), -1);
}

}  // namespace pellumar
