#pragma once

#include <QDBusVariant>
#include <QObject>
#include <QString>

namespace pellumar {

// How the user wants applications to look, as the desktop tells through its settings portal, and as
// it changes. Until the portal has answered, and where it does not tell, the application's palette
// says whether all is dark, and all is moving and of normal size. PELLUMAR_APPEARANCE=dark|light,
// PELLUMAR_REDUCED_MOTION=1 and PELLUMAR_TEXT_SCALE=2 in the environment overrule the desktop. For
// the main thread, when there is a QGuiApplication; nothing waits.
class Appearance : public QObject {
    Q_OBJECT

  public:
    Appearance();

    [[nodiscard]] bool isDark() const { return isDark_; }
    [[nodiscard]] bool isStill() const { return isStill_; }
    // Of the theme's sizes; from 0.5 to 3.
    [[nodiscard]] qreal textScale() const { return textScale_; }

  signals:
    // Only if something has.
    void changed();

  private slots:
    void settingChanged(const QString& group, const QString& key, const QDBusVariant& value);

  private:
    void ask(const QString& group, const QString& key);
    void take(const QString& group, const QString& key, QVariant value);
    void takeEnvironment();

    bool isDark_;
    bool isStill_ = false;
    qreal textScale_ = 1;
};

}  // namespace pellumar
