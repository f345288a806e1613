#include "analytics/Memory.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QMetaProperty>

namespace pellumar {

void Memory::lose(const QString& reason, qint64 number) {
    if (number > 0) {
        losses[reason] = losses[reason].toLongLong() + number;
    }
}

void Memory::set(const UserProperty& property) {
    if (property.value.isEmpty()) {
        properties.remove(property.name);
    } else if (properties.contains(property.name) || properties.size() < kMostProperties) {
        properties.insert(property.name, property.value);
    } else {
        lose(loss::kInvalid, 1);
    }
}

QByteArray Memory::toJson() const {
    const Memory none;
    QVariantMap content;
    for (int i = 0; i < staticMetaObject.propertyCount(); ++i) {
        const QMetaProperty property = staticMetaObject.property(i);
        const QVariant value = property.readOnGadget(this);
        if (value != property.readOnGadget(&none)) {
            content.insert(QString::fromLatin1(property.name()), value);
        }
    }
    return QJsonDocument(QJsonObject::fromVariantMap(content)).toJson(QJsonDocument::Compact);
}

void Memory::read(const QByteArray& json) {
    const QVariantMap content = QJsonDocument::fromJson(json).object().toVariantMap();
    for (auto each = content.begin(); each != content.end(); ++each) {
        const int index = staticMetaObject.indexOfProperty(each.key().toLatin1().constData());
        staticMetaObject.property(index).writeOnGadget(this, each.value());
    }
}

}  // namespace pellumar
