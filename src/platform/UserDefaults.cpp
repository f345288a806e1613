#include "platform/UserDefaults.h"

#include <QFile>

#include "platform/UserFolders.h"

namespace pellumar {
namespace {

// The INI file gives everything back as text, and a person may have edited it.
bool isTrue(const QString& text) {
    const QString word = text.trimmed().toLower();
    return word.startsWith(QLatin1Char('y')) || word.startsWith(QLatin1Char('t')) ||
           word.toDouble() != 0.0;
}

}  // namespace

UserDefaults::UserDefaults(const QString& file) : settings_(file, QSettings::IniFormat) {}

QString UserDefaults::standardFile() {
    return QFile::decodeName(UserFolders::config("pellumar-zip.conf").c_str());
}

void UserDefaults::registerDefaults(const QVariantMap& defaults) {
    const std::lock_guard lock(mutex_);
    registered_.insert(defaults);
}

QVariant UserDefaults::valueForKey(const QString& key) const {
    const std::lock_guard lock(mutex_);
    return settings_.value(key, registered_.value(key));
}

bool UserDefaults::boolForKey(const QString& key) const {
    const QVariant value = valueForKey(key);
    return value.typeId() == QMetaType::QString ? isTrue(value.toString()) : value.toBool();
}

qint64 UserDefaults::integerForKey(const QString& key) const {
    return valueForKey(key).toLongLong();
}

QString UserDefaults::stringForKey(const QString& key) const {
    return valueForKey(key).toString();
}

void UserDefaults::setBool(bool value, const QString& key) {
    setValue(value, key);
}

void UserDefaults::setInteger(qint64 value, const QString& key) {
    setValue(value, key);
}

void UserDefaults::setValue(const QVariant& value, const QString& key) {
    const std::lock_guard lock(mutex_);
    if (value.isValid()) {
        settings_.setValue(key, value);
    } else {
        settings_.remove(key);
    }
    settings_.sync();
}

}  // namespace pellumar
