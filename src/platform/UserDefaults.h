#pragma once

#include <QSettings>
#include <QVariant>
#include <QVariantMap>
#include <mutex>

namespace pellumar {

// The user's preferences: values by key in a file, over a layer of registered defaults that is
// never written. All operations may be called from any thread, and none can fail: a value that the
// file does not take is kept in memory until the process ends.
class UserDefaults {
  public:
    // Over the INI file `file`, which need not exist.
    explicit UserDefaults(const QString& file);

    // Where the application's own preferences stand, below the user's configuration folder.
    [[nodiscard]] static QString standardFile();

    // Adds to the registered defaults; a later one of the same key replaces an earlier one.
    void registerDefaults(const QVariantMap& defaults);

    // False if the key is missing or holds nothing that can be taken for a truth value. Numbers are
    // true unless 0; texts are true if they start with "y", "t" or a number that is not 0.
    [[nodiscard]] bool boolForKey(const QString& key) const;
    // 0 if the key is missing or does not hold a whole number.
    [[nodiscard]] qint64 integerForKey(const QString& key) const;
    // Empty if the key is missing or holds a list.
    [[nodiscard]] QString stringForKey(const QString& key) const;

    // Every write is on disk when it returns, so that it outlives a process that is killed.
    void setBool(bool value, const QString& key);
    void setInteger(qint64 value, const QString& key);
    // Any value that a QVariant can hold as text or number. An invalid one removes the key.
    void setValue(const QVariant& value, const QString& key);

  private:
    [[nodiscard]] QVariant valueForKey(const QString& key) const;

    mutable std::mutex mutex_;
    QSettings settings_;
    QVariantMap registered_;
};

}  // namespace pellumar
